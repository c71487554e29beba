#include "panel/view/PanelAccess.h"

#include "panel/view/Announcement.h"
#include "panel/view/ClipListAccess.h"
#include "panel/view/ClipListView.h"
#include "panel/view/FilterTabAccess.h"
#include "panel/view/FilterTabBar.h"
#include "panel/view/PanelFooter.h"
#include "panel/view/PanelHeader.h"
#include "panel/view/PreviewTextView.h"

#include <memory>

namespace korvane {

namespace {

    /// What the toolkit asks for an element; it owns the answer.
    QAccessibleInterface* makeElement(const QString&, QObject* object)
    {
        if (auto* const list = dynamic_cast<ClipListView*>(object))
            return std::make_unique<ClipListAccess>(*list).release();
        if (auto* const bar = dynamic_cast<FilterTabBar*>(object))
            return std::make_unique<FilterTabAccess>(*bar).release();
        const auto widget = [object](QAccessible::Role role) {
            // Its destructor is the toolkit's alone, so no pointer of ours can own it for a moment.
            return new QAccessibleWidget(static_cast<QWidget*>(object), role);
        };
        if (dynamic_cast<PanelHeader*>(object))
            return widget(QAccessible::Grouping);
        if (dynamic_cast<PanelFooter*>(object) || dynamic_cast<PreviewTextView*>(object))
            return widget(QAccessible::StaticText);
        if (dynamic_cast<Announcement*>(object))
            return widget(QAccessible::Notification);
        return nullptr;
    }

} // namespace

void installPanelAccess()
{
    QAccessible::installFactory(makeElement);
}

} // namespace korvane
