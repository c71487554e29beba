#include "model/ClipStore.h"

#include "support/StoreFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::StoreFixture;
    using Texts = std::vector<std::string>;

    const std::string goodId = R"("id":"0A1B2C3D-1111-2222-3333-444455556666")";
    const std::string restOfRequired
        = R"("type":"plainText","createdAt":"2024-05-01T12:34:56Z","isPinned":false,"useCount":0)";
    const std::string required = goodId + R"(,"text":"hello",)" + restOfRequired;

    /// How many clips a store finds in a history file with these bytes; a start that fails to end
    /// fails the test.
    std::size_t clipsIn(std::string_view document)
    {
        StoreFixture f;
        test::writeBytes(f.folder() / "clips.json", document);
        return f.open().clips().size();
    }
    std::string listOf(const std::string& record)
    {
        return "[{" + record + "}]";
    }
    std::string joined(std::initializer_list<std::string_view> parts)
    {
        std::string whole;
        for (const auto part : parts)
            whole += part;
        return whole;
    }
    std::string replaced(std::string text, const std::string& from, const std::string& to)
    {
        const auto at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return text.replace(at, from.size(), to);
    }

    TEST(BadInputTest, ARecordWithOnlyTheRequiredKeysLoads)
    {
        StoreFixture f;
        test::writeBytes(f.folder() / "clips.json", listOf(required));

        const auto& clips = f.open().clips();

        ASSERT_EQ(clips.size(), 1U);
        EXPECT_EQ(clips[0].text, "hello");
        EXPECT_EQ(clips[0].sourceApp, std::nullopt);
        EXPECT_EQ(clips[0].customName, std::nullopt);
        EXPECT_EQ(clips[0].overflowPath, std::nullopt);
        EXPECT_EQ(clips[0].overflowByteCount, std::nullopt);
        EXPECT_FALSE(clips[0].isOverflow);
        EXPECT_FALSE(clips[0].hasEmoji);
    }

    TEST(BadInputTest, EveryRequiredKeyMustBeThere)
    {
        for (const std::string& key : { goodId + ",", std::string(R"("text":"hello",)"),
                 std::string(R"("type":"plainText",)"),
                 std::string(R"("createdAt":"2024-05-01T12:34:56Z",)"),
                 std::string(R"("isPinned":false,)"), std::string(R"(,"useCount":0)") })
            EXPECT_EQ(clipsIn(listOf(replaced(required, key, ""))), 0U) << key;
    }

    TEST(BadInputTest, ARequiredKeyOfTheWrongTypeFailsTheWholeFile)
    {
        const std::pair<const char*, const char*> wrong[] = {
            { R"("text":"hello")", R"("text":7)" },
            { R"("text":"hello")", R"("text":null)" },
            { R"("type":"plainText")", R"("type":"URL")" },
            { R"("type":"plainText")", R"("type":"image")" },
            { R"("type":"plainText")", R"("type":3)" },
            { R"("isPinned":false)", R"("isPinned":0)" },
            { R"("isPinned":false)", R"("isPinned":"false")" },
            { R"("useCount":0)", R"("useCount":3.0)" },
            { R"("useCount":0)", R"("useCount":3e0)" },
            { R"("useCount":0)", R"("useCount":"3")" },
            { R"("useCount":0)", R"("useCount":9223372036854775808)" },
            { R"("useCount":0)", R"("useCount":01)" },
            { R"("useCount":0)", R"("useCount":+1)" },
            { R"("useCount":0)", R"("useCount":true)" },
            { "2024-05-01T12:34:56Z", "2024-02-30T12:34:56Z" },
            { "2024-05-01T12:34:56Z", "yesterday" },
            { R"("2024-05-01T12:34:56Z")", "1714566896" },
            { "0A1B2C3D-1111-2222-3333-444455556666", "0A1B2C3D" },
            { goodId.c_str(), R"("id":5)" },
        };
        for (const auto& [from, to] : wrong) {
            EXPECT_EQ(clipsIn(listOf(replaced(required, from, to))), 0U) << to;
            EXPECT_EQ(clipsIn("[{" + required + "},{" + replaced(required, from, to) + "}]"), 0U)
                << to;
        }
    }

    TEST(BadInputTest, AnOptionalKeyOfTheWrongTypeFailsTheWholeFile)
    {
        for (const std::string& extra : std::initializer_list<std::string> { R"("sourceApp":5)",
                 R"("customName":false)", R"("overflowPath":{})", R"("overflowByteCount":"1")",
                 R"("overflowByteCount":1.5)", R"("isOverflow":1)", R"("hasEmoji":"no")" })
            EXPECT_EQ(clipsIn(listOf(joined({ required, ",", extra }))), 0U) << extra;
    }

    TEST(BadInputTest, WhatIsUnusualButRightIsAccepted)
    {
        for (const std::string& extra : std::initializer_list<std::string> {
                 R"("sourceApp":null,"customName":null,"overflowPath":null)",
                 R"("overflowByteCount":null,"isOverflow":null,"hasEmoji":null)",
                 R"("customName":"")", R"("future":{"a":[1,2.5e3,null,true,"x"],"b":{}})" })
            EXPECT_EQ(clipsIn(listOf(joined({ required, ",", extra }))), 1U) << extra;
        EXPECT_EQ(clipsIn(listOf(replaced(required, "0A1B2C3D", "0a1b2c3d"))), 1U);
        EXPECT_EQ(clipsIn(listOf(replaced(required, R"("useCount":0)", R"("useCount":-0)"))), 1U);
        EXPECT_EQ(clipsIn(listOf(replaced(required, "12:34:56Z", "12:34:56+02:00"))), 1U);
        EXPECT_EQ(clipsIn(listOf(restOfRequired + "," + goodId + R"(,"text":"last")")), 1U);
        EXPECT_EQ(clipsIn(" \n\t[ {" + required + "} ] \r\n"), 1U);
        EXPECT_EQ(clipsIn("[]"), 0U);
    }

    TEST(BadInputTest, AKeyThatIsRepeatedInARecordFailsTheWholeFile)
    {
        EXPECT_EQ(clipsIn(listOf(required + R"(,"text":"again")")), 0U);
        EXPECT_EQ(clipsIn(listOf(required + R"(,"te\u0078t":"again")")), 0U);
        EXPECT_EQ(clipsIn(listOf(required + R"(,"x":1,"x":2)")), 0U);
        EXPECT_EQ(clipsIn(listOf(required + R"(,"x":1,"\u0078":2)")), 0U);
    }

    TEST(BadInputTest, ValuesThatNobodyReadsAreValidatedToo)
    {
        for (const std::string& extra :
            std::initializer_list<std::string> { R"("x":01)", R"("x":1.)", R"("x":.5)",
                R"("x":tru)", R"("x":nul)", R"("x":[1,])", R"("x":{"a":1,})", R"("x":"\q")",
                R"("x":"\ud800")", R"("x":"\udc00\ud800")", "\"x\":\"a\nb\"", R"("x":'a')",
                R"("x":NaN)", R"("x":-)", R"("x":1e)", R"("\ud800":1)", R"("x":[1 2])" })
            EXPECT_EQ(clipsIn(listOf(joined({ required, ",", extra }))), 0U) << extra;
    }

    TEST(BadInputTest, ALoneSurrogateInATextFailsTheWholeFile)
    {
        EXPECT_EQ(clipsIn(listOf(replaced(required, "hello", R"(\ud83d)"))), 0U);
        EXPECT_EQ(clipsIn(listOf(replaced(required, "hello", R"(\udc4d\ud83d)"))), 0U);
        EXPECT_EQ(clipsIn(listOf(replaced(required, "hello", R"(\ud83d\udc4d)"))), 1U);
    }

    TEST(BadInputTest, ADocumentThatIsNoArrayOfRecordsIsNotDecodable)
    {
        const auto good = listOf(required);
        for (const std::string& document : { std::string(), std::string(" "), std::string("null"),
                 std::string("{}"), std::string("7"), std::string("\"\""), std::string("[1]"),
                 std::string("[[]]"), std::string("[null]"), "{" + required + "}", good + "]",
                 good + "x", good + good, "\xef\xbb\xbf" + good, good.substr(0, good.size() - 1),
                 good.substr(0, good.size() / 2), "[{" + required + "},]", "[,{" + required + "}]",
                 good + std::string(1, '\0') })
            EXPECT_EQ(clipsIn(document), 0U) << document;
    }

    TEST(BadInputTest, EveryCutShortFileIsNotDecodable)
    {
        const auto good = listOf(required + R"(,"sourceApp":"Mail")");
        StoreFixture f;
        for (std::size_t length = 0; length < good.size(); ++length) {
            test::writeBytes(f.folder() / "clips.json", good.substr(0, length));
            EXPECT_EQ(f.open().clips().size(), 0U) << length;
        }
    }

    TEST(BadInputTest, BytesThatAreNotUtf8AreNotDecodable)
    {
        EXPECT_EQ(clipsIn(listOf(replaced(required, "hello", "\xff"))), 0U);
        EXPECT_EQ(clipsIn(listOf(replaced(required, "hello", "\xed\xa0\x80"))), 0U);
        EXPECT_EQ(clipsIn(listOf(replaced(required, "hello", "\xc0\xaf"))), 0U);
        EXPECT_EQ(clipsIn(listOf(required + ",\"x\":\"\xe2\x82\"")), 0U);
    }

    TEST(BadInputTest, DeepNestingIsNotDecodableAndNotFollowed)
    {
        EXPECT_EQ(clipsIn(std::string(100'000, '[')), 0U);
        EXPECT_EQ(clipsIn(std::string(100'000, '[') + std::string(100'000, ']')), 0U);
    }

    TEST(BadInputTest, DeepNestingInsideARecordFailsTheWholeFile)
    {
        std::string objects;
        for (int depth = 0; depth < 100'000; ++depth)
            objects += R"({"a":)";
        objects += '1' + std::string(100'000, '}');
        const auto arrays = std::string(100'000, '[') + std::string(100'000, ']');

        for (const auto& nested : { objects, arrays }) {
            EXPECT_EQ(clipsIn(listOf(joined({ required, ",\"x\":", nested }))), 0U);
            EXPECT_EQ(clipsIn(listOf(joined({ "\"x\":", nested, ",", required }))), 0U);
            EXPECT_EQ(clipsIn(listOf(replaced(required, "\"hello\"", nested))), 0U);
            EXPECT_EQ(clipsIn(joined({ "[{", required, "},", nested, "]" })), 0U);
        }
    }

    TEST(BadInputTest, AFileOf200MegabytesOfOneStringIsRefusedOrReadWhole)
    {
        std::string huge;
        huge.resize(200'000'000, 'x');

        EXPECT_EQ(clipsIn("\"" + huge + "\""), 0U);
        EXPECT_EQ(clipsIn("[{\"id\":\"" + huge), 0U);
        StoreFixture f;
        test::writeBytes(f.folder() / "clips.json", listOf(replaced(required, "hello", huge)));
        ASSERT_EQ(f.open().clips().size(), 1U);
        EXPECT_EQ(f.store->clips()[0].text.size(), huge.size());
    }

    TEST(BadInputTest, ABadFileStaysUntilTheNextCopyReplacesIt)
    {
        StoreFixture f;
        const auto bad = listOf(replaced(required, "plainText", "image"));
        test::writeBytes(f.folder() / "clips.json", bad);

        f.open();
        EXPECT_EQ(f.fileBytes(), bad);
        f.add("new");

        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "new" }));
        EXPECT_TRUE(f.log.lines.empty());
    }

    TEST(BadInputTest, StrangeTextsSurviveARestart)
    {
        std::string marks = "e";
        while (marks.size() < 60'000)
            marks += "\u0301";
        for (const auto& text :
            { marks, std::string(60'000, '"'), std::string("\x01\x1f\x7f\u0085\u2028\ufeff"),
                std::string(65'536, 'x'), std::string("\U0010ffff\ufffe") }) {
            StoreFixture f;
            f.add(text);
            EXPECT_EQ(f.open().clips().at(0).text, text);
        }
    }

    TEST(BadInputTest, ATextOfAMillionMarksOnOneLetterIsKept)
    {
        std::string marks = "e";
        for (int i = 0; i < 1'000'000; ++i)
            marks += "\u0301";
        StoreFixture f;

        f.add(marks);

        ASSERT_EQ(f.store->clips().size(), 1U);
        EXPECT_EQ(f.store->fullText(f.store->clips()[0]), marks);
    }

} // namespace
} // namespace korvane
