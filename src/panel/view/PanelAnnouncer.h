#pragma once

#include "model/ClipStore.h"
#include "model/MainLoop.h"
#include "panel/view/Announcement.h"

#include <QAccessible>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

class ClipListAccess;
class ClipListView;
class FilterTabBar;

/// Tells assistive technology what changes in the open panel: which clip is selected, which tab is
/// chosen, and how many clips tab and search leave. While nobody listens it does nothing at all.
///
/// The keyboard is the search field's throughout. Who moves the selection by a key is told that the
/// row has the focus, as from a list; who types is told that the field has it, hears the echo of the
/// field, and is told by an announcement what the search has found.
class PanelAnnouncer {
public:
    /// @param field  the widget that is typed in
    PanelAnnouncer(ClipStore& store, MainLoop& loop, ClipListView& list, FilterTabBar& tabs,
        QWidget& field, QWidget& panel);

    /// The panel's window has got the keyboard. What is told of an opening comes after that, as it
    /// would be drowned by what the toolkit tells then.
    void panelActivated() { tellSoon(); }
    /// The search field has the focus again after another control had it.
    void focusReturned();

private:
    /// What was told last.
    struct Told {
        FilterTab shownTab {};
        FilterTab tab {};
        std::string search;
        std::size_t count = 0;
        std::optional<ClipId> selected;
        std::string title; // of the selected row
        bool isPinned = false;
    };

    void tellSoon();
    void tellChanges();
    Told look() const;
    void tellTab(const Told& before, const Told& now);
    void tellSelection(ClipListAccess& list, const Told& before, const Told& now);
    void giveFieldFocus(ClipListAccess& list);
    void announce(ClipListAccess& list, const std::optional<Told>& before, const Told& now);
    static std::string nameOf(QAccessibleInterface* row);

    ClipStore& m_store;
    MainLoop& m_loop;
    ClipListView& m_list;
    FilterTabBar& m_tabs;
    QWidget& m_field;
    Announcement m_announcement;
    std::optional<Told> m_told; // none before the panel's opening has been told
    bool m_hasFocusReturned = false;
    Timer m_soon;
    std::vector<Connection> m_connections;
};

} // namespace korvane
