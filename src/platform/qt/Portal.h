#pragma once

#include <QString>

namespace korvane {

/// Where the desktop's portal is on the session bus (XDG Desktop Portal).
inline const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
inline const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

} // namespace korvane
