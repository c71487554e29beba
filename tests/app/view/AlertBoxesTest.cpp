#include "app/view/AlertBoxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include <string>
#include <vector>

namespace korvane {
namespace {

    Alert warning()
    {
        return { "Something happened", "It need not worry <b>you</b>.", { "OK" } };
    }

    Alert news()
    {
        return { "News", "All is well.", { "OK" }, Alert::Kind::notice };
    }

    std::vector<QMessageBox*> shownBoxes()
    {
        std::vector<QMessageBox*> boxes;
        for (auto* widget : QApplication::topLevelWidgets()) {
            if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible())
                boxes.push_back(box);
        }
        return boxes;
    }

    TEST(AlertBoxesTest, AWarningIsShownAsItIsAndNobodyWaitsForIt)
    {
        AlertBoxes alerts;

        alerts.show(warning(), {});

        const auto boxes = shownBoxes();
        ASSERT_EQ(boxes.size(), 1U);
        const auto& box = *boxes.front();
        EXPECT_EQ(box.iconPixmap().deviceIndependentSize(), QSizeF(56, 56));
        EXPECT_EQ(box.text(), QStringLiteral("Something happened"));
        EXPECT_EQ(box.informativeText(), QStringLiteral("It need not worry <b>you</b>."));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        ASSERT_EQ(box.buttons().size(), 1);
        EXPECT_EQ(box.buttons().front()->text(), QStringLiteral("OK"));
        EXPECT_FALSE(box.isModal());
    }

    TEST(AlertBoxesTest, AnAlertStaysAboveTheWindowsOfOtherPrograms)
    {
        AlertBoxes alerts;

        alerts.show(warning(), {});

        const auto boxes = shownBoxes();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_TRUE(boxes.front()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }

    TEST(AlertBoxesTest, TheSameAlertIsShownOnce)
    {
        AlertBoxes alerts;
        alerts.show(warning(), {});
        alerts.show(warning(), {});
        EXPECT_EQ(shownBoxes().size(), 1U);

        shownBoxes().front()->buttons().front()->click();
        EXPECT_TRUE(shownBoxes().empty());

        alerts.show(warning(), {});
        EXPECT_EQ(shownBoxes().size(), 1U);
    }

    Alert offer(std::string text = "Shall it <b>be</b>?")
    {
        return { "An offer", std::move(text), { "Take It", "Later" }, Alert::Kind::notice };
    }

    QStringList buttonTexts(const QMessageBox& box)
    {
        QStringList texts;
        for (const auto* button : box.buttons())
            texts += button->text();
        return texts;
    }

    TEST(AlertBoxesTest, ANoticeIsShownWithTheProgramsIconAndItsButtons)
    {
        AlertBoxes alerts;

        alerts.show(offer(), {});

        ASSERT_EQ(shownBoxes().size(), 1U);
        const auto& box = *shownBoxes().front();
        EXPECT_EQ(box.text(), QStringLiteral("An offer"));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("An offer"));
        EXPECT_EQ(box.informativeText(), QStringLiteral("Shall it <b>be</b>?"));
        EXPECT_EQ(buttonTexts(box), (QStringList { "Take It", "Later" }));
        EXPECT_EQ(box.defaultButton(), box.buttons().at(0));
        EXPECT_EQ(box.escapeButton(), box.buttons().at(1));
        EXPECT_EQ(box.iconPixmap().deviceIndependentSize(), QSizeF(64, 64));
        EXPECT_FALSE(box.windowIcon().isNull());
        EXPECT_FALSE(box.isModal());
    }

    TEST(AlertBoxesTest, WhatLooksLikeRichTextIsShownAsItStands)
    {
        AlertBoxes alerts;

        alerts.show(offer("<a href=\"file:///etc/passwd\">more</a><img src=\"x.png\">"), {});

        int labels = 0;
        for (const auto* label : shownBoxes().at(0)->findChildren<QLabel*>()) {
            if (label->pixmap().isNull()) {
                ++labels;
                EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
            }
        }
        EXPECT_EQ(labels, 2);
    }

    TEST(AlertBoxesTest, TheFirstButtonIsAnsweredOnce)
    {
        AlertBoxes alerts;
        int taken = 0;

        alerts.show(offer(), [&taken](AlertAnswer answer) { taken += answer.isFirst ? 1 : 0; });
        shownBoxes().at(0)->buttons().at(0)->click();

        EXPECT_EQ(taken, 1);
        EXPECT_TRUE(shownBoxes().empty());
    }

    TEST(AlertBoxesTest, TheLastButtonEscapeAndClosingAnswerThatNothingIsToBeDone)
    {
        AlertBoxes alerts;
        std::vector<bool> answers;
        const auto show = [&] {
            alerts.show(
                offer(), [&answers](AlertAnswer answer) { answers.push_back(answer.isFirst); });
        };

        show();
        shownBoxes().at(0)->buttons().at(1)->click();
        EXPECT_TRUE(shownBoxes().empty());
        show();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(shownBoxes().at(0), &escape);
        EXPECT_TRUE(shownBoxes().empty());
        show();
        shownBoxes().at(0)->buttons().at(0)->click();
        show();
        shownBoxes().at(0)->close(); // what was pressed the last time does not count
        EXPECT_TRUE(shownBoxes().empty());

        EXPECT_EQ(answers, (std::vector<bool> { false, false, true, false }));
    }

    TEST(AlertBoxesTest, TheOnlyButtonOfANoticeClosesItByReturnAndByEscape)
    {
        AlertBoxes alerts;
        for (const auto key : { Qt::Key_Return, Qt::Key_Escape }) {
            alerts.show(news(), {});

            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QCoreApplication::sendEvent(shownBoxes().at(0), &press);

            EXPECT_TRUE(shownBoxes().empty());
        }
    }

    TEST(AlertBoxesTest, ANoticeThatIsShownAlreadyTakesOnWhatTheNewestSaysAndDoes)
    {
        AlertBoxes alerts;
        std::string taken;
        alerts.show(offer("The first."), [&taken](AlertAnswer) { taken += "first"; });

        alerts.show(offer("The second."), [&taken](AlertAnswer) { taken += "second"; });

        ASSERT_EQ(shownBoxes().size(), 1U);
        EXPECT_EQ(shownBoxes().at(0)->informativeText(), QStringLiteral("The second."));
        shownBoxes().at(0)->buttons().at(0)->click();
        EXPECT_EQ(taken, "second");
    }

    TEST(AlertBoxesTest, ANoticeThatIsShownAgainLaterSaysWhatIsNew)
    {
        AlertBoxes alerts;
        alerts.show(offer("The first."), {});
        shownBoxes().at(0)->close();

        alerts.show(offer("The second."), {});

        ASSERT_EQ(shownBoxes().size(), 1U);
        EXPECT_EQ(shownBoxes().at(0)->informativeText(), QStringLiteral("The second."));
    }

    TEST(AlertBoxesTest, DifferentAlertsStandBesideEachOther)
    {
        AlertBoxes alerts;

        alerts.show(offer(), {});
        alerts.show(news(), {});
        alerts.show(warning(), {});

        EXPECT_EQ(shownBoxes().size(), 3U);
    }

    TEST(AlertBoxesTest, ALongTextIsScrolledAndIsThereToItsEnd)
    {
        AlertBoxes alerts;
        auto alert = news();
        for (int line = 0; line < 500; ++line)
            alert.informativeText += "One thing more is <b>better</b> than before.\n";
        alert.informativeText += "The end";

        alerts.show(alert, {});

        const auto boxes = shownBoxes();
        ASSERT_EQ(boxes.size(), 1U);
        const auto* const text = boxes.front()->findChild<QPlainTextEdit*>();
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(text->toPlainText().toStdString(), alert.informativeText);
        EXPECT_TRUE(text->isReadOnly());
        EXPECT_TRUE(text->isVisible());
        EXPECT_LT(boxes.front()->height(), 480);
        EXPECT_TRUE(boxes.front()->rect().contains(
            text->geometry().united(boxes.front()->buttons().front()->geometry())));
    }

    TEST(AlertBoxesTest, ATextThatHasBecomeShortIsNoLongerScrolled)
    {
        AlertBoxes alerts;
        auto alert = news();
        alert.informativeText = std::string(5000, 'a');
        alerts.show(alert, {});

        alerts.show(news(), {});

        const auto boxes = shownBoxes();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes.front()->findChild<QPlainTextEdit*>(), nullptr);
        EXPECT_EQ(boxes.front()->informativeText(), QStringLiteral("All is well."));
    }

} // namespace
} // namespace korvane
