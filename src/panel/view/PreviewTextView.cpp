#include "panel/view/PreviewTextView.h"

#include "look/view/Fonts.h"

#include <QFontMetricsF>
#include <QImage>
#include <QLinearGradient>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace korvane {

namespace {

    constexpr double fontSize = 12;
    constexpr double tabStop = 28;
    constexpr int columnsOfTab = 4; // in code
    /// How much of the text's lower end fades out; no more than half of a text that is hardly higher.
    constexpr double fadeHeight = 32;

} // namespace

PreviewTextView::PreviewTextView(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PreviewTextView::setText(const QString& text, bool isCode)
{
    const auto wanted = isCode ? codeFont(fontSize) : textFont(fontSize);
    if (text == m_text && isCode == m_isCode && wanted == font())
        return;
    m_isCode = isCode;
    setFont(wanted);
    if (text != m_text) {
        m_text = text;
        setAccessibleName(text);
    }
    m_lines.reset();
    update();
}

void PreviewTextView::setIsCut(bool isCut)
{
    if (isCut == m_isCut)
        return;
    m_isCut = isCut;
    update();
}

double PreviewTextView::usedHeight(double width)
{
    return lines(width).height();
}

void PreviewTextView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    QRectF part = event->rect();
    if (fadesOut()) {
        const double fadeTop = height() - std::min(fadeHeight, height() / 2.0);
        const QRectF fading(0, fadeTop, width(), height() - fadeTop);
        if (fading.intersects(part))
            paintFading(painter, fading);
        part.setBottom(std::min(part.bottom(), fadeTop));
        painter.setClipRect(part);
    }
    if (!part.isEmpty())
        lines(width()).draw(painter, part);
}

const TextLines& PreviewTextView::lines(double width)
{
    if (!m_lines || m_linesWidth != width) {
        m_linesWidth = width;
        const double codeTabStop = columnsOfTab * QFontMetricsF(font()).horizontalAdvance(u' ');
        m_lines = std::make_unique<TextLines>(m_text,
            TextLines::Look { font(), m_isCode ? codeTabStop : tabStop, !m_isCode }, width,
            m_pictures);
    }
    return *m_lines;
}

bool PreviewTextView::fadesOut()
{
    return m_isCut || lines(width()).height() > height();
}

/// The letters are painted beside the window first: only there can they be made paler without what
/// is behind them.
void PreviewTextView::paintFading(QPainter& painter, const QRectF& part)
{
    const double ratio = devicePixelRatioF();
    QImage letters((part.size() * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    letters.setDevicePixelRatio(ratio);
    letters.fill(Qt::transparent);
    QPainter beside(&letters);
    beside.setPen(painter.pen());
    beside.translate(-part.topLeft());
    lines(width()).draw(beside, part);

    QLinearGradient mask(part.topLeft(), part.bottomLeft());
    mask.setColorAt(0, Qt::black);
    mask.setColorAt(1, Qt::transparent);
    beside.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    beside.fillRect(part, mask);
    beside.end();
    painter.drawImage(part.topLeft(), letters);
}

} // namespace korvane
