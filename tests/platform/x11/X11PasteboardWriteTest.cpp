#include "platform/x11/PasteboardDesk.h"

#include "support/Program.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace korvane {
namespace {

    using test::PasteboardDesk;
    using test::Program;
    using test::SelectionOwner;
    using test::textOwner;

    /// What another program gets when it pastes from this selection.
    std::string pasted(const char* selection, const char* type)
    {
        Program paste({ "xclip", "-o", "-selection", selection, "-t", type });
        return paste.succeeds() ? paste.output() : "(refused)";
    }

    constexpr auto sample = "Grüße, 世界 🙂\n";

    TEST(X11PasteboardWriteTest, EveryUtf8TypeGivesTheBytesThatWereWritten)
    {
        PasteboardDesk desk;

        desk.pasteboard->writeText(sample);

        for (const auto* type : { "UTF8_STRING", "text/plain", "text/plain;charset=utf-8" })
            EXPECT_EQ(pasted("clipboard", type), sample) << type;
    }

    TEST(X11PasteboardWriteTest, TheOldTypesGiveLatin1)
    {
        PasteboardDesk desk;

        desk.pasteboard->writeText("café");

        for (const auto* type : { "STRING", "TEXT" })
            EXPECT_EQ(pasted("clipboard", type), "caf\xE9") << type;
    }

    TEST(X11PasteboardWriteTest, AFieldOfOurOwnPastesWhatWasWritten)
    {
        PasteboardDesk desk;

        desk.pasteboard->writeText(sample);

        const auto text = QGuiApplication::clipboard()->mimeData()->text();
        EXPECT_EQ(text.toStdString(), sample);
    }

    TEST(X11PasteboardWriteTest, AnOwnTextIsReadBackThroughTheServer)
    {
        PasteboardDesk desk;

        desk.pasteboard->writeText(sample);

        EXPECT_EQ(desk.readText(), sample);
    }

    TEST(X11PasteboardWriteTest, AnEmptyTextIsATextToo)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner("alpha"));

        desk.pasteboard->writeText("");

        EXPECT_EQ(desk.readText(), "");
        EXPECT_EQ(pasted("clipboard", "UTF8_STRING"), "");
    }

    TEST(X11PasteboardWriteTest, AHundredMegabytesGoOutByteForByte)
    {
        const test::TempFolder folder;
        std::string text;
        for (int line = 0; text.size() < 100'000'000; ++line)
            text += "line " + std::to_string(line) + " é\n";
        PasteboardDesk desk;

        desk.pasteboard->writeText(text);
        Program paste({ "xclip", "-o", "-selection", "clipboard", "-t", "UTF8_STRING" }, {},
            folder.path() / "out");

        EXPECT_TRUE(paste.succeeds());
        EXPECT_TRUE(test::readFile(folder.path() / "out") == text);
    }

    // The toolkit takes a selection with the time of the last event that it has seen, and the server
    // ignores a request that is older than the last copy.
    TEST(X11PasteboardWriteTest, AWriteSucceedsThoughTheToolkitHasSeenNoEventSinceTheLastCopy)
    {
        PasteboardDesk desk;
        desk.pasteboard->writeText("first"); // now the toolkit has a time, and it will be old
        for (int round = 0; round < 5; ++round) {
            const SelectionOwner owner(textOwner("alpha"));
            const auto before = desk.pasteboard->changeCount();

            desk.pasteboard->writeText("own " + std::to_string(round));

            EXPECT_EQ(desk.pasteboard->changeCount(), before + 2); // the owner's copy and our write
            EXPECT_EQ(desk.readText(), "own " + std::to_string(round));
            EXPECT_EQ(pasted("clipboard", "UTF8_STRING"), "own " + std::to_string(round));
        }
    }

    TEST(X11PasteboardWriteTest, WhenAnotherProgramCopiesTheTextWrittenBeforeIsLetGo)
    {
        PasteboardDesk desk;
        desk.pasteboard->writeText("own");
        QPointer<const QMimeData> kept = QGuiApplication::clipboard()->mimeData();

        const SelectionOwner owner(textOwner("alpha"));

        EXPECT_TRUE(test::waitUntil([&] { return kept.isNull(); }));
    }

    TEST(X11PasteboardWriteTest, PrimaryGetsTheTextOnlyWhenAsked)
    {
        PasteboardDesk desk;
        QGuiApplication::clipboard()->setText(QStringLiteral("marked"), QClipboard::Selection);

        desk.pasteboard->writeText("own");
        const auto before = pasted("primary", "UTF8_STRING");
        const auto count = desk.pasteboard->changeCount();
        desk.pasteboard->writePrimaryToo();
        desk.settle();

        EXPECT_EQ(before, "marked");
        EXPECT_EQ(pasted("primary", "UTF8_STRING"), "own");
        EXPECT_EQ(desk.pasteboard->changeCount(), count);
    }

    TEST(X11PasteboardWriteTest, PrimaryIsLeftAloneWhenAnotherProgramHasCopiedSince)
    {
        PasteboardDesk desk;
        QGuiApplication::clipboard()->setText(QStringLiteral("marked"), QClipboard::Selection);
        desk.pasteboard->writeText("own");
        QPointer<const QMimeData> kept = QGuiApplication::clipboard()->mimeData();
        const SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(test::waitUntil([&] { return kept.isNull(); }));

        desk.pasteboard->writePrimaryToo();

        EXPECT_EQ(pasted("primary", "UTF8_STRING"), "marked");
    }

} // namespace
} // namespace korvane
