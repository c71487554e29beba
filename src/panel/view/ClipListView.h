#pragma once

#include "look/view/EasedValue.h"
#include "model/ClipStore.h"
#include "model/MainLoop.h"
#include "model/MissingFiles.h"
#include "panel/EmptyList.h"
#include "panel/view/ClipRowView.h"
#include "panel/view/RenameField.h"

#include <QPointF>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QMenu;

namespace korvane {

class PanelController;
class Symbols;

/// The list of the displayed clips. Only rows that can be seen are painted, and only what has
/// changed; nothing is computed while the list is hidden. So it costs the same whatever the length
/// of the history and of its clips. While the tab is being switched, the list fades away and back.
class ClipListView : public QWidget {
public:
    /// @param renameEnded  called when the field of a rename has gone, for the focus to go elsewhere
    ClipListView(ClipStore& store, PanelController& controller, MainLoop& loop, Symbols& symbols,
        TextReader reader, std::function<void()> renameEnded, QWidget* parent);

    /// How far the list is scrolled, and what it could be scrolled through, in points.
    double offset() const { return m_offset; }
    double contentHeight() const;
    /// Scrolls, no further than to the list's ends.
    void setOffset(double offset);
    /// What there is of the list, what is seen of it, or how far it is scrolled may have changed.
    Signal<> measured;

    /// Where the row at a place of the displayed list is; it need not be in view.
    QRectF rowRect(std::size_t index) const;
    std::optional<std::size_t> rowAt(const QPointF& point) const;

    /// Something that lay over the list and was clicked is there no longer: clicks that follow at once
    /// in the same place of the screen were meant for it, and choose no clip.
    void ignoreClicksAt(const QPoint& global);

    bool isRenaming() const { return m_rename.clip().has_value(); }
    /// Puts a field in the place of the clip's title.
    void beginRename(const ClipId& id);
    void submitRename() { m_rename.submit(); }
    void giveUpRename() { m_rename.giveUp(); }
    /// The context menu of the selected row, for the keyboard; nothing where none is displayed.
    void openMenuOfSelectedRow();
    /// The same for any clip.
    void openMenuOf(const std::optional<ClipId>& id);

    /// What stands behind the rows, for those who do not see them.
    ClipStore& store() const { return m_store; }
    PanelController& controller() const { return m_controller; }
    MainLoop& loop() const { return m_loop; }
    /// Whether the clip is a file that is gone, as far as is known.
    bool isMissing(const ClipItem& clip);
    /// What the list says while it has no row.
    EmptyList emptyText() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void follow(PanelState& panel);
    /// The row that is at a height of the list or the first one below it; there may be none.
    std::size_t firstRowAt(double y) const;
    void listChanged();
    void refreshAges();
    bool isForSomethingGone(const QPoint& global);
    void selectionChanged(const std::optional<ClipId>& selected);
    const std::vector<const ClipItem*>& displayed() const { return m_store.filteredClips(); }
    void settle();
    bool isInView(std::size_t index) const;
    void notePlace();
    const std::optional<ClipId>& keptClip() const;
    void keepPlace();
    QRect titlePlace(std::size_t index);
    void toTop();
    void centre(std::size_t index);
    void bringIntoView(std::size_t index);
    void hoverAt(std::optional<QPointF> pointer);
    void updateRow(std::optional<std::size_t> index);
    QMenu* openMenu(std::size_t index, const QPoint& at);
    void setMenuRow(std::optional<ClipId> id);
    ClipRow row(std::size_t index);

    ClipStore& m_store;
    PanelController& m_controller;
    MainLoop& m_loop;
    Symbols& m_symbols;
    TitlePainter m_titles; // of what is said in an empty list
    ClipRowView m_rowView;
    MissingFiles m_files;

    /// A row and where its top edge is in the view.
    struct RowPlace {
        ClipId id;
        double y;
    };

    double m_offset = 0;
    std::optional<RowPlace> m_topRow; // the first in view, of a list that is scrolled
    bool m_isKeptInView = false;
    TimePoint m_now {};
    std::optional<ClipId> m_selected;
    std::optional<QPointF> m_pointer; // while it is over the list
    std::optional<std::size_t> m_hovered;
    std::optional<ClipId> m_pressed;
    std::optional<QPoint> m_ignoredAt; // clicks here are not for us
    TimePoint m_ignoredSince {};
    bool m_isPrivate = false;
    std::optional<ClipId> m_menuRow; // whose menu is open
    RenameField m_rename;

    EasedValue m_opacity;
    Timer m_ageTick; // while visible
    std::vector<Connection> m_connections;
};

} // namespace korvane
