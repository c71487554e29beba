#include "settings/view/SoundRow.h"

#include "look/view/Child.h"
#include "model/Preferences.h"
#include "settings/GeneralTexts.h"
#include "settings/SoundChoice.h"
#include "settings/SoundPlayer.h"
#include "settings/view/Bindings.h"
#include "settings/view/FormText.h"
#include "settings/view/SegmentedPicker.h"
#include "settings/view/SymbolButton.h"

#include <QBoxLayout>

#include <algorithm>

namespace korvane {

namespace {
    // Side by side, the fourteen names are wider than the page.
    constexpr int lines = 2;
    constexpr int gap = 6;

    std::array<Choice, soundNames.size()> soundChoices()
    {
        std::array<Choice, soundNames.size()> choices;
        std::ranges::transform(soundNames, choices.begin(), [](auto name) {
            return Choice { name, name };
        });
        return choices;
    }
} // namespace

SoundRow::SoundRow(const ControlKit& kit, Preferences& preferences, SoundPlayer& sounds,
    const SoundChoice& choice, QWidget* parent)
    : QWidget(parent)
{
    const auto title = QString::fromUtf8(generaltexts::sound);
    auto* const picker = makeChild<SegmentedPicker>(kit.loop, soundChoices(), lines, this);
    picker->setAccessibleName(title);
    m_preferencesChanged = keepInStep(*picker, preferences, choice.nameKey,
        [&choice](const Preferences& stored) { return choice.name(stored); });
    auto* const button = makeChild<SymbolButton>(
        kit.symbols, "play.circle", QString::fromUtf8(generaltexts::previewSound),
        [&preferences, &sounds, &choice] { sounds.play(choice.name(preferences)); }, this);
    button->setLetter(QLatin1Char(choice.letter));

    auto* const row = makeChild<QHBoxLayout>(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(makeChild<FormText>(title, FormText::Tone::plain, this));
    row->addStretch(1);
    row->addWidget(picker);
    row->addWidget(button);
}

} // namespace korvane
