#include "platform/shared/PasteboardDesk.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::string_literals;
    using test::Delivery;
    using test::numberedLines;
    using test::offering;
    using test::PasteboardDesk;
    using test::SelectionOwner;
    using test::textOwner;
    using test::typesAskedFor;
    using Types = std::vector<std::string>;

    TEST(PasteboardReadTest, ATextIsReadByteForByte)
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

    TEST(PasteboardReadTest, NoAnswerComesBeforeReadReturns)
    {
        PasteboardDesk desk;

        desk.beginReading(); // without an owner the answer is known at once
        const auto answersAtOnce = desk.answers.size();

        EXPECT_EQ(answersAtOnce, 0U);
        EXPECT_TRUE(test::waitUntil([&] { return desk.answers.size() == 1; }));
    }

    TEST(PasteboardReadTest, PiecesOfOddSizesArePutTogether)
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

    TEST(PasteboardReadTest, AnEmptyTextIsRead)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner(""));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "");
    }

    TEST(PasteboardReadTest, Latin1BecomesUtf8)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(offering({ { .target = "STRING", .bytes = "caf\xE9 \xFC" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "café ü");
    }

    TEST(PasteboardReadTest, IllFormedUtf8IsRepairedAndNulsAreDropped)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner("a\xFF"s + "b\0c"s));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "a\xEF\xBF\xBD"s + "bc"s);
    }

    TEST(PasteboardReadTest, ATypeThatIsRefusedOrNotDeliveredIsPassedOver)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "UTF8_STRING", .delivery = Delivery::refused },
            { .target = "text/plain;charset=utf-8", .delivery = Delivery::announcedOnly },
            { .target = "text/plain", .bytes = "plain" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        EXPECT_EQ(desk.readText(), "plain");
    }

    TEST(PasteboardReadTest, ContentsWithoutTextAreAnsweredWithNeitherTextNorFiles)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "image/png", .bytes = "picture" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read();

        ASSERT_TRUE(contents.has_value());
        EXPECT_FALSE(contents->text.has_value());
        EXPECT_FALSE(contents->uriList.has_value());
        EXPECT_EQ(typesAskedFor(owner), Types {});
    }

    TEST(PasteboardReadTest, AListOfFilesIsReadAsItIsTogetherWithTheText)
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

    TEST(PasteboardReadTest, WhereTheListIsEnoughTheTextIsNotFetched)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "text/uri-list", .bytes = "file:///tmp/a\r\n" },
            { .target = "UTF8_STRING", .bytes = "/tmp/a" } }));
        EXPECT_TRUE(desk.hasCounted(1));

        const auto contents = desk.read([](std::string_view) { return true; });

        ASSERT_TRUE(contents.has_value());
        EXPECT_EQ(contents->uriList, "file:///tmp/a\r\n");
        EXPECT_FALSE(contents->text.has_value());
        EXPECT_EQ(typesAskedFor(owner), Types { "text/uri-list" });
    }

    TEST(PasteboardReadTest, AListIsNotLostToATextThatNeverComes)
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

    TEST(PasteboardReadTest, AHintThatItsOwnerDoesNotShowMarksASecret)
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

    TEST(PasteboardReadTest, AReadGivenUpIsAnsweredWithNothingAndFetchesNoMore)
    {
        PasteboardDesk desk;
        SelectionOwner owner(offering({ { .target = "UTF8_STRING", .bytes = "text" } }));
        EXPECT_TRUE(desk.hasCounted(1));
        desk.beginReading();

        desk.pasteboard().abandonReads();

        EXPECT_TRUE(test::waitUntil([&] { return desk.answers.size() == 1; }));
        EXPECT_EQ(desk.answers.front(), std::nullopt);
        desk.settle();
        EXPECT_LE(owner.requests().size(), 1U); // the question that was out already
    }

    TEST(PasteboardReadTest, NothingElseOfASecretIsFetched)
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
        EXPECT_EQ(typesAskedFor(owner), Types { "x-kde-passwordManagerHint" });
    }

    TEST(PasteboardReadTest, AHintOfAnotherValueMarksNoSecret)
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

    TEST(PasteboardReadTest, ANewCopyWhileReadingDropsTheReadingUnderWay)
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

    TEST(PasteboardReadTest, SeveralReadingsUnderWayAreAllAnswered)
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

    TEST(PasteboardReadTest, APasteboardThatEndsWhileReadingAnswersNobody)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));
        desk.beginReading();

        desk.real().end();

        owner.copyAgain("beta");
        desk.settle();
        EXPECT_TRUE(desk.answers.empty());
    }

} // namespace
} // namespace korvane
