#include "panel/view/ClipListAccess.h"

#include "panel/PanelController.h"
#include "panel/Selection.h"
#include "panel/view/ClipListView.h"
#include "panel/view/ClipRowAccess.h"

#include <unordered_set>

namespace korvane {

ClipListAccess::ClipListAccess(ClipListView& list)
    : QAccessibleWidget(&list, QAccessible::List)
    , m_clipsChanged(list.store().clipsChanged.connect([this] { forgetGone(); }))
{
}

ClipListView* ClipListAccess::list() const
{
    // While its base is being destroyed, it is none any more.
    return dynamic_cast<ClipListView*>(object());
}

int ClipListAccess::rowCount() const
{
    auto* const shown = list();
    return shown ? static_cast<int>(shown->store().filteredClips().size()) : 0;
}

/// The rows come first, and after them what the list holds as widgets: the field of a rename.
int ClipListAccess::widgetCount() const
{
    auto* const shown = list();
    return shown && shown->isRenaming() ? QAccessibleWidget::childCount() : 0;
}

int ClipListAccess::childCount() const
{
    return rowCount() + widgetCount();
}

int ClipListAccess::indexOfChild(const QAccessibleInterface* child) const
{
    if (const auto* const row = dynamic_cast<const ClipRowAccess*>(child))
        return row->index().value_or(-1);
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 || index >= widgetCount() ? -1 : index + rowCount();
}

QAccessibleInterface* ClipListAccess::child(int index) const
{
    const int count = rowCount();
    if (index < 0 || index >= childCount())
        return nullptr;
    if (index >= count)
        return QAccessibleWidget::child(index - count);
    const auto& id = list()->store().filteredClips()[static_cast<std::size_t>(index)]->id;
    auto found = m_rows.find(id);
    if (found == m_rows.end())
        found = m_rows.emplace(id, std::make_unique<ClipRowAccess>(*this, id)).first;
    return found->second.get();
}

QAccessibleInterface* ClipListAccess::childAt(int x, int y) const
{
    auto* const shown = list();
    if (!shown || !rect().contains(x, y))
        return nullptr;
    if (auto* const field = QAccessibleWidget::childAt(x, y))
        return field;
    const auto index = shown->rowAt(shown->mapFromGlobal(QPointF(x, y)));
    return index ? child(static_cast<int>(*index)) : nullptr;
}

QAccessibleInterface* ClipListAccess::focusChild() const
{
    if (auto* const focusedRow = row(m_focused))
        return focusedRow;
    return QAccessibleWidget::focusChild();
}

QString ClipListAccess::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Description || !list() || rowCount() != 0)
        return QAccessibleWidget::text(kind);
    const auto said = list()->emptyText();
    return QString::fromStdString(said.title + ". " + said.hint);
}

QAccessibleInterface* ClipListAccess::row(const std::optional<ClipId>& id) const
{
    auto* const shown = list();
    const auto index = shown ? indexOf(shown->store().filteredClips(), id) : std::nullopt;
    return index ? child(static_cast<int>(*index)) : nullptr;
}

void ClipListAccess::setFocused(const std::optional<ClipId>& id)
{
    m_focused = id;
    if (id)
        tell(row(id), QAccessible::Focus);
}

void ClipListAccess::forgetGone()
{
    if (m_rows.empty() || !list())
        return;
    std::unordered_set<ClipId> present;
    for (const auto& clip : list()->store().clips())
        present.insert(clip.id);
    for (auto row = m_rows.begin(); row != m_rows.end();) {
        if (present.contains(row->first)) {
            ++row;
            continue;
        }
        tell(row->second.get(), QAccessible::ObjectDestroyed);
        row = m_rows.erase(row);
    }
}

} // namespace korvane
