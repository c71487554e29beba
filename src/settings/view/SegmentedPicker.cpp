#include "settings/view/SegmentedPicker.h"

#include "look/view/Fonts.h"
#include "settings/view/OneStop.h"
#include "settings/view/RingedButton.h"
#include "settings/view/SettingsColours.h"
#include "settings/view/WrappedToolTip.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>

namespace korvane {

using namespace std::chrono_literals;

namespace {
    constexpr double inset = 2;
    constexpr double radius = 7;
    constexpr double segmentRadius = 5;
    constexpr int segmentHeight = 22;
    constexpr double textSize = 12;
    constexpr int padding = 12;
    constexpr int narrowPadding = 5; // where the choices stand in several lines
    constexpr auto slideTime = 160ms;

    /// Wide enough for the chosen state, which is bolder, so that nothing moves when it is chosen.
    int widthOf(const QString& title)
    {
        return static_cast<int>(
            std::ceil(QFontMetricsF(textFont(textSize, QFont::Medium)).horizontalAdvance(title)));
    }
} // namespace

/// One choice. The ground of the chosen one is the picker's, as it slides from one to the next.
class SegmentedPicker::Segment : public RingedButton {
public:
    Segment(const Choice& choice, QWidget* parent)
        : RingedButton(parent)
        , m_value(choice.value)
    {
        setText(QString::fromUtf8(choice.title).replace(u'&', QStringLiteral("&&")));
        setAccessibleName(QString::fromUtf8(choice.title));
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_Hover);
    }

    const std::string& value() const { return m_value; }
    int textWidth() const { return widthOf(accessibleName()); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const auto& colours = coloursOf(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isEnabled() && !isChecked() && (underMouse() || isDown())) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(isDown() ? colours.pressed : colours.hover);
            painter.drawRoundedRect(rect(), segmentRadius, segmentRadius);
        }
        const auto font = textFont(textSize, isChecked() ? QFont::Medium : QFont::Normal);
        painter.setFont(font);
        painter.setPen(!isEnabled() ? settingsColoursOf(palette()).disabled
                : isChecked()       ? colours.text
                                    : colours.secondary);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine,
            QFontMetricsF(font).elidedText(accessibleName(), Qt::ElideRight, width() - 4));
        paintRing(painter, QRectF(rect()), segmentRadius);
    }

private:
    std::string m_value;
};

SegmentedPicker::SegmentedPicker(
    MainLoop& loop, std::span<const Choice> choices, int lines, QWidget* parent)
    : QWidget(parent)
    , m_lines(std::max(lines, 1))
    , m_way(loop, *this, 1, [this] { update(); })
{
    for (const auto& choice : choices) {
        auto* const segment = std::make_unique<Segment>(choice, this).release(); // its child
        m_segments.push_back(segment);
        connect(segment, &QAbstractButton::toggled, this, [this, segment](bool isChecked) {
            makeOneStop(m_segments);
            if (!isChecked) { // where the ground of the next one comes from
                m_from = segment->geometry();
                return;
            }
            slide();
            // Not its clicks: assistive technology chooses without one.
            if (onChosen && !m_isShowing)
                onChosen(segment->value());
        });
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    makeOneStop(m_segments);
    layOut();
}

SegmentedPicker::~SegmentedPicker() = default;

std::string SegmentedPicker::value() const
{
    const auto* const segment = chosen();
    return segment ? segment->value() : std::string();
}

void SegmentedPicker::setValue(std::string_view value)
{
    m_isShowing = true;
    const auto found = std::ranges::find(m_segments, value, &Segment::value);
    if (found != m_segments.end()) {
        (*found)->setChecked(true);
    } else if (auto* const before = chosen()) {
        // The toolkit keeps one of a group chosen, once one has been.
        before->setAutoExclusive(false);
        before->setChecked(false);
        before->setAutoExclusive(true);
        update();
    }
    m_isShowing = false;
    if (!isVisible()) // nobody sees where it comes from
        m_way.setNow(1);
}

SegmentedPicker::Segment* SegmentedPicker::chosen() const
{
    const auto found = std::ranges::find_if(m_segments, &QAbstractButton::isChecked);
    return found == m_segments.end() ? nullptr : *found;
}

bool SegmentedPicker::event(QEvent* event)
{
    if (event->type() == QEvent::ApplicationFontChange
        || event->type() == QEvent::ScreenChangeInternal)
        layOut();
    return showWrappedTip(*event, *this) || QWidget::event(event);
}

void SegmentedPicker::resizeEvent(QResizeEvent*)
{
    layOut();
}

void SegmentedPicker::layOut()
{
    const auto count = static_cast<int>(m_segments.size());
    const int inLine = (count + m_lines - 1) / m_lines;
    const int pad = m_lines == 1 ? padding : narrowPadding;
    const auto at = [&](int index) { return m_segments[static_cast<std::size_t>(index)]; };
    int left = static_cast<int>(inset);
    // Of several lines, the choices stand in columns.
    for (int column = 0; column < inLine && column < count; ++column) {
        int width = 0;
        for (int index = column; index < count; index += inLine)
            width = std::max(width, at(index)->textWidth() + 2 * pad);
        int top = static_cast<int>(inset);
        for (int index = column; index < count; index += inLine, top += segmentHeight)
            at(index)->setGeometry(left, top, width, segmentHeight);
        left += width;
    }
    setFixedSize(
        left + static_cast<int>(inset), m_lines * segmentHeight + 2 * static_cast<int>(inset));
}

void SegmentedPicker::slide()
{
    if (m_from.isEmpty())
        return m_way.setNow(1);
    m_way.setNow(0);
    m_way.goTo(1, slideTime);
}

void SegmentedPicker::paintEvent(QPaintEvent*)
{
    const auto& colours = settingsColoursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.segments);
    painter.drawRoundedRect(rect(), radius, radius);
    const auto* const segment = chosen();
    if (!segment)
        return;
    const QRectF to(segment->geometry());
    const auto between
        = [way = m_way.value()](double from, double there) { return from + (there - from) * way; };
    const QRectF ground = m_from.isEmpty()
        ? to
        : QRectF(between(m_from.x(), to.x()), between(m_from.y(), to.y()),
            between(m_from.width(), to.width()), between(m_from.height(), to.height()));
    painter.setBrush(QColor(0, 0, 0, 28));
    painter.drawRoundedRect(ground.translated(0, 1), segmentRadius, segmentRadius);
    painter.setBrush(colours.segmentOn);
    painter.drawRoundedRect(ground, segmentRadius, segmentRadius);
}

} // namespace korvane
