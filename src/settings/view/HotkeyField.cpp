#include "settings/view/HotkeyField.h"

#include "hotkey/KeyRecorder.h"
#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "look/view/Outline.h"
#include "settings/HotkeyRecorder.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {
    constexpr int leastWidth = 140;
    constexpr int paddingX = 10;
    constexpr int paddingY = 4;
    constexpr double radius = 6;
    constexpr double outlineWidth = 1.5;
    constexpr float idleOpacity = 0.20F;
    constexpr float recordingOpacity = 0.25F;
    constexpr double textSize = 13;

    QColor withOpacity(QColor colour, float opacity)
    {
        colour.setAlphaF(opacity);
        return colour;
    }
} // namespace

HotkeyField::HotkeyField(HotkeyRecorder& recorder, KeyRecorder& keys, QWidget* parent)
    : RingedButton(parent)
    , m_recorder(recorder)
    , m_keys(keys)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this,
        [this] { m_recorder.fieldClicked(window()->winId()); });
    refresh();
}

void HotkeyField::refresh()
{
    setText(QString::fromStdString(m_recorder.text()));
    setLetter(u'O');           // of the label before it, which shows it
    setAccessibleName(text()); // else it goes by the label, and the shortcut is not heard
    updateGeometry();
    update();
}

QSize HotkeyField::sizeHint() const
{
    const QFontMetricsF font(textFont(textSize));
    const auto width = static_cast<int>(std::ceil(font.horizontalAdvance(text())));
    return { std::max(leastWidth, width + 2 * paddingX),
        static_cast<int>(std::ceil(font.height())) + 2 * paddingY };
}

bool HotkeyField::event(QEvent* event)
{
    return takeKey(*event) || RingedButton::event(event);
}

/// Before the toolkit: the Tab key would go to the next control, and Escape close the window.
bool HotkeyField::takeKey(QEvent& event)
{
    // The recorder is asked about keys alone: other events come also when it has ended before us.
    const auto type = event.type();
    const bool isOfKeys = type == QEvent::ShortcutOverride || type == QEvent::KeyPress
        || type == QEvent::KeyRelease;
    if (!isOfKeys || !m_recorder.isRecording())
        return false;
    event.accept();
    const auto& key = static_cast<QKeyEvent&>(event);
    if (type == QEvent::KeyPress && !key.isAutoRepeat())
        m_keys.windowKeyPressed(key.nativeScanCode(), key.nativeModifiers());
    return true;
}

void HotkeyField::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    const bool isRecording = m_recorder.isRecording();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isRecording ? withOpacity(colours.accent, recordingOpacity)
                                 : withOpacity(colours.secondary, idleOpacity));
    painter.drawRoundedRect(rect(), radius, radius);
    if (isRecording)
        paintOutline(painter, rect(), radius, colours.accent, outlineWidth);
    painter.setFont(textFont(textSize));
    painter.setPen(colours.text);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    if (!isRecording)
        paintRing(painter, QRectF(rect()), radius);
}

} // namespace korvane
