#include "settings/view/PreferencesView.h"

#include "settings/view/FormPage.h"
#include "settings/view/FormSection.h"
#include "settings/view/KitFixture.h"
#include "settings/view/NumberField.h"
#include "settings/view/SettingsColours.h"
#include "settings/view/SettingsTabButton.h"

#include <gtest/gtest.h>

#include <vector>

namespace korvane {
namespace {

    struct ViewFixture : test::KitFixture {
        ViewFixture()
        {
            view.resize(520, 482);
            test::settle();
        }
        std::vector<SettingsTab> checked() const
        {
            std::vector<SettingsTab> found;
            for (const auto tab : allSettingsTabs)
                if (view.button(tab).isChecked())
                    found.push_back(tab);
            return found;
        }
        std::vector<SettingsTab> shownPages() const
        {
            std::vector<SettingsTab> found;
            for (const auto tab : allSettingsTabs)
                if (view.page(tab).isVisible())
                    found.push_back(tab);
            return found;
        }

        SettingsTabSelection tabs;
        PreferencesView& view = show(std::make_unique<PreferencesView>(tabs, symbols), { 0, 0 });
    };

    TEST(PreferencesViewTest, AtFirstTheGeneralPageIsShown)
    {
        const ViewFixture f;

        EXPECT_EQ(f.checked(), std::vector { SettingsTab::general });
        EXPECT_EQ(f.shownPages(), std::vector { SettingsTab::general });
    }

    TEST(PreferencesViewTest, AClickOnATabSelectsItAndShowsItsPage)
    {
        ViewFixture f;
        for (const auto tab : { SettingsTab::about, SettingsTab::data, SettingsTab::general }) {
            auto& button = f.view.button(tab);
            test::click(button, button.rect().center());

            EXPECT_EQ(f.tabs.selection.value(), tab);
            EXPECT_EQ(f.checked(), std::vector { tab });
            EXPECT_EQ(f.shownPages(), std::vector { tab });
        }
    }

    TEST(PreferencesViewTest, ATabIsChosenWhenItIsPressedAsAQuestionMayTakeTheRest)
    {
        ViewFixture f;
        int told = 0;
        const auto listening = f.tabs.selection.observe([&told](SettingsTab) { ++told; });
        auto& button = f.view.button(SettingsTab::data);

        test::press(button, button.rect().center());
        EXPECT_EQ(f.shownPages(), std::vector { SettingsTab::data });
        test::release(button, button.rect().center());

        EXPECT_EQ(f.shownPages(), std::vector { SettingsTab::data });
        EXPECT_EQ(told, 2) << "once at first, and once for the click";
    }

    TEST(PreferencesViewTest, AnotherButtonOfTheMouseChoosesNothing)
    {
        ViewFixture f;
        auto& button = f.view.button(SettingsTab::data);

        test::press(button, button.rect().center(), Qt::RightButton);

        EXPECT_EQ(f.shownPages(), std::vector { SettingsTab::general });
    }

    TEST(PreferencesViewTest, HomeAndEndGoToTheFirstAndTheLastPage)
    {
        ViewFixture f;
        auto& first = f.view.button(SettingsTab::general);
        auto& last = f.view.button(SettingsTab::about);
        first.setFocus();

        test::typeKey(first, Qt::Key_End);
        EXPECT_EQ(f.tabs.selection.value(), SettingsTab::about);
        EXPECT_TRUE(last.hasFocus());
        test::typeKey(last, Qt::Key_Home);

        EXPECT_EQ(f.tabs.selection.value(), SettingsTab::general);
        EXPECT_TRUE(first.hasFocus());
    }

    TEST(PreferencesViewTest, ASelectionFromElsewhereIsShown)
    {
        ViewFixture f;

        f.tabs.select("help");

        EXPECT_EQ(f.checked(), std::vector { SettingsTab::help });
        EXPECT_EQ(f.shownPages(), std::vector { SettingsTab::help });
    }

    TEST(PreferencesViewTest, TheKeyboardGoesAlongWhenItIsInTheRow)
    {
        ViewFixture f;
        f.view.button(SettingsTab::help).setFocus(Qt::TabFocusReason);

        test::typeKey(f.view.button(SettingsTab::help), Qt::Key_PageDown, Qt::ControlModifier);

        EXPECT_EQ(f.tabs.selection.value(), SettingsTab::shortcuts); // the one after the first
        EXPECT_TRUE(f.view.button(SettingsTab::shortcuts).hasFocus());
    }

    TEST(PreferencesViewTest, TheRowShowsEachTitleWhichIsItsTipToo)
    {
        const ViewFixture f;
        int right = 0;
        for (const auto tab : allSettingsTabs) {
            const auto& button = f.view.button(tab);
            EXPECT_EQ(button.toolTip().toStdString(), titleOf(tab));
            EXPECT_GE(button.width(), 74);
            EXPECT_GE(button.x(), right);
            right = button.geometry().right();
        }
        EXPECT_NEAR(f.view.button(SettingsTab::general).x(), 520 - 1 - right, 1);
    }

    TEST(PreferencesViewTest, TheArrowsGoFromTabToTabAndTheRowIsOneStop)
    {
        ViewFixture f;
        f.view.button(SettingsTab::general).setFocus();

        test::typeKey(f.view.button(SettingsTab::general), Qt::Key_Right);

        EXPECT_EQ(f.tabs.selection.value(), SettingsTab::shortcuts);
        EXPECT_TRUE(f.view.button(SettingsTab::shortcuts).hasFocus());
        for (const auto tab : allSettingsTabs)
            EXPECT_EQ((f.view.button(tab).focusPolicy() & Qt::TabFocus) != 0,
                tab == SettingsTab::shortcuts);
    }

    TEST(PreferencesViewTest, APageTakesItsTabsPlace)
    {
        ViewFixture f;
        auto page = std::make_unique<QWidget>();
        auto* const given = page.get();

        f.view.setPage(SettingsTab::general, std::move(page));

        EXPECT_EQ(&f.view.page(SettingsTab::general), given);
        EXPECT_TRUE(given->isVisible());
        EXPECT_EQ(given->size(), QSize(520, 420));
    }

    TEST(PreferencesViewTest, AFieldOfThePageThatGoesCommitsAndNoneOfTheNextGetsTheKeyboard)
    {
        ViewFixture f;
        int commits = 0;
        for (const auto tab : { SettingsTab::general, SettingsTab::data }) {
            auto page = std::make_unique<FormPage>();
            auto field = std::make_unique<NumberField>(f.kit.clipboardText, 4);
            field->onCommit = [&commits] { ++commits; };
            page->addSection({}).addRow(QStringLiteral("Max clips:"), std::move(field));
            f.view.setPage(tab, std::move(page));
        }
        test::settle();
        test::partsOf<NumberField>(f.view.page(SettingsTab::general)).front()->setFocus();

        f.tabs.select("data");

        EXPECT_EQ(commits, 1);
        EXPECT_TRUE(f.view.button(SettingsTab::data).hasFocus());
    }

    TEST(PreferencesViewTest, TheChosenTabHasAGroundAndTheAccent)
    {
        ViewFixture f;
        const auto chosen = f.look(f.view.button(SettingsTab::general));
        f.tabs.select("data");

        EXPECT_NE(f.look(f.view.button(SettingsTab::general)), chosen);
        EXPECT_EQ(f.look(f.view).pixelColor(3, 10), settingsColoursOf(ColourScheme::light).bar);
    }

    TEST(PreferencesViewTest, WhileAltIsHeldTheLettersAreUnderlined)
    {
        ViewFixture f;
        const auto plain = f.look(f.view.button(SettingsTab::help));

        f.view.showLetters(true);
        EXPECT_NE(f.look(f.view.button(SettingsTab::help)), plain);
        f.view.showLetters(false);

        EXPECT_EQ(f.look(f.view.button(SettingsTab::help)), plain);
        EXPECT_EQ(
            f.view.button(SettingsTab::help).shortcut(), QKeySequence(QStringLiteral("Alt+H")));
    }

    TEST(PreferencesViewTest, ToAssistiveTechnologyTheRowIsAListOfTabs)
    {
        ViewFixture f;
        auto& tab = f.access(f.view.button(SettingsTab::privacy));

        EXPECT_EQ(tab.role(), QAccessible::PageTab);
        EXPECT_EQ(tab.text(QAccessible::Name), QStringLiteral("Privacy"));
        EXPECT_EQ(tab.parent()->role(), QAccessible::PageTabList);
        EXPECT_FALSE(tab.state().selected);
        tab.actionInterface()->doAction(QAccessibleActionInterface::pressAction());

        EXPECT_TRUE(tab.state().selected);
        EXPECT_EQ(f.tabs.selection.value(), SettingsTab::privacy);
    }

} // namespace
} // namespace korvane
