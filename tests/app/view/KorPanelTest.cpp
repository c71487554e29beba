#include "app/view/KorPanel.h"

#include "look/view/PanelLineEdit.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QMenu>
#include <QPainter>
#include <QWindow>

#include <memory>
#include <utility>
#include <vector>

namespace korvane {
namespace {

    struct WindowFixture {
        WindowFixture()
        {
            auto line = std::make_unique<PanelLineEdit>(TextReader {}, nullptr);
            field = line.get();
            window.setContents(std::move(line));
            window.setKeyHandler([this](const KeyPress& press) {
                presses.push_back(press);
                return isConsumed;
            });
            window.setVisibleFrame({ 200, 100, 360, 300 });
            window.show();
            field->setFocus();
            test::settle();
        }
        /// A key as the desktop sends it, to the window.
        void type(int key, const QString& text)
        {
            test::typeKey(*window.windowHandle(), key, Qt::NoModifier, text);
        }
        QImage picture()
        {
            QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            window.render(&painter, {}, {}, QWidget::DrawChildren);
            return image;
        }

        struct Told {
            QRect panel;
            QSize whole;
        };
        std::vector<KeyPress> presses;
        bool isConsumed = false;
        std::vector<Told> told;
        Observable<bool> isComposited { false };
        KorPanel window { isComposited, [this](std::uint32_t, QRect panel, QSize whole) {
                             told.push_back({ panel, whole });
                         } };
        PanelLineEdit* field = nullptr;
    };

    TEST(KorPanelTest, ShownAgainAtOnceItHasTheKeyboardAgain)
    {
        WindowFixture f;
        f.window.activateWindow();
        test::settle();
        ASSERT_TRUE(f.field->hasFocus());

        f.window.hide();
        f.window.show();

        EXPECT_TRUE(f.window.isActiveWindow());
        EXPECT_TRUE(f.field->hasFocus());
    }

    TEST(KorPanelTest, ToAssistiveTechnologyItIsAWindowOfTheProgramsName)
    {
        KorPanel::installAccess();
        WindowFixture f;

        const auto* const element = QAccessible::queryAccessibleInterface(&f.window);

        EXPECT_EQ(element->role(), QAccessible::Window);
        EXPECT_EQ(element->text(QAccessible::Name), "Korvane");
    }

    TEST(KorPanelTest, EveryKeyComesToThePanelBeforeAnyControl)
    {
        WindowFixture f;
        f.isConsumed = true;

        f.type(Qt::Key_A, QStringLiteral("a"));

        ASSERT_EQ(f.presses.size(), 1U);
        EXPECT_EQ(f.presses.front().characters, "a");
        EXPECT_EQ(f.field->text(), QString());
    }

    TEST(KorPanelTest, AKeyThatItDoesNotUseGoesOnToTheFocus)
    {
        WindowFixture f;

        f.type(Qt::Key_A, QStringLiteral("a"));

        EXPECT_EQ(f.presses.size(), 1U);
        EXPECT_EQ(f.field->text(), QStringLiteral("a"));
    }

    TEST(KorPanelTest, WhileAMenuIsOpenItsKeysAreNotThePanels)
    {
        WindowFixture f;
        QMenu menu(&f.window);
        menu.addAction(QStringLiteral("Copy"));
        menu.popup({ 210, 110 });

        f.type(Qt::Key_Down, {});
        const auto* chosen = menu.activeAction();
        menu.close();

        EXPECT_TRUE(f.presses.empty());
        EXPECT_NE(chosen, nullptr);
    }

    TEST(KorPanelTest, AWishForAMenuByTheKeyboardIsAKeyOfThePanelToo)
    {
        WindowFixture f;
        f.isConsumed = true;

        QContextMenuEvent wish(QContextMenuEvent::Keyboard, { 5, 5 }, { 205, 105 });
        QApplication::sendEvent(f.window.windowHandle(), &wish);

        ASSERT_EQ(f.presses.size(), 1U);
        EXPECT_EQ(f.presses.front().keyCode, 110U);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }

    TEST(KorPanelTest, ItStandsOutsideTheWindowManagersReachAboveAllOthers)
    {
        WindowFixture f;

        EXPECT_TRUE(f.window.windowFlags().testFlag(Qt::BypassWindowManagerHint));
        EXPECT_TRUE(f.window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_TRUE(f.window.windowFlags().testFlag(Qt::FramelessWindowHint));
        EXPECT_EQ(f.window.windowTitle(), QStringLiteral("Korvane"));
    }

    TEST(KorPanelTest, ThePointersArrivalAndAClickAskForTheKeyboard)
    {
        WindowFixture f;
        int wanted = 0;
        f.window.setKeyboardWanted([&] { ++wanted; });

        QEnterEvent enter({ 5, 5 }, { 5, 5 }, { 205, 105 });
        QApplication::sendEvent(f.window.windowHandle(), &enter);
        EXPECT_EQ(wanted, 1);
        QMouseEvent down(QEvent::MouseButtonPress, QPointF(50, 50), QPointF(250, 150),
            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(f.window.windowHandle(), &down);

        EXPECT_EQ(wanted, 2);
    }

    TEST(KorPanelTest, AnotherWindowOfOursLosesTheKeyboardToAClickOnly)
    {
        WindowFixture f;
        int wanted = 0;
        f.window.setKeyboardWanted([&] { ++wanted; });
        QWidget settings;
        settings.show();
        settings.activateWindow();
        test::settle();
        ASSERT_EQ(QGuiApplication::focusWindow(), settings.windowHandle());

        QEnterEvent enter({ 5, 5 }, { 5, 5 }, { 205, 105 });
        QApplication::sendEvent(f.window.windowHandle(), &enter);
        EXPECT_EQ(wanted, 0);
        QMouseEvent down(QEvent::MouseButtonPress, QPointF(50, 50), QPointF(250, 150),
            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(f.window.windowHandle(), &down);

        EXPECT_EQ(wanted, 1);
    }

    TEST(KorPanelTest, APointerThatOnlyRestsOnThePanelAsksForNothing)
    {
        WindowFixture f;
        int wanted = 0;
        f.window.setKeyboardWanted([&] { ++wanted; });
        const auto enter = [&f](const QPointF& at) {
            QEnterEvent event(at, at, at);
            QApplication::sendEvent(f.window.windowHandle(), &event);
        };
        enter({ 205, 105 });
        wanted = 0;

        enter({ 205, 105 }); // as when an alert over it has closed
        EXPECT_EQ(wanted, 0);
        enter({ 206, 105 });

        EXPECT_EQ(wanted, 1);
    }

    TEST(KorPanelTest, WithoutACompositorThePanelIsTheWindowAndOpaque)
    {
        WindowFixture f;

        EXPECT_EQ(f.window.geometry(), QRect(200, 100, 360, 300));
        EXPECT_EQ(f.picture().pixelColor(180, 2).alpha(), 255);
        EXPECT_EQ(f.picture().pixelColor(180, 0).alpha(), 255);
        EXPECT_NE(f.picture().pixelColor(180, 0), f.picture().pixelColor(180, 2));
    }

    TEST(KorPanelTest, WithoutACompositorTheCornersAreCutOff)
    {
        WindowFixture f;

        EXPECT_FALSE(f.window.mask().contains(QPoint(0, 0)));
        EXPECT_FALSE(f.window.mask().contains(QPoint(359, 299)));
        EXPECT_TRUE(f.window.mask().contains(QPoint(12, 0)));
        EXPECT_TRUE(f.window.mask().contains(QPoint(4, 4)));
        EXPECT_FALSE(f.window.mask().contains(QPoint(3, 3)));
        EXPECT_FALSE(f.window.mask().contains(QPoint(356, 296)));
        EXPECT_TRUE(f.window.mask().contains(QPoint(355, 295)));
        EXPECT_TRUE(f.window.mask().contains(QPoint(0, 150)));
    }

    TEST(KorPanelTest, ACompositorThatStartsGivesItAShadowOutsideItsFrame)
    {
        WindowFixture f;

        f.isComposited.set(true);

        EXPECT_EQ(f.window.visibleFrame(), QRect(200, 100, 360, 300));
        EXPECT_TRUE(f.window.geometry().contains(QRect(180, 90, 400, 340)));
        EXPECT_EQ(f.field->mapTo(&f.window, QPoint()),
            f.window.visibleFrame().topLeft() - f.window.pos());
        EXPECT_TRUE(f.window.mask().isEmpty());
    }

    TEST(KorPanelTest, TheShadowFadesToNothingAtTheWindowsEdge)
    {
        WindowFixture f;
        f.isComposited.set(true);

        const auto picture = f.picture();
        const auto panel = f.window.visibleFrame().translated(-f.window.pos());
        const int middle = panel.center().x();

        EXPECT_GT(picture.pixelColor(middle, panel.bottom() + 4).alpha(), 20);
        EXPECT_LT(picture.pixelColor(middle, picture.height() - 1).alpha(), 5);
        EXPECT_LT(picture.pixelColor(0, panel.center().y()).alpha(), 5);
        EXPECT_LT(picture.pixelColor(middle, 0).alpha(), 5);
        EXPECT_EQ(picture.pixelColor(middle, panel.center().y()).alpha(), 255);
    }

    TEST(KorPanelTest, TheShadowOfALowWindowIsAsSmoothAsThatOfAHighOne)
    {
        WindowFixture f;
        f.isComposited.set(true);
        f.window.setVisibleFrame({ 100, 100, 480, 40 });

        const auto picture = f.picture();
        const auto panel = f.window.visibleFrame().translated(-f.window.pos());

        // Beside it the shadow changes from pixel to pixel by little, all the way down.
        const int beside = panel.left() - 6;
        for (int y = 1; y < picture.height(); ++y)
            EXPECT_NEAR(
                picture.pixelColor(beside, y).alpha(), picture.pixelColor(beside, y - 1).alpha(), 9)
                << y;
    }

    TEST(KorPanelTest, ARepaintOfItsFootKeepsTheShadowUnderTheCorners)
    {
        WindowFixture f;
        f.isComposited.set(true);
        const auto whole = f.picture();
        const auto panel = f.window.visibleFrame().translated(-f.window.pos());
        const QRect foot(panel.left(), panel.bottom() - 42, panel.width(), 43);

        QImage part(whole.size(), QImage::Format_ARGB32_Premultiplied);
        part.fill(Qt::transparent);
        f.window.render(&part, foot.topLeft(), QRegion(foot), QWidget::DrawWindowBackground);

        EXPECT_EQ(part.pixelColor(foot.left(), foot.bottom()).alpha(),
            whole.pixelColor(foot.left(), foot.bottom()).alpha());
        EXPECT_GT(part.pixelColor(foot.left(), foot.bottom()).alpha(), 20);
    }

    TEST(KorPanelTest, AMenuThatIsOpenGoesWithTheWindow)
    {
        WindowFixture f;
        f.window.show();
        QMenu menu(&f.window);
        menu.addAction(QStringLiteral("Copy"));
        menu.popup(f.window.pos());
        ASSERT_TRUE(menu.isVisible());

        f.window.hide();

        EXPECT_FALSE(menu.isVisible());
    }

    TEST(KorPanelTest, AMenuOfAnotherWindowStaysOpen)
    {
        WindowFixture f;
        f.window.show();
        QMenu trayMenu;
        trayMenu.addAction(QStringLiteral("Open Korvane"));
        trayMenu.popup(f.window.pos());

        f.window.hide();

        EXPECT_TRUE(trayMenu.isVisible());
    }

    TEST(KorPanelTest, ACompositorThatEndsTakesTheShadowAway)
    {
        WindowFixture f;
        f.isComposited.set(true);

        f.isComposited.set(false);

        EXPECT_EQ(f.window.geometry(), QRect(200, 100, 360, 300));
    }

    TEST(KorPanelTest, TheDesktopIsToldWhichPartIsOnlyShadow)
    {
        WindowFixture f;
        EXPECT_TRUE(f.told.empty());

        f.isComposited.set(true);
        test::settle();

        ASSERT_FALSE(f.told.empty());
        EXPECT_EQ(f.told.back().whole, f.window.size());
        EXPECT_EQ(f.told.back().panel, f.window.visibleFrame().translated(-f.window.pos()));
    }

} // namespace
} // namespace korvane
