#pragma once

#include "model/Signal.h"
#include "settings/view/FormPage.h"

namespace korvane {

class HotkeyManager;

/// The Help page: which key does what, and some tips.
class HelpPage : public FormPage {
public:
    explicit HelpPage(HotkeyManager& hotkeys, QWidget* parent = nullptr);

private:
    Connection m_shortcut;
};

} // namespace korvane
