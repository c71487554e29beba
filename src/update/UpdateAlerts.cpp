#include "update/UpdateAlerts.h"

namespace korvane::updatealerts {

Alert available(const VersionDocument& document)
{
    auto text = "Version " + document.version + " is available.";
    if (!document.notes.empty())
        text += "\n\nRelease notes: " + document.notes;
    return { "Korvane update available", text, { "Download Update", "Later" },
        Alert::Kind::notice };
}

Alert upToDate()
{
    return { "Korvane is up to date", "You're running the latest version.", { "OK" },
        Alert::Kind::notice };
}

Alert failed()
{
    return { "Korvane could not check for updates",
        "The server could not be reached, or its answer could not be used. Please try again later.",
        { "OK" }, Alert::Kind::notice };
}

} // namespace korvane::updatealerts
