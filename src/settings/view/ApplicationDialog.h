#pragma once

#include "look/view/LinePaste.h"
#include "look/view/Symbols.h"
#include "settings/ApplicationSearch.h"
#include "settings/view/ControlKit.h"

#include <QDialog>

#include <functional>
#include <string>
#include <vector>

namespace korvane {

class AppList;
class FormText;
class PushButton;

/// Asks for one application: those that are offered by icon and name, with a field to search them,
/// and a way to any other one by its file. It deletes itself when it has closed.
class ApplicationDialog : public QDialog {
public:
    /// @param folders  in which there are files of applications
    /// @param chosen   called with the file of the application, before the dialog has gone
    ApplicationDialog(const ControlKit& kit, std::vector<Application> offered,
        std::vector<std::string> folders, std::function<void(std::string file)> chosen,
        QWidget* over);

    QLineEdit& searchField() const;
    AppList& list() const { return *m_list; }
    PushButton& addButton() const { return *m_add; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class SearchLine;

    void layOut();
    void showMatching(const QString& typed);
    void addSelected();
    void askForFile();

    TextReader m_clipboardText;
    std::function<void(std::string)> m_chosen;
    ApplicationSearch m_search;
    std::vector<std::string> m_folders;
    std::vector<Application> m_shown;
    SearchLine* m_field; // a child, as all of these
    AppList* m_list;
    FormText* m_nothing;
    PushButton* m_add;
};

} // namespace korvane
