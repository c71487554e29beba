#include "panel/view/FilterTabBar.h"

#include "look/view/Colours.h"
#include "look/view/ElidedText.h"
#include "look/view/Fonts.h"
#include "look/view/Symbols.h"
#include "panel/TabSwitcher.h"

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

FilterTabBar::FilterTabBar(ClipStore& store, MainLoop& loop, Symbols& symbols,
    std::function<void(FilterTab)> switchTab, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
    , m_symbols(symbols)
    , m_switchTab(std::move(switchTab))
{
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(QStringLiteral("Filter"));
    auto& panel = store.panel();
    for (const auto tab : allFilterTabs)
        m_chosen.emplace_back(loop, *this, tab == panel.shownTab() ? 1 : 0, [this] { update(); });
    const auto follow = [this](const auto&) { shownTabChanged(); };
    m_connections.push_back(panel.tabDisplayed.onChange(follow));
    m_connections.push_back(panel.panelFilterTab.onChange(follow));
}

void FilterTabBar::shownTabChanged()
{
    const auto shown = m_store.panel().shownTab();
    for (const auto tab : allFilterTabs)
        m_chosen[indexOf(tab)].goTo(tab == shown ? 1 : 0, TabSwitcher::barAnimation);
}

QRectF FilterTabBar::chip(FilterTab tab) const
{
    return chips()[indexOf(tab)];
}

FilterTabBar::Chips FilterTabBar::chips() const
{
    const double available = width() - 2 * sidePadding;
    const double other = symbolSize + 2 * otherPadding;
    const auto others = static_cast<double>(allFilterTabs.size() - 1);
    const QFontMetricsF font(textFont(12, QFont::Medium));
    // A name too wide for the bar is cut short; the chips never leave it.
    const double most = available - others * (other + leastGap);
    std::array<double, allFilterTabs.size()> widths {};
    double used = 0;
    for (const auto tab : allFilterTabs) {
        const double chosen = std::min(most,
            symbolSize + titleGap + std::ceil(font.horizontalAdvance(titleOf(tab)))
                + 2 * chosenPadding);
        auto& width = widths[indexOf(tab)];
        width = other + (chosen - other) * m_chosen[indexOf(tab)].value();
        used += width;
    }
    const double gap = (available - used) / others;

    Chips result;
    double x = sidePadding;
    for (const auto tab : allFilterTabs) {
        result[indexOf(tab)] = { x, chipTop, widths[indexOf(tab)], chipHeight };
        x += widths[indexOf(tab)] + gap;
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
    painter.fillRect(QRect(0, height() - 1, width(), 1), coloursOf(palette()).line);
}

void FilterTabBar::paintChip(QPainter& painter, FilterTab tab, const QRectF& place)
{
    const auto& colours = coloursOf(palette());
    const double chosen = m_chosen[indexOf(tab)].value();
    const auto fill = [&](const QColor& colour, double opacity) {
        painter.setOpacity(opacity);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(place, chipRadius, chipRadius);
        painter.setOpacity(1);
    };
    if (chosen < 1)
        fill(colours.chip, 1);
    if (chosen > 0)
        fill(colours.accent, chosen);
    if (tab == m_hovered)
        fill(tab == m_pressed ? colours.pressed : colours.hover, 1);
    if (tab == m_store.panel().shownTab() && hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours.selectedIcon, 1.5));
        painter.drawRoundedRect(place.adjusted(-2, -2, 2, 2), chipRadius + 2, chipRadius + 2);
    }
    const double padding = otherPadding + (chosenPadding - otherPadding) * chosen;
    const QRectF head(place.left() + padding, place.top(), symbolSize, place.height());
    const auto draw = [&](const QColor& ink, double opacity) {
        painter.setOpacity(opacity);
        m_symbols.paint(painter, symbolOf(tab), head, symbolSize, ink);
        painter.setOpacity(1);
    };
    if (chosen < 1)
        draw(colours.text, 1 - chosen);
    if (chosen <= 0)
        return;
    draw(colours.onAccent, chosen);
    const auto text = place.adjusted(padding + symbolSize + titleGap, 0, -padding + 1, 0);
    painter.setOpacity(chosen);
    painter.setFont(textFont(12, QFont::Medium));
    painter.setPen(colours.onAccent);
    // On its way the chip uncovers the name; only one that has arrived cuts it short.
    painter.setClipRect(place);
    const auto title = titleOf(tab);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        chosen < 1 ? title : elidedText(title, QFontMetricsF(painter.font()), text.width()));
    painter.setClipping(false);
    painter.setOpacity(1);
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

void FilterTabBar::hideEvent(QHideEvent*)
{
    m_pressed.reset();
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
