#include "settings/view/Switch.h"

#include "settings/view/SettingsColours.h"

#include <QPainter>

namespace korvane {

using namespace std::chrono_literals;

namespace {
    constexpr QSizeF track { 34, 20 };
    constexpr double thumbSize = 16;
    constexpr double gap = 2;
    // The ring stands clear of the track.
    constexpr int ringRoom = 3;
    constexpr auto slideTime = 140ms;
    constexpr double disabledOpacity = 0.45;
} // namespace

Switch::Switch(MainLoop& loop, QWidget* parent)
    : RingedButton(parent)
    , m_thumb(loop, *this, 0, [this] { update(); })
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover); // painted anew when the pointer comes and goes
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // Not its clicks: assistive technology turns it without one.
    connect(this, &QAbstractButton::toggled, this, [this](bool isChecked) {
        m_thumb.goTo(isChecked ? 1 : 0, slideTime);
        if (onTurned && !m_isShowing)
            onTurned(isChecked);
    });
}

void Switch::setOn(bool isOn)
{
    m_isShowing = true;
    setChecked(isOn);
    m_isShowing = false;
    if (!isVisible()) // nobody sees where it comes from
        m_thumb.setNow(isOn ? 1 : 0);
}

QSize Switch::sizeHint() const
{
    return track.toSize() + QSize(2 * ringRoom, 2 * ringRoom);
}

bool Switch::hitButton(const QPoint& at) const
{
    return rect().contains(at);
}

void Switch::paintEvent(QPaintEvent*)
{
    const auto& colours = settingsColoursOf(palette());
    const QRectF shape(QPointF(ringRoom, ringRoom), track);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const bool isLit = isEnabled() && (underMouse() || isDown());
    painter.setBrush(isLit ? colours.trackHover : colours.track);
    painter.drawRoundedRect(shape, track.height() / 2, track.height() / 2);
    // The accent comes over the grey as the thumb moves.
    painter.setOpacity(painter.opacity() * m_thumb.value());
    painter.setBrush(isLit ? colours.trackOnHover : colours.trackOn);
    painter.drawRoundedRect(shape, track.height() / 2, track.height() / 2);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);

    const double way = track.width() - thumbSize - 2 * gap;
    const QRectF thumb(
        shape.left() + gap + way * m_thumb.value(), shape.top() + gap, thumbSize, thumbSize);
    painter.setBrush(colours.thumbShadow);
    painter.drawEllipse(thumb.translated(0, 0.8));
    painter.setBrush(colours.thumb);
    painter.drawEllipse(thumb);
    paintRing(painter, QRectF(rect()), track.height() / 2 + ringRoom);
}

} // namespace korvane
