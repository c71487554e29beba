#include "settings/view/ApplicationDialogs.h"

#include "look/view/Child.h"
#include "look/view/SheetDialog.h"
#include "settings/view/ApplicationDialog.h"

#include <utility>

namespace korvane {

ApplicationDialogs::ApplicationDialogs(
    const ControlKit& kit, Applications& applications, QWidget& page)
    : m_kit(kit)
    , m_applications(applications)
    , m_page(page)
{
}

void ApplicationDialogs::choose(
    std::vector<Application> offered, std::function<void(std::optional<std::string>)> chosen)
{
    if (m_dialog != nullptr)
        return;
    m_dialog = makeChild<ApplicationDialog>(
        m_kit, std::move(offered), m_applications.folders(),
        [chosen](std::string file) { chosen(std::move(file)); }, m_page.window());
    QObject::connect(m_dialog, &QDialog::rejected, m_dialog,
        [chosen = std::move(chosen)] { chosen(std::nullopt); });
    openAsSheet(*m_dialog, *m_page.window());
}

ApplicationDialog* ApplicationDialogs::dialog() const
{
    return m_dialog;
}

} // namespace korvane
