#pragma once

#include "model/Signal.h"

#include <QProxyStyle>

namespace korvane {

/// The one style of the toolkit that takes every colour from the palette, without motion where none
/// is wanted, as the toolkit's own controls and ours ask it, and with tool tips that look like the
/// panel's other parts.
class ProgramStyle : public QProxyStyle {
public:
    explicit ProgramStyle(Observable<bool>& isAnimated);

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* data) const override;
    int pixelMetric(
        PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;

private:
    bool m_isAnimated;
    Connection m_changed;
};

} // namespace korvane
