#include "app/view/TrayScreens.h"

#include "app/Placement.h"
#include "app/view/TrayItem.h"
#include "support/Environment.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QSystemTrayIcon>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

/// Where the toolkit tells debuggers of every object that is made; nothing else leads to an icon that
/// keeps to itself, and without a tray nobody can click on it.
extern Q_DECL_IMPORT quintptr qtHookData[]; // NOLINT(readability-identifier-naming)

namespace korvane {

// Without a display no tray tells where an icon is: that the icon's own place goes before everything
// else is seen on the desktop, where a real one does.

void PrintTo(const Rect& rect, std::ostream* out) // NOLINT(readability-identifier-naming)
{
    *out << rect.width << "×" << rect.height << "+" << rect.x << "+" << rect.y;
}

namespace {

    using Monitors = std::vector<TrayScreens::Pixels>;

    /// The icon of a tray item, found while the item is made.
    class MadeItem {
    public:
        MadeItem()
        {
            constexpr std::size_t addObject = 3;
            made().clear();
            qtHookData[addObject] = reinterpret_cast<quintptr>(&noteObject);
            item.emplace();
            qtHookData[addObject] = 0;
            for (const auto& object : made()) {
                // Those that did not outlive the making were short-lived helpers of the toolkit's.
                if (auto* icon = qobject_cast<QSystemTrayIcon*>(object.data()))
                    m_icon = icon;
            }
        }
        /// A left click with the pointer at this place.
        void click(QPoint point)
        {
            QCursor::setPos(point);
            m_icon->activated(QSystemTrayIcon::Trigger);
        }

        std::optional<TrayItem> item;

    private:
        static std::vector<QPointer<QObject>>& made()
        {
            static std::vector<QPointer<QObject>> objects;
            return objects;
        }
        static void noteObject(QObject* object) { made().emplace_back(object); }

        QSystemTrayIcon* m_icon = nullptr;
    };

    struct ScreensFixture : MadeItem {
        explicit ScreensFixture(Monitors there)
            : monitors(std::move(there))
        {
        }

        Monitors monitors;
        std::vector<QPoint> asked;
        TrayScreens screens { *item, [this](QPoint pixel) {
                                 asked.push_back(pixel);
                                 for (const auto& monitor : monitors) {
                                     if (monitor.monitor.contains(pixel))
                                         return monitor;
                                 }
                                 return TrayScreens::Pixels {};
                             } };
    };

    /// The test's own screen, 800 by 800, with a bar of 27 pixels at its top or at its bottom.
    const Monitors barAtTop { { { 0, 0, 800, 800 }, { 0, 27, 800, 773 } } };
    const Monitors barAtBottom { { { 0, 0, 800, 800 }, { 0, 0, 800, 773 } } };
    /// Two monitors side by side on it, the left one with the bar.
    const Monitors twoMonitors { { { 0, 0, 300, 800 }, { 0, 27, 300, 773 } },
        { { 300, 100, 500, 700 }, { 300, 100, 500, 700 } } };

    TEST(TrayScreensTest, WithoutAnythingKnownTheIconIsAtTheRightEndOfTheWorkAreasTop)
    {
        ScreensFixture f(barAtTop);

        const auto frames = f.screens.look();

        EXPECT_EQ(frames.visible, (Rect { 0, 0, 800, 773 }));
        EXPECT_EQ(frames.statusItem, (Rect { 800 - 8, 773, 0, 0 }));
    }

    TEST(TrayScreensTest, AfterAClickTheIconIsWhereThatWas)
    {
        ScreensFixture f(barAtTop);

        f.click({ 400, 13 });

        // As wide as icons are, and hanging with its underside at the bar's edge.
        EXPECT_EQ(f.screens.look().statusItem, (Rect { 389, 773, 22, 22 }));
    }

    TEST(TrayScreensTest, TheLastClickCounts)
    {
        ScreensFixture f(barAtTop);

        f.click({ 400, 13 });
        f.screens.look();
        f.click({ 600, 13 });

        EXPECT_EQ(f.screens.look().statusItem, (Rect { 589, 773, 22, 22 }));
    }

    TEST(TrayScreensTest, AnIconInABarAtTheBottomStaysThere)
    {
        ScreensFixture f(barAtBottom);

        f.click({ 400, 787 });
        const auto frames = f.screens.look();

        EXPECT_EQ(frames.visible, (Rect { 0, 27, 800, 773 }));
        EXPECT_EQ(frames.statusItem, (Rect { 389, 2, 22, 22 }));
    }

    TEST(TrayScreensTest, OfTwoMonitorsTheOneWithTheClickCounts)
    {
        ScreensFixture f(twoMonitors);

        f.click({ 100, 13 });
        EXPECT_EQ(f.screens.look().visible, (Rect { 0, 0, 300, 773 }));
        EXPECT_EQ(f.screens.look().statusItem, (Rect { 89, 773, 22, 22 }));

        f.click({ 500, 110 });
        EXPECT_EQ(f.screens.look().visible, (Rect { 0, 0, 500, 700 }));
        EXPECT_EQ(f.screens.look().statusItem, (Rect { 189, 700 - 21, 22, 22 }));
    }

    TEST(TrayScreensTest, WindowsGoOntoTheMonitorThatWasLookedAtLast)
    {
        ScreensFixture f(twoMonitors);
        f.click({ 500, 110 });
        f.screens.look();
        f.click({ 100, 13 }); // of which nobody has taken note yet

        const auto right = f.screens.geometry();
        f.screens.look();
        const auto left = f.screens.geometry();

        EXPECT_EQ((std::vector { right.left, right.top, right.height }),
            (std::vector<double> { 300, 100, 700 }));
        EXPECT_EQ((std::vector { left.left, left.top, left.height }),
            (std::vector<double> { 0, 0, 800 }));
    }

    TEST(TrayScreensTest, BeforeTheFirstLookTheScreenIsLookedAtForAWindow)
    {
        ScreensFixture f(twoMonitors);

        const auto geometry = f.screens.geometry(); // of the monitor in the middle

        EXPECT_EQ(geometry.left, 300);
        EXPECT_EQ(geometry.height, 700);
        EXPECT_EQ(f.asked.size(), 1U);
    }

    TEST(TrayScreensTest, WhereNoMonitorIsKnownTheToolkitsScreenCounts)
    {
        ScreensFixture f({});

        const auto frames = f.screens.look();

        EXPECT_EQ(frames.visible, (Rect { 0, 0, 800, 800 }));
        EXPECT_EQ(frames.statusItem, (Rect { 792, 800, 0, 0 }));
    }

    /// Other screens need another application object, and thereby a process of its own.
    struct TrayScreensDeathTest : testing::Test {
        TrayScreensDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

        /// The environment of a process that has these screens, and scales each by its factor.
        test::Environment with(const std::string& screens, const std::string& factors) const
        {
            const auto file = folder.path() / "screens.json";
            std::ofstream(file) << R"({"synchronousWindowSystemEvents": true, "screens": )"
                                << screens << "}";
            return test::Environment(
                { { "QT_QPA_PLATFORM", "offscreen:configfile=" + file.string() },
                    { "QT_SCREEN_SCALE_FACTORS", factors } });
        }

        test::TempFolder folder;
    };

    /// Ends the process: with 0 when the frames are the expected ones.
    [[noreturn]] void leave(TrayScreens& screens, const Screens::Frames& expected)
    {
        const auto frames = screens.look();
        const auto told = "visible " + testing::PrintToString(frames.visible) + ", icon "
            + testing::PrintToString(frames.statusItem) + "\n";
        std::fputs(told.c_str(), stderr);
        std::_Exit(
            frames.visible == expected.visible && frames.statusItem == expected.statusItem ? 0 : 1);
    }

    constexpr auto oneScreen
        = R"([{ "name": "one", "x": 0, "y": 0, "width": 1600, "height": 1200 }])";
    constexpr auto twoScreens
        = R"([{ "name": "one", "x": 0, "y": 0, "width": 1600, "height": 1200 },
              { "name": "two", "x": 1600, "y": 0, "width": 1600, "height": 1000 }])";
    const Monitors twoScreensWithBars { { { 0, 0, 1600, 1200 }, { 0, 50, 1600, 1150 } },
        { { 1600, 0, 1600, 1000 }, { 1600, 50, 1600, 950 } } };

    TEST_F(TrayScreensDeathTest, OnAScaledScreenMonitorsAreMeasuredInPixelsAndFramesInPoints)
    {
        const auto environment = with(oneScreen, "2");

        const auto look = [] {
            ScreensFixture f(twoScreensWithBars);
            f.click({ 400, 13 });
            static_cast<void>(f.screens.look());
            if (f.asked.front() != QPoint(800, 26))
                std::_Exit(2);
            leave(f.screens, { { 0, 0, 800, 575 }, { 389, 575, 22, 22 } });
        };

        EXPECT_EXIT(look(), testing::ExitedWithCode(0), "");
    }

    TEST_F(TrayScreensDeathTest, TheClickedScreenCountsAndIsScaledByItsOwnFactor)
    {
        const auto environment = with(twoScreens, "1;2");

        const auto look = [] {
            ScreensFixture f(twoScreensWithBars);
            // Half a point for each pixel, from the screen's corner, which is where it is in pixels.
            f.click({ 1600 + 400, 13 });
            leave(f.screens, { { 0, 0, 800, 475 }, { 389, 475, 22, 22 } });
        };

        EXPECT_EXIT(look(), testing::ExitedWithCode(0), "");
    }

    TEST_F(TrayScreensDeathTest, WithoutAClickTheFirstOfTwoScreensCounts)
    {
        const auto environment = with(twoScreens, "1;2");

        const auto look = [] {
            ScreensFixture f(twoScreensWithBars);
            leave(f.screens, { { 0, 0, 1600, 1150 }, { 1592, 1150, 0, 0 } });
        };

        EXPECT_EXIT(look(), testing::ExitedWithCode(0), "");
    }

    TEST_F(TrayScreensDeathTest, WithoutAnyScreenOneIsAssumed)
    {
        const auto environment = with("[]", "");

        const auto look = [] {
            if (QGuiApplication::primaryScreen() != nullptr)
                std::_Exit(2);
            ScreensFixture f({});
            leave(f.screens, { placement::assumedVisibleFrame, { 1440 - 8, 900, 0, 0 } });
        };

        EXPECT_EXIT(look(), testing::ExitedWithCode(0), "");
    }

} // namespace
} // namespace korvane
