#include "platform/x11/X11PasteboardDesk.h"

#include "support/Program.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace korvane {
namespace {

    using test::Program;
    using test::SelectionOwner;
    using test::textOwner;
    using test::X11PasteboardDesk;

    /// What another program gets when it pastes from this selection.
    std::string pasted(const char* selection, const char* type)
    {
        Program paste({ "xclip", "-o", "-selection", selection, "-t", type });
        return paste.succeeds() ? paste.output() : "(refused)";
    }

    constexpr auto sample = "Grüße, 世界 🙂\n";

    TEST(X11PasteboardWriteTest, TheOldTypesGiveLatin1)
    {
        X11PasteboardDesk desk;

        desk.pasteboard().writeText("café");

        for (const auto* type : { "STRING", "TEXT" })
            EXPECT_EQ(pasted("clipboard", type), "caf\xE9") << type;
    }

    TEST(X11PasteboardWriteTest, AFieldOfOurOwnPastesWhatWasWritten)
    {
        X11PasteboardDesk desk;

        desk.pasteboard().writeText(sample);

        const auto text = QGuiApplication::clipboard()->mimeData()->text();
        EXPECT_EQ(text.toStdString(), sample);
    }

    // The toolkit takes a selection with the time of the last event that it has seen, and the server
    // ignores a request that is older than the last copy.
    TEST(X11PasteboardWriteTest, AWriteSucceedsThoughTheToolkitHasSeenNoEventSinceTheLastCopy)
    {
        X11PasteboardDesk desk;
        desk.pasteboard().writeText("first"); // now the toolkit has a time, and it will be old
        for (int round = 0; round < 5; ++round) {
            const SelectionOwner owner(textOwner("alpha"));
            const auto before = desk.pasteboard().changeCount();

            desk.pasteboard().writeText("own " + std::to_string(round));

            EXPECT_EQ(
                desk.pasteboard().changeCount(), before + 2); // the owner's copy and our write
            EXPECT_EQ(desk.readText(), "own " + std::to_string(round));
            EXPECT_EQ(pasted("clipboard", "UTF8_STRING"), "own " + std::to_string(round));
        }
    }

    TEST(X11PasteboardWriteTest, WhenAnotherProgramCopiesTheTextWrittenBeforeIsLetGo)
    {
        X11PasteboardDesk desk;
        desk.pasteboard().writeText("own");
        QPointer<const QMimeData> kept = QGuiApplication::clipboard()->mimeData();

        const SelectionOwner owner(textOwner("alpha"));

        EXPECT_TRUE(test::waitUntil([&] { return kept.isNull(); }));
    }

} // namespace
} // namespace korvane
