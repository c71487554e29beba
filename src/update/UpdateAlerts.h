#pragma once

#include "model/Alerts.h"
#include "update/VersionDocument.h"

namespace korvane {

namespace updatealerts {
    /// There is a newer version, with its notes.
    Alert available(const VersionDocument& document);
    Alert upToDate();
    /// The server could not be asked, or has told nothing of use.
    Alert failed();
} // namespace updatealerts

} // namespace korvane
