#include "settings/view/WrappedToolTip.h"

#include <QHelpEvent>
#include <QStringList>
#include <QTextLayout>
#include <QToolTip>
#include <QWidget>

namespace korvane {

namespace {
    constexpr double tipWidth = 360;
} // namespace

QString wrappedTip(const QString& text, const QFont& font)
{
    QTextLayout layout(text, font);
    QStringList lines;
    layout.beginLayout();
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(tipWidth);
        lines << text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines.join(QLatin1Char('\n'));
}

bool showWrappedTip(const QEvent& event, QWidget& widget)
{
    if (event.type() != QEvent::ToolTip || widget.toolTip().isEmpty())
        return false;
    QToolTip::showText(static_cast<const QHelpEvent&>(event).globalPos(),
        wrappedTip(widget.toolTip(), QToolTip::font()), &widget);
    return true;
}

} // namespace korvane
