#include "settings/view/HotkeyRecorderView.h"

#include "look/view/Child.h"
#include "settings/ShortcutsTexts.h"
#include "settings/view/HotkeyField.h"
#include "settings/view/TextButton.h"

#include <QHBoxLayout>

namespace korvane {

HotkeyRecorderView::HotkeyRecorderView(HotkeyManager* hotkeys, Preferences& preferences,
    KeyRecorder& keys, Alerts& alerts, QWidget* parent)
    : QWidget(parent)
    , m_recorder(hotkeys, preferences, keys, alerts)
    , m_field(new HotkeyField(m_recorder, keys, this))
    , m_reset(new TextButton(
          QString::fromUtf8(shortcutstexts::reset), [this] { m_recorder.reset(); }, this))
    , m_changed(m_recorder.changed.connect([this] { m_field->refresh(); }))
{
    auto* const row = makeChild<QHBoxLayout>(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(m_field);
    row->addWidget(m_reset);
    m_reset->setLetter(m_reset->text().front());
    m_field->setAccessibleDescription(QString::fromUtf8(shortcutstexts::openKorvane));
    setFocusProxy(m_field);
}

HotkeyRecorderView::~HotkeyRecorderView() = default;

void HotkeyRecorderView::hideEvent(QHideEvent* event)
{
    m_recorder.stopRecording();
    QWidget::hideEvent(event);
}

} // namespace korvane
