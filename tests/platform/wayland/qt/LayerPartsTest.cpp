#include "panel/view/ClipListView.h"
#include "panel/view/FilterTabBar.h"
#include "panel/view/PanelHeader.h"
#include "platform/wayland/qt/OtherProgram.h"
#include "platform/wayland/qt/PanelDesk.h"
#include "platform/wayland/qt/TestSeat.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QWindow>

#include <linux/input-event-codes.h>

namespace korvane {
namespace {

    using test::seat;
    using test::waitUntil;

    struct PartsFixture {
        PartsFixture()
        {
            desk.copyNumbered(5);
            isOpen = desk.open();
        }
        /// Where a place in a part of the panel is on the output.
        QPoint onOutput(const QWidget& part, const QPoint& place)
        {
            return part.mapTo(&desk.ground(), place);
        }
        /// The list's row, counted from 0.
        QPoint row(int index)
        {
            auto& list = *desk.part<ClipListView>();
            return onOutput(list, { list.width() / 2, 25 + 50 * index });
        }
        static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
        /// Opens the menu of a row and waits until it is on the screen.
        bool openMenu(int index)
        {
            seat().clickAt(row(index), test::TestSeat::Button::right);
            return waitUntil([] {
                return menu() && menu()->windowHandle() && menu()->windowHandle()->isExposed();
            });
        }
        QPoint lineOf(const QString& title)
        {
            for (auto* const line : menu()->actions())
                if (line->text() == title)
                    return menu()->mapToGlobal(menu()->actionGeometry(line).center());
            return {};
        }

        test::PanelDesk desk;
        bool isOpen = false;
    };

    TEST(LayerPartsTest, ARowIsChosenByAClickInIt)
    {
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);

        seat().clickAt(f.row(2));

        EXPECT_TRUE(waitUntil([&] {
            const auto& written = f.desk.pasteboard.written;
            return !written.empty() && written.back() == "clip 3";
        }));
    }

    TEST(LayerPartsTest, AfterAClickOutsideTheNextOpeningHearsClicks)
    {
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);
        seat().clickAt({ 100, 700 });
        ASSERT_TRUE(waitUntil([&] { return !f.desk.shell().isPanelVisible(); }));
        ASSERT_TRUE(f.desk.close() && f.desk.open());

        seat().clickAt(f.row(2));

        EXPECT_TRUE(waitUntil([&] {
            const auto& written = f.desk.pasteboard.written;
            return !written.empty() && written.back() == "clip 3";
        }));
    }

    TEST(LayerPartsTest, AMenuOpensAboveThePanelAndIsAnsweredByAClick)
    {
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);

        ASSERT_TRUE(f.openMenu(1));
        EXPECT_TRUE(f.menu()->geometry().contains(f.row(1) + QPoint(8, 8)));
        seat().clickAt(f.lineOf("Pin"));

        EXPECT_TRUE(waitUntil([&] { return f.desk.app->clipStore().clips().at(1).isPinned; }));
        EXPECT_TRUE(waitUntil([] { return !QApplication::activePopupWidget(); }));
        EXPECT_TRUE(f.desk.shell().isPanelVisible());
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPartsTest, AMenuIsAnsweredByKeys)
    {
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);
        ASSERT_TRUE(f.openMenu(0));

        seat().type(KEY_DOWN);
        ASSERT_TRUE(waitUntil([&] { return f.menu() && f.menu()->activeAction(); }));
        seat().type(KEY_ESC);

        EXPECT_TRUE(waitUntil([] { return !QApplication::activePopupWidget(); }));
        EXPECT_TRUE(f.desk.shell().isPanelVisible());
        seat().type(KEY_C);
        EXPECT_TRUE(waitUntil([&] { return f.desk.state().panelSearch.value() == "c"; }));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPartsTest, APressBesideAnOpenMenuOnlyClosesIt)
    {
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);
        ASSERT_TRUE(f.openMenu(1));

        seat().clickAt({ 100, 700 });

        EXPECT_TRUE(waitUntil([] { return !QApplication::activePopupWidget(); }));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPartsTest, APanelThatIsHiddenUnderItsMenuTakesItAlong)
    {
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);

        for (int time = 0; time < 5; ++time) {
            ASSERT_TRUE(f.openMenu(time)); // twice in one place would be a double click
            ASSERT_TRUE(f.desk.close());
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
            ASSERT_TRUE(f.desk.open());
        }

        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPartsTest, ThePreviewStandsBesideThePanelAndIsNoOutside)
    {
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);

        seat().type(KEY_SPACE);
        ASSERT_TRUE(waitUntil([&] { return f.desk.shell().isPreviewVisible(); }));
        const QRect preview = f.desk.previewWindow->panel().visibleFrame();
        EXPECT_EQ(preview.right(), f.desk.panel().visibleFrame().left() - 8 - 1);
        EXPECT_EQ(preview.width(), 484);
        seat().clickAt(preview.center());
        seat().type(KEY_SPACE);

        EXPECT_TRUE(waitUntil([&] { return !f.desk.shell().isPreviewVisible(); }));
        EXPECT_TRUE(f.desk.shell().isPanelVisible());
    }

    TEST(LayerPartsTest, AToolTipAppearsUnderThePointer)
    {
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);
        auto& tabs = *f.desk.part<FilterTabBar>();
        const auto tip = [&]() -> QWidget* {
            for (auto* const child : f.desk.ground().findChildren<QWidget*>())
                if (child->inherits("QTipLabel") && child->isVisible())
                    return child;
            return nullptr;
        };

        seat().moveTo(f.onOutput(tabs, tabs.chip(FilterTab::pinned).center().toPoint()));
        ASSERT_TRUE(waitUntil([&] { return tip() != nullptr; }));
        const QRect first = tip()->geometry();
        seat().moveTo(f.onOutput(tabs, tabs.chip(FilterTab::url).center().toPoint()));

        EXPECT_TRUE(waitUntil([&] { return tip() && tip()->geometry() != first; }));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPartsTest, DeadKeysComposeInTheSearch)
    {
        if (!seat().setLayout("us", "intl"))
            GTEST_SKIP() << "the compositor's keyboard has the user's layout";
        PartsFixture f;
        ASSERT_TRUE(f.isOpen);

        seat().type(KEY_APOSTROPHE);
        seat().type(KEY_E);
        const bool hasComposed
            = waitUntil([&] { return f.desk.state().panelSearch.value() == "é"; });
        const auto found = f.desk.state().panelSearch.value();
        seat().setLayout("us", "");

        EXPECT_TRUE(hasComposed) << found;
    }

} // namespace
} // namespace korvane
