#pragma once

#include "settings/IgnoredAppsEditor.h"
#include "settings/view/AppList.h"

#include <string>

namespace korvane {

/// An application whose copies are not kept.
class IgnoredAppRow : public AppRow {
public:
    explicit IgnoredAppRow(const IgnoredApp& app)
        : AppRow(app.name, app.icon)
        , m_bundleID(app.bundleID)
    {
    }

    const std::string& bundleID() const { return m_bundleID; }

private:
    std::string m_bundleID;
};

} // namespace korvane
