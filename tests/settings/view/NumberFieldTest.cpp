#include "settings/view/NumberField.h"

#include "settings/view/KitFixture.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>

namespace korvane {
namespace {

    struct FieldFixture : test::KitFixture {
        FieldFixture()
        {
            field.onCommit = [this] { ++commits; };
            field.setNumber(500);
            other.setGeometry(20, 80, 80, 26);
            other.show();
            field.setFocus();
        }
        void enter(const QString& text)
        {
            field.edit().selectAll();
            test::typeText(field.edit(), text);
        }

        NumberField& field = show(std::make_unique<NumberField>(kit.clipboardText, 6));
        QLineEdit other { &window };
        int commits = 0;
    };

    TEST(NumberFieldTest, ItShowsANumberAndGivesBackWhatIsTyped)
    {
        FieldFixture f;
        EXPECT_EQ(f.field.number(), 500);

        f.enter(QStringLiteral("20"));

        EXPECT_EQ(f.field.number(), 20);
        EXPECT_EQ(f.commits, 0);
    }

    TEST(NumberFieldTest, OnlyDigitsCanBeTypedAndOnlySoMany)
    {
        FieldFixture f;

        f.enter(QStringLiteral("-1a2.5e34567"));

        EXPECT_EQ(f.field.edit().text(), QStringLiteral("125345"));
    }

    TEST(NumberFieldTest, WhatIsEmptyIsNoNumber)
    {
        FieldFixture f;
        f.field.edit().selectAll();

        test::typeKey(f.field.edit(), Qt::Key_Backspace);

        EXPECT_EQ(f.field.number(), std::nullopt);
    }

    TEST(NumberFieldTest, ReturnCommitsOnceAndGivesUpTheKeyboard)
    {
        FieldFixture f;
        f.enter(QStringLiteral("20"));

        test::typeKey(f.field.edit(), Qt::Key_Return);

        EXPECT_EQ(f.commits, 1);
        EXPECT_FALSE(f.field.edit().hasFocus());
        EXPECT_FALSE(f.other.hasFocus());
    }

    TEST(NumberFieldTest, ToGoToAnotherControlCommits)
    {
        FieldFixture f;
        f.enter(QStringLiteral("20"));

        f.other.setFocus(Qt::TabFocusReason);

        EXPECT_EQ(f.commits, 1);
    }

    TEST(NumberFieldTest, WhatIsTypedWhenTheWindowClosesIsNotCommitted)
    {
        FieldFixture f;
        f.enter(QStringLiteral("20"));

        f.window.close();
        test::settle();

        EXPECT_EQ(f.commits, 0);
    }

    TEST(NumberFieldTest, AnotherWindowThatComesToTheFrontCommitsNothing)
    {
        FieldFixture f;
        f.enter(QStringLiteral("20"));
        QWidget another;
        another.show();

        QApplication::setActiveWindow(&another);

        EXPECT_EQ(f.commits, 0);
    }

    TEST(NumberFieldTest, APasteAsksTheReaderAndTakesDigitsOnly)
    {
        FieldFixture f;
        f.field.edit().selectAll();
        f.clipboard = QStringLiteral("1234");

        test::typeKey(f.field.edit(), Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(f.field.number(), 1234);
        f.clipboard = QStringLiteral("text");
        f.field.edit().selectAll();
        test::typeKey(f.field.edit(), Qt::Key_V, Qt::ControlModifier);

        EXPECT_FALSE(f.field.edit().text().contains(u't'));
    }

    TEST(NumberFieldTest, ItIsEightyPointsWideAndHasARingWhileItHasTheKeyboard)
    {
        FieldFixture f;
        const auto focused = f.look(f.field);

        f.other.setFocus();

        EXPECT_EQ(f.field.width(), 80);
        EXPECT_NE(f.look(f.field), focused);
    }

} // namespace
} // namespace korvane
