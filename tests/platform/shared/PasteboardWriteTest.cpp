#include "platform/shared/PasteboardDesk.h"

#include "support/Program.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::PasteboardDesk;
    using test::Program;
    using test::SelectionOwner;
    using test::textOwner;

    /// What another program gets when it pastes.
    std::string pasted(const char* type)
    {
        Program paste(test::pasteCommand(type));
        return paste.succeeds() ? paste.output() : "(refused)";
    }

    constexpr auto sample = "Grüße, 世界 🙂\n";

    TEST(PasteboardWriteTest, EveryUtf8TypeGivesTheBytesThatWereWritten)
    {
        PasteboardDesk desk;

        desk.pasteboard().writeText(sample);

        for (const auto* type : { "UTF8_STRING", "text/plain", "text/plain;charset=utf-8" })
            EXPECT_EQ(pasted(type), sample) << type;
    }

    TEST(PasteboardWriteTest, AnOwnTextIsReadBack)
    {
        PasteboardDesk desk;

        desk.pasteboard().writeText(sample);

        EXPECT_EQ(desk.readText(), sample);
    }

    TEST(PasteboardWriteTest, AnEmptyTextIsATextToo)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner("alpha"));

        desk.pasteboard().writeText("");

        EXPECT_EQ(desk.readText(), "");
        EXPECT_EQ(pasted("UTF8_STRING"), "");
    }

    TEST(PasteboardWriteTest, AHundredMegabytesGoOutByteForByte)
    {
        const test::TempFolder folder;
        std::string text;
        for (int line = 0; text.size() < 100'000'000; ++line)
            text += "line " + std::to_string(line) + " é\n";
        PasteboardDesk desk;

        desk.pasteboard().writeText(text);
        Program paste(test::pasteCommand("UTF8_STRING"), {}, folder.path() / "out");

        EXPECT_TRUE(paste.succeeds());
        EXPECT_TRUE(test::readFile(folder.path() / "out") == text);
    }

    TEST(PasteboardWriteTest, PrimaryGetsTheTextOnlyWhenAsked)
    {
        PasteboardDesk desk;
        desk.real().copyToPrimary("marked");

        desk.pasteboard().writeText("own");
        const auto before = desk.real().pasteFromPrimary("UTF8_STRING");
        const auto count = desk.pasteboard().changeCount();
        desk.real().writePrimaryToo();
        desk.settle();

        EXPECT_EQ(before, "marked");
        EXPECT_EQ(desk.real().pasteFromPrimary("UTF8_STRING"), "own");
        EXPECT_EQ(desk.pasteboard().changeCount(), count);
    }

    TEST(PasteboardWriteTest, PrimaryIsLeftAloneWhenAnotherProgramHasCopiedSince)
    {
        PasteboardDesk desk;
        desk.real().copyToPrimary("marked");
        desk.pasteboard().writeText("own");
        const SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(2));

        desk.real().writePrimaryToo();

        EXPECT_EQ(desk.real().pasteFromPrimary("UTF8_STRING"), "marked");
    }

} // namespace
} // namespace korvane
