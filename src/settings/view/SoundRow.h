#pragma once

#include "model/Signal.h"
#include "settings/view/ControlKit.h"

#include <QWidget>

namespace korvane {

class Preferences;
class SoundPlayer;
struct SoundChoice;

/// Which sound an event has: a picker of all of them, and a button that plays the chosen one.
class SoundRow : public QWidget {
public:
    /// @param choice  the event; it outlives the row
    SoundRow(const ControlKit& kit, Preferences& preferences, SoundPlayer& sounds,
        const SoundChoice& choice, QWidget* parent = nullptr);

private:
    Connection m_preferencesChanged;
};

} // namespace korvane
