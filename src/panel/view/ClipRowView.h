#pragma once

#include "model/ClipItem.h"
#include "panel/view/TitlePainter.h"

#include <QRectF>

#include <cstddef>
#include <string_view>

class QPainter;
class QPalette;

namespace korvane {

class Symbols;

/// One row of the list as it is to be painted.
struct ClipRow {
    const ClipItem& clip;
    /// Its place in the displayed list, for the badge of the first ten.
    std::size_t shortcutIndex = 0;
    bool isSelected = false;
    bool isHovered = false;
    bool isPressed = false;
    /// A field stands where its title is.
    bool isRenaming = false;
    /// It names a file that is gone.
    bool isMissing = false;
};

/// Paints rows. It never lays out more of a text than a row can show.
class ClipRowView {
public:
    explicit ClipRowView(Symbols& symbols)
        : m_symbols(symbols)
    {
    }

    /// @param now  the moment that ages are counted to
    void paint(QPainter& painter, const QRectF& row, const ClipRow& shown, TimePoint now,
        const QPalette& palette);
    /// Where the title stands, for the field that replaces it.
    QRectF titleRect(const QRectF& row, const ClipRow& shown) const;
    /// Where the mark of a large clip stands; empty for any other clip.
    QRectF largeMarkRect(const QRectF& row, const ClipRow& shown) const;

    struct ToolTip {
        std::string_view text; ///< empty: there is none
        QRectF place;          ///< what it tells of
    };
    /// What is told of the mark at a point.
    ToolTip toolTipAt(const QPointF& point, const QRectF& row, const ClipRow& shown) const;

private:
    double marksWidth(const ClipRow& shown) const;
    void paintGround(
        QPainter& painter, const QRectF& row, const ClipRow& shown, const QPalette& palette);
    void paintKind(
        QPainter& painter, const QRectF& row, const ClipRow& shown, const QPalette& palette);
    void paintTexts(QPainter& painter, const QRectF& row, const ClipRow& shown, TimePoint now,
        const QPalette& palette);
    void paintMarks(
        QPainter& painter, const QRectF& row, const ClipRow& shown, const QPalette& palette);

    Symbols& m_symbols;
    TitlePainter m_titles;
};

/// The symbol at the head of a row.
std::string_view symbolOf(ClipType type);

} // namespace korvane
