#pragma once

#include "panel/view/ClipPanelView.h"
#include "panel/view/PanelAccess.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/AccessEvents.h"
#include "support/Input.h"

#include <QApplication>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvane::test {

enum class Listener { present, absent };

/// The contents of an open panel, and somebody who listens to what is told of it.
struct AnnouncerFixture : ViewFixture {
    using Names = std::vector<std::string>;

    explicit AnnouncerFixture(int clips, Listener listener = Listener::present)
    {
        addNumbered(clips);
        add("let x = 1;", ClipType::code);
        installPanelAccess();
        if (listener == Listener::present)
            events.emplace();
        view = std::make_unique<ClipPanelView>(store, controller, loop, TextReader());
        view->resize(metrics::panelWidth, 480);
        open();
    }
    void open()
    {
        controller.prepareToOpen(std::nullopt);
        view->show();
        QApplication::setActiveWindow(view.get()); // which no desktop does here
        settle();
        loop.advance(std::chrono::milliseconds { 0 });
    }
    /// Forgets what has been told so far.
    void forget()
    {
        loop.advance(std::chrono::milliseconds { 0 });
        events->clear();
    }
    /// Presses a key of the panel, and lets what follows from it be told.
    void key(KeyCode code)
    {
        view->handle({ code, 0, "" });
        loop.advance(std::chrono::milliseconds { 0 });
    }
    void type(const QString& text)
    {
        typeText(view->search().field(), text);
        loop.advance(std::chrono::milliseconds { 0 });
    }
    Names focused() const { return events->names(QAccessible::Focus); }
    Names selections() const { return events->names(QAccessible::Selection); }

    std::optional<AccessEvents> events;
    std::unique_ptr<ClipPanelView> view;
};

} // namespace korvane::test
