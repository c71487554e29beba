#pragma once

#include "settings/IgnoredAppsEditor.h"
#include "settings/view/ApplicationDialogs.h"
#include "settings/view/ControlKit.h"
#include "settings/view/FormPage.h"

namespace korvane {

class Alerts;
class IgnoredAppsView;
class SymbolButton;

/// The Privacy page: from which applications nothing is kept.
class PrivacyPage : public FormPage {
public:
    PrivacyPage(const ControlKit& kit, ClipboardMonitor& monitor, Applications& applications,
        Alerts& alerts, QWidget* parent = nullptr);

    IgnoredAppsView& ignoredApps() const { return *m_ignoredApps; }
    SymbolButton& addButton() const { return *m_add; }
    SymbolButton& removeButton() const { return *m_remove; }
    ApplicationDialogs& chooser() { return m_chooser; }

private:
    void addAutomaticSection(const ControlKit& kit);
    void addOwnSection(const ControlKit& kit);

    ApplicationDialogs m_chooser;
    IgnoredAppsEditor m_editor;
    IgnoredAppsView* m_ignoredApps = nullptr; // a child, as are these
    SymbolButton* m_add = nullptr;
    SymbolButton* m_remove = nullptr;
};

} // namespace korvane
