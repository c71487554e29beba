#pragma once

#include <iosfwd>

namespace korvane {

class LoginItem;

/// The login item as the settings show it: as it was when they were made, and then as the user has
/// set it. It is not looked at again.
class LaunchAtLogin {
public:
    /// @param output  where a failure is told: the standard output
    LaunchAtLogin(LoginItem& item, std::ostream& output);

    bool isOn() const { return m_isOn; }
    /// Where that fails the position stays as the user has set it, deliberately.
    void turn(bool isOn);

private:
    LoginItem& m_item;
    std::ostream& m_output;
    bool m_isOn;
};

} // namespace korvane
