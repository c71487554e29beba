#include "settings/LimitTexts.h"

#include <utility>

namespace korvane::limittexts {

namespace {

    Alert reduction(std::string message, std::string informativeText)
    {
        Alert question { std::move(message), std::move(informativeText), { "Apply", "Cancel" } };
        question.suppression = "Don't show again";
        return question;
    }

} // namespace

Alert reduceClipLimit(std::int64_t excess)
{
    return reduction("Reduce clip limit?",
        "The " + std::to_string(excess) + " oldest unpinned clip" + (excess == 1 ? "" : "s")
            + " will be deleted. This cannot be undone.");
}

Alert reduceTotalSizeLimit(int megabytes)
{
    return reduction("Reduce total size limit?",
        "Oldest unpinned clips will be deleted until the history fits within "
            + std::to_string(megabytes) + " MB. This cannot be undone.");
}

} // namespace korvane::limittexts
