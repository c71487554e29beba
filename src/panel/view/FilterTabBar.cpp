#include "panel/view/FilterTabBar.h"

#include "panel/view/PanelStyle.h"
#include "panel/view/Symbols.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {
    constexpr double symbolSize = 15;
    constexpr double titleGap = 5;
    constexpr double chosenPadding = 10;
    constexpr double otherPadding = 7;
    constexpr double chipHeight = 26;
    constexpr double chipTop = 5;
    constexpr double chipRadius = 12;
    constexpr double sidePadding = 10;
    constexpr double leastGap = 3;

    QString titleOf(FilterTab tab)
    {
        return QString::fromUtf8(title(tab));
    }
    std::size_t indexOf(FilterTab tab)
    {
        return static_cast<std::size_t>(tab);
    }
} // namespace

std::string_view symbolOf(FilterTab tab)
{
    switch (tab) {
    case FilterTab::all:
        return "tray.full";
    case FilterTab::pinned:
        return "pin.fill";
    case FilterTab::text:
        return "text.alignleft";
    case FilterTab::url:
        return "link";
    case FilterTab::code:
        return "chevron.left.forwardslash.chevron.right";
    case FilterTab::email:
        return "envelope";
    case FilterTab::files:
        return "folder";
    case FilterTab::emoji:
        return "face.smiling";
    case FilterTab::large:
        return "doc.badge.arrow.up.fill";
    }
    return {};
}

FilterTabBar::FilterTabBar(
    ClipStore& store, Symbols& symbols, std::function<void(FilterTab)> switchTab, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
    , m_symbols(symbols)
    , m_switchTab(std::move(switchTab))
{
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(QStringLiteral("Filter"));
    auto& panel = store.panel();
    m_connections.push_back(panel.tabDisplayed.onChange([this](const auto&) { update(); }));
    m_connections.push_back(panel.panelFilterTab.onChange([this](const auto&) { update(); }));
}

QRectF FilterTabBar::chip(FilterTab tab) const
{
    return chips()[indexOf(tab)];
}

FilterTabBar::Chips FilterTabBar::chips() const
{
    const auto shown = m_store.panel().shownTab();
    const double available = width() - 2 * sidePadding;
    const double other = symbolSize + 2 * otherPadding;
    const auto others = static_cast<double>(allFilterTabs.size() - 1);
    const QFontMetricsF font(panelFont(12, QFont::Medium));
    // A name too wide for the bar is cut short; the chips never leave it.
    const double chosen = std::min(symbolSize + titleGap
            + std::ceil(font.horizontalAdvance(titleOf(shown))) + 2 * chosenPadding,
        available - others * (other + leastGap));
    const double gap = (available - chosen - others * other) / others;

    Chips result;
    double x = sidePadding;
    for (const auto tab : allFilterTabs) {
        const double wide = tab == shown ? chosen : other;
        result[indexOf(tab)] = { x, chipTop, wide, chipHeight };
        x += wide + gap;
    }
    return result;
}

std::optional<FilterTab> FilterTabBar::tabAt(const QPointF& point) const
{
    const auto places = chips();
    const auto found = std::find_if(allFilterTabs.begin(), allFilterTabs.end(),
        [&](FilterTab tab) { return places[indexOf(tab)].contains(point); });
    return found == allFilterTabs.end() ? std::nullopt : std::optional(*found);
}

bool FilterTabBar::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto tab = tabAt(help->pos());
    if (tab)
        QToolTip::showText(help->globalPos(), titleOf(*tab), this, chip(*tab).toAlignedRect());
    else
        QToolTip::hideText();
    return true;
}

void FilterTabBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto places = chips();
    for (const auto tab : allFilterTabs)
        paintChip(painter, tab, places[indexOf(tab)]);
    painter.fillRect(QRect(0, height() - 1, width(), 1), panelColours(palette()).line);
}

void FilterTabBar::paintChip(QPainter& painter, FilterTab tab, const QRectF& place)
{
    const auto& colours = panelColours(palette());
    const bool isChosen = tab == m_store.panel().shownTab();
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChosen ? colours.accent : colours.chip);
    painter.drawRoundedRect(place, chipRadius, chipRadius);
    if (tab == m_hovered) {
        painter.setBrush(tab == m_pressed ? colours.pressed : colours.hover);
        painter.drawRoundedRect(place, chipRadius, chipRadius);
    }
    if (isChosen && hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours.selectedIcon, 1.5));
        painter.drawRoundedRect(place.adjusted(-2, -2, 2, 2), chipRadius + 2, chipRadius + 2);
    }
    const auto ink = isChosen ? colours.onAccent : colours.text;
    const double padding = isChosen ? chosenPadding : otherPadding;
    m_symbols.paint(painter, symbolOf(tab),
        { place.left() + padding, place.top(), symbolSize, place.height() }, symbolSize, ink);
    if (!isChosen)
        return;
    const auto text = place.adjusted(padding + symbolSize + titleGap, 0, -padding + 1, 0);
    painter.setFont(panelFont(12, QFont::Medium));
    painter.setPen(ink);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        QFontMetricsF(painter.font()).elidedText(titleOf(tab), Qt::ElideRight, text.width()));
}

void FilterTabBar::mouseMoveEvent(QMouseEvent* event)
{
    setHovered(tabAt(event->position()));
}

void FilterTabBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = tabAt(event->position());
    setHovered(m_pressed);
    update();
}

void FilterTabBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const auto pressed = std::exchange(m_pressed, std::nullopt);
    update();
    if (pressed && pressed == tabAt(event->position()))
        m_switchTab(*pressed);
}

void FilterTabBar::leaveEvent(QEvent*)
{
    setHovered(std::nullopt);
}

void FilterTabBar::keyPressEvent(QKeyEvent* event)
{
    const auto shown = m_store.panel().shownTab();
    if (event->key() == Qt::Key_Left)
        m_switchTab(neighbour(shown, -1));
    else if (event->key() == Qt::Key_Right)
        m_switchTab(neighbour(shown, 1));
    else
        QWidget::keyPressEvent(event);
}

void FilterTabBar::setHovered(std::optional<FilterTab> tab)
{
    if (tab == m_hovered)
        return;
    m_hovered = tab;
    update();
}

} // namespace korvane
