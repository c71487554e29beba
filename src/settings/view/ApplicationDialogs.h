#pragma once

#include "settings/ApplicationChooser.h"
#include "settings/view/ControlKit.h"

#include <QPointer>

class QWidget;

namespace korvane {

class ApplicationDialog;
class Applications;

/// Lets the user choose an application in a dialog over the window of a page.
class ApplicationDialogs : public ApplicationChooser {
public:
    /// @param page  a part of the window; it outlives us
    ApplicationDialogs(const ControlKit& kit, Applications& applications, QWidget& page);

    void choose(std::vector<Application> offered,
        std::function<void(std::optional<std::string>)> chosen) override;

    /// The dialog that is open; null: none.
    ApplicationDialog* dialog() const;

private:
    ControlKit m_kit;
    Applications& m_applications;
    QWidget& m_page;
    QPointer<ApplicationDialog> m_dialog;
};

} // namespace korvane
