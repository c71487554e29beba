#include "settings/view/FormPage.h"

#include "look/view/Child.h"
#include "settings/view/FormSection.h"
#include "settings/view/FormText.h"
#include "settings/view/SettingsColours.h"
#include "settings/view/SlimScrollBar.h"

#include <QBoxLayout>
#include <QEvent>
#include <QPainter>

namespace korvane {

namespace {
    constexpr int paddingX = 20;
    constexpr int paddingY = 14;
    constexpr int gap = 10;
    constexpr int captionGap = 8;
} // namespace

FormPage::FormPage(QWidget* parent)
    : QScrollArea(parent)
    , m_contents(new QWidget(this))
    , m_column(new QVBoxLayout(m_contents))
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBar(std::make_unique<SlimScrollBar>(this, Qt::Horizontal).release());
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBar(std::make_unique<SlimScrollBar>(this).release()); // the page's
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setWidgetResizable(true);
    // A click on nothing ends what is being typed into a field.
    setFocusPolicy(Qt::ClickFocus);
    viewport()->setAutoFillBackground(false);
    m_contents->setAutoFillBackground(false);
    m_column->setContentsMargins(paddingX, paddingY, paddingX - SlimScrollBar::thickness, paddingY);
    m_column->setSpacing(0);
    m_column->addStretch(1);
    setWidget(m_contents);
    m_contents->setAutoFillBackground(false); // the toolkit has just had it filled
}

FormSection& FormPage::addSection(const QString& title)
{
    auto* const section = makeChild<FormSection>(title, m_contents);
    if (m_column->count() > 1)
        m_column->insertSpacing(m_column->count() - 1, gap);
    m_column->insertWidget(m_column->count() - 1, section);
    return *section;
}

FormText& FormPage::addCaption(const QString& text)
{
    auto* const caption = makeChild<FormText>(text, FormText::Tone::caption, m_contents);
    caption->setContentsMargins(4, captionGap, 4, 0);
    m_column->insertWidget(m_column->count() - 1, caption);
    return *caption;
}

void FormPage::addWidget(std::unique_ptr<QWidget> widget)
{
    m_column->insertWidget(m_column->count() - 1, widget.release()); // the page's from here on
}

void FormPage::resizeEvent(QResizeEvent* event)
{
    // Only on a screen that is too small for a whole page does one go sideways.
    setHorizontalScrollBarPolicy(
        width() < pageWidth ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    QScrollArea::resizeEvent(event);
}

void FormPage::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), settingsColoursOf(palette()).window);
}

bool FormPage::event(QEvent* event)
{
    // The room of the scroll bar, which is the page's own, and not its viewport's.
    if (event->type() == QEvent::Paint) {
        QPainter painter(this);
        painter.fillRect(rect(), settingsColoursOf(palette()).window);
        return true;
    }
    return QScrollArea::event(event);
}

} // namespace korvane
