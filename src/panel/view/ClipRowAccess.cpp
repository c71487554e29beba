#include "panel/view/ClipRowAccess.h"

#include "panel/PanelController.h"
#include "panel/PanelTexts.h"
#include "panel/Selection.h"
#include "panel/view/ClipListAccess.h"
#include "panel/view/ClipListView.h"

#include <QPointer>

namespace korvane {

namespace {
    QString pasteAction()
    {
        return QStringLiteral("Paste");
    }
} // namespace

ClipRowAccess::ClipRowAccess(const ClipListAccess& list, const ClipId& id)
    : AccessiblePart(list)
    , m_list(list)
    , m_id(id)
{
}

std::optional<int> ClipRowAccess::index() const
{
    auto* const list = m_list.list();
    const auto index = list ? indexOf(list->store().filteredClips(), m_id) : std::nullopt;
    return index ? std::optional(static_cast<int>(*index)) : std::nullopt;
}

bool ClipRowAccess::isValid() const
{
    return m_list.list() != nullptr;
}

QString ClipRowAccess::text(QAccessible::Text kind) const
{
    const auto place = index();
    if (!place)
        return {};
    auto& list = *m_list.list();
    const auto& rows = list.store().filteredClips();
    const auto row = static_cast<std::size_t>(*place);
    if (kind == QAccessible::Description && list.isMissing(*rows[row]))
        return QString::fromUtf8(paneltexts::missingFileToolTip);
    if (kind != QAccessible::Name)
        return {};
    return QString::fromStdString(
        paneltexts::rowDescription(*rows[row], list.loop().now(), row, rows.size()));
}

QAccessible::State ClipRowAccess::state() const
{
    QAccessible::State state;
    const auto place = index();
    if (!place) {
        state.invisible = true;
        return state;
    }
    const auto& list = *m_list.list();
    const bool isInView
        = list.rect().toRectF().intersects(list.rowRect(static_cast<std::size_t>(*place)));
    state.selectable = true;
    state.focusable = true;
    state.selected = list.store().panel().selectedClipID.value() == m_id;
    state.focused = m_list.focused() == m_id && list.isVisible() && !list.isRenaming();
    state.offscreen = !isInView;
    state.invisible = !list.isVisible() || !isInView;
    return state;
}

QRect ClipRowAccess::rect() const
{
    const auto place = index();
    if (!place)
        return {};
    const auto& list = *m_list.list();
    const auto row = list.rowRect(static_cast<std::size_t>(*place)).toAlignedRect();
    return row.translated(list.mapToGlobal(QPoint()));
}

QStringList ClipRowAccess::actionNames() const
{
    return { pressAction(), showMenuAction(), pasteAction(), setFocusAction() };
}

QString ClipRowAccess::localizedActionName(const QString& name) const
{
    return name == pasteAction() ? QStringLiteral("Paste Directly")
                                 : QAccessibleActionInterface::localizedActionName(name);
}

QString ClipRowAccess::localizedActionDescription(const QString& name) const
{
    return name == pasteAction()
        ? QStringLiteral("Pastes the clip into the application that you came from")
        : QAccessibleActionInterface::localizedActionDescription(name);
}

void ClipRowAccess::doAction(const QString& name)
{
    auto* const list = m_list.list();
    if (!list || !actionNames().contains(name))
        return;
    list->loop().post([name, id = m_id, list = QPointer<ClipListView>(list)] {
        if (!list || !list->isVisible()) // the panel may have been closed meanwhile
            return;
        if (name == pressAction())
            list->controller().click(id);
        else if (name == showMenuAction())
            list->openMenuOf(id);
        else if (name == pasteAction())
            list->controller().pasteDirectly(id);
        else
            list->controller().selectClip(id);
    });
}

} // namespace korvane
