#pragma once

#include "hotkey/KeyCodes.h"
#include "look/view/Symbols.h"
#include "panel/view/ClipListView.h"
#include "panel/view/FilterTabBar.h"
#include "panel/view/ListChevrons.h"
#include "panel/view/PanelAnnouncer.h"
#include "panel/view/PanelFooter.h"
#include "panel/view/PanelHeader.h"
#include "panel/view/SearchTextField.h"

#include <QWidget>

namespace korvane {

/// All that is in the panel, from top to bottom: head, search field, tabs, list, foot.
class ClipPanelView : public QWidget {
public:
    ClipPanelView(
        ClipStore& store, PanelController& controller, MainLoop& loop, const TextReader& reader);

    /// Every key press in the panel, before any control sees it. While a clip is being renamed only
    /// the ends of that are keys of ours; everything else is typed.
    /// @return whether the press goes no further
    bool handle(const KeyPress& press);

    PanelHeader& header() { return m_header; }
    SearchTextField& search() { return m_search; }
    FilterTabBar& tabs() { return m_tabs; }
    ClipListView& list() { return m_list; }
    ListChevrons& chevrons() { return m_chevrons; }
    PanelFooter& footer() { return m_footer; }

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool handleWhileRenaming(const KeyPress& press);

    PanelController& m_controller;
    Symbols m_symbols;
    PanelHeader m_header;
    SearchTextField m_search;
    FilterTabBar m_tabs;
    PanelAnnouncer m_announcer; // before the list, whose end may still tell of the end of a rename
    ClipListView m_list;
    ListChevrons m_chevrons;
    PanelFooter m_footer;
};

} // namespace korvane
