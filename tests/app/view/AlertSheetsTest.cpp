// Alerts over the window that has the keyboard.

#include "app/view/AlertBoxes.h"

#include "support/Input.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

#include <algorithm>

namespace korvane {
namespace {

    struct BoxFixture {
        BoxFixture()
        {
            window.show();
            QApplication::setActiveWindow(&window);
        }

        static Alert question()
        {
            Alert question { "Really?", "It <b>cannot</b> be undone.", { "Apply", "Cancel" } };
            question.suppression = "Don't show again";
            return question;
        }
        bool ask(const Alert& asked = question())
        {
            return boxes.ask(asked, [this](AlertAnswer given) {
                ++answers;
                answer = given;
            });
        }
        QMessageBox* box() const { return window.findChild<QMessageBox*>(); }
        QPushButton& button(const QString& title) const
        {
            for (auto* button : box()->buttons()) {
                if (button->text() == title)
                    return static_cast<QPushButton&>(*button);
            }
            ADD_FAILURE() << title.toStdString();
            return *box()->findChild<QPushButton*>();
        }

        QWidget window;
        AlertBoxes boxes;
        int answers = 0;
        AlertAnswer answer;
    };

    TEST(AlertSheetsTest, AQuestionIsShownAsItIsOverItsWindowAndNobodyWaits)
    {
        BoxFixture f;

        ASSERT_TRUE(f.ask());

        const auto& box = *f.box();
        EXPECT_TRUE(box.isVisible());
        EXPECT_EQ(box.windowModality(), Qt::WindowModal);
        EXPECT_EQ(box.iconPixmap().deviceIndependentSize(), QSizeF(56, 56));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Really?"));
        EXPECT_EQ(box.text(), QStringLiteral("Really?"));
        EXPECT_EQ(box.informativeText(), QStringLiteral("It <b>cannot</b> be undone."));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.buttons().size(), 2);
        EXPECT_TRUE(f.button("Apply").isDefault());
        EXPECT_EQ(box.checkBox()->text(), QStringLiteral("Don't show again"));
        EXPECT_FALSE(box.checkBox()->isChecked());
        EXPECT_EQ(f.answers, 0);
    }

    TEST(AlertSheetsTest, TheAnswerComesOnceAndTheBoxIsGone)
    {
        BoxFixture f;
        f.ask();

        f.button("Apply").click();
        test::settle();

        EXPECT_EQ(f.answers, 1);
        EXPECT_TRUE(f.answer.isFirst);
        EXPECT_FALSE(f.answer.isSuppressed);
        EXPECT_EQ(f.box(), nullptr);
    }

    TEST(AlertSheetsTest, TheCheckBoxIsPartOfTheAnswer)
    {
        BoxFixture f;
        f.ask();
        f.box()->checkBox()->click();

        f.button("Cancel").click();

        EXPECT_FALSE(f.answer.isFirst);
        EXPECT_TRUE(f.answer.isSuppressed);
    }

    TEST(AlertSheetsTest, EscapeCancels)
    {
        BoxFixture f;
        f.ask();

        test::typeKey(*f.box(), Qt::Key_Escape);

        EXPECT_EQ(f.answers, 1);
        EXPECT_FALSE(f.answer.isFirst);
    }

    TEST(AlertSheetsTest, AWindowThatClosesUnderTheQuestionHasCancelledIt)
    {
        BoxFixture f;
        f.ask();

        f.window.hide();
        test::settle(); // given up
        test::settle(); // and deleted

        EXPECT_EQ(f.answers, 1);
        EXPECT_FALSE(f.answer.isFirst);
        EXPECT_EQ(f.box(), nullptr);
    }

    TEST(AlertSheetsTest, ADialogThatHasJustClosedGivesItsPlaceToTheWindowUnderIt)
    {
        BoxFixture f;
        QDialog dialog(&f.window);
        dialog.show();
        test::settle();
        ASSERT_EQ(QApplication::activeWindow(), &dialog);
        dialog.hide(); // the desktop has not told yet who has the keyboard now

        ASSERT_TRUE(f.ask());

        EXPECT_EQ(f.box()->parentWidget(), &f.window);
    }

    TEST(AlertSheetsTest,
        ADialogThatTheDesktopStillTakesForTheActiveOneGivesItsPlaceTooWhenItHasClosed)
    {
        BoxFixture f;
        QDialog dialog(&f.window);
        dialog.show();
        QDialog above(&dialog);
        above.show();
        test::settle();
        above.hide();
        dialog.hide();
        QApplication::setActiveWindow(&dialog); // as the desktop tells of the first of the two

        ASSERT_TRUE(f.ask());

        ASSERT_NE(f.box(), nullptr);
        EXPECT_EQ(f.box()->parentWidget(), &f.window);
    }

    TEST(AlertSheetsTest, AListOfProposalsGivesItsPlaceToTheWindowOfItsField)
    {
        BoxFixture f;
        QDialog dialog(&f.window);
        QLineEdit field(&dialog);
        dialog.show();
        QListWidget proposals;
        proposals.setWindowFlag(Qt::Popup);
        proposals.setFocusProxy(&field);
        proposals.show();
        test::settle();
        dialog.hide(); // by a key in the list
        QApplication::setActiveWindow(&proposals);

        ASSERT_TRUE(f.ask());

        ASSERT_NE(f.box(), nullptr);
        EXPECT_EQ(f.box()->parentWidget(), &f.window);
    }

    TEST(AlertSheetsTest, WhatMustBeSeenIsShownOverTheWindowUnderTheDialogThatHadTheKeyboardLast)
    {
        BoxFixture f;
        QDialog dialog(&f.window);
        dialog.show();
        test::settle();
        ASSERT_EQ(QGuiApplication::focusWindow(), dialog.windowHandle());
        QWindowSystemInterface::handleWindowActivated<QWindowSystemInterface::SynchronousDelivery>(
            nullptr);
        dialog.hide();

        f.boxes.tell(BoxFixture::question(), {});

        ASSERT_NE(f.box(), nullptr);
        EXPECT_EQ(f.box()->parentWidget(), &f.window);
    }

    TEST(AlertSheetsTest, WhatMustBeSeenIsShownWithoutAWindowToo)
    {
        BoxFixture f;
        f.window.hide();
        QApplication::setActiveWindow(nullptr);

        f.boxes.tell({ "News", "All is well.", { "OK" } }, [&f](AlertAnswer) { ++f.answers; });

        const auto all = QApplication::topLevelWidgets();
        const auto box = std::ranges::find_if(
            all, [](QWidget* w) { return w->isVisible() && w->windowTitle() == "News"; });
        ASSERT_NE(box, all.end());
        test::typeKey(**box, Qt::Key_Escape);
        EXPECT_EQ(f.answers, 1);
    }

    TEST(AlertSheetsTest, WhatMustBeSeenIsShownOverTheWindowThatHadTheKeyboardLast)
    {
        BoxFixture f;
        test::settle();
        ASSERT_EQ(QGuiApplication::focusWindow(), f.window.windowHandle());
        // As when somebody takes the whole keyboard, to record a shortcut.
        QWindowSystemInterface::handleWindowActivated<QWindowSystemInterface::SynchronousDelivery>(
            nullptr);
        EXPECT_FALSE(f.ask());

        f.boxes.tell(BoxFixture::question(), {});

        ASSERT_NE(f.box(), nullptr);
        EXPECT_EQ(f.box()->windowModality(), Qt::WindowModal);
    }

    TEST(AlertSheetsTest, WithoutAWindowNothingIsShown)
    {
        BoxFixture f;
        f.window.hide();
        QApplication::setActiveWindow(nullptr);

        EXPECT_FALSE(f.ask());

        EXPECT_EQ(f.box(), nullptr);
    }

    TEST(AlertSheetsTest, WhereSomethingIsDestroyedReturnCancels)
    {
        BoxFixture f;
        auto question = BoxFixture::question();
        question.buttons = { "Clear all", "Cancel" };
        question.suppression.reset();
        question.isDestructive = true;

        ASSERT_TRUE(f.ask(question));

        EXPECT_EQ(f.box()->checkBox(), nullptr);
        EXPECT_FALSE(f.button("Clear all").isDefault());
        EXPECT_TRUE(f.button("Cancel").isDefault());
        EXPECT_NE(f.button("Clear all").palette().color(QPalette::ButtonText),
            f.button("Cancel").palette().color(QPalette::ButtonText));
        f.button("Clear all").click();
        EXPECT_TRUE(f.answer.isFirst);
    }

    /// A window as the panel is, with the keyboard.
    struct OpenPanel {
        OpenPanel()
            : window(nullptr, Qt::Window | Qt::BypassWindowManagerHint)
        {
            window.show();
            QApplication::setActiveWindow(&window);
        }
        QWidget window;
    };

    TEST(AlertSheetsTest, APanelThatHasTheKeyboardIsNotTheWindowOfAQuestion)
    {
        BoxFixture f;
        OpenPanel panel;

        ASSERT_TRUE(f.ask());
        ASSERT_NE(f.box(), nullptr);
        panel.window.hide();
        test::settle();

        EXPECT_TRUE(f.box()->isVisible());
        EXPECT_EQ(f.answers, 0);
    }

    TEST(AlertSheetsTest, APanelAloneHasNoQuestions)
    {
        BoxFixture f;
        f.window.hide();
        const OpenPanel panel;

        EXPECT_FALSE(f.ask());
    }

    TEST(AlertSheetsTest, AWindowThatIsBroughtBackKeepsItsQuestion)
    {
        BoxFixture f;
        f.ask();

        f.window.hide();
        f.window.show();
        test::settle();

        ASSERT_NE(f.box(), nullptr);
        EXPECT_TRUE(f.box()->isVisible());
        EXPECT_EQ(f.answers, 0);
        f.button("Apply").click();
        EXPECT_EQ(f.answers, 1);
    }

} // namespace
} // namespace korvane
