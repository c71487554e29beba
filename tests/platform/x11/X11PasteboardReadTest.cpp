#include "platform/x11/X11PasteboardDesk.h"

#include "support/Program.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::Delivery;
    using test::numberedLines;
    using test::offering;
    using test::Program;
    using test::SelectionOwner;
    using test::textOwner;
    using test::X11PasteboardDesk;
    using Requests = std::vector<std::string>;

    TEST(X11PasteboardReadTest, ATextOfXclipIsRead)
    {
        const test::TempFolder folder;
        test::writeFile(folder.path() / "in", "copied by another program");
        X11PasteboardDesk desk;

        Program copy({ "xclip", "-quiet", "-selection", "clipboard" }, folder.path() / "in");
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "copied by another program");
    }

    TEST(X11PasteboardReadTest, AHundredMegabytesOfXclipAreReadByteForByte)
    {
        const test::TempFolder folder;
        const auto text = numberedLines(100'000'000);
        test::writeFile(folder.path() / "in", text);
        X11PasteboardDesk desk;
        Program copy({ "xclip", "-quiet", "-selection", "clipboard" }, folder.path() / "in");
        EXPECT_TRUE(desk.hasCounted(1));

        const auto read = desk.readText();

        EXPECT_EQ(read.size(), text.size());
        EXPECT_TRUE(read == text); // not EXPECT_EQ, which would print both
    }

    TEST(X11PasteboardReadTest, ATextInOnePropertyLargerThanARequestIsReadInParts)
    {
        X11PasteboardDesk desk;
        const auto text = numberedLines(40'000'001);
        const SelectionOwner owner(textOwner(text));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto read = desk.readText();

        EXPECT_TRUE(read == text);
    }

    TEST(X11PasteboardReadTest, AnOwnerThatLiesAboutTheSizeIsReadAllTheSame)
    {
        X11PasteboardDesk desk;
        const SelectionOwner owner(offering({ { .target = "UTF8_STRING",
            .bytes = "short",
            .delivery = Delivery::inPieces,
            .announced = 0xFFFF'FFFF } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "short");
    }

    TEST(X11PasteboardReadTest, TheBestTextTypeWinsWhateverTheOrder)
    {
        X11PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "STRING", .bytes = "latin" },
            { .target = "text/plain", .bytes = "plain" },
            { .target = "UTF8_STRING", .bytes = "utf8" },
            { .target = "text/plain;charset=utf-8", .bytes = "plain utf8" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "utf8");
        EXPECT_EQ(owner.requests(), (Requests { "TARGETS", "UTF8_STRING" }));
    }

    TEST(X11PasteboardReadTest, AnOwnerThatDoesNotListItsTypesIsAskedForText)
    {
        X11PasteboardDesk desk;
        const SelectionOwner owner(
            { .offers = { { .target = "STRING", .bytes = "old" } }, .targets = Delivery::refused });
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "old");
    }

} // namespace
} // namespace korvane
