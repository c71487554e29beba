#include "panel/view/FilterTabAccess.h"

#include "panel/view/FilterTabBar.h"

#include <QPointer>

#include <memory>

namespace korvane {

namespace {

    /// One tab: its title, whether it is the chosen one, and a click on it.
    class TabAccess : public AccessiblePart {
    public:
        TabAccess(const FilterTabAccess& tabs, FilterTab tab)
            : AccessiblePart(tabs)
            , m_tabs(tabs)
            , m_tab(tab)
        {
        }

        FilterTab tab() const { return m_tab; }

        bool isValid() const override { return m_tabs.bar() != nullptr; }
        QAccessible::Role role() const override { return QAccessible::PageTab; }
        QString text(QAccessible::Text kind) const override
        {
            return kind == QAccessible::Name ? QString::fromUtf8(title(m_tab)) : QString();
        }
        QAccessible::State state() const override
        {
            QAccessible::State state;
            const auto* const bar = m_tabs.bar();
            if (!bar)
                return state;
            state.selectable = true;
            state.focusable = true;
            state.selected = bar->shownTab() == m_tab;
            state.focused = state.selected && bar->hasFocus();
            state.invisible = !bar->isVisible();
            return state;
        }
        QRect rect() const override
        {
            const auto* const bar = m_tabs.bar();
            return bar ? bar->chip(m_tab).toAlignedRect().translated(bar->mapToGlobal(QPoint()))
                       : QRect();
        }
        QStringList actionNames() const override { return { pressAction() }; }
        void doAction(const QString& name) override
        {
            if (auto* const bar = m_tabs.bar(); bar && bar->isVisible() && name == pressAction())
                bar->choose(m_tab);
        }

    private:
        const FilterTabAccess& m_tabs;
        FilterTab m_tab;
    };

} // namespace

FilterTabAccess::FilterTabAccess(FilterTabBar& bar)
    : QAccessibleWidget(&bar, QAccessible::PageTabList)
{
    m_tabs.reserve(allFilterTabs.size());
    for (const auto tab : allFilterTabs)
        m_tabs.emplace_back(std::make_unique<TabAccess>(*this, tab));
}

FilterTabBar* FilterTabAccess::bar() const
{
    // While its base is being destroyed, it is none any more.
    return dynamic_cast<FilterTabBar*>(object());
}

int FilterTabAccess::childCount() const
{
    return static_cast<int>(m_tabs.size());
}

int FilterTabAccess::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const tab = dynamic_cast<const TabAccess*>(child);
    return tab ? static_cast<int>(tab->tab()) : -1;
}

QAccessibleInterface* FilterTabAccess::child(int index) const
{
    const auto isTab = index >= 0 && index < childCount();
    return isTab ? m_tabs[static_cast<std::size_t>(index)].get() : nullptr;
}

QAccessibleInterface* FilterTabAccess::childAt(int x, int y) const
{
    for (const auto& tab : m_tabs)
        if (auto* const element = tab.get(); element && element->rect().contains(x, y))
            return element;
    return nullptr;
}

QAccessibleInterface* FilterTabAccess::focusChild() const
{
    const auto* const shown = bar();
    return shown && shown->hasFocus() ? tab(shown->shownTab()) : nullptr;
}

} // namespace korvane
