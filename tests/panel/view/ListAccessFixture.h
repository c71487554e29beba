#pragma once

#include "look/view/Symbols.h"
#include "panel/view/ClipListView.h"
#include "panel/view/PanelAccess.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/AccessEvents.h"
#include "support/Input.h"

#include <memory>
#include <string>

namespace korvane::test {

/// A list of clips that somebody listens to, six rows high.
struct ListAccessFixture : ViewFixture {
    explicit ListAccessFixture(int clips = 0)
    {
        addNumbered(clips);
        installPanelAccess();
        makeList();
    }
    void makeList()
    {
        list = std::make_unique<ClipListView>(
            store, controller, loop, symbols, TextReader(), [] {}, nullptr);
        list->resize(metrics::panelWidth, 306);
        list->show();
        settle();
        element = QAccessible::queryAccessibleInterface(list.get());
    }
    QAccessibleInterface& row(int index) const { return *element->child(index); }
    std::string name(int index) const { return row(index).text(QAccessible::Name).toStdString(); }
    void act(int index, const QString& action)
    {
        row(index).actionInterface()->doAction(action);
        loop.turn();
    }

    AccessEvents events;
    Symbols symbols;
    std::unique_ptr<ClipListView> list;
    QAccessibleInterface* element = nullptr;
};

} // namespace korvane::test
