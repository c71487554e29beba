#include "app/view/ProgramStyle.h"

#include "look/view/PopupHost.h"
#include "look/view/RoundedRegion.h"

#include <QPainter>
#include <QStyleOption>

namespace korvane {

namespace {
    constexpr int standardDuration = 200; // milliseconds
    constexpr int tipRadius = 6;
    constexpr int tipPadding = 5;
    constexpr float edgeOpacity = 0.14F;
} // namespace

ProgramStyle::ProgramStyle(Observable<bool>& isAnimated)
    : QProxyStyle(QStringLiteral("Fusion"))
    , m_isAnimated(isAnimated.value())
    , m_changed(isAnimated.onChange([this](bool is) { m_isAnimated = is; }))
{
}

/// The window of a tool tip is the toolkit's own, and nobody gives it its place above a host of popups;
/// there the tip becomes a part of the host before it is first placed.
void ProgramStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    auto* const of = widget->parentWidget();
    if (of && widget->inherits("QTipLabel") && PopupHost::of(*of))
        widget->setParent(of->window(), Qt::Widget);
}

int ProgramStyle::styleHint(
    StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const
{
    if (hint == SH_Widget_Animation_Duration)
        return m_isAnimated ? standardDuration : 0;
    // A tip's window cannot be translucent, so it is cut to its shape.
    if (auto* const mask = qstyleoption_cast<QStyleHintReturnMask*>(data);
        hint == SH_ToolTip_Mask && option && mask) {
        mask->region = roundedRegion(option->rect, tipRadius);
        return 1;
    }
    return QProxyStyle::styleHint(hint, option, widget, data);
}

int ProgramStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    return metric == PM_ToolTipLabelFrameWidth ? tipPadding
                                               : QProxyStyle::pixelMetric(metric, option, widget);
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    if (element != PE_PanelTipLabel)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    painter->save();
    const auto& ground = option->palette.color(QPalette::ToolTipBase);
    auto edge = option->palette.color(QPalette::ToolTipText);
    edge.setAlphaF(edgeOpacity);
    // The edge fills what the cut-out shape leaves over at the corners.
    painter->fillRect(option->rect, ground);
    painter->fillRect(option->rect, edge);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ground);
    painter->drawRoundedRect(
        QRectF(option->rect).adjusted(1, 1, -1, -1), tipRadius - 1, tipRadius - 1);
    painter->restore();
}

} // namespace korvane
