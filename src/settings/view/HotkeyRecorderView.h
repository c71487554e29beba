#pragma once

#include "settings/HotkeyRecorder.h"

#include <QWidget>

namespace korvane {

class HotkeyField;
class TextButton;

/// The recorder of the global shortcut: the field, and beside it the button that takes the default
/// again. To leave the page ends a recording.
class HotkeyRecorderView : public QWidget {
public:
    /// @param hotkeys  none: there is no application to change the shortcut of
    HotkeyRecorderView(HotkeyManager* hotkeys, Preferences& preferences, KeyRecorder& keys,
        Alerts& alerts, QWidget* parent = nullptr);
    ~HotkeyRecorderView() override;

    HotkeyField& field() const { return *m_field; }
    TextButton& resetButton() const { return *m_reset; }

protected:
    void hideEvent(QHideEvent* event) override;

private:
    HotkeyRecorder m_recorder;
    HotkeyField* m_field; // a child, as is this
    TextButton* m_reset;
    Connection m_changed;
};

} // namespace korvane
