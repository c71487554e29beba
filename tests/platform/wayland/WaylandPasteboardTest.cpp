#include "platform/wayland/WaylandPasteboard.h"

#include "platform/shared/PasteboardDesk.h"
#include "support/Program.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QTimer>

#include <chrono>

namespace korvane {
namespace {

    using test::numberedLines;
    using test::offering;
    using test::PasteboardDesk;
    using test::Program;
    using test::SelectionOwner;
    using test::waitUntil;

    TEST(WaylandPasteboardTest, TheBestTextTypeWinsWhateverTheOrder)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "STRING", .bytes = "latin" },
            { .target = "TEXT", .bytes = "old" }, { .target = "text/plain", .bytes = "plain" },
            { .target = "UTF8_STRING", .bytes = "utf8" },
            { .target = "text/plain;charset=utf-8", .bytes = "plain utf8" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "plain utf8");
        EXPECT_EQ(
            test::typesAskedFor(owner), std::vector<std::string> { "text/plain;charset=utf-8" });
    }

    TEST(WaylandPasteboardTest, AnOldTypeThatHoldsUtf8IsReadAsThat)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(offering({ { .target = "TEXT", .bytes = "café" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "café");
    }

    TEST(WaylandPasteboardTest, ATextOfWlCopyIsRead)
    {
        PasteboardDesk desk;

        Program copy(
            { "wl-copy", "--foreground", "-t", "text/plain", "copied by another program" });
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "copied by another program");
    }

    TEST(WaylandPasteboardTest, AHundredMegabytesOfWlCopyAreReadByteForByte)
    {
        const test::TempFolder folder;
        const auto text = numberedLines(100'000'000);
        test::writeFile(folder.path() / "in", text);
        PasteboardDesk desk;
        Program copy({ "wl-copy", "--foreground", "-t", "text/plain" }, folder.path() / "in");
        EXPECT_TRUE(desk.hasCounted(1));

        const auto read = desk.readText();

        EXPECT_EQ(read.size(), text.size());
        EXPECT_TRUE(read == text); // not EXPECT_EQ, which would print both
    }

    TEST(WaylandPasteboardTest, ALargeTextGoesOutWithoutHoldingUpTheLoop)
    {
        const test::TempFolder folder;
        PasteboardDesk desk;
        std::string text;
        text.resize(100'000'000, 'x');
        desk.pasteboard().writeText(text);
        // How long each piece takes is for the bench to say; here, that something else has its turn
        // between one and the next.
        int turns = 0;
        QTimer other;
        QObject::connect(&other, &QTimer::timeout, [&turns] { ++turns; });
        other.start(std::chrono::milliseconds { 0 });

        Program paste(test::pasteCommand("text/plain"), {}, folder.path() / "out");

        EXPECT_TRUE(paste.succeeds());
        EXPECT_EQ(std::filesystem::file_size(folder.path() / "out"), 100'000'000U);
        EXPECT_GE(turns, 200); // of four hundred pieces
    }

    TEST(WaylandPasteboardTest, AWriteOfAnotherRunOfOursIsACopyLikeAnyOther)
    {
        PasteboardDesk desk;
        PasteboardDesk other;

        other.pasteboard().writeText("of another run");

        EXPECT_TRUE(desk.hasCounted(1));
        EXPECT_TRUE(desk.hasTold(1));
        EXPECT_EQ(desk.readText(), "of another run");
        EXPECT_EQ(other.changes, 0);
    }

    TEST(WaylandPasteboardTest, ManyReadersAtOnceAreAllServed)
    {
        PasteboardDesk desk;
        desk.pasteboard().writeText("own text");

        for (int i = 0; i < 20; ++i)
            desk.beginReading();

        EXPECT_TRUE(waitUntil([&] { return desk.answers.size() == 20; }));
        for (const auto& answer : desk.answers)
            EXPECT_EQ(answer ? answer->text : std::nullopt, "own text");
    }

} // namespace
} // namespace korvane
