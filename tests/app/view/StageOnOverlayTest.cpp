#include "app/view/StageOnOverlay.h"

#include "app/view/StageFixture.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QWindow>

#include <vector>

namespace korvane {
namespace {

    using test::StageFixture;

    TEST(StageOnOverlayTest, ThePanelIsAPartOfAWindowOverTheWholeOutput)
    {
        StageFixture f;

        f.open();

        EXPECT_EQ(f.overlay.window, f.stage.ground());
        EXPECT_EQ(f.stage.ground()->size(), QSize(1280, 800));
        EXPECT_TRUE(f.panel.isVisible());
        EXPECT_FALSE(f.panel.isWindow());
        EXPECT_EQ(f.panel.visibleFrame(), QRect(400, 30, 360, 400));
        EXPECT_TRUE(f.stage.isVisible(f.panel));
    }

    TEST(StageOnOverlayTest, TheKeysOfTheWindowComeToThePanelBeforeAnyControl)
    {
        StageFixture f;
        f.open();

        test::typeKey(*f.stage.ground()->windowHandle(), Qt::Key_A, Qt::NoModifier, "a");

        ASSERT_EQ(f.presses.size(), 1U);
        EXPECT_EQ(f.presses.front().characters, "a");
        EXPECT_EQ(f.field->text(), "a");
    }

    TEST(StageOnOverlayTest, ThePreviewComesAndGoesBesideThePanel)
    {
        StageFixture f;
        f.open();

        f.stage.show(f.preview);
        EXPECT_TRUE(f.preview.isVisible());
        f.stage.hide(f.preview);

        EXPECT_FALSE(f.preview.isVisible());
        EXPECT_FALSE(f.stage.isVisible(f.preview));
        EXPECT_TRUE(f.stage.isVisible(f.panel));
    }

    TEST(StageOnOverlayTest, WithThePanelEverythingGoes)
    {
        StageFixture f;
        f.open();
        f.stage.show(f.preview);

        f.stage.hide(f.panel);

        EXPECT_EQ(f.overlay.window, nullptr);
        EXPECT_FALSE(f.panel.isVisible());
        EXPECT_FALSE(f.stage.isVisible(f.preview));
        EXPECT_FALSE(f.stage.isOpen());
    }

    TEST(StageOnOverlayTest, OnlyAPressBesideThePanelsIsAClickOutside)
    {
        StageFixture f;
        f.open();
        f.stage.show(f.preview);

        f.pressAt({ 500, 200 });
        f.pressAt({ 800, 150 });
        EXPECT_EQ(f.outside, 0);

        f.pressAt({ 100, 700 });
        EXPECT_EQ(f.outside, 1);
        f.pressAt({ 100, 700 }, Qt::RightButton);
        EXPECT_EQ(f.outside, 2);
        f.pressAt({ 100, 700 }, Qt::MiddleButton);
        EXPECT_EQ(f.outside, 2);
    }

    TEST(StageOnOverlayTest, TheShadowIsNoPartOfThePanel)
    {
        StageFixture f;
        f.open();

        f.pressAt({ 390, 200 });

        EXPECT_EQ(f.outside, 1);
    }

    TEST(StageOnOverlayTest, APressOnAnotherOutputIsAClickOutside)
    {
        StageFixture f;
        f.open();

        f.overlay.pressedElsewhere();

        EXPECT_EQ(f.outside, 1);
    }

    TEST(StageOnOverlayTest, WhenNobodyWatchesAClickOutsideIsNotTold)
    {
        StageFixture f;
        f.open();
        f.stage.unwatch();

        f.pressAt({ 100, 700 });

        EXPECT_EQ(f.outside, 0);
    }

    TEST(StageOnOverlayTest, WhereThePointerIsAwaitedThePanelAppearsWhenItHasCome)
    {
        StageFixture f;
        std::vector<QPoint> told;
        const auto arrived
            = f.stage.pointerArrived.connect([&](const QPoint& at) { told.push_back(at); });
        f.stage.awaitPointer();

        f.stage.show(f.panel);
        EXPECT_FALSE(f.panel.isVisible());
        EXPECT_TRUE(f.stage.isVisible(f.panel));
        f.enterAt({ 900, 15 });

        EXPECT_EQ(told, std::vector { QPoint(900, 15) });
        EXPECT_TRUE(f.panel.isVisible());
    }

    TEST(StageOnOverlayTest, APointerThatDoesNotComeIsAwaitedForATenthOfASecond)
    {
        StageFixture f;
        f.stage.awaitPointer();
        f.stage.show(f.panel);

        f.loop.advance(std::chrono::milliseconds { 99 });
        EXPECT_FALSE(f.panel.isVisible());
        f.loop.advance(std::chrono::milliseconds { 1 });

        EXPECT_TRUE(f.panel.isVisible());
    }

    TEST(StageOnOverlayTest, ThePointerIsAwaitedAtOneOpeningOnly)
    {
        StageFixture f;
        f.stage.awaitPointer();
        f.stage.show(f.panel);
        f.stage.hide(f.panel);

        f.open();

        EXPECT_TRUE(f.panel.isVisible());
    }

    TEST(StageOnOverlayTest, APanelThatIsHiddenBeforeThePointerComesStaysHidden)
    {
        StageFixture f;
        f.stage.awaitPointer();
        f.stage.show(f.panel);

        f.stage.hide(f.panel);
        f.enterAt({ 900, 15 });
        f.loop.advance(std::chrono::milliseconds { 200 });

        EXPECT_FALSE(f.panel.isVisible());
        EXPECT_EQ(f.overlay.window, nullptr);
    }

    TEST(StageOnOverlayTest, ThePreviewWaitsForThePointerWithThePanel)
    {
        StageFixture f;
        f.stage.awaitPointer();
        f.stage.show(f.panel);

        f.stage.show(f.preview);
        EXPECT_FALSE(f.preview.isVisible());
        f.enterAt({ 900, 15 });

        EXPECT_TRUE(f.preview.isVisible());
    }

    TEST(StageOnOverlayTest, ADesktopThatRefusesLeavesThePanelHidden)
    {
        StageFixture f;
        f.overlay.isRefusing = true;

        f.open();

        EXPECT_FALSE(f.stage.isVisible(f.panel));
        EXPECT_FALSE(f.panel.isVisible());
        f.stage.hide(f.panel);
        f.overlay.isRefusing = false;
        f.open();
        EXPECT_TRUE(f.panel.isVisible());
    }

    TEST(StageOnOverlayTest, AnOpeningThatWasRefusedLeavesNothingToWaitFor)
    {
        StageFixture f;
        f.overlay.isRefusing = true;
        f.stage.awaitPointer();
        f.stage.show(f.panel);

        f.overlay.isRefusing = false;
        f.stage.show(f.panel);

        EXPECT_TRUE(f.panel.isVisible());
    }

    TEST(StageOnOverlayTest, AGroundThatIsTakenAwayTakesThePanelsAlong)
    {
        StageFixture f;
        int lost = 0;
        const auto told = f.stage.lost.connect([&] { ++lost; });
        f.open();

        f.overlay.closed();

        EXPECT_EQ(lost, 1);
        EXPECT_FALSE(f.stage.isVisible(f.panel));
        EXPECT_FALSE(f.panel.isVisible());
    }

    TEST(StageOnOverlayTest, TheKeyboardIsLentAndTakenAgainByAPress)
    {
        StageFixture f;
        f.open();
        f.panel.setKeyboardWanted([&f] { f.stage.takeKeyboard(f.panel); });

        f.stage.lendKeyboard();
        QMouseEvent down(QEvent::MouseButtonPress, QPointF(500, 200), QPointF(500, 200),
            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(f.stage.ground()->windowHandle(), &down);

        EXPECT_EQ(f.overlay.keyboard, (std::vector { true, false, true }));
    }

    TEST(StageOnOverlayTest, ToAssistiveTechnologyTheGroundIsTheWindowAndThePanelItsPart)
    {
        KorPanel::installAccess();
        StageFixture f;

        const auto* const ground = QAccessible::queryAccessibleInterface(f.stage.ground());
        const auto* const panel = QAccessible::queryAccessibleInterface(&f.panel);

        EXPECT_EQ(ground->role(), QAccessible::Window);
        EXPECT_EQ(ground->text(QAccessible::Name), "Korvane");
        EXPECT_EQ(panel->role(), QAccessible::Pane);
    }

} // namespace
} // namespace korvane
