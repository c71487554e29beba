#include "panel/view/PanelHeader.h"

#include "panel/PanelTexts.h"
#include "panel/view/PanelStyle.h"

#include <QPainter>

namespace korvane {

void PanelHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(panelFont(14, QFont::DemiBold));
    painter.setPen(panelColours(palette()).text);
    painter.drawText(rect().adjusted(14, 0, -8, 0), Qt::AlignLeft | Qt::AlignVCenter,
        QString::fromUtf8(paneltexts::productName));
}

} // namespace korvane
