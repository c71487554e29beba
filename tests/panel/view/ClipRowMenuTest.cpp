#include "panel/view/ClipPanelView.h"

#include "look/view/PanelMenu.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QStringList>

namespace korvane {
namespace {

    using Done = test::FakeClipActions::Done;

    struct MenuFixture : test::ViewFixture {
        MenuFixture()
        {
            addNumbered(5);
            view.resize(metrics::panelWidth, 480);
            view.show();
        }
        QMenu* menu() { return view.list().findChild<QMenu*>(); }
        QStringList titles()
        {
            QStringList result;
            for (const auto* action : menu()->actions())
                result << (action->isSeparator() ? QStringLiteral("-") : action->text());
            return result;
        }
        /// Opens the menu of a row by the mouse and chooses a line of it.
        void choose(std::size_t row, const QString& title)
        {
            test::rightClick(view.list(), view.list().rowRect(row).center());
            for (auto* action : menu()->actions()) {
                if (action->text() == title)
                    menu()->setActiveAction(action);
            }
            test::typeKey(*menu(), Qt::Key_Return);
            test::settle();
        }

        ClipPanelView view { store, controller, loop, {} };
    };

    TEST(ClipRowMenuTest, ItsLinesStandInTheirOrder)
    {
        MenuFixture f;

        test::rightClick(f.view.list(), f.view.list().rowRect(0).center());

        EXPECT_EQ(f.titles(),
            (QStringList {
                "Copy", "Paste Directly", "-", "Pin", "Rename...", "Quick Look", "-", "Delete" }));
        f.menu()->close();
    }

    TEST(ClipRowMenuTest, ALargeClipCanBeRevealed)
    {
        MenuFixture f;
        f.store.setMaxClipSizeKB(8);
        f.add(std::string(9000, 'a'));

        f.choose(0, QStringLiteral("Reveal in Finder"));

        ASSERT_EQ(f.actions.done.size(), 1U);
        EXPECT_EQ(f.actions.done.front().first, "reveal");
    }

    TEST(ClipRowMenuTest, ARightClickChoosesAndSelectsNothing)
    {
        MenuFixture f;
        f.panel().selectedClipID.set(f.idAt(0));

        test::rightClick(f.view.list(), f.view.list().rowRect(2).center());
        f.menu()->close();

        EXPECT_TRUE(f.actions.done.empty());
        EXPECT_EQ(f.panel().selectedClipID.value(), f.idAt(0));
    }

    TEST(ClipRowMenuTest, CopyCopiesThatClip)
    {
        MenuFixture f;

        f.choose(2, QStringLiteral("Copy"));

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "copy", "clip 3" } }));
    }

    TEST(ClipRowMenuTest, PasteDirectlyActivatesThatClip)
    {
        MenuFixture f;

        f.choose(1, QStringLiteral("Paste Directly"));

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "activate", "clip 2" } }));
    }

    TEST(ClipRowMenuTest, PinAndUnpinTurnThePinOver)
    {
        MenuFixture f;

        f.choose(1, QStringLiteral("Pin"));
        EXPECT_TRUE(f.store.clips().at(1).isPinned);
        f.choose(1, QStringLiteral("Unpin"));
        EXPECT_FALSE(f.store.clips().at(1).isPinned);
    }

    TEST(ClipRowMenuTest, RenameOpensTheFieldInThatRow)
    {
        MenuFixture f;

        f.choose(1, QStringLiteral("Rename..."));

        ASSERT_TRUE(f.view.list().isRenaming());
        f.view.list().findChild<QLineEdit*>()->setText(QStringLiteral("a name"));
        f.view.list().submitRename();
        EXPECT_EQ(f.store.clips().at(1).customName, "a name");
    }

    TEST(ClipRowMenuTest, QuickLookOpensThePreviewBesideThatRow)
    {
        MenuFixture f;

        f.choose(1, QStringLiteral("Quick Look"));

        ASSERT_EQ(f.host.previews.size(), 1U);
        EXPECT_EQ(f.host.previews.front().clip.text, "clip 2");
        EXPECT_EQ(f.host.previews.front().rowMidY, 121 + 4 + 50 + 24);
    }

    TEST(ClipRowMenuTest, DeleteRemovesThatClip)
    {
        MenuFixture f;

        f.choose(1, QStringLiteral("Delete"));

        EXPECT_EQ(f.store.clips().size(), 4U);
        EXPECT_EQ(f.store.clips().at(1).text, "clip 3");
    }

    TEST(ClipRowMenuTest, TheMenuKeyOpensItOnTheSelectedRow)
    {
        MenuFixture f;
        f.panel().selectedClipID.set(f.idAt(3));

        EXPECT_TRUE(f.view.handle({ 110, 0, "" }));
        ASSERT_NE(f.menu(), nullptr);
        f.menu()->actions().front()->trigger();
        f.menu()->close();

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "copy", "clip 4" } }));
    }

    TEST(ClipRowMenuTest, ShiftF10OpensItTooAndF10AloneDoesNot)
    {
        MenuFixture f;
        f.panel().selectedClipID.set(f.idAt(0));

        EXPECT_FALSE(f.view.handle({ 109, 0, "" }));
        EXPECT_EQ(f.menu(), nullptr);
        EXPECT_TRUE(f.view.handle({ 109, modifiers::shift, "" }));
        ASSERT_NE(f.menu(), nullptr);
        f.menu()->close();
    }

    TEST(ClipRowMenuTest, DeleteIsRedAndAloneInThat)
    {
        MenuFixture f;
        test::rightClick(f.view.list(), f.view.list().rowRect(0).center());

        auto* menu = dynamic_cast<PanelMenu*>(f.menu());
        ASSERT_NE(menu, nullptr);
        for (const auto* action : menu->actions())
            EXPECT_EQ(menu->toneOf(action) == PanelMenu::Tone::destructive,
                action->text() == QStringLiteral("Delete"));
        menu->close();
    }

    TEST(ClipRowMenuTest, TheRowWhoseMenuIsOpenKeepsItsHoverGroundAndNoOtherHasOne)
    {
        MenuFixture f;
        auto& list = f.view.list();
        const auto groundOf = [&list](std::size_t index) {
            const auto row = list.rowRect(index);
            return list.grab().toImage().pixelColor(
                static_cast<int>(row.center().x()), static_cast<int>(row.bottom()) - 4);
        };
        const auto plain = groundOf(0);

        test::rightClick(list, list.rowRect(1).center());
        test::movePointer(list, list.rowRect(3).center());
        EXPECT_NE(groundOf(1), plain);
        EXPECT_EQ(groundOf(3), plain);
        f.menu()->close();

        EXPECT_EQ(groundOf(1), plain);
        EXPECT_NE(groundOf(3), plain);
    }

    TEST(ClipRowMenuTest, WithoutASelectionTheMenuKeyOpensNothing)
    {
        MenuFixture f;

        EXPECT_TRUE(f.view.handle({ 110, 0, "" }));

        EXPECT_EQ(f.menu(), nullptr);
    }

} // namespace
} // namespace korvane
