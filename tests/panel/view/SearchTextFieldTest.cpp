#include "panel/view/SearchTextField.h"

#include "look/view/Symbols.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QMenu>

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace korvane {
namespace {

    struct SearchFixture : test::ViewFixture {
        SearchFixture()
        {
            search.resize(metrics::panelWidth, metrics::searchHeight);
            search.show();
            search.setFocus();
        }
        QString text() { return search.field().text(); }
        const std::string& searched() { return panel().panelSearch.value(); }

        /// What the field has asked of the clipboard and not been told yet.
        std::vector<std::function<void(QString)>> questions;
        Symbols symbols;
        SearchTextField search { store, symbols,
            [this](std::function<void(QString)> answer) { questions.push_back(std::move(answer)); },
            nullptr };
    };

    TEST(SearchTextFieldTest, EveryKeystrokeIsSearchedForAtOnce)
    {
        SearchFixture f;
        std::vector<std::string> told;
        const auto listening = f.panel().panelSearch.onChange(
            [&](const std::string& search) { told.push_back(search); });

        test::typeText(f.search.field(), QStringLiteral("abc"));

        EXPECT_EQ(told, (std::vector<std::string> { "a", "ab", "abc" }));
    }

    TEST(SearchTextFieldTest, ASearchClearedElsewhereEmptiesTheField)
    {
        SearchFixture f;
        test::typeText(f.search.field(), QStringLiteral("abc"));

        f.panel().panelSearch.set({});

        EXPECT_EQ(f.text(), QString());
    }

    TEST(SearchTextFieldTest, TypingInTheMiddleKeepsTheCursorThere)
    {
        SearchFixture f;
        test::typeText(f.search.field(), QStringLiteral("ac"));
        f.search.field().setCursorPosition(1);

        test::typeText(f.search.field(), QStringLiteral("b"));

        EXPECT_EQ(f.searched(), "abc");
        EXPECT_EQ(f.search.field().cursorPosition(), 2);
    }

    TEST(SearchTextFieldTest, ItSaysWhatItIsFor)
    {
        SearchFixture f;

        EXPECT_EQ(f.search.field().placeholderText(), QStringLiteral("Search..."));
        EXPECT_NEAR(QFontInfo(f.search.field().font()).pixelSize(), 14, 0.5);
    }

    TEST(SearchTextFieldTest, ItTakesTheFocusWhenTheWindowGetsTheKeyboard)
    {
        SearchFixture f;
        f.search.field().clearFocus();

        QEvent activated(QEvent::WindowActivate);
        QApplication::sendEvent(&f.search, &activated);

        EXPECT_EQ(f.search.focusWidget(), &f.search.field());
    }

    TEST(SearchTextFieldTest, APasteWaitsForNobody)
    {
        SearchFixture f;
        test::typeText(f.search.field(), QStringLiteral("ad"));
        f.search.field().setCursorPosition(1);

        test::typeKey(f.search.field(), Qt::Key_V, Qt::ControlModifier);
        ASSERT_EQ(f.questions.size(), 1U);
        EXPECT_EQ(f.text(), QStringLiteral("ad"));
        f.questions.front()(QStringLiteral("bc"));

        EXPECT_EQ(f.searched(), "abcd");
    }

    TEST(SearchTextFieldTest, ShiftInsertPastesToo)
    {
        SearchFixture f;

        test::typeKey(f.search.field(), Qt::Key_Insert, Qt::ShiftModifier);

        EXPECT_EQ(f.questions.size(), 1U);
    }

    TEST(SearchTextFieldTest, LineEndsInAPastedTextBecomeBlanks)
    {
        SearchFixture f;

        f.search.field().pasteText();
        f.questions.front()(QString::fromUtf8("a\r\nb\nc\u2029d"));

        EXPECT_EQ(f.searched(), "a b c d");
    }

    TEST(SearchTextFieldTest, AnAnswerThatComesWhenTheFieldHasGoneIsDropped)
    {
        // In room of our own, so that whoever still reached for it would find no field there.
        alignas(PanelLineEdit) std::array<std::byte, sizeof(PanelLineEdit)> room {};
        std::function<void(QString)> answer;
        auto* const field = std::construct_at(
            reinterpret_cast<PanelLineEdit*>(room.data()),
            [&answer](std::function<void(QString)> told) { answer = std::move(told); }, nullptr);
        field->pasteText();
        ASSERT_TRUE(answer);
        std::destroy_at(field);
        room.fill({});
        const auto before = room;

        answer(QStringLiteral("too late"));

        EXPECT_EQ(room, before);
    }

    TEST(SearchTextFieldTest, AnAnswerThatComesAfterThePanelHasBeenClosedIsDropped)
    {
        SearchFixture f;
        f.search.field().pasteText();

        f.search.hide();
        f.search.show();
        f.questions.front()(QStringLiteral("too late"));

        EXPECT_EQ(f.searched(), "");
    }

    TEST(SearchTextFieldTest, AnEmptyClipboardLeavesWhatIsSelected)
    {
        SearchFixture f;
        test::typeText(f.search.field(), QStringLiteral("abc"));
        f.search.field().selectAll();

        f.search.field().pasteText();
        f.questions.front()(QString());

        EXPECT_EQ(f.searched(), "abc");
    }

    TEST(SearchTextFieldTest, TheSuperKeyDoesWhatCtrlDoesAndTypesNothing)
    {
        SearchFixture f;
        auto& field = f.search.field();
        test::typeText(field, QStringLiteral("abc"));

        test::typeKey(field, Qt::Key_Meta);
        test::typeKey(field, Qt::Key_A, Qt::MetaModifier, QStringLiteral("a"));
        EXPECT_EQ(field.selectedText(), QStringLiteral("abc"));
        test::typeKey(field, Qt::Key_V, Qt::MetaModifier, QStringLiteral("v"));
        EXPECT_EQ(f.questions.size(), 1U);
        test::typeKey(field, Qt::Key_J, Qt::MetaModifier, QStringLiteral("j"));

        EXPECT_EQ(f.searched(), "abc");
    }

    TEST(SearchTextFieldTest, ItsMenuPastesFromTheReader)
    {
        SearchFixture f;

        test::rightClick(f.search.field(), { 5, 5 });
        auto* menu = f.search.field().findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        for (auto* action : menu->actions()) {
            if (action->text() == QStringLiteral("Paste"))
                action->trigger();
        }
        menu->close();

        EXPECT_EQ(f.questions.size(), 1U);
    }

    TEST(SearchTextFieldTest, AnInputMethodsTextIsSearchedForWhenItIsCommitted)
    {
        SearchFixture f;

        std::vector<std::string> searches;
        const auto connection = f.panel().panelSearch.onChange(
            [&searches](const std::string& text) { searches.push_back(text); });

        test::compose(f.search.field(), QStringLiteral("vie"), QString::fromUtf8("việt"));

        EXPECT_EQ(searches, (std::vector<std::string> { "việt" }));
    }

    TEST(SearchTextFieldTest, ADragSelectsWhatTheNextLetterReplaces)
    {
        SearchFixture f;
        test::typeText(f.search.field(), QStringLiteral("abcdef"));
        auto& field = f.search.field();
        const double middle = field.height() / 2.0;

        test::drag(field, { field.width() - 2.0, middle }, { 1, middle });
        EXPECT_EQ(field.selectedText(), QStringLiteral("abcdef"));
        test::typeText(field, QStringLiteral("x"));

        EXPECT_EQ(f.searched(), "x");
    }

    TEST(SearchTextFieldTest, AClickBesideTheLineLeadsIntoIt)
    {
        SearchFixture f;
        f.search.field().clearFocus();

        test::click(f.search, { 20, 15 });

        EXPECT_EQ(f.search.focusWidget(), &f.search.field());
    }

} // namespace
} // namespace korvane
