#include "panel/view/PanelHeader.h"

#include "look/view/PanelMenu.h"
#include "panel/view/ClipPanelView.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QImage>
#include <QToolTip>

#include <string>
#include <vector>

namespace korvane {
namespace {

    const QColor orange { 0xd9, 0x73, 0x0d };

    struct HeaderFixture : test::ViewFixture {
        HeaderFixture()
        {
            addNumbered(3);
            view.resize(metrics::panelWidth, 320);
            view.show();
            test::settle();
        }
        PanelHeader& header() { return view.header(); }
        void click(HeaderButton& button) { test::click(button, button.rect().center()); }
        PanelMenu* menu() { return header().findChild<PanelMenu*>(); }
        void choose(const QString& title)
        {
            click(header().menuButton());
            for (auto* action : menu()->actions()) {
                if (action->text() == title)
                    menu()->setActiveAction(action);
            }
            test::typeKey(*menu(), Qt::Key_Return);
            test::settle();
        }
        /// How many pixels of a part of the header have this colour or one near it.
        int pixels(const QRect& part, const QColor& colour)
        {
            const auto image = header().grab(part).toImage();
            int count = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const auto found = image.pixelColor(x, y);
                    count += std::abs(found.red() - colour.red()) < 30
                            && std::abs(found.green() - colour.green()) < 30
                            && std::abs(found.blue() - colour.blue()) < 30
                        ? 1
                        : 0;
                }
            }
            return count;
        }
        static QImage pictureOf(HeaderButton& button) { return button.grab().toImage(); }

        ClipPanelView view { store, controller, loop, {} };
    };

    TEST(PanelHeaderTest, TheButtonsStandAtTheRightInTheirOrder)
    {
        HeaderFixture f;

        EXPECT_EQ(f.header().privateModeSwitch().geometry(), QRect(264, 7, 28, 28));
        EXPECT_EQ(f.header().settingsButton().geometry(), QRect(294, 7, 28, 28));
        EXPECT_EQ(f.header().menuButton().geometry(), QRect(324, 7, 28, 28));
        EXPECT_EQ(f.header().settingsButton().symbol(), "gearshape");
        EXPECT_EQ(f.header().menuButton().symbol(), "ellipsis.circle");
    }

    TEST(PanelHeaderTest, WithoutPrivateModeThereIsNoBadgeAndAnOpenLock)
    {
        HeaderFixture f;

        EXPECT_TRUE(f.header().badge().isEmpty());
        EXPECT_EQ(f.header().privateModeSwitch().symbol(), "lock");
        EXPECT_EQ(f.header().privateModeSwitch().tone(), HeaderButton::Tone::secondary);
        EXPECT_EQ(f.header().privateModeSwitch().toolTip(), QStringLiteral("Enable Private Mode"));
        EXPECT_EQ(f.pixels(f.header().rect(), orange), 0);
    }

    TEST(PanelHeaderTest, InPrivateModeThereAreAnOrangeBadgeAndAnOrangeClosedLock)
    {
        HeaderFixture f;

        f.monitor.setPrivateModeEnabled(true);

        EXPECT_EQ(f.header().privateModeSwitch().symbol(), "lock.fill");
        EXPECT_EQ(f.header().privateModeSwitch().tone(), HeaderButton::Tone::orange);
        EXPECT_EQ(f.header().privateModeSwitch().toolTip(), QStringLiteral("Disable Private Mode"));
        const auto badge = f.header().badge().toAlignedRect();
        EXPECT_GT(f.pixels(badge, orange), badge.width() * badge.height() / 3);
        EXPECT_GT(f.pixels(badge, Qt::white), 10);
        EXPECT_GT(f.pixels(f.header().privateModeSwitch().geometry(), orange), 20);
    }

    TEST(PanelHeaderTest, TheBadgeStandsBetweenTheNameAndTheButtons)
    {
        HeaderFixture f;

        f.monitor.setPrivateModeEnabled(true);

        EXPECT_GT(f.header().badge().left(), 14 + 40);
        EXPECT_LT(f.header().badge().right(), f.header().privateModeSwitch().x());
        EXPECT_EQ(f.header().badge().height(), 15);
    }

    TEST(PanelHeaderTest, APanelMadeInPrivateModeShowsItFromTheBeginning)
    {
        test::ViewFixture f;
        f.preferences.set(keys::privateModeEnabled, true);

        ClipPanelView view(f.store, f.controller, f.loop, {});

        EXPECT_FALSE(view.header().badge().isEmpty());
    }

    TEST(PanelHeaderTest, ItFollowsAPreferenceThatIsChangedByHand)
    {
        HeaderFixture f;

        f.preferences.set(keys::privateModeEnabled, true);
        EXPECT_FALSE(f.header().badge().isEmpty());
        f.preferences.set(keys::privateModeEnabled, false);
        EXPECT_TRUE(f.header().badge().isEmpty());
    }

    TEST(PanelHeaderTest, APressOnTheLockTurnsPrivateModeOverAndBack)
    {
        HeaderFixture f;

        f.click(f.header().privateModeSwitch());
        EXPECT_TRUE(f.monitor.isPrivateModeEnabled());
        EXPECT_TRUE(f.header().privateModeSwitch().isChecked());
        f.click(f.header().privateModeSwitch());
        EXPECT_FALSE(f.monitor.isPrivateModeEnabled());
        EXPECT_FALSE(f.header().privateModeSwitch().isChecked());
    }

    TEST(PanelHeaderTest, TheSettingsButtonOpensThePreferencesAndSaysSo)
    {
        HeaderFixture f;

        f.click(f.header().settingsButton());

        EXPECT_EQ(f.host.preferencesOpened, 1);
        EXPECT_EQ(f.header().settingsButton().toolTip(), QStringLiteral("Preferences"));
    }

    TEST(PanelHeaderTest, APressThatIsDraggedAwayDoesNothing)
    {
        HeaderFixture f;
        auto& button = f.header().privateModeSwitch();

        test::press(button, button.rect().center());
        test::release(button, QPointF(-20, 14));

        EXPECT_FALSE(f.monitor.isPrivateModeEnabled());
    }

    TEST(PanelHeaderTest, AClickLeavesTheFocusInTheSearch)
    {
        HeaderFixture f;

        f.click(f.header().privateModeSwitch());
        f.click(f.header().settingsButton());

        EXPECT_EQ(f.view.focusWidget(), &f.view.search().field());
    }

    TEST(PanelHeaderTest, WithTheFocusABlankOrReturnPressesTheButtonAndNotTheList)
    {
        HeaderFixture f;
        f.view.activateWindow();
        f.header().privateModeSwitch().setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(f.header().privateModeSwitch().hasFocus());

        EXPECT_TRUE(f.view.handle({ keycodes::space, 0, " " }));
        EXPECT_TRUE(f.monitor.isPrivateModeEnabled());
        EXPECT_TRUE(f.view.handle({ keycodes::returnKey, 0, "" }));
        EXPECT_FALSE(f.monitor.isPrivateModeEnabled());
        EXPECT_TRUE(f.actions.done.empty());
    }

    TEST(PanelHeaderTest, HoverPressAndFocusAreShownDifferently)
    {
        HeaderFixture f;
        f.view.activateWindow();
        auto& button = f.header().settingsButton();
        std::vector<QImage> looks { HeaderFixture::pictureOf(button) };

        button.setAttribute(Qt::WA_UnderMouse);
        looks.push_back(HeaderFixture::pictureOf(button));
        button.setDown(true);
        looks.push_back(HeaderFixture::pictureOf(button));
        button.setDown(false);
        button.setAttribute(Qt::WA_UnderMouse, false);
        button.setFocus(Qt::TabFocusReason);
        looks.push_back(HeaderFixture::pictureOf(button));

        for (std::size_t i = 0; i < looks.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_NE(looks[i], looks[j]) << i << " and " << j;
        }
    }

    TEST(PanelHeaderTest, ThePointerOnAButtonRepaintsThatButtonAndNoMore)
    {
        HeaderFixture f;
        auto& button = f.header().settingsButton();
        test::PaintCounter list(f.view.list());
        test::PaintCounter mine(button);

        test::hover(button, true);
        test::settle();
        test::hover(button, false);
        test::settle();

        EXPECT_EQ(mine.count, 2);
        EXPECT_EQ(list.count, 0);
    }

    TEST(PanelHeaderTest, TheMenuButtonOpensTheProgramsMenu)
    {
        HeaderFixture f;

        f.click(f.header().menuButton());

        ASSERT_NE(f.menu(), nullptr);
        QStringList titles;
        for (const auto* action : f.menu()->actions())
            titles << (action->isSeparator() ? QStringLiteral("-") : action->text());
        EXPECT_EQ(titles,
            (QStringList { "Preferences...", "-", "Check for Updates...", "-",
                "More from the Makers of Korvane", "-", "Quit Korvane" }));
        f.menu()->close();
    }

    TEST(PanelHeaderTest, EachLineOfTheMenuDoesItsOwnAndThePanelStays)
    {
        HeaderFixture f;

        f.choose(QStringLiteral("Preferences..."));
        EXPECT_EQ(f.host.preferencesOpened, 1);
        f.choose(QStringLiteral("Check for Updates..."));
        EXPECT_EQ(f.host.updateChecks, 1);
        f.choose(QStringLiteral("More from the Makers of Korvane"));
        EXPECT_EQ(f.host.makersPagesOpened, 1);
        EXPECT_EQ(f.host.quits, 0);
        f.choose(QStringLiteral("Quit Korvane"));
        EXPECT_EQ(f.host.quits, 1);
        EXPECT_EQ(f.host.closes, 0);
        EXPECT_TRUE(f.view.isVisible());
    }

    TEST(PanelHeaderTest, TheMenuButtonIsHeldDownWhileItsMenuIsOpen)
    {
        HeaderFixture f;
        f.click(f.header().menuButton());
        EXPECT_TRUE(f.header().menuButton().isDown());

        f.menu()->close();
        test::settle();

        EXPECT_FALSE(f.header().menuButton().isDown());
        EXPECT_EQ(f.menu(), nullptr);
    }

    TEST(PanelHeaderTest, TheMenuEndsUnderTheRightEdgeOfItsButton)
    {
        HeaderFixture f;
        auto& button = f.header().menuButton();

        f.click(button);

        const auto corner = button.mapToGlobal(button.rect().bottomRight());
        EXPECT_EQ(f.menu()->geometry().right(), corner.x());
        EXPECT_EQ(f.menu()->geometry().top(), corner.y() + 3);
        f.menu()->close();
    }

    TEST(PanelHeaderTest, ASecondPressOnTheButtonClosesTheMenuAndDoesNotOpenAnother)
    {
        HeaderFixture f;
        auto& button = f.header().menuButton();
        f.click(button);
        auto* menu = f.menu();

        // The open menu has the pointer.
        test::press(*menu, menu->mapFromGlobal(button.mapToGlobal(button.rect().center())));

        EXPECT_FALSE(menu->isVisible());
        EXPECT_TRUE(menu->testAttribute(Qt::WA_NoMouseReplay));
    }

    TEST(PanelHeaderTest, TheControlsHaveNamesForAssistiveTechnology)
    {
        HeaderFixture f;

        EXPECT_EQ(f.header().privateModeSwitch().accessibleName(), QStringLiteral("Private Mode"));
        EXPECT_EQ(f.header().settingsButton().accessibleName(), QStringLiteral("Preferences"));
        EXPECT_EQ(f.header().menuButton().accessibleName(), QStringLiteral("Menu"));
        f.monitor.setPrivateModeEnabled(true);
        EXPECT_EQ(f.header().accessibleDescription(), QStringLiteral("PRIVATE"));
    }

} // namespace
} // namespace korvane
