#include "settings/view/DataPage.h"

#include "settings/view/KitFixture.h"
#include "settings/view/PushButton.h"
#include "settings/view/WorkMark.h"
#include "support/FakeAlerts.h"
#include "support/FakeFileDialogs.h"
#include "support/TransferFixture.h"
#include "support/Within.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace korvane {
namespace {

    struct PageFixture : test::TransferFixture, test::KitFixture {
        PageFixture()
        {
            auto made = std::make_unique<DataPage>(*store, actions);
            made->resize(FormPage::pageWidth, FormPage::pageHeight);
            page = &KitFixture::show(std::move(made), { 0, 0 });
        }

        /// All texts of the page, from top to bottom.
        QStringList texts() const
        {
            QStringList texts;
            for (const auto* label : test::allWithin<QLabel>(*page))
                texts << label->text();
            return texts;
        }
        QString valueOf(const QString& label) const
        {
            return texts().at(texts().indexOf(label) + 1);
        }
        QString total() const { return valueOf(QStringLiteral("Total clips:")); }
        QString pinned() const { return valueOf(QStringLiteral("Pinned:")); }
        PushButton& button(const QString& title) const
        {
            for (auto* button : test::allWithin<PushButton>(*page)) {
                if (button->text() == title)
                    return *button;
            }
            ADD_FAILURE() << title.toStdString();
            return *test::allWithin<PushButton>(*page).at(0);
        }
        WorkMark& mark() const { return *test::allWithin<WorkMark>(*page).at(0); }

        test::FakeFileDialogs dialogs;
        test::FakeAlerts alerts;
        DataActions actions { *store, TransferFixture::loop, dialogs, alerts };
        DataPage* page = nullptr; // the window's
    };

    TEST(DataPageTest, TheTextsStandInThisOrder)
    {
        PageFixture f;
        QStringList buttons;
        for (const auto* button : test::allWithin<PushButton>(*f.page))
            buttons << button->text();

        EXPECT_EQ(f.texts(),
            (QStringList { "Statistics", "Total clips:", "0", "Pinned:", "0", "Actions" }));
        EXPECT_EQ(
            buttons, (QStringList { "Export history...", "Import history...", "Clear history" }));
        EXPECT_EQ(f.button("Clear history").tone(), PushButton::Tone::destructive);
    }

    TEST(DataPageTest, TheNumbersFollowTheHistory)
    {
        PageFixture f;
        f.add("one");
        f.addPinned("two");
        EXPECT_EQ(f.total(), QStringLiteral("2"));
        EXPECT_EQ(f.pinned(), QStringLiteral("1"));

        f.store->deleteClip(ClipItem(f.store->clips()[0]));

        EXPECT_EQ(f.total(), QStringLiteral("1"));
        EXPECT_EQ(f.pinned(), QStringLiteral("0"));
    }

    TEST(DataPageTest, NumbersAreWrittenWithoutSeparators)
    {
        PageFixture f;
        f.preferences.set(keys::maxClips, std::int64_t { 2000 });

        f.store->savingOnce([&] {
            for (int number = 0; number < 1234; ++number)
                f.add(std::to_string(number));
        });

        EXPECT_EQ(f.total(), QStringLiteral("1234"));
    }

    TEST(DataPageTest, ClearingLeavesThePinnedClipsInBothNumbers)
    {
        PageFixture f;
        f.add("one");
        f.addPinned("two");
        f.button("Clear history").click();

        f.alerts.agree();

        EXPECT_EQ(f.total(), QStringLiteral("1"));
        EXPECT_EQ(f.pinned(), QStringLiteral("1"));
    }

    TEST(DataPageTest, EachButtonOpensItsDialog)
    {
        PageFixture f;

        f.button("Export history...").click();
        ASSERT_EQ(f.dialogs.proposed.size(), 1U);
        f.dialogs.giveUp();
        test::typeKey(f.button("Import history..."), Qt::Key_Return);
        EXPECT_EQ(f.dialogs.openings, 1);
    }

    TEST(DataPageTest, EverythingIsReachedByTheKeyboard)
    {
        PageFixture f;
        QStringList reached;

        for (int step = 0; step < 3; ++step)
            if (const auto* const button = dynamic_cast<PushButton*>(&f.tab()))
                reached << button->text();

        EXPECT_EQ(
            reached, (QStringList { "Export history...", "Import history...", "Clear history" }));
    }

    TEST(DataPageTest, ALongStepIsSeenBeforeItBegins)
    {
        PageFixture f;
        f.store->setMaxClipSizeKB(1024 * 1024);
        f.add(std::string(9UL * 1024 * 1024, 'x'));
        QStringList painted;
        test::PaintCounter paints(f.mark());
        // Told after the page, which must have painted by then: from here on the program is busy.
        const auto seen = f.actions.work.onChange([&](DataActions::Work) {
            painted << f.mark().text() + QStringLiteral(" %1").arg(paints.count);
        });

        f.button("Export history...").click();

        EXPECT_EQ(painted, (QStringList { "Exporting… 1", " 2" }));
        EXPECT_EQ(f.mark().accessibleName(), QString());
    }

    TEST(DataPageTest, NothingMovesWhenTheMarkComes)
    {
        PageFixture f;
        const auto place = f.mark().geometry();
        const auto without = f.look(f.mark());

        f.actions.work.set(DataActions::Work::importing);
        test::settle();

        EXPECT_EQ(f.mark().geometry(), place);
        EXPECT_EQ(f.mark().text(), QStringLiteral("Importing…"));
        EXPECT_NE(f.look(f.mark()), without);
    }

} // namespace
} // namespace korvane
