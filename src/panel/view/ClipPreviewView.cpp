#include "panel/view/ClipPreviewView.h"

#include "panel/PreviewText.h"
#include "panel/view/PanelMetrics.h"

#include <cmath>

namespace korvane {

ClipPreviewView::ClipPreviewView(QWidget* parent)
    : QWidget(parent)
{
}

void ClipPreviewView::setClip(const ClipItem& clip)
{
    const auto shown = previewText(clip);
    m_text.setText(QString::fromStdString(shown.text), shown.isCode);
    m_text.setIsCut(shown.isCut);
}

double ClipPreviewView::textHeight(double width)
{
    return std::ceil(m_text.usedHeight(width));
}

void ClipPreviewView::resizeEvent(QResizeEvent*)
{
    constexpr int inset = metrics::previewInset;
    m_text.setGeometry(rect().adjusted(inset, inset, -inset, -inset));
}

} // namespace korvane
