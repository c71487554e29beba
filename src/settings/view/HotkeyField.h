#pragma once

#include "settings/view/RingedButton.h"

namespace korvane {

class HotkeyRecorder;
class KeyRecorder;

/// The field that shows the shortcut and, once it has been clicked, records another one. While it
/// records, no key press that comes to it does anything else.
class HotkeyField : public RingedButton {
public:
    HotkeyField(HotkeyRecorder& recorder, KeyRecorder& keys, QWidget* parent);

    /// Shows what the recorder says now.
    void refresh();

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool takeKey(QEvent& event);

    HotkeyRecorder& m_recorder;
    KeyRecorder& m_keys;
};

} // namespace korvane
