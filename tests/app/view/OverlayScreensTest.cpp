#include "app/view/OverlayScreens.h"

#include "app/view/KorPanel.h"
#include "app/view/StageOnOverlay.h"
#include "support/FakeOverlay.h"
#include "support/FakeWindows.h"
#include "support/Input.h"
#include "support/ManualLoop.h"

#include <gtest/gtest.h>

namespace korvane {

void PrintTo(const Rect& rect, std::ostream* out); // NOLINT(readability-identifier-naming)

namespace {

    struct OverlayScreensFixture {
        /// The panel is opened by a click on the icon at this place, and closed again.
        void clickIconAt(const QPointF& place)
        {
            item.clicked();
            screens.look();
            stage.show(panel);
            QEnterEvent enter(place, place, place);
            QApplication::sendEvent(stage.ground(), &enter);
        }
        void close()
        {
            stage.hide(panel);
            loop.advance({});
        }

        test::FakeOverlay overlay;
        test::ManualLoop loop;
        test::FakeStatusItem item;
        StageOnOverlay stage { overlay, loop };
        OverlayScreens screens { item, overlay, stage, loop };
        Observable<bool> isComposited { true };
        KorPanel panel { isComposited, {}, KorPanel::Role::panel, stage.ground() };
    };

    TEST(OverlayScreensTest, BeforeTheFirstClickTheBarIsAboveAndTheIconAtItsEnd)
    {
        OverlayScreensFixture f;

        const auto frames = f.screens.look();

        EXPECT_EQ(frames.visible, (Rect { 0, 0, 1280, 770 }));
        EXPECT_EQ(frames.statusItem, (Rect { 1272, 770, 0, 0 }));
        EXPECT_EQ(f.screens.geometry().height, 800);
    }

    TEST(OverlayScreensTest, AfterAClickTheIconIsWhereThePointerWasAndIsToldAtOnce)
    {
        OverlayScreensFixture f;
        int found = 0;
        const auto told = f.screens.found.connect([&] { ++found; });

        f.clickIconAt({ 900, 15 });

        EXPECT_EQ(found, 1);
        EXPECT_EQ(f.screens.look().statusItem, (Rect { 889, 770, 22, 22 }));
        EXPECT_EQ(f.overlay.looks, 1); // the panel stands: it is the same output
    }

    TEST(OverlayScreensTest, WithoutAClickThePointerTellsNothing)
    {
        OverlayScreensFixture f;
        f.screens.look();
        f.stage.show(f.panel);

        QEnterEvent enter({ 300, 400 }, { 300, 400 }, { 300, 400 });
        QApplication::sendEvent(f.stage.ground(), &enter);

        EXPECT_TRUE(f.panel.isVisible());
        EXPECT_EQ(f.screens.look().statusItem, (Rect { 1272, 770, 0, 0 }));
    }

    TEST(OverlayScreensTest, AClickThatOpenedNothingIsForgottenWithItsTurn)
    {
        OverlayScreensFixture f;
        f.item.clicked();
        f.loop.advance({});

        f.screens.look();
        f.stage.show(f.panel);

        EXPECT_TRUE(f.panel.isVisible()); // it waits for no pointer
    }

    TEST(OverlayScreensTest, TheIconsPlaceIsKeptForLaterOpenings)
    {
        OverlayScreensFixture f;
        f.clickIconAt({ 900, 15 });
        f.close();

        EXPECT_EQ(f.screens.look().statusItem, (Rect { 889, 770, 22, 22 }));
        f.stage.show(f.panel);
        EXPECT_TRUE(f.panel.isVisible());
    }

    TEST(OverlayScreensTest, AClickInTheLowerHalfMeansABarBelow)
    {
        OverlayScreensFixture f;

        f.clickIconAt({ 900, 785 });

        const auto frames = f.screens.look();
        EXPECT_EQ(frames.visible, (Rect { 0, 30, 1280, 770 }));
        EXPECT_EQ(frames.statusItem.bottom(), 4);
    }

    TEST(OverlayScreensTest, ABarAtTheSideIsOnTheSideOfTheClick)
    {
        OverlayScreensFixture f;
        f.overlay.sizes = { { 1280, 800 }, { 1240, 800 } };
        EXPECT_EQ(f.screens.look().visible, (Rect { 40, 0, 1240, 800 }));

        f.clickIconAt({ 1260, 100 });

        EXPECT_EQ(f.screens.look().visible, (Rect { 0, 0, 1240, 800 }));
    }

    TEST(OverlayScreensTest, OnAnOutputThatDoesNotReachThereTheIconIsAtTheEnd)
    {
        OverlayScreensFixture f;
        f.clickIconAt({ 1200, 15 });
        f.close();

        f.overlay.sizes = { { 1024, 768 }, { 1024, 768 } };

        EXPECT_EQ(f.screens.look().statusItem, (Rect { 1016, 768, 0, 0 }));
    }

    TEST(OverlayScreensTest, ADesktopThatDoesNotTellIsTakenForOneOfUsualSize)
    {
        OverlayScreensFixture f;
        f.overlay.sizes.reset();

        EXPECT_EQ(f.screens.look().visible, (Rect { 0, 0, 1440, 900 }));
    }

} // namespace
} // namespace korvane
