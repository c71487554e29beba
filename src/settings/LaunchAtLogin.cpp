#include "settings/LaunchAtLogin.h"

#include "settings/LoginItem.h"

#include <ostream>

namespace korvane {

LaunchAtLogin::LaunchAtLogin(LoginItem& item, std::ostream& output)
    : m_item(item)
    , m_output(output)
    , m_isOn(item.isEnabled())
{
}

void LaunchAtLogin::turn(bool isOn)
{
    m_isOn = isOn;
    if (const auto error = m_item.setEnabled(isOn))
        m_output << "Launch at login error: " << *error << std::endl; // seen now, not at the end
}

} // namespace korvane
