#include "app/view/FileDialogWindows.h"

#include "look/view/Child.h"
#include "look/view/PanelMenu.h"
#include "support/Input.h"
#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QLineEdit>

#include <functional>
#include <vector>

namespace korvane {
namespace {

    namespace fs = std::filesystem;

    struct DialogFixture {
        DialogFixture()
        {
            window.show();
            QApplication::setActiveWindow(&window);
        }

        FileDialogs::Answer answer()
        {
            return [this](std::optional<fs::path> path) {
                ++answers;
                chosen = std::move(path);
            };
        }
        QLineEdit& field() const
        {
            return *dialog().findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        }
        QFileDialog& dialog() const { return *window.findChild<QFileDialog*>(); }
        bool isOpen() const { return window.findChild<QFileDialog*>() != nullptr; }
        /// Writes a path into the dialog's field, and takes it.
        void enter(const fs::path& path) const
        {
            auto& field = *dialog().findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            field.setText(QString::fromStdString(path.string()));
            QMetaObject::invokeMethod(&dialog(), "accept");
        }
        void enterAndSettle(const fs::path& path) const
        {
            enter(path);
            test::settle();
        }

        test::TempFolder temp;
        QWidget window;
        /// What the dialogs have asked the clipboard, which answers when the test says so.
        std::vector<std::function<void(QString)>> asked;
        FileDialogWindows dialogs { [this](
                                        auto answered) { asked.push_back(std::move(answered)); } };
        int answers = 0;
        std::optional<fs::path> chosen;
    };

    TEST(FileDialogWindowsTest, ANewFileIsProposedByItsNameAndNobodyWaits)
    {
        DialogFixture f;

        f.dialogs.chooseNewFile("Korvane_export.json", f.answer());

        const auto& dialog = f.dialog();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.nameFilters(), QStringList { "JSON (*.json)" });
        ASSERT_EQ(dialog.selectedFiles().size(), 1);
        EXPECT_TRUE(dialog.selectedFiles().front().endsWith("/Korvane_export.json"));
        EXPECT_EQ(f.answers, 0);
    }

    TEST(FileDialogWindowsTest, TheChosenPlaceIsTheAnswerWithoutAQuestionWhereAFileIsThere)
    {
        DialogFixture f;
        const auto path = f.temp.path() / "übung.json";
        test::writeBytes(path, "old");
        f.dialogs.chooseNewFile("Korvane_export.json", f.answer());

        f.enterAndSettle(path);

        EXPECT_EQ(f.answers, 1);
        EXPECT_EQ(f.chosen, path);
        EXPECT_FALSE(f.isOpen());
    }

    TEST(FileDialogWindowsTest, OneFileThatExistsIsChosen)
    {
        DialogFixture f;
        const auto path = f.temp.path() / "export.json";
        test::writeBytes(path, "[]");
        f.dialogs.chooseFile(f.answer());
        EXPECT_EQ(f.dialog().fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(f.dialog().acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(f.dialog().nameFilters(), QStringList { "JSON (*.json)" });

        f.enterAndSettle(path);

        EXPECT_EQ(f.chosen, path);
    }

    TEST(FileDialogWindowsTest, WhoGivesUpAnswersNone)
    {
        DialogFixture f;
        f.chosen = "something";
        f.dialogs.chooseFile(f.answer());

        f.dialog().reject();
        test::settle();

        EXPECT_EQ(f.answers, 1);
        EXPECT_FALSE(f.chosen);
        EXPECT_FALSE(f.isOpen());
    }

    TEST(FileDialogWindowsTest, AWindowThatClosesTakesTheDialogAlong)
    {
        DialogFixture f;
        f.dialogs.chooseFile(f.answer());

        f.window.hide();
        test::settle(); // given up
        test::settle(); // and deleted

        EXPECT_EQ(f.answers, 1);
        EXPECT_FALSE(f.chosen);
        EXPECT_FALSE(f.isOpen());
    }

    TEST(FileDialogWindowsTest, AWindowThatIsBroughtBackKeepsTheDialog)
    {
        DialogFixture f;
        f.dialogs.chooseFile(f.answer());

        f.window.hide();
        f.window.show();
        test::settle();

        EXPECT_EQ(f.answers, 0);
        ASSERT_TRUE(f.isOpen());
        EXPECT_TRUE(f.dialog().isVisible());
    }

    TEST(FileDialogWindowsTest, ATextIsPastedWhenTheClipboardsOwnerAnswersAndNobodyWaits)
    {
        DialogFixture f;
        f.dialogs.chooseNewFile("a.json", f.answer());
        f.field().selectAll();

        test::typeKey(f.field(), Qt::Key_V, Qt::ControlModifier);
        ASSERT_EQ(f.asked.size(), 1U);
        EXPECT_EQ(f.field().text(), QStringLiteral("a.json"));
        f.asked.front()(QStringLiteral("b\n.json"));

        EXPECT_EQ(f.field().text(), QStringLiteral("b .json"));
    }

    TEST(FileDialogWindowsTest, AnOwnerThatAnswersTooLateFindsNobody)
    {
        DialogFixture f;
        f.dialogs.chooseNewFile("a.json", f.answer());
        test::typeKey(f.field(), Qt::Key_Insert, Qt::ShiftModifier);
        ASSERT_EQ(f.asked.size(), 1U);
        f.dialog().reject();
        test::settle();
        ASSERT_FALSE(f.isOpen());

        f.asked.front()(QStringLiteral("late"));

        EXPECT_EQ(f.answers, 1);
    }

    TEST(FileDialogWindowsTest, TheListOfProposalsPastesWithoutWaitingToo)
    {
        DialogFixture f;
        f.dialogs.chooseNewFile("a.json", f.answer());
        auto* const completer = f.field().completer();
        ASSERT_NE(completer, nullptr);

        test::typeKey(*completer->popup(), Qt::Key_V, Qt::ControlModifier);

        EXPECT_EQ(f.asked.size(), 1U);
    }

    TEST(FileDialogWindowsTest, TheFieldsMenuIsOurs)
    {
        DialogFixture f;
        f.dialogs.chooseNewFile("a.json", f.answer());

        QContextMenuEvent event(QContextMenuEvent::Mouse, { 5, 5 }, { 5, 5 });
        QApplication::sendEvent(&f.field(), &event);

        const auto* const menu = f.field().findChild<PanelMenu*>();
        ASSERT_NE(menu, nullptr);
        EXPECT_TRUE(menu->isVisible());
    }

    TEST(FileDialogWindowsTest, AFieldForAFilesNewNamePastesWithoutWaitingToo)
    {
        DialogFixture f;
        f.dialogs.chooseNewFile("a.json", f.answer());
        auto* const list = f.dialog().findChild<QAbstractItemView*>(QStringLiteral("listView"));
        ASSERT_NE(list, nullptr);
        auto* const editor = makeChild<QLineEdit>(list->viewport()); // as its delegate makes one
        editor->show();
        test::settle();

        test::typeKey(*editor, Qt::Key_V, Qt::ControlModifier);

        EXPECT_EQ(f.asked.size(), 1U);
    }

    TEST(FileDialogWindowsTest, NothingCanBeDroppedOnTheDialog)
    {
        DialogFixture f;
        f.dialogs.chooseFile(f.answer());

        for (const auto* const part : f.dialog().findChildren<QWidget*>())
            EXPECT_FALSE(part->acceptDrops()) << part->metaObject()->className();
    }

    TEST(FileDialogWindowsTest, TheNextDialogOpensWhereTheLastOneEnded)
    {
        DialogFixture f;
        f.dialogs.chooseNewFile("a.json", f.answer());
        f.dialog().setDirectory(QString::fromStdString(f.temp.path().string()));
        f.enterAndSettle(f.temp.path() / "a.json");
        QApplication::setActiveWindow(&f.window); // as the desktop does when a dialog has gone

        f.dialogs.chooseFile(f.answer());

        EXPECT_EQ(f.dialog().directory().absolutePath().toStdString(), f.temp.path().string());
    }

} // namespace
} // namespace korvane
