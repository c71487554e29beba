#pragma once

#include "model/ClipItem.h"
#include "model/Signal.h"
#include "panel/view/AccessiblePart.h"

#include <optional>
#include <unordered_map>

namespace korvane {

class ClipListView;

/// The list of clips as assistive technology sees it: a list with an element for each row, made
/// when it is first asked for. A row's element belongs to its clip: it stays the same wherever the
/// clip is displayed, is invisible while it is not, and ends with the clip.
class ClipListAccess : public QAccessibleWidget {
public:
    explicit ClipListAccess(ClipListView& list);

    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text kind) const override;

    /// The row of a clip; none where it is not displayed.
    QAccessibleInterface* row(const std::optional<ClipId>& id) const;
    /// The row that has the focus for those who do not see it: they follow the selection by it,
    /// while the keyboard stays with the search field.
    const std::optional<ClipId>& focused() const { return m_focused; }
    /// Tells of it too; with none, the caller tells who has it instead.
    void setFocused(const std::optional<ClipId>& id);

    /// None from the moment on that the list is being destroyed: the toolkit asks for it until then.
    ClipListView* list() const;

private:
    int rowCount() const;
    int widgetCount() const;
    void forgetGone();

    mutable std::unordered_map<ClipId, RegisteredPart> m_rows;
    std::optional<ClipId> m_focused;
    Connection m_clipsChanged;
};

} // namespace korvane
