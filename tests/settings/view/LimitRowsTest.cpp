#include "settings/view/LimitRows.h"

#include "settings/LimitFields.h"
#include "settings/view/FormPage.h"
#include "settings/view/FormSection.h"
#include "settings/view/KitFixture.h"
#include "settings/view/NumberField.h"
#include "support/FakeAlerts.h"
#include "support/StoreFixture.h"
#include "support/Within.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>

namespace korvane {
namespace {

    struct RowsFixture : test::StoreFixture, test::KitFixture {
        RowsFixture()
        {
            auto made = std::make_unique<FormPage>();
            made->resize(FormPage::pageWidth, FormPage::pageHeight);
            addLimitRows(made->addSection(QStringLiteral("General")), kit, fields);
            page = &KitFixture::show(std::move(made), { 0, 0 });
        }

        NumberField& number(std::size_t index) const
        {
            return *test::allWithin<NumberField>(*page).at(index);
        }
        QLineEdit& field(std::size_t index) const { return number(index).edit(); }
        /// Types over what stands in a field.
        void type(std::size_t index, const QString& text) const
        {
            field(index).setFocus(Qt::TabFocusReason);
            field(index).selectAll();
            test::typeText(field(index), text);
        }
        void typeAndReturn(std::size_t index, const QString& text) const
        {
            type(index, text);
            test::typeKey(field(index), Qt::Key_Return);
        }
        QString shown(std::size_t index) const { return field(index).text(); }

        test::FakeAlerts alerts;
        LimitFields fields { *store, preferences, alerts };
        FormPage* page = nullptr; // the window's
    };

    TEST(LimitRowsTest, ThreeLabelledFieldsShowTheLimits)
    {
        const RowsFixture f;
        QStringList labels;
        for (const auto* label : test::allWithin<QLabel>(*f.page))
            labels << label->text();

        EXPECT_EQ(labels,
            (QStringList {
                "General", "Max clips:", "Max clip size (KB):", "Max total size (MB):" }));
        EXPECT_EQ(f.shown(0), QStringLiteral("500"));
        EXPECT_EQ(f.shown(1), QStringLiteral("64"));
        EXPECT_EQ(f.shown(2), QStringLiteral("500"));
        EXPECT_EQ(f.number(0).width(), 80);
    }

    TEST(LimitRowsTest, TheSizesSayWhatTheyMean)
    {
        const RowsFixture f;

        EXPECT_EQ(f.number(0).toolTip(), QString());
        EXPECT_EQ(f.number(1).toolTip(),
            QStringLiteral("Clips larger than this are stored on disk as a preview + file. Full "
                           "content is loaded on paste. Lower values keep the panel snappier on "
                           "large pastes."));
        EXPECT_EQ(f.number(2).toolTip(),
            QStringLiteral("Total clipboard history size. Oldest unpinned clips are removed when "
                           "this is exceeded."));
    }

    TEST(LimitRowsTest, ReturnCommitsAndGivesUpTheKeyboard)
    {
        const RowsFixture f;

        f.typeAndReturn(0, QStringLiteral("20"));

        EXPECT_EQ(f.shown(0), QStringLiteral("50"));
        EXPECT_EQ(f.store->maxClips(), 50);
        EXPECT_FALSE(f.field(0).hasFocus());
    }

    TEST(LimitRowsTest, WhoGoesToAnotherFieldHasCommitted)
    {
        const RowsFixture f;
        f.type(1, QStringLiteral("4"));
        EXPECT_EQ(f.store->maxClipSizeKB(), 64);

        f.field(2).setFocus(Qt::TabFocusReason);

        EXPECT_EQ(f.shown(1), QStringLiteral("8"));
        EXPECT_EQ(f.store->maxClipSizeKB(), 8);
    }

    TEST(LimitRowsTest, ANumberThatIsTooLargeBecomesTheLargest)
    {
        const RowsFixture f;

        f.typeAndReturn(0, QStringLiteral("10000"));
        EXPECT_EQ(f.shown(0), QStringLiteral("9999"));
        f.typeAndReturn(2, QStringLiteral("999999999"));
        EXPECT_EQ(f.shown(2), QStringLiteral("10000"));
    }

    TEST(LimitRowsTest, AnEmptyFieldGetsItsNumberBack)
    {
        const RowsFixture f;
        f.field(0).setFocus();
        f.field(0).clear();

        test::typeKey(f.field(0), Qt::Key_Return);
        EXPECT_EQ(f.shown(0), QStringLiteral("500"));
        f.field(0).setFocus();
        f.field(0).clear();
        f.field(1).setFocus(Qt::TabFocusReason);

        EXPECT_EQ(f.shown(0), QStringLiteral("500"));
        EXPECT_EQ(f.store->maxClips(), 500);
    }

    TEST(LimitRowsTest, ANumberThatAssistiveTechnologyHasSetHoldsWhenTheFieldIsLeft)
    {
        const RowsFixture f;
        f.field(0).setFocus();
        auto* const element = QAccessible::queryAccessibleInterface(&f.field(0));
        ASSERT_NE(element, nullptr);
        ASSERT_NE(element->editableTextInterface(), nullptr);

        element->editableTextInterface()->replaceText(0, 3, QStringLiteral("700"));
        f.field(1).setFocus(Qt::TabFocusReason);

        EXPECT_EQ(f.store->maxClips(), 700);
    }

    TEST(LimitRowsTest, WhileAQuestionIsOpenTheFieldShowsWhatWasTypedAndThenWhatHolds)
    {
        RowsFixture f;
        f.store->savingOnce([&] {
            for (int number = 0; number < 60; ++number)
                f.add(std::to_string(number));
        });
        f.typeAndReturn(0, QStringLiteral("55"));
        ASSERT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.shown(0), QStringLiteral("55"));

        f.alerts.cancel();
        EXPECT_EQ(f.shown(0), QStringLiteral("500"));
        f.typeAndReturn(0, QStringLiteral("55"));
        f.alerts.agree();
        EXPECT_EQ(f.shown(0), QStringLiteral("55"));
        EXPECT_EQ(f.store->maxClips(), 55);
    }

    TEST(LimitRowsTest, WhatWasTypedIsLostWhenTheWindowCloses)
    {
        RowsFixture f;
        f.type(0, QStringLiteral("700"));

        f.window.hide();
        test::settle();
        f.window.show();
        test::settle();

        EXPECT_EQ(f.store->maxClips(), 500);
        EXPECT_EQ(f.shown(0), QStringLiteral("500"));
        EXPECT_FALSE(f.field(0).hasFocus());
    }

    TEST(LimitRowsTest, ALimitThatIsChangedElsewhereIsShownWhenThePageAppearsAgain)
    {
        RowsFixture f;
        f.preferences.set(keys::maxClips, std::int64_t { 300 });
        EXPECT_EQ(f.shown(0), QStringLiteral("500"));

        f.page->hide();
        f.page->show();

        EXPECT_EQ(f.shown(0), QStringLiteral("300"));
    }

    TEST(LimitRowsTest, AFieldIsCalledByItsLabel)
    {
        const RowsFixture f;

        EXPECT_EQ(f.field(1).accessibleName(), QStringLiteral("Max clip size (KB):"));
    }

} // namespace
} // namespace korvane
