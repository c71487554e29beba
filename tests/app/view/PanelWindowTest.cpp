#include "app/view/PanelWindow.h"

#include "app/view/StageOfWindows.h"
#include "app/view/TrayItem.h"
#include "app/view/TrayScreens.h"
#include "panel/view/FilterTabBar.h"
#include "panel/view/SearchTextField.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QWindow>

#include <chrono>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    struct PanelWindowFixture : test::ViewFixture {
        PanelWindowFixture()
        {
            addNumbered(3);
            window.setFrame({ 100, 100, 360, 320 });
            controller.prepareToOpen({});
            window.show();
            test::settle();
        }
        /// A key as the desktop sends it, to the window.
        void type(
            int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {})
        {
            test::typeKey(*window.panel().windowHandle(), key, modifiers, text);
        }
        void typeTab() { type(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t")); }
        void typeBackTab() { type(Qt::Key_Backtab, Qt::ShiftModifier); }

        QWidget* focus() const { return window.panel().focusWidget(); }
        QWidget* search() const { return &part<SearchTextField>()->field(); }
        QWidget* tabBar() const { return part<FilterTabBar>(); }

        /// The part of the panel that is of this type; our widgets have no names for the toolkit.
        template <typename Part>
        Part* part() const
        {
            for (auto* widget : window.panel().findChildren<QWidget*>()) {
                if (auto* found = dynamic_cast<Part*>(widget))
                    return found;
            }
            return nullptr;
        }

        TrayItem tray;
        TrayScreens screens { tray, [](QPoint) { return TrayScreens::Pixels {}; } };
        Observable<bool> isComposited { false };
        StageOfWindows stage;
        mutable PanelWindow window { store, controller,
            { loop, screens, isComposited, {}, stage } };
    };

    TEST(PanelWindowTest, ItOpensWithTheFocusInTheSearch)
    {
        const PanelWindowFixture f;

        EXPECT_EQ(f.focus(), f.search());
    }

    TEST(PanelWindowTest, WithCyclingStoredAsOffTabMovesTheFocusFromTheSearchToTheTabs)
    {
        PanelWindowFixture f;
        f.preferences.set(keys::enableTabCycling, false);

        f.typeTab();
        f.loop.advance(1s);

        EXPECT_EQ(f.focus(), f.tabBar());
        EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::all);
    }

    TEST(PanelWindowTest, WithCyclingOffShiftTabMovesTheFocusToo)
    {
        PanelWindowFixture f;
        f.preferences.set(keys::enableTabCycling, false);

        f.typeBackTab();
        f.loop.advance(1s);
        EXPECT_NE(f.focus(), f.search());
        f.typeTab();

        EXPECT_EQ(f.focus(), f.search());
        EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::all);
    }

    TEST(PanelWindowTest, WithCyclingOffTheTabsThatHaveTheFocusAreChosenByTheArrows)
    {
        PanelWindowFixture f;
        f.preferences.set(keys::enableTabCycling, false);
        f.typeTab();

        f.type(Qt::Key_Right);
        f.loop.advance(1s);

        EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::pinned);
    }

    TEST(PanelWindowTest, TabCyclesAndTheFocusStaysWhenThePreferenceWasNeverWrittenOrIsNoBoolean)
    {
        for (const auto& stored :
            { std::optional<PreferenceValue>(), std::optional<PreferenceValue>(true),
                std::optional<PreferenceValue>(std::int64_t { 0 }),
                std::optional<PreferenceValue>(std::string("false")) }) {
            PanelWindowFixture f;
            if (stored)
                f.preferences.set(keys::enableTabCycling, *stored);

            f.typeTab();
            f.loop.advance(1s);
            EXPECT_EQ(f.focus(), f.search());
            EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::pinned);

            f.typeBackTab();
            f.loop.advance(1s);
            EXPECT_EQ(f.focus(), f.search());
            EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::all);
        }
    }

    TEST(PanelWindowTest, TheNextOpeningHasTheFocusInTheSearchAgain)
    {
        PanelWindowFixture f;
        f.preferences.set(keys::enableTabCycling, false);
        f.typeTab();
        ASSERT_NE(f.focus(), f.search());

        f.window.hide();
        f.controller.prepareToOpen({});
        f.window.show();
        test::settle();

        EXPECT_EQ(f.focus(), f.search());
    }

} // namespace
} // namespace korvane
