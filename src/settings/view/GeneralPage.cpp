#include "settings/view/GeneralPage.h"

#include "settings/GeneralTexts.h"
#include "settings/SoundChoice.h"
#include "settings/view/Bindings.h"
#include "settings/view/FormSection.h"
#include "settings/view/SegmentedPicker.h"
#include "settings/view/SoundRow.h"
#include "settings/view/Switch.h"

#include <utility>

namespace korvane {

namespace {
    namespace texts = generaltexts;

    QString text(std::string_view utf8)
    {
        return QString::fromUtf8(utf8);
    }
} // namespace

GeneralPage::GeneralPage(const ControlKit& kit, World world, QWidget* parent)
    : FormPage(parent)
    , m_kit(kit)
    , m_world(std::move(world))
    , m_launchAtLogin(m_world.loginItem, m_world.output)
{
    auto& first = addSection(text(texts::general));
    auto launch = std::make_unique<Switch>(m_kit.loop);
    launch->setOn(m_launchAtLogin.isOn());
    launch->onTurned = [this](bool isOn) { m_launchAtLogin.turn(isOn); };
    first.addRow(text(texts::launchAtLogin), std::move(launch));
    if (m_world.addLimitRows)
        m_world.addLimitRows(first);
    addPicker(first, texts::chevronScrolling, texts::chevronChoices, keys::chevronActivation,
        texts::chevronValue, texts::chevronToolTip);
    addSwitch(first, texts::showCount, keys::showCountInMenuBar);
    addSound(first, texts::soundOnCopy, soundchoices::copy);
    addSound(first, texts::soundOnSelect, soundchoices::select);
    addSound(first, texts::soundOnPaste, soundchoices::paste);

    addPicker(addSection(text(texts::appearance)), texts::theme, texts::themeChoices, keys::theme,
        texts::themeValue);

    auto& last = addSection(text(texts::position));
    addPicker(last, texts::panelAlignment, texts::alignmentChoices, keys::panelAlignment,
        texts::alignmentValue);
    addPicker(last, texts::previewSide, texts::sideChoices, keys::previewSide, texts::sideValue);
    addPicker(last, texts::previewPosition, texts::positionChoices, keys::previewPosition,
        texts::positionValue);
}

void GeneralPage::addSound(FormSection& section, std::string_view title, const SoundChoice& choice)
{
    addSwitch(section, title, choice.switchKey);
    auto contents = std::make_unique<SoundRow>(m_kit, m_world.preferences, m_world.sounds, choice);
    auto& row = section.addWidget(std::move(contents));
    const auto show = [&row, &preferences = m_world.preferences, &choice] {
        row.setVisible(choice.isOn(preferences));
    };
    show();
    m_connections.push_back(m_world.preferences.changed.connect(show));
}

void GeneralPage::addSwitch(FormSection& section, std::string_view title, std::string_view key)
{
    auto control = std::make_unique<Switch>(m_kit.loop);
    m_connections.push_back(keepInStep(*control, m_world.preferences, key, false));
    section.addRow(text(title), std::move(control));
}

void GeneralPage::addPicker(FormSection& section, std::string_view title,
    std::span<const Choice> choices, std::string_view key,
    std::function<std::string(const Preferences&)> shown, std::string_view toolTip)
{
    auto control = std::make_unique<SegmentedPicker>(m_kit.loop, choices);
    m_connections.push_back(keepInStep(*control, m_world.preferences, key, std::move(shown)));
    section.addRow(text(title), std::move(control), text(toolTip));
}

} // namespace korvane
