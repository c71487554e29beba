#pragma once

#include "model/Signal.h"
#include "settings/IgnoredAppsEditor.h"
#include "settings/view/AppList.h"

#include <QWidget>

#include <vector>

namespace korvane {

class FormText;

/// The list of the user's ignored applications, or a text where there is none. What is selected in it
/// is selected in the editor.
class IgnoredAppsView : public QWidget {
public:
    IgnoredAppsView(IgnoredAppsEditor& editor, Symbols& symbols, QWidget* parent = nullptr);
    ~IgnoredAppsView() override;

    AppList& list() const { return *m_list; }
    FormText& emptyText() const { return *m_empty; }

private:
    void refresh();
    void fill();
    void showSelection();
    void selectionChanged();

    IgnoredAppsEditor& m_editor;
    AppList* m_list;   // its child
    FormText* m_empty; // the same
    std::vector<IgnoredApp> m_shown;
    Connection m_changed;
};

} // namespace korvane
