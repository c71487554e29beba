#include "app/view/SettingsWindow.h"

#include "app/view/SettingsWindowFixture.h"
#include "settings/view/AboutPage.h"
#include "settings/view/FormText.h"
#include "settings/view/GeneralPage.h"
#include "settings/view/HelpPage.h"
#include "settings/view/NumberField.h"
#include "settings/view/PreferencesView.h"
#include "settings/view/SettingsTabButton.h"
#include "settings/view/Switch.h"
#include "settings/view/TextButton.h"
#include "support/Parts.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>

#include <algorithm>

namespace korvane {
namespace {

    using WindowFixture = test::SettingsWindowFixture;

    TEST(SettingsWindowTest, ItIsAnOrdinaryWindowOfOneSizeWithItsTitle)
    {
        WindowFixture f;
        const auto& widget = f.window.widget();

        EXPECT_EQ(widget.windowTitle(), QStringLiteral("Korvane Settings"));
        EXPECT_EQ(widget.size(), QSize(520, 62 + 420));
        EXPECT_EQ(widget.minimumSize(), widget.maximumSize());
        EXPECT_EQ(widget.windowType(), Qt::Window);
        EXPECT_TRUE(widget.windowFlags() & Qt::WindowCloseButtonHint);
        EXPECT_TRUE(widget.windowFlags() & Qt::WindowMinimizeButtonHint);
        EXPECT_FALSE(widget.windowFlags() & Qt::WindowMaximizeButtonHint);
        EXPECT_FALSE(widget.windowFlags() & Qt::BypassWindowManagerHint);
        EXPECT_FALSE(widget.windowIcon().isNull());
    }

    TEST(SettingsWindowTest, AfterItWasShownNoControlHasTheKeyboard)
    {
        WindowFixture f;

        EXPECT_EQ(QApplication::focusWidget(), &f.window.widget());
    }

    TEST(SettingsWindowTest, AnOpenPanelIsToPassTheKeyboardOnToIt)
    {
        WindowFixture f;

        EXPECT_EQ(f.passedTo, f.window.widget().winId());
    }

    TEST(SettingsWindowTest, TheTabKeyGoesFromThereToTheRowOfPages)
    {
        WindowFixture f;

        test::typeKey(f.window.widget(), Qt::Key_Tab);

        EXPECT_EQ(QApplication::focusWidget(), &f.view().button(SettingsTab::general));
    }

    TEST(SettingsWindowTest, EscapeClosesItFromAnyControlAndItCanBeShownAgain)
    {
        WindowFixture f;
        auto* const control = test::partsOf<Switch>(f.view().page(SettingsTab::general)).front();
        control->setFocus();

        test::typeKey(*control, Qt::Key_Escape);
        EXPECT_FALSE(f.window.isVisible());
        f.window.show();

        EXPECT_TRUE(f.window.isVisible());
    }

    TEST(SettingsWindowTest, ItComesBackOnTheTabLastChosenWithoutAFocusedControl)
    {
        WindowFixture f;
        auto& help = f.view().button(SettingsTab::help);
        test::click(help, help.rect().center());
        help.setFocus();
        f.window.hide();

        f.window.show();
        QApplication::setActiveWindow(&f.window.widget()); // by the desktop, which is not here
        f.loop.advance(std::chrono::milliseconds { 1 });
        test::settle();

        EXPECT_TRUE(f.view().page(SettingsTab::help).isVisible());
        EXPECT_EQ(QApplication::focusWidget(), &f.window.widget());
    }

    TEST(SettingsWindowTest, AMinimizedWindowIsNotVisibleAndIsBroughtBack)
    {
        WindowFixture f;
        f.window.widget().setWindowState(Qt::WindowMinimized);
        EXPECT_FALSE(f.window.isVisible());

        f.window.show();

        EXPECT_TRUE(f.window.isVisible());
    }

    TEST(SettingsWindowTest, WhatWasBeingTypedWhenItWasMinimizedIsLostWhenItIsBroughtBack)
    {
        WindowFixture f;
        auto& edit = test::partsOf<NumberField>(f.window.widget()).front()->edit();
        edit.setFocus();
        edit.selectAll();
        test::typeText(edit, QStringLiteral("60"));
        f.window.widget().setWindowState(Qt::WindowMinimized);

        f.window.show();

        EXPECT_EQ(edit.text(), QStringLiteral("500"));
        EXPECT_EQ(f.store->maxClips(), 500);
    }

    TEST(SettingsWindowTest, ItsPagesAreUnderTheirTabs)
    {
        WindowFixture f;

        EXPECT_NE(dynamic_cast<GeneralPage*>(&f.view().page(SettingsTab::general)), nullptr);
        EXPECT_NE(dynamic_cast<HelpPage*>(&f.view().page(SettingsTab::help)), nullptr);
        EXPECT_NE(dynamic_cast<AboutPage*>(&f.view().page(SettingsTab::about)), nullptr);
    }

    TEST(SettingsWindowTest, EveryPageIsAsWideAsTheWindow)
    {
        WindowFixture f;
        for (const auto tab : allSettingsTabs) {
            f.tabs.selection.set(tab);
            test::settle();

            const auto& page = dynamic_cast<QScrollArea&>(f.view().page(tab));
            EXPECT_FALSE(page.horizontalScrollBar()->isVisible()) << titleOf(tab);
        }
    }

    TEST(SettingsWindowTest, AltWithTheLetterOfAPageShowsIt)
    {
        WindowFixture f;
        auto& window = f.window.widget();
        const auto before = f.view().button(SettingsTab::about).grab().toImage();

        QKeyEvent down(QEvent::KeyPress, Qt::Key_Alt, Qt::AltModifier);
        QApplication::sendEvent(&window, &down);
        EXPECT_NE(f.view().button(SettingsTab::about).grab().toImage(), before);
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
        QApplication::sendEvent(&window, &up);

        EXPECT_EQ(f.view().button(SettingsTab::about).grab().toImage(), before);
    }

    TEST(SettingsWindowTest, OnEveryPageEachButtonHasALetterOfItsOwn)
    {
        WindowFixture f;
        for (const auto key :
            { keys::playSoundOnCopy, keys::playSoundOnSelect, keys::playSoundOnPaste })
            f.preferences.set(key, true);
        QStringList met;
        for (const auto tab : allSettingsTabs) {
            f.tabs.selection.set(tab);
            test::settle();
            QSet<QKeySequence> taken;
            for (auto* const button : test::partsOf<RingedButton>(f.window.widget())) {
                // A switch and the choices of a picker are no buttons to their user.
                const bool isTab = dynamic_cast<SettingsTabButton*>(button) != nullptr;
                if (!button->isVisible() || (button->isCheckable() && !isTab))
                    continue;
                const auto keys = button->shortcut();
                EXPECT_FALSE(keys.isEmpty()) << button->accessibleName().toStdString();
                EXPECT_FALSE(taken.contains(keys)) << keys.toString().toStdString();
                taken.insert(keys);
                if (!isTab)
                    met << keys.toString().back();
            }
        }

        EXPECT_EQ(met.join(QString()), QStringLiteral("CLTORFREIC"));
    }

    TEST(SettingsWindowTest, WhileAltIsHeldTheLettersOfThePageAreSeen)
    {
        WindowFixture f;
        f.tabs.selection.set(SettingsTab::shortcuts);
        test::settle();
        auto& page = f.view().page(SettingsTab::shortcuts);
        const auto texts = test::partsOf<FormText>(page);
        auto* const label = *std::ranges::find_if(texts,
            [](const FormText* text) { return text->text() == QStringLiteral("Open Korvane:"); });
        auto* const reset = test::partsOf<TextButton>(page).front();
        const auto plainLabel = label->grab().toImage();
        const auto plainReset = reset->grab().toImage();

        f.view().showLetters(true);
        EXPECT_NE(label->grab().toImage(), plainLabel);
        EXPECT_NE(reset->grab().toImage(), plainReset);
        f.view().showLetters(false);

        EXPECT_EQ(label->grab().toImage(), plainLabel);
        EXPECT_EQ(reset->grab().toImage(), plainReset);
    }

    TEST(SettingsWindowTest, ToAssistiveTechnologyItIsAWindowInWhichEveryControlHasAName)
    {
        WindowFixture f;
        auto* const element = QAccessible::queryAccessibleInterface(&f.window.widget());
        ASSERT_NE(element, nullptr);
        EXPECT_EQ(element->role(), QAccessible::Window);
        EXPECT_EQ(element->text(QAccessible::Name), QStringLiteral("Korvane Settings"));

        const QSet<QAccessible::Role> controls { QAccessible::CheckBox, QAccessible::RadioButton,
            QAccessible::Button, QAccessible::PageTab, QAccessible::EditableText };
        int met = 0;
        std::vector<QAccessibleInterface*> left { element };
        while (!left.empty()) {
            auto* const next = left.back();
            left.pop_back();
            for (int index = 0; index < next->childCount(); ++index)
                left.push_back(next->child(index));
            if (!controls.contains(next->role()))
                continue;
            ++met;
            EXPECT_FALSE(next->text(QAccessible::Name).isEmpty());
        }
        EXPECT_GT(met, 20);
    }

} // namespace
} // namespace korvane
