#include "settings/view/PrivacyPage.h"

#include "PageTexts.h"
#include "capture/ClipboardMonitor.h"
#include "look/view/Symbols.h"
#include "model/Preferences.h"
#include "settings/view/ApplicationDialog.h"
#include "settings/view/FormText.h"
#include "settings/view/IgnoredAppsView.h"
#include "settings/view/PushButton.h"
#include "settings/view/Switch.h"
#include "settings/view/SymbolButton.h"
#include "support/FakeAlerts.h"
#include "support/FakeApplications.h"
#include "support/FakePasteboard.h"
#include "support/FakeWorkspace.h"
#include "support/Input.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"
#include "support/StoreFixture.h"

#include <QAccessible>
#include <QFileDialog>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace korvane {
namespace {

    struct PageFixture {
        explicit PageFixture(std::vector<std::string> ignored = {})
        {
            if (!ignored.empty())
                preferences.values.insert_or_assign(
                    std::string(keys::ignoredBundleIDs), std::move(ignored));
            applications.install("firefox", "Firefox");
            applications.install("org.example.Gamma", "Gamma");
            applications.install("beta", "beta");
            monitor = std::make_unique<ClipboardMonitor>(pasteboard, workspace, preferences, loop);
            page = std::make_unique<PrivacyPage>(
                ControlKit { loop, symbols, [](auto) {} }, *monitor, applications, alerts);
            page->resize(FormPage::pageWidth, FormPage::pageHeight);
            page->show();
            test::settle();
        }
        ~PageFixture()
        {
            page.reset();
            test::settle();
        }

        test::ManualLoop loop;
        test::MemoryPreferences preferences;
        test::FakePasteboard pasteboard { loop };
        test::FakeWorkspace workspace;
        test::FakeApplications applications;
        test::FakeAlerts alerts;
        Symbols symbols;
        std::unique_ptr<ClipboardMonitor> monitor;
        std::unique_ptr<PrivacyPage> page;

        AppList& list() const { return page->ignoredApps().list(); }
        QStringList names() const { return namesIn(list()); }
        static QStringList namesIn(const AppList& list)
        {
            QStringList names;
            for (int row = 0; row < list.count(); ++row)
                names.push_back(list.item(row)->text());
            return names;
        }
        /// Presses "plus"; null where no dialog came.
        ApplicationDialog* openDialog() const
        {
            page->addButton().click();
            test::settle();
            return page->chooser().dialog();
        }
        void clickRow(int row) const
        {
            test::click(*list().viewport(), list().visualItemRect(list().item(row)).center());
            test::settle();
        }
        std::vector<std::string> stored() const
        {
            return preferences.value<std::vector<std::string>>(keys::ignoredBundleIDs)
                .value_or(std::vector<std::string> {});
        }
    };

    TEST(PrivacyPageTest, TheTextsStandInTheirOrder)
    {
        const PageFixture f;

        EXPECT_EQ(test::shownTexts(*f.page),
            (QStringList { "Automatically ignored apps",
                "Passwords, 1Password, LastPass, KeePassXC, Keychain Access",
                "Never save password fields", "This option is always enabled.", "Ignored apps",
                "Korvane will not save anything copied from these apps.", "No apps added" }));
        EXPECT_EQ(f.page->addButton().toolTip(), "Add app from /Applications");
        EXPECT_EQ(f.page->removeButton().toolTip(), "Remove selected app");
        EXPECT_EQ(f.page->addButton().symbol(), "plus");
        EXPECT_EQ(f.page->removeButton().symbol(), "minus");
    }

    TEST(PrivacyPageTest, NeverSavingPasswordFieldsIsOnAndCannotBeChanged)
    {
        const PageFixture f;
        auto* const control = f.page->findChild<Switch*>();

        test::click(*control, control->rect().center());

        EXPECT_TRUE(control->isOn());
        EXPECT_FALSE(control->isEnabled());
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(PrivacyPageTest, TheListShowsTheApplicationsByTheirNames)
    {
        const PageFixture f({ "org.example.Gamma", "beta", "gone" });

        EXPECT_EQ(f.names(), (QStringList { "beta", "Gamma", "Unknown app" }));
        EXPECT_TRUE(f.list().isVisible());
        EXPECT_FALSE(f.page->ignoredApps().emptyText().isVisible());
    }

    TEST(PrivacyPageTest, AnEmptyListGivesItsPlaceToAText)
    {
        PageFixture f({ "beta" });
        f.clickRow(0);

        f.page->removeButton().click();
        test::settle();

        EXPECT_FALSE(f.list().isVisible());
        EXPECT_TRUE(f.page->ignoredApps().emptyText().isVisible());
        EXPECT_TRUE(f.stored().empty());
    }

    TEST(PrivacyPageTest, OneRowAtATimeIsSelected)
    {
        const PageFixture f({ "firefox", "beta" });

        f.clickRow(0);
        f.clickRow(1);

        ASSERT_EQ(f.list().selectedItems().size(), 1);
        EXPECT_EQ(f.list().selectedItems().front()->text(), "Firefox");
    }

    TEST(PrivacyPageTest, MinusRemovesTheSelectedApplication)
    {
        const PageFixture f({ "firefox", "beta" });
        f.clickRow(1);

        f.page->removeButton().click();

        EXPECT_EQ(f.names(), (QStringList { "beta" }));
        EXPECT_EQ(f.stored(), (std::vector<std::string> { "beta" }));
        EXPECT_TRUE(f.list().selectedItems().isEmpty());
    }

    TEST(PrivacyPageTest, MinusWithoutASelectionDoesNothing)
    {
        const PageFixture f({ "firefox" });

        f.page->removeButton().click();

        EXPECT_EQ(f.names(), (QStringList { "Firefox" }));
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(PrivacyPageTest, TheKeyboardSelectsWithArrows)
    {
        const PageFixture f({ "firefox", "beta" });
        f.list().setFocus();

        test::typeKey(f.list(), Qt::Key_Down);

        ASSERT_EQ(f.list().selectedItems().size(), 1);
        f.page->removeButton().click();
        EXPECT_EQ(f.list().count(), 1);
    }

    TEST(PrivacyPageTest, AChangeFromOutsideShows)
    {
        PageFixture f;

        f.preferences.set(keys::ignoredBundleIDs, std::vector<std::string> { "firefox" });

        EXPECT_EQ(f.names(), (QStringList { "Firefox" }));
        EXPECT_TRUE(f.list().isVisible());
    }

    TEST(PrivacyPageTest, PlusAsksInADialogOverTheWindowAndTheProgramGoesOn)
    {
        const PageFixture f;

        const auto* const dialog = f.openDialog();

        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
        EXPECT_EQ(test::shownTexts(*dialog),
            (QStringList { "Choose an app whose copies Korvane should ignore." }));
        EXPECT_EQ(dialog->addButton().text(), "Add");
    }

    TEST(PrivacyPageTest, TheDialogOffersWhatIsInstalledByIconAndName)
    {
        const PageFixture f;

        const auto* const dialog = f.openDialog();

        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(
            PageFixture::namesIn(dialog->list()), (QStringList { "beta", "Firefox", "Gamma" }));
        EXPECT_FALSE(dialog->addButton().isEnabled());
    }

    TEST(PrivacyPageTest, TheDialogHasAShortTitleAndDoesNotOfferWhatIsIgnoredAlready)
    {
        const PageFixture f({ "beta" });

        const auto* const dialog = f.openDialog();

        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), "Choose an app");
        EXPECT_EQ(PageFixture::namesIn(dialog->list()), (QStringList { "Firefox", "Gamma" }));
    }

    TEST(PrivacyPageTest, TheRingIsOnTheRowOfWhoGoesByTheKeyboard)
    {
        const PageFixture f({ "beta", "firefox" });
        f.clickRow(0);
        f.list().setFocus(Qt::MouseFocusReason); // as the toolkit does for a click
        EXPECT_FALSE(f.list().isRingShown());

        test::typeKey(f.list(), Qt::Key_Down);
        EXPECT_TRUE(f.list().isRingShown());
        f.clickRow(0);

        EXPECT_FALSE(f.list().isRingShown());
    }

    TEST(PrivacyPageTest, AnApplicationIsAddedFromTheDialog)
    {
        const PageFixture f;
        auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);

        dialog->list().setCurrentRow(1);
        dialog->addButton().click();
        test::settle();

        EXPECT_EQ(f.names(), (QStringList { "Firefox" }));
        EXPECT_EQ(f.stored(), (std::vector<std::string> { "firefox" }));
        EXPECT_EQ(f.page->chooser().dialog(), nullptr);
    }

    TEST(PrivacyPageTest, WhatIsSelectedWithoutBeingCurrentIsAdded)
    {
        const PageFixture f;
        auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);
        ASSERT_EQ(dialog->list().currentRow(), -1);

        dialog->list().item(1)->setSelected(true); // as assistive technology does it
        dialog->addButton().click();
        test::settle();

        EXPECT_EQ(f.names(), (QStringList { "Firefox" }));
    }

    TEST(PrivacyPageTest, TypingSearchesAndReturnAddsTheFirst)
    {
        const PageFixture f;
        auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);

        test::typeText(dialog->searchField(), "gam");
        EXPECT_EQ(PageFixture::namesIn(dialog->list()), (QStringList { "Gamma" }));
        test::typeKey(dialog->searchField(), Qt::Key_Return);
        test::settle();

        EXPECT_EQ(f.stored(), (std::vector<std::string> { "org.example.Gamma" }));
    }

    TEST(PrivacyPageTest, TheArrowsOfTheSearchFieldGoThroughTheList)
    {
        const PageFixture f;
        auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);
        test::typeText(dialog->searchField(), "a");
        ASSERT_EQ(PageFixture::namesIn(dialog->list()), (QStringList { "beta", "Gamma" }));

        test::typeKey(dialog->searchField(), Qt::Key_Down);
        test::typeKey(dialog->searchField(), Qt::Key_Return);
        test::settle();

        EXPECT_EQ(f.names(), (QStringList { "Gamma" }));
    }

    TEST(PrivacyPageTest, WhatIsNotFoundIsSaidAndCannotBeAdded)
    {
        const PageFixture f;
        auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);

        test::typeText(dialog->searchField(), "zzz");
        test::typeKey(dialog->searchField(), Qt::Key_Return);

        EXPECT_FALSE(dialog->addButton().isEnabled());
        EXPECT_FALSE(dialog->list().isVisible());
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_TRUE(f.stored().empty());
    }

    TEST(PrivacyPageTest, EscapeGivesUpTheChoice)
    {
        const PageFixture f({ "beta" });
        auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);

        test::typeKey(dialog->searchField(), Qt::Key_Escape);
        test::settle();

        EXPECT_EQ(f.page->chooser().dialog(), nullptr);
        EXPECT_EQ(f.names(), (QStringList { "beta" }));
    }

    TEST(PrivacyPageTest, AnyOtherApplicationIsChosenByItsFile)
    {
        PageFixture f;
        auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);
        for (auto* const button : dialog->findChildren<PushButton*>())
            if (button->text() == "Other…")
                button->click();
        test::settle();
        auto* const files = dialog->findChild<QFileDialog*>();
        ASSERT_NE(files, nullptr);
        EXPECT_EQ(files->fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(files->labelText(QFileDialog::Accept), "Add");
        EXPECT_EQ(files->directory().path(), "/");

        const test::TempFolder folder;
        const auto entry = folder.path() / "firefox.desktop";
        test::writeBytes(entry, "");
        f.applications.all.front().file = entry.string();
        files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QString::fromStdString(entry.string()));
        QMetaObject::invokeMethod(files, "accept");
        test::settle();

        EXPECT_EQ(f.stored(), (std::vector<std::string> { "firefox" }));
    }

    TEST(PrivacyPageTest, AWindowThatClosesTakesTheDialogAlong)
    {
        const PageFixture f;
        ASSERT_NE(f.openDialog(), nullptr);

        f.page->hide();
        test::settle(); // given up
        test::settle(); // and deleted

        EXPECT_EQ(f.page->chooser().dialog(), nullptr);
        EXPECT_TRUE(f.stored().empty());
    }

    TEST(PrivacyPageTest, TheListsOfTheDialogAndOfThePageHaveNamesOfTheirOwn)
    {
        const PageFixture f;
        const auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);

        EXPECT_EQ(dialog->list().accessibleName(), "Installed apps");
        EXPECT_EQ(f.list().accessibleName(), "Ignored apps");
    }

    TEST(PrivacyPageTest, AnEntryThatHasGoneMeanwhileCouldNotBeRead)
    {
        PageFixture f;
        auto* const dialog = f.openDialog();
        ASSERT_NE(dialog, nullptr);
        dialog->list().setCurrentRow(0);
        f.applications.uninstall("beta");

        dialog->addButton().click();
        test::settle();

        ASSERT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.alerts.asked[0].message, "Could not read app bundle");
        EXPECT_TRUE(f.stored().empty());
    }

    TEST(PrivacyPageTest, ThePageMayEndWithADialogOpen)
    {
        PageFixture f;
        ASSERT_NE(f.openDialog(), nullptr);

        f.page.reset();
        test::settle();

        EXPECT_TRUE(f.stored().empty());
    }

    TEST(PrivacyPageTest, AssistiveTechnologySeesAListOfNames)
    {
        const PageFixture f({ "firefox" });
        auto* const list = QAccessible::queryAccessibleInterface(&f.list());

        EXPECT_EQ(list->role(), QAccessible::List);
        EXPECT_EQ(list->text(QAccessible::Name), "Ignored apps");
        ASSERT_EQ(list->childCount(), 1);
        EXPECT_EQ(list->child(0)->text(QAccessible::Name), "Firefox");
    }

} // namespace
} // namespace korvane
