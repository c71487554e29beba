#include "panel/view/PanelFooter.h"

#include "look/view/Colours.h"
#include "look/view/Fonts.h"

#include <QPainter>

namespace korvane {

namespace {
    QColor colourOf(paneltexts::FillLevel level, const Colours& colours)
    {
        switch (level) {
        case paneltexts::FillLevel::low:
            return colours.accent;
        case paneltexts::FillLevel::half:
            return colours.secondary;
        case paneltexts::FillLevel::high:
            return colours.orangeText;
        case paneltexts::FillLevel::full:
            return colours.redText;
        }
        return colours.text;
    }
} // namespace

PanelFooter::PanelFooter(ClipStore& store, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
{
    const auto refreshShown = [this] {
        m_isStale = true;
        if (isVisible())
            refresh();
    };
    m_connections.push_back(store.clipsChanged.connect(refreshShown));
    m_connections.push_back(store.limitsChanged.connect(refreshShown));
}

void PanelFooter::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), colours.line);
    painter.setFont(textFont(11, QFont::Medium));
    painter.setPen(colourOf(m_level, colours));
    painter.drawText(rect().adjusted(14, 1, -14, 0),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, m_totals);
}

void PanelFooter::showEvent(QShowEvent*)
{
    // To add up a long history takes longer than all the rest of an opening.
    if (m_isStale)
        refresh();
}

void PanelFooter::refresh()
{
    m_isStale = false;
    const auto count = m_store.clips().size();
    const auto bytes = m_store.totalBytes();
    const auto totals = QString::fromStdString(paneltexts::totals(count, bytes));
    const auto level
        = paneltexts::fillLevel(count, m_store.maxClips(), bytes, m_store.maxTotalSizeMB());
    setToolTip(QString::fromStdString(
        paneltexts::totalsToolTip(count, m_store.maxClips(), m_store.maxTotalSizeMB())));
    if (totals == m_totals && level == m_level)
        return;
    m_totals = totals;
    setAccessibleName(totals); // its tooltip, where it is asked for, is its description
    m_level = level;
    update();
}

} // namespace korvane
