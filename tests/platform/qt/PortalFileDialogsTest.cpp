#include "platform/qt/PortalFileDialogs.h"

#include "platform/qt/PortalDialogsFixture.h"

#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::waitUntil;
    using DialogsFixture = test::PortalDialogsFixture;
    using Lines = std::vector<std::string>;
    using Chosen = std::vector<std::optional<fs::path>>;

    /// The bytes of a text with the zero that ends them.
    QByteArray withZero(const char* text)
    {
        return { text, static_cast<qsizetype>(std::string_view(text).size()) + 1 };
    }

    TEST(PortalFileDialogsTest, ANewFileIsAskedForByNameOverOurWindowInTheFolderGiven)
    {
        DialogsFixture f;

        f.dialogs->chooseNewFile("Übung_export.json", f.answer());

        ASSERT_TRUE(f.portal->isAsked());
        const auto& question = f.portal->questions.front();
        EXPECT_EQ(question.interface(), "org.freedesktop.portal.FileChooser");
        EXPECT_EQ(question.member(), "SaveFile");
        EXPECT_EQ(question.signature(), "ssa{sv}");
        EXPECT_EQ(question.arguments().at(0), "x11:2a00007");
        EXPECT_EQ(question.arguments().at(1), "Save As");
        const auto options = f.portal->options();
        EXPECT_EQ(options.value("current_name"), "Übung_export.json");
        EXPECT_EQ(
            options.value("current_folder").toByteArray(), withZero("/tmp/Eigene Übungen\xff"));
        EXPECT_EQ(options.value("modal"), true);
        EXPECT_TRUE(f.chosen.empty());
    }

    TEST(PortalFileDialogsTest, AFileThatExistsIsAskedForInTheFolderGiven)
    {
        DialogsFixture f;

        f.dialogs->chooseFile(f.answer());

        ASSERT_TRUE(f.portal->isAsked());
        const auto& question = f.portal->questions.front();
        EXPECT_EQ(question.member(), "OpenFile");
        EXPECT_EQ(question.arguments().at(1), "Open");
        const auto options = f.portal->options();
        EXPECT_EQ(
            options.keys(), (QStringList { "current_folder", "filters", "handle_token", "modal" }));
        EXPECT_EQ(
            options.value("current_folder").toByteArray(), withZero("/tmp/Eigene Übungen\xff"));
    }

    TEST(PortalFileDialogsTest, OnlyJsonFilesAreOffered)
    {
        DialogsFixture f;

        f.dialogs->chooseFile(f.answer());

        ASSERT_TRUE(f.portal->isAsked());
        const auto filters = f.portal->options().value("filters").value<QDBusArgument>();
        ASSERT_EQ(filters.currentSignature(), "a(sa(us))");
        QString name;
        QStringList patterns;
        filters.beginArray();
        filters.beginStructure();
        filters >> name;
        for (filters.beginArray(); !filters.atEnd();) {
            uint kind = 1;
            QString pattern;
            filters.beginStructure();
            filters >> kind >> pattern;
            filters.endStructure();
            EXPECT_EQ(kind, 0U); // a pattern
            patterns.push_back(pattern);
        }
        filters.endArray();
        filters.endStructure();
        EXPECT_TRUE(filters.atEnd());
        filters.endArray();
        EXPECT_EQ(name, "JSON (*.json)");
        EXPECT_EQ(patterns, (QStringList { "*.json", "*.JSON" }));
    }

    TEST(PortalFileDialogsTest, WithoutAWindowOfOursADialogStandsAlone)
    {
        DialogsFixture f;
        f.hasWindow = false;

        f.dialogs->chooseFile(f.answer());

        ASSERT_TRUE(f.portal->isAsked());
        EXPECT_EQ(f.portal->questions.front().arguments().at(0), "");
        f.portal->choose("file:///tmp/a.json");
        ASSERT_TRUE(f.isAnswered());
        EXPECT_EQ(f.chosen, Chosen { "/tmp/a.json" });
    }

    TEST(PortalFileDialogsTest, TheChosenFileIsTheAnswerWhateverItsName)
    {
        DialogsFixture f;

        f.choose("file:///tmp/100%25%20%C3%BCber%FF%23.json");

        EXPECT_EQ(f.chosen, Chosen { "/tmp/100% über\xff#.json" });
        EXPECT_TRUE(f.log.lines.empty());
        EXPECT_EQ(f.parent, nullptr);
    }

    TEST(PortalFileDialogsTest, TheNextDialogOpensWhereTheLastFileWasChosen)
    {
        DialogsFixture f;
        f.choose("file:///tmp/%C3%BCbung/a.json");

        f.dialogs->chooseNewFile("b.json", f.answer());
        ASSERT_TRUE(f.portal->isAsked(2));
        EXPECT_EQ(
            f.portal->options().value("current_folder").toByteArray(), withZero("/tmp/übung"));
        f.portal->respond(1, {}, 1);
        ASSERT_TRUE(f.isAnswered(2));
        f.dialogs->chooseFile(f.answer());

        ASSERT_TRUE(f.portal->isAsked(3));
        EXPECT_EQ(
            f.portal->options().value("current_folder").toByteArray(), withZero("/tmp/übung"));
    }

    TEST(PortalFileDialogsTest, WhoGivesUpAnswersNone)
    {
        for (const uint code : { 1U, 2U }) {
            DialogsFixture f;
            f.dialogs->chooseFile(f.answer());
            ASSERT_TRUE(f.portal->isAsked());

            f.portal->respond(code, {});

            ASSERT_TRUE(f.isAnswered());
            EXPECT_EQ(f.chosen, Chosen { std::nullopt });
            EXPECT_TRUE(f.log.lines.empty());
            EXPECT_EQ(f.others.openings, 0);
        }
    }

    TEST(PortalFileDialogsTest, WhatIsNoFileOfThisMachineIsNoneAndLogged)
    {
        DialogsFixture f;

        f.choose("sftp://elsewhere/tmp/a.json");

        EXPECT_EQ(f.chosen, Chosen { std::nullopt });
        EXPECT_EQ(f.log.lines,
            Lines { "Korvane: what was chosen in the desktop's file dialog is no file of this "
                    "machine" });
    }

    TEST(PortalFileDialogsTest, AnAcceptedDialogWithoutAFileIsNone)
    {
        DialogsFixture f;
        f.dialogs->chooseFile(f.answer());
        ASSERT_TRUE(f.portal->isAsked());

        f.portal->respond(0, { { "choices", QStringList {} } });

        ASSERT_TRUE(f.isAnswered());
        EXPECT_EQ(f.chosen, Chosen { std::nullopt });
    }

    TEST(PortalFileDialogsTest, TwoDialogsHaveAnAnswerEach)
    {
        DialogsFixture f;
        std::optional<fs::path> other;
        f.dialogs->chooseFile(f.answer());
        f.dialogs->chooseFile([&](auto path) { other = path; });
        ASSERT_TRUE(f.portal->isAsked(2));

        f.portal->choose("file:///tmp/second", 1);
        ASSERT_TRUE(waitUntil([&] { return other.has_value(); }));
        EXPECT_EQ(other, "/tmp/second");
        EXPECT_TRUE(f.chosen.empty());
        f.portal->choose("file:///tmp/first", 0);

        ASSERT_TRUE(f.isAnswered());
        EXPECT_EQ(f.chosen, Chosen { "/tmp/first" });
    }

    TEST(PortalFileDialogsTest, ADialogThatIsAboutToComeIsTold)
    {
        DialogsFixture f;
        int openings = 0;
        const auto listening = f.dialogs->opening.connect([&] { ++openings; });

        f.dialogs->chooseFile(f.answer());
        EXPECT_EQ(openings, 0);

        EXPECT_TRUE(waitUntil([&] { return openings == 1; }));
        EXPECT_TRUE(f.chosen.empty());
    }

    TEST(PortalFileDialogsTest, AWindowThatIsClosedTakesItsDialogAlong)
    {
        DialogsFixture f;
        f.dialogs->chooseFile(f.answer());
        ASSERT_TRUE(f.portal->isAsked());
        ASSERT_NE(f.parent, nullptr);

        f.parent->closed();

        EXPECT_EQ(f.chosen, Chosen { std::nullopt });
        EXPECT_EQ(f.parent, nullptr);
        EXPECT_TRUE(
            waitUntil([&] { return f.portal->closed == QStringList { f.portal->handle() }; }));
    }

    TEST(PortalFileDialogsTest, AnAnswerAfterTheWindowHasGoneIsNotTold)
    {
        DialogsFixture f;
        f.dialogs->chooseFile(f.answer());
        ASSERT_TRUE(f.portal->isAsked());
        f.parent->closed();

        f.portal->choose("file:///tmp/late.json");
        f.choose("file:///tmp/next.json"); // behind which all else has arrived

        EXPECT_EQ(f.chosen, (Chosen { std::nullopt, "/tmp/next.json" }));
    }

    TEST(PortalFileDialogsTest, ADialogWhosePortalGoesIsNoneAndLogged)
    {
        DialogsFixture f;
        f.dialogs->chooseFile(f.answer());
        ASSERT_TRUE(f.portal->isAsked());

        f.portal->vanish();

        ASSERT_TRUE(f.isAnswered());
        EXPECT_EQ(f.chosen, Chosen { std::nullopt });
        EXPECT_EQ(f.log.lines,
            Lines { "Korvane: the desktop's portal has given up a file dialog: it has gone" });
        EXPECT_EQ(f.others.openings, 0);
    }

    TEST(PortalFileDialogsTest, WhoEndsWhileADialogIsOpenHearsNothing)
    {
        DialogsFixture f;
        f.dialogs->chooseFile(f.answer());
        ASSERT_TRUE(f.portal->isAsked());

        f.dialogs.reset();
        f.portal->choose("file:///tmp/late.json");
        auto ours = f.bus.connection("korvane");
        // An answer to us would have arrived before this one.
        EXPECT_EQ(ours.call(QDBusMessage::createMethodCall("org.freedesktop.DBus",
                                "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"))
                      .type(),
            QDBusMessage::ReplyMessage);
        QCoreApplication::processEvents();

        EXPECT_TRUE(f.chosen.empty());
    }

} // namespace
} // namespace korvane
