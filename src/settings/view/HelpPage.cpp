#include "settings/view/HelpPage.h"

#include "hotkey/HotkeyManager.h"
#include "settings/HelpTexts.h"
#include "settings/view/FormSection.h"
#include "settings/view/FormText.h"
#include "settings/view/KeyBadge.h"

namespace korvane {

namespace {
    constexpr int tipGap = 6;

    QString text(std::string_view utf8)
    {
        return QString::fromUtf8(utf8);
    }
} // namespace

HelpPage::HelpPage(HotkeyManager& hotkeys, QWidget* parent)
    : FormPage(parent)
{
    setFocusPolicy(Qt::StrongFocus); // nothing on it takes the keys that scroll

    auto& table = addSection(text(helptexts::shortcuts));
    auto first = std::make_unique<KeyBadge>(QString());
    m_shortcut = hotkeys.observeShortcut([&badge = *first](const Shortcut& shortcut) {
        badge.setKeys(text(displayText(shortcut)));
    });
    const auto addLine = [&table](std::string_view action, std::unique_ptr<KeyBadge> badge) {
        badge->setAccessibleDescription(text(action));
        table.addRow(text(action), std::move(badge));
    };
    addLine(helptexts::openPanel, std::move(first));
    for (const auto& line : helptexts::lines)
        addLine(line.action, std::make_unique<KeyBadge>(text(line.keys)));

    auto& tips = addSection(text(helptexts::tips));
    for (const auto& tip : helptexts::tipTexts()) {
        auto paragraph = std::make_unique<FormText>(text(tip), FormText::Tone::plain);
        paragraph->setWordWrap(true);
        paragraph->setContentsMargins(0, tipGap, 0, tipGap);
        tips.addWidget(std::move(paragraph));
    }
}

} // namespace korvane
