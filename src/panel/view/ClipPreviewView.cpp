#include "panel/view/ClipPreviewView.h"

#include "panel/PreviewText.h"
#include "panel/view/PanelMetrics.h"

#include <QAccessible>

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
    m_text.setAccessibleName(m_text.text());
    if (isVisible())
        announce();
}

double ClipPreviewView::textHeight(double width)
{
    return std::ceil(m_text.usedHeight(width));
}

void ClipPreviewView::showEvent(QShowEvent*)
{
    announce();
}

/// The clip may be deleted next, and then nothing of its text is to be left.
void ClipPreviewView::hideEvent(QHideEvent*)
{
    m_text.setText({}, false);
    m_announcement.setAccessibleName({});
}

/// It never gets the focus, so who does not see it would not know that it has come.
void ClipPreviewView::announce()
{
    if (QAccessible::isActive())
        m_announcement.say(QStringLiteral("Preview: ") + m_text.text());
}

void ClipPreviewView::resizeEvent(QResizeEvent*)
{
    constexpr int inset = metrics::previewInset;
    m_text.setGeometry(rect().adjusted(inset, inset, -inset, -inset));
}

} // namespace korvane
