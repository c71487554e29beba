#include "panel/view/ClipRowView.h"

#include "look/view/Colours.h"
#include "look/view/ElidedText.h"
#include "look/view/Fonts.h"
#include "look/view/Outline.h"
#include "look/view/Symbols.h"
#include "panel/PanelTexts.h"
#include "panel/view/PanelMetrics.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace korvane {

namespace {

    constexpr double sidePadding = 9;
    constexpr double kindSize = 28;
    constexpr double kindRadius = 7;
    constexpr double kindSymbol = 16;
    constexpr double gap = 9;
    constexpr double markGap = 6;
    constexpr double markSymbol = 13;
    constexpr double badgePaddingX = 4;
    constexpr double badgePaddingY = 2;
    constexpr double badgeRadius = 3;
    constexpr double titleSize = 13;
    constexpr double metaSize = 10.5;
    constexpr double metaGap = 4;
    constexpr double titleTop = 8;
    constexpr double titleHeight = 17;
    constexpr double metaTop = 26;
    constexpr double metaHeight = 14;
    constexpr auto oneLine
        = Qt::TextSingleLine | Qt::TextDontClip | Qt::AlignVCenter | Qt::AlignLeft;

    const QColor& standingBack(const Colours& colours, const ClipRow& shown)
    {
        return shown.isSelected ? colours.onSelection : colours.secondary;
    }

    double badgeWidth(const QString& badge)
    {
        return badge.isEmpty()
            ? 0
            : std::ceil(QFontMetricsF(textFont(metaSize)).horizontalAdvance(badge))
                + 2 * badgePaddingX;
    }

    QRectF kindRect(const QRectF& row)
    {
        return { row.left() + sidePadding, row.top() + (row.height() - kindSize) / 2, kindSize,
            kindSize };
    }

    /// The line under a title, item after item; where room is short the application's name gives way.
    void paintMeta(QPainter& painter, const QRectF& line, const std::vector<std::string>& items)
    {
        const QFontMetricsF font(painter.font());
        std::vector<QString> texts;
        double needed = 0;
        for (const auto& item : items) {
            texts.push_back(QString::fromUtf8(item));
            needed += font.horizontalAdvance(texts.back()) + metaGap;
        }
        needed -= metaGap;
        if (needed > line.width() && !texts.empty()) {
            const double room = font.horizontalAdvance(texts.front()) - (needed - line.width());
            texts.front() = elidedText(texts.front(), font, std::max(room, 0.0));
        }
        double x = line.left();
        for (const auto& text : texts) {
            const double width = font.horizontalAdvance(text);
            painter.drawText(QRectF(x, line.top(), width, line.height()), oneLine, text);
            x += width + metaGap;
        }
    }

} // namespace

std::string_view symbolOf(ClipType type)
{
    switch (type) {
    case ClipType::plainText:
        return "text.alignleft";
    case ClipType::url:
        return "link";
    case ClipType::email:
        return "envelope";
    case ClipType::code:
        return "chevron.left.forwardslash.chevron.right";
    case ClipType::file:
        return "doc";
    }
    return {};
}

void ClipRowView::paint(QPainter& painter, const QRectF& row, const ClipRow& shown, TimePoint now,
    const QPalette& palette)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // A letter may carry a tower of marks, which must not stand on the rows above.
    painter.setClipRect(row, Qt::IntersectClip);
    paintGround(painter, row, shown, palette);
    paintKind(painter, row, shown, palette);
    paintTexts(painter, row, shown, now, palette);
    paintMarks(painter, row, shown, palette);
    painter.restore();
}

QRectF ClipRowView::titleRect(const QRectF& row, const ClipRow& shown) const
{
    const double left = row.left() + sidePadding + kindSize + gap;
    const double marks = marksWidth(shown);
    const double right = row.right() - sidePadding - (marks > 0 ? marks + gap : 0);
    return { left, row.top() + titleTop, right - left, titleHeight };
}

QRectF ClipRowView::largeMarkRect(const QRectF& row, const ClipRow& shown) const
{
    if (!shown.clip.isOverflow)
        return {};
    return { row.right() - sidePadding - marksWidth(shown), row.top(), markSymbol, row.height() };
}

ClipRowView::ToolTip ClipRowView::toolTipAt(
    const QPointF& point, const QRectF& row, const ClipRow& shown) const
{
    if (const auto mark = largeMarkRect(row, shown); mark.contains(point))
        return { paneltexts::largeMarkToolTip, mark };
    if (const auto kind = kindRect(row); shown.isMissing && kind.contains(point))
        return { paneltexts::missingFileToolTip, kind };
    return {};
}

double ClipRowView::marksWidth(const ClipRow& shown) const
{
    double width = badgeWidth(QString::fromUtf8(paneltexts::shortcutBadge(shown.shortcutIndex)));
    for (const bool hasMark : { shown.clip.isOverflow, shown.clip.isPinned }) {
        if (hasMark)
            width += markSymbol + (width > 0 ? markGap : 0);
    }
    return width;
}

void ClipRowView::paintGround(
    QPainter& painter, const QRectF& row, const ClipRow& shown, const QPalette& palette)
{
    const auto& colours = coloursOf(palette);
    const auto ground = onPixels(painter, row);
    const auto fill = [&](const QColor& colour) {
        painter.setBrush(colour);
        painter.drawRoundedRect(ground, metrics::rowRadius, metrics::rowRadius);
    };
    painter.setPen(Qt::NoPen);
    if (shown.isSelected)
        fill(colours.selection);
    if (shown.isPressed)
        fill(colours.pressed);
    else if (shown.isHovered && !shown.isSelected)
        fill(colours.hover);
    if (!shown.isSelected)
        return;
    // Under the pointer the edge is stronger; the ground stays, as texts must stand out from it.
    paintOutline(painter, row, metrics::rowRadius, colours.selectionEdge, shown.isHovered ? 2 : 1);
}

void ClipRowView::paintKind(
    QPainter& painter, const QRectF& row, const ClipRow& shown, const QPalette& palette)
{
    const auto& colours = coloursOf(palette);
    const auto box = kindRect(row);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shown.isSelected ? colours.selectedIconGround : colours.icon);
    painter.drawRoundedRect(box, kindRadius, kindRadius);
    m_symbols.paint(painter, shown.isMissing ? "doc.missing" : symbolOf(shown.clip.type), box,
        kindSymbol, shown.isSelected ? colours.selectedIcon : colours.secondary);
}

void ClipRowView::paintTexts(QPainter& painter, const QRectF& row, const ClipRow& shown,
    TimePoint now, const QPalette& palette)
{
    const auto& colours = coloursOf(palette);
    const auto title = titleRect(row, shown);
    if (shown.isRenaming) {
        painter.setPen(colours.selectionEdge);
        painter.setBrush(colours.field);
        painter.drawRoundedRect(title.adjusted(-4.5, -2.5, 3.5, 1.5), 4, 4);
    } else {
        auto font = textFont(titleSize);
        font.setStrikeOut(shown.isMissing);
        painter.setFont(font);
        painter.setPen(shown.isMissing ? standingBack(colours, shown) : colours.text);
        m_titles.draw(painter, title, QString::fromUtf8(paneltexts::rowTitle(shown.clip)));
    }
    painter.setFont(textFont(metaSize));
    painter.setPen(standingBack(colours, shown));
    paintMeta(painter, { title.left(), row.top() + metaTop, title.width(), metaHeight },
        paneltexts::metaItems(shown.clip, now));
}

void ClipRowView::paintMarks(
    QPainter& painter, const QRectF& row, const ClipRow& shown, const QPalette& palette)
{
    const auto& colours = coloursOf(palette);
    const auto badge = QString::fromUtf8(paneltexts::shortcutBadge(shown.shortcutIndex));
    double x = row.right() - sidePadding - marksWidth(shown);
    const auto mark = [&](std::string_view symbol, const QColor& colour) {
        m_symbols.paint(
            painter, symbol, { x, row.top(), markSymbol, row.height() }, markSymbol, colour);
        x += markSymbol + markGap;
    };
    if (shown.clip.isOverflow)
        mark("externaldrive", standingBack(colours, shown));
    if (shown.clip.isPinned)
        mark("pin.fill", colours.orange);
    if (badge.isEmpty())
        return;
    painter.setFont(textFont(metaSize));
    const double height = std::ceil(metaSize * 1.25) + 2 * badgePaddingY;
    const QRectF box(x, std::round(row.center().y() - height / 2), badgeWidth(badge), height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.badge);
    painter.drawRoundedRect(box, badgeRadius, badgeRadius);
    painter.setPen(standingBack(colours, shown));
    painter.drawText(box, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, badge);
}

} // namespace korvane
