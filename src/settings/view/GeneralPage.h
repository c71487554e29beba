#pragma once

#include "settings/LaunchAtLogin.h"
#include "settings/view/ControlKit.h"
#include "settings/view/FormPage.h"

#include "model/Preferences.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct Choice;
struct SoundChoice;
class SoundPlayer;

/// The General page: how the program starts, sounds and looks.
class GeneralPage : public FormPage {
public:
    struct World {
        Preferences& preferences;
        SoundPlayer& sounds;
        LoginItem& loginItem;
        std::ostream& output; ///< takes what goes wrong with the login item
        /// Adds the rows of the history's limits to the first section; none: there are no such rows.
        std::function<void(FormSection&)> addLimitRows;
    };

    GeneralPage(const ControlKit& kit, World world, QWidget* parent = nullptr);

private:
    void addSound(FormSection& section, std::string_view title, const SoundChoice& choice);
    void addSwitch(FormSection& section, std::string_view title, std::string_view key);
    void addPicker(FormSection& section, std::string_view title, std::span<const Choice> choices,
        std::string_view key, std::function<std::string(const Preferences&)> shown,
        std::string_view toolTip = {});

    ControlKit m_kit;
    World m_world;
    LaunchAtLogin m_launchAtLogin;
    std::vector<Connection> m_connections;
};

} // namespace korvane
