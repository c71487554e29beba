#include "panel/view/ClipPanelView.h"

#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QLineEdit>

#include <functional>
#include <vector>

namespace korvane {
namespace {

    struct RenameFixture : test::ViewFixture {
        RenameFixture()
        {
            addNumbered(30);
            view.resize(metrics::panelWidth, 480);
            view.show();
            test::settle(); // until the window has the keyboard
            view.list().beginRename(idAt(0));
        }
        QLineEdit& field() { return *view.list().findChild<QLineEdit*>(); }
        std::optional<std::string> name() { return store.clips().front().customName; }
        /// A key as the window leads it: to the panel first, and on to the field when it passes.
        void type(int key, const KeyPress& press, const QString& text = {})
        {
            if (!view.handle(press))
                test::typeKey(field(), key, Qt::NoModifier, text);
        }

        /// What a field has asked of the clipboard and not been told yet.
        std::vector<std::function<void(QString)>> questions;
        ClipPanelView view { store, controller, loop, [this](std::function<void(QString)> answer) {
                                questions.push_back(std::move(answer));
                            } };
    };

    TEST(ClipRenameTest, AFieldStandsWhereTheTitleStood)
    {
        RenameFixture f;

        EXPECT_TRUE(f.field().isVisible());
        EXPECT_EQ(f.field().placeholderText(), QStringLiteral("Name..."));
        EXPECT_TRUE(f.view.list().rowRect(0).toAlignedRect().contains(f.field().geometry()));
        EXPECT_EQ(f.view.focusWidget(), &f.field());
    }

    TEST(ClipRenameTest, ReturnGivesTheNameAndTheFocusBackToTheSearch)
    {
        RenameFixture f;

        test::typeText(f.field(), QStringLiteral("invoice"));
        f.type(Qt::Key_Return, { keycodes::returnKey, 0, "" });

        EXPECT_EQ(f.name(), "invoice");
        EXPECT_FALSE(f.view.list().isRenaming());
        EXPECT_EQ(f.view.focusWidget(), &f.view.search().field());
        EXPECT_TRUE(f.actions.done.empty());
    }

    TEST(ClipRenameTest, ASpaceCanBeTypedInAName)
    {
        RenameFixture f;

        f.type(Qt::Key_Space, { keycodes::space, 0, " " }, QStringLiteral(" "));
        f.view.list().submitRename();

        EXPECT_EQ(f.name(), " ");
        EXPECT_TRUE(f.host.previews.empty());
    }

    TEST(ClipRenameTest, ANameCanBePutTogetherByAnInputMethod)
    {
        RenameFixture f;

        test::compose(f.field(), QStringLiteral("´"), QString::fromUtf8("é"));
        f.view.list().submitRename();

        EXPECT_EQ(f.name(), "é");
    }

    TEST(ClipRenameTest, ANameCanBePastedAndWaitsForNobody)
    {
        RenameFixture f;

        test::typeKey(f.field(), Qt::Key_V, Qt::ControlModifier);
        ASSERT_EQ(f.questions.size(), 1U);
        EXPECT_EQ(f.field().text(), QString());
        f.questions.front()(QStringLiteral("pasted"));
        f.view.list().submitRename();

        EXPECT_EQ(f.name(), "pasted");
    }

    TEST(ClipRenameTest, EscapeGivesUpAndLeavesThePanelOpen)
    {
        RenameFixture f;
        f.panel().panelSearch.set("clip");

        test::typeText(f.field(), QStringLiteral("invoice"));
        f.type(Qt::Key_Escape, { keycodes::escape, 0, "" });

        EXPECT_FALSE(f.view.list().isRenaming());
        EXPECT_EQ(f.name(), std::nullopt);
        EXPECT_EQ(f.host.closes, 0);
        EXPECT_EQ(f.panel().panelSearch.value(), "clip");
    }

    TEST(ClipRenameTest, ThePanelsKeysAreTypedInstead)
    {
        RenameFixture f;
        f.panel().selectedClipID.set(f.idAt(0));

        EXPECT_FALSE(f.view.handle({ 0xffff, modifiers::command, "p" }));
        EXPECT_FALSE(f.view.handle({ keycodes::backspace, modifiers::command, "" }));
        EXPECT_FALSE(f.view.handle({ keycodes::downArrow, 0, "" }));
        EXPECT_TRUE(f.view.handle({ keycodes::tab, 0, "" }));

        EXPECT_FALSE(f.store.clips().front().isPinned);
        EXPECT_EQ(f.store.clips().size(), 30U);
        EXPECT_EQ(f.panel().selectedClipID.value(), f.idAt(0));
    }

    TEST(ClipRenameTest, TheFieldBeginsWithTheNameThatTheClipHas)
    {
        RenameFixture f;
        f.store.rename(f.idAt(1), "address");

        f.view.list().beginRename(f.idAt(1));

        EXPECT_EQ(f.field().text(), QStringLiteral("address"));
        EXPECT_EQ(f.field().selectedText(), QStringLiteral("address"));
    }

    TEST(ClipRenameTest, AnEmptiedFieldTakesTheNameAway)
    {
        RenameFixture f;
        f.store.rename(f.idAt(0), "address");

        f.view.list().beginRename(f.idAt(0));
        f.field().clear();
        f.view.list().submitRename();

        EXPECT_EQ(f.name(), std::nullopt);
    }

    TEST(ClipRenameTest, AClickElsewhereInTheListGivesUp)
    {
        RenameFixture f;

        test::press(f.view.list(), f.view.list().rowRect(3).center());

        EXPECT_FALSE(f.view.list().isRenaming());
        EXPECT_FALSE(f.field().isVisible());
    }

    TEST(ClipRenameTest, AClickIntoTheSearchGivesUp)
    {
        RenameFixture f;

        f.view.search().field().setFocus(Qt::MouseFocusReason);

        EXPECT_FALSE(f.view.list().isRenaming());
        EXPECT_EQ(f.view.focusWidget(), &f.view.search().field());
    }

    TEST(ClipRenameTest, TheFieldMovesWithItsRow)
    {
        RenameFixture f;
        const auto before = f.field().y();

        f.add("a new copy");
        EXPECT_EQ(f.field().y(), before + 50);
        f.view.list().setOffset(20);

        EXPECT_EQ(f.field().y(), before + 30);
    }

    TEST(ClipRenameTest, AClipThatGoesTakesTheFieldWithIt)
    {
        RenameFixture f;

        f.store.deleteClip(f.store.clips().front());

        EXPECT_FALSE(f.view.list().isRenaming());
        EXPECT_FALSE(f.field().isVisible());
    }

    TEST(ClipRenameTest, HidingThePanelGivesUp)
    {
        RenameFixture f;

        test::typeText(f.field(), QStringLiteral("invoice"));
        f.view.hide();

        EXPECT_FALSE(f.view.list().isRenaming());
        EXPECT_EQ(f.name(), std::nullopt);
    }

    TEST(ClipRenameTest, ARowOutOfViewIsBroughtIntoIt)
    {
        RenameFixture f;

        f.view.list().beginRename(f.idAt(25));

        const auto row = f.view.list().rowRect(25);
        EXPECT_GE(row.top(), 0);
        EXPECT_LE(row.bottom(), f.view.list().height());
    }

    TEST(ClipRenameTest, TheWindowGettingTheKeyboardBackLeavesTheFocusInTheName)
    {
        RenameFixture f;

        QEvent activated(QEvent::WindowActivate);
        QApplication::sendEvent(&f.view.search(), &activated);

        EXPECT_EQ(f.view.focusWidget(), &f.field());
    }

    TEST(ClipRenameTest, AnotherTabGivesUp)
    {
        RenameFixture f;

        test::click(f.view.tabs(), f.view.tabs().chip(FilterTab::text).center());

        EXPECT_FALSE(f.view.list().isRenaming());
    }

} // namespace
} // namespace korvane
