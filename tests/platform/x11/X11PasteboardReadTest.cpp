#include "platform/x11/PasteboardDesk.h"

#include "support/Program.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace korvane {
namespace {

    using namespace std::string_literals;
    using test::Delivery;
    using test::Offer;
    using test::OwnerScript;
    using test::PasteboardDesk;
    using test::Program;
    using test::SelectionOwner;
    using test::textOwner;
    using Requests = std::vector<std::string>;

    OwnerScript offering(std::vector<Offer> offers)
    {
        return { .offers = std::move(offers) };
    }

    /// Different everywhere, so that a piece that is lost, doubled or out of place is seen.
    std::string numberedLines(std::size_t size)
    {
        std::string text;
        text.reserve(size + 16);
        for (int line = 0; text.size() < size; ++line)
            text += "line " + std::to_string(line) + '\n';
        text.resize(size);
        return text;
    }

    TEST(X11PasteboardReadTest, ATextIsReadByteForByte)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner("  Grüße, 世界 🙂\r\n\t"));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read();

        ASSERT_TRUE(contents.has_value());
        EXPECT_EQ(contents->text, "  Grüße, 世界 🙂\r\n\t");
        EXPECT_FALSE(contents->uriList.has_value());
        EXPECT_FALSE(contents->isSecret);
    }

    TEST(X11PasteboardReadTest, NoAnswerComesBeforeReadReturns)
    {
        PasteboardDesk desk;

        desk.beginReading(); // without an owner the answer is known at once
        const auto answersAtOnce = desk.answers.size();

        EXPECT_EQ(answersAtOnce, 0U);
        EXPECT_TRUE(test::waitUntil([&] { return desk.answers.size() == 1; }));
    }

    TEST(X11PasteboardReadTest, ATextOfXclipIsRead)
    {
        const test::TempFolder folder;
        test::writeFile(folder.path() / "in", "copied by another program");
        PasteboardDesk desk;

        Program copy({ "xclip", "-quiet", "-selection", "clipboard" }, folder.path() / "in");
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "copied by another program");
    }

    TEST(X11PasteboardReadTest, AHundredMegabytesOfXclipAreReadByteForByte)
    {
        const test::TempFolder folder;
        const auto text = numberedLines(100'000'000);
        test::writeFile(folder.path() / "in", text);
        PasteboardDesk desk;
        Program copy({ "xclip", "-quiet", "-selection", "clipboard" }, folder.path() / "in");
        EXPECT_TRUE(desk.hasCounted(1));

        const auto read = desk.readText();

        EXPECT_EQ(read.size(), text.size());
        EXPECT_TRUE(read == text); // not EXPECT_EQ, which would print both
    }

    TEST(X11PasteboardReadTest, PiecesOfOddSizesArePutTogether)
    {
        PasteboardDesk desk;
        const auto text = numberedLines(1'000'003);
        const SelectionOwner owner(offering({ { .target = "UTF8_STRING",
            .bytes = text,
            .delivery = Delivery::inPieces,
            .pieces = { 1, 3, 70'001, 5, 262'147, 2 } } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto read = desk.readText();

        EXPECT_TRUE(read == text);
    }

    TEST(X11PasteboardReadTest, ATextInOnePropertyLargerThanARequestIsReadInParts)
    {
        PasteboardDesk desk;
        const auto text = numberedLines(40'000'001);
        const SelectionOwner owner(textOwner(text));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto read = desk.readText();

        EXPECT_TRUE(read == text);
    }

    TEST(X11PasteboardReadTest, AnOwnerThatLiesAboutTheSizeIsReadAllTheSame)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(offering({ { .target = "UTF8_STRING",
            .bytes = "short",
            .delivery = Delivery::inPieces,
            .announced = 0xFFFF'FFFF } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "short");
    }

    TEST(X11PasteboardReadTest, AnEmptyTextIsRead)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner(""));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "");
    }

    TEST(X11PasteboardReadTest, Latin1BecomesUtf8)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(offering({ { .target = "STRING", .bytes = "caf\xE9 \xFC" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "café ü");
    }

    TEST(X11PasteboardReadTest, IllFormedUtf8IsRepairedAndNulsAreDropped)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner("a\xFF"s + "b\0c"s));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "a\xEF\xBF\xBD"s + "bc"s);
    }

    TEST(X11PasteboardReadTest, TheBestTextTypeWinsWhateverTheOrder)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "STRING", .bytes = "latin" },
            { .target = "text/plain", .bytes = "plain" },
            { .target = "UTF8_STRING", .bytes = "utf8" },
            { .target = "text/plain;charset=utf-8", .bytes = "plain utf8" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "utf8");
        EXPECT_EQ(owner.requests(), (Requests { "TARGETS", "UTF8_STRING" }));
    }

    TEST(X11PasteboardReadTest, ATypeThatIsRefusedOrNotDeliveredIsPassedOver)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "UTF8_STRING", .delivery = Delivery::refused },
            { .target = "text/plain;charset=utf-8", .delivery = Delivery::announcedOnly },
            { .target = "text/plain", .bytes = "plain" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "plain");
    }

    TEST(X11PasteboardReadTest, AnOwnerThatDoesNotListItsTypesIsAskedForText)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(
            { .offers = { { .target = "STRING", .bytes = "old" } }, .targets = Delivery::refused });
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "old");
    }

    TEST(X11PasteboardReadTest, ContentsWithoutTextAreAnsweredWithNeitherTextNorFiles)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "image/png", .bytes = "picture" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read();

        ASSERT_TRUE(contents.has_value());
        EXPECT_FALSE(contents->text.has_value());
        EXPECT_FALSE(contents->uriList.has_value());
        EXPECT_EQ(owner.requests(), Requests { "TARGETS" });
    }

    TEST(X11PasteboardReadTest, AListOfFilesIsReadAsItIsTogetherWithTheText)
    {
        PasteboardDesk desk;
        const auto list = "file:///tmp/a%20b\r\nfile:///tmp/c\r\n\0"s;
        const SelectionOwner owner(offering({ { .target = "text/uri-list", .bytes = list },
            { .target = "UTF8_STRING", .bytes = "/tmp/a b" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read();

        ASSERT_TRUE(contents.has_value());
        EXPECT_EQ(contents->uriList, list);
        EXPECT_EQ(contents->text, "/tmp/a b");
    }

    TEST(X11PasteboardReadTest, WhereTheListIsEnoughTheTextIsNotFetched)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "text/uri-list", .bytes = "file:///tmp/a\r\n" },
            { .target = "UTF8_STRING", .bytes = "/tmp/a" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read([](std::string_view) { return true; });

        ASSERT_TRUE(contents.has_value());
        EXPECT_EQ(contents->uriList, "file:///tmp/a\r\n");
        EXPECT_FALSE(contents->text.has_value());
        EXPECT_EQ(owner.requests(), (Requests { "TARGETS", "text/uri-list" }));
    }

    TEST(X11PasteboardReadTest, AListIsNotLostToATextThatNeverComes)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(
            offering({ { .target = "text/uri-list", .bytes = "file:///tmp/a\r\n" },
                { .target = "UTF8_STRING", .delivery = Delivery::never } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read();

        ASSERT_TRUE(contents.has_value());
        EXPECT_EQ(contents->uriList, "file:///tmp/a\r\n");
    }

    TEST(X11PasteboardReadTest, AHintThatItsOwnerDoesNotShowMarksASecret)
    {
        for (const auto delivery : { Delivery::refused, Delivery::announcedOnly }) {
            PasteboardDesk desk;
            SelectionOwner owner(offering({ { .target = "UTF8_STRING", .bytes = "pass word" },
                { .target = "x-kde-passwordManagerHint", .delivery = delivery } }));
            EXPECT_TRUE(desk.hasCounted(1));

            const auto contents = desk.read();

            ASSERT_TRUE(contents.has_value());
            EXPECT_TRUE(contents->isSecret);
            EXPECT_FALSE(contents->text.has_value());
        }
    }

    TEST(X11PasteboardReadTest, AReadGivenUpIsAnsweredWithNothingAndFetchesNoMore)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "UTF8_STRING", .bytes = "text" } }));
        EXPECT_TRUE(desk.hasCounted(1));
        desk.beginReading();

        desk.pasteboard->abandonReads();

        EXPECT_TRUE(test::waitUntil([&] { return desk.answers.size() == 1; }));
        EXPECT_EQ(desk.answers.front(), std::nullopt);
        desk.settle();
        EXPECT_LE(owner.requests().size(), 1U); // the question that was out already
    }

    TEST(X11PasteboardReadTest, NothingElseOfASecretIsFetched)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "UTF8_STRING", .bytes = "pass word" },
            { .target = "text/uri-list", .bytes = "file:///secret" },
            { .target = "x-kde-passwordManagerHint", .bytes = "secret" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read();

        ASSERT_TRUE(contents.has_value());
        EXPECT_TRUE(contents->isSecret);
        EXPECT_FALSE(contents->text.has_value());
        EXPECT_FALSE(contents->uriList.has_value());
        EXPECT_EQ(owner.requests(), (Requests { "TARGETS", "x-kde-passwordManagerHint" }));
    }

    TEST(X11PasteboardReadTest, AHintOfAnotherValueMarksNoSecret)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(offering({ { .target = "UTF8_STRING", .bytes = "public" },
            { .target = "x-kde-passwordManagerHint", .bytes = "none" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read();

        ASSERT_TRUE(contents.has_value());
        EXPECT_FALSE(contents->isSecret);
        EXPECT_EQ(contents->text, "public");
    }

    TEST(X11PasteboardReadTest, ANewCopyWhileReadingDropsTheReadingUnderWay)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering(
            { { .target = "UTF8_STRING", .bytes = "first", .delivery = Delivery::never } }));
        EXPECT_TRUE(desk.hasCounted(1));
        desk.beginReading();

        owner.copyAgain("second");
        EXPECT_TRUE(desk.hasCounted(2));

        EXPECT_TRUE(test::waitUntil([&] { return !desk.answers.empty(); },
            std::chrono::seconds { 1 })); // sooner than silence would be noticed
        EXPECT_FALSE(desk.answers.front().has_value());
    }

    TEST(X11PasteboardReadTest, SeveralReadingsUnderWayAreAllAnswered)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));

        for (int i = 0; i < 3; ++i)
            desk.beginReading();

        EXPECT_TRUE(test::waitUntil([&] { return desk.answers.size() == 3; }));
        for (const auto& answer : desk.answers) {
            ASSERT_TRUE(answer.has_value());
            EXPECT_EQ(answer->text, "alpha");
        }
    }

    TEST(X11PasteboardReadTest, APasteboardThatEndsWhileReadingAnswersNobody)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));
        desk.beginReading();

        desk.pasteboard.reset();

        owner.copyAgain("beta");
        desk.settle();
        EXPECT_TRUE(desk.answers.empty());
    }

} // namespace
} // namespace korvane
