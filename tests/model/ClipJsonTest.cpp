#include "model/ClipJson.h"

#include "model/Files.h"
#include "support/ClipJsonText.h"

#include <gtest/gtest.h>
#include <simdjson.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::decoded;
    using test::encoded;
    using test::listOf;
    using test::required;

    /// The clip of a list with one record, which ends with these members.
    std::optional<ClipItem> clipWith(std::string_view members)
    {
        const auto clips = decoded(listOf(members));
        return clips ? std::optional(clips->front()) : std::nullopt;
    }

    ClipItem fullClip()
    {
        ClipItem clip;
        clip.id = *ClipId::parse("0A1B2C3D-1111-2222-3333-444455556666");
        clip.text = "text";
        clip.type = ClipType::code;
        clip.sourceApp = "Editor";
        clip.createdAt = TimePoint { 1714566896789ms };
        clip.isPinned = true;
        clip.customName = "name";
        clip.useCount = 7;
        clip.isOverflow = true;
        clip.overflowPath = "/data/overflow/0A1B2C3D-1111-2222-3333-444455556666.txt";
        clip.overflowByteCount = 102400;
        clip.hasEmoji = true;
        return clip;
    }

    TEST(ClipJsonTest, EveryFieldIsWrittenCompactAndInTheirOrder)
    {
        EXPECT_EQ(encoded({ fullClip() }),
            R"([{"id":"0A1B2C3D-1111-2222-3333-444455556666","text":"text","type":"code",)"
            R"("sourceApp":"Editor","createdAt":"2024-05-01T12:34:56Z","isPinned":true,)"
            R"("customName":"name","useCount":7,"isOverflow":true,)"
            R"("overflowPath":"/data/overflow/0A1B2C3D-1111-2222-3333-444455556666.txt",)"
            R"("overflowByteCount":102400,"hasEmoji":true}])");
    }

    TEST(ClipJsonTest, AnAbsentValueLeavesItsKeyOut)
    {
        ClipItem clip;
        clip.text = "text";

        EXPECT_EQ(encoded({ clip }),
            R"([{"id":"00000000-0000-0000-0000-000000000000","text":"text","type":"plainText",)"
            R"("createdAt":"1970-01-01T00:00:00Z","isPinned":false,"useCount":0,)"
            R"("isOverflow":false,"hasEmoji":false}])");
    }

    TEST(ClipJsonTest, AnEmptyListIsAnEmptyArray)
    {
        EXPECT_EQ(encoded({}), "[]");
        EXPECT_EQ(decoded("[]"), std::vector<ClipItem> {});
        EXPECT_EQ(decoded(" [ ] \n"), std::vector<ClipItem> {});
    }

    TEST(ClipJsonTest, TheIndentedFormSaysTheSame)
    {
        const std::vector<ClipItem> clips { fullClip(), ClipItem() };
        std::string pretty;
        encodeClips(
            clips, [&](std::string_view block) { pretty += block; }, JsonLayout::pretty);

        EXPECT_TRUE(pretty.starts_with("[\n  {\n    \"id\": \"0A1B2C3D"));
        EXPECT_NE(
            pretty.find("\n    \"hasEmoji\": true\n  },\n  {\n    \"id\": "), std::string::npos);
        EXPECT_TRUE(pretty.ends_with("\n    \"hasEmoji\": false\n  }\n]"));
        const auto read = decoded(pretty);
        ASSERT_TRUE(read);
        EXPECT_EQ(encoded(*read), encoded(clips));
    }

    TEST(ClipJsonTest, WhatIsWrittenIsReadAgainButForTheFractionOfASecond)
    {
        const auto clips = decoded(encoded({ fullClip() }));

        ASSERT_TRUE(clips && clips->size() == 1);
        const auto& clip = clips->front();
        EXPECT_EQ(clip.createdAt, TimePoint { 1714566896000ms });
        EXPECT_EQ(encoded(*clips), encoded({ fullClip() }));
    }

    TEST(ClipJsonTest, EveryCodePointComesBackAsItWas)
    {
        ClipItem clip;
        for (char32_t c = 0; c <= 0x10FFFF; c = c == 0xD7FF ? 0xE000 : c + 1)
            test::appendUtf8(clip.text, c);

        const auto clips = decoded(encoded({ clip }));

        ASSERT_TRUE(clips && clips->size() == 1);
        EXPECT_TRUE(clips->front().text == clip.text);
    }

    TEST(ClipJsonTest, OnlyQuotesBackslashesAndControlCharactersAreEscaped)
    {
        ClipItem clip;
        clip.text = std::string("\"\\/\b\f\n\r\t\x01\x1F\x7F\0é", 14);

        EXPECT_NE(encoded({ clip }).find(R"("\"\\/\b\f\n\r\t\u0001\u001F)"
                                         "\x7F"
                                         R"(\u0000é")"),
            std::string::npos);
    }

    TEST(ClipJsonTest, EscapesAreFoundAtEveryPlaceOfATextOfEveryLength)
    {
        for (std::size_t size = 1; size < 40; ++size) {
            for (std::size_t place = 0; place < size; ++place) {
                ClipItem clip;
                clip.text.assign(size, 'x');
                clip.text[place] = '\n';
                const auto expected
                    = std::string(place, 'x') + "\\n" + std::string(size - place - 1, 'x');
                EXPECT_NE(encoded({ clip }).find("\"" + expected + "\""), std::string::npos);
            }
        }
    }

    TEST(ClipJsonTest, ATextLongerThanABlockComesWhole)
    {
        ClipItem clip;
        for (int i = 0; i < 100000; ++i)
            clip.text += "line " + std::to_string(i) + '\x02' + "\n";

        const auto clips = decoded(encoded({ clip, clip }));

        ASSERT_TRUE(clips && clips->size() == 2);
        EXPECT_TRUE(clips->back().text == clip.text);
    }

    TEST(ClipJsonTest, IllFormedTextIsRepairedRatherThanSpoilingTheWholeList)
    {
        ClipItem clip;
        clip.text = "caf\xE9";
        clip.sourceApp = "\xFF";

        const auto clips = decoded(encoded({ clip }));

        ASSERT_TRUE(clips && clips->size() == 1);
        EXPECT_EQ(clips->front().text, "caf\uFFFD");
        EXPECT_EQ(clips->front().sourceApp, "\uFFFD");
    }

    TEST(ClipJsonTest, ARecordOfTheRequiredKeysAloneIsAnOrdinaryClip)
    {
        const auto clip = clipWith("");

        ASSERT_TRUE(clip);
        EXPECT_EQ(clip->sourceApp, std::nullopt);
        EXPECT_EQ(clip->customName, std::nullopt);
        EXPECT_EQ(clip->overflowPath, std::nullopt);
        EXPECT_EQ(clip->overflowByteCount, std::nullopt);
        EXPECT_FALSE(clip->isOverflow);
        EXPECT_FALSE(clip->hasEmoji);
    }

    TEST(ClipJsonTest, NullForAnOptionalKeyIsAbsent)
    {
        const auto clip = clipWith(R"(,"sourceApp":null,"customName":null,"overflowPath":null,)"
                                   R"("overflowByteCount":null,"isOverflow":null,"hasEmoji":null)");

        ASSERT_TRUE(clip);
        EXPECT_EQ(clip->sourceApp, std::nullopt);
        EXPECT_EQ(clip->overflowByteCount, std::nullopt);
        EXPECT_FALSE(clip->hasEmoji);
    }

    TEST(ClipJsonTest, EachRequiredKeyMustBeThereAndOfItsType)
    {
        for (const auto& [key, value] : required) {
            EXPECT_FALSE(decoded(test::listWithout(key))) << key;
            for (const auto* wrong : { "null", "[]", "{}", "1.5", "\"nonsense\"", "nul", "" }) {
                if (key == "text" && wrong == std::string_view("\"nonsense\""))
                    continue; // a text like any other
                EXPECT_FALSE(decoded(test::listWith(key, wrong))) << key << ": " << wrong;
            }
        }
    }

    TEST(ClipJsonTest, EachOptionalKeyMustBeOfItsType)
    {
        for (const auto* wrong : { R"("sourceApp":1)", R"("customName":true)",
                 R"("overflowPath":[])", R"("overflowByteCount":"1")", R"("overflowByteCount":1.0)",
                 R"("overflowByteCount":9223372036854775808)", R"("isOverflow":0)",
                 R"("isOverflow":"true")", R"("hasEmoji":1)", R"("hasEmoji":nul)",
                 R"("hasEmoji":truely)", R"("sourceApp":nullx)" })
            EXPECT_FALSE(clipWith(std::string(",") + wrong)) << wrong;
    }

    TEST(ClipJsonTest, AnUnknownTypeFailsTheWholeList)
    {
        for (const auto* type : { "URL", "image", "", "plaintext", "url " }) {
            const auto record = test::recordWith("type", '"' + std::string(type) + '"');
            EXPECT_FALSE(decoded("[" + test::record("") + "," + record + "]")) << type;
        }
        for (const auto type : allClipTypes)
            EXPECT_TRUE(decoded(test::listWith("type", '"' + std::string(rawValue(type)) + '"')));
    }

    TEST(ClipJsonTest, AUseCountMustBeAnInteger)
    {
        for (const auto* wrong : { "3.0", "3e0", "\"3\"", "true", "03", "+3", "-", "3 4",
                 "9223372036854775808", "-9223372036854775809", "0x3", "--3", "3\f" })
            EXPECT_FALSE(decoded(test::listWith("useCount", wrong))) << wrong;
        EXPECT_EQ(decoded(test::listWith("useCount", "-0"))->front().useCount, 0);
        EXPECT_EQ(decoded(test::listWith("useCount", " 3 \n"))->front().useCount, 3);
        EXPECT_EQ(decoded(test::listWith("useCount", "9223372036854775807"))->front().useCount,
            INT64_MAX);
        EXPECT_EQ(decoded(test::listWith("useCount", "-9223372036854775808"))->front().useCount,
            INT64_MIN);
    }

    TEST(ClipJsonTest, KeysMayComeInAnyOrderAndBeSpacedOut)
    {
        const auto clips
            = decoded(" [ {\n\t\"useCount\" : 4 , \"isPinned\" : true , \"hasEmoji\":true,"
                      "\"createdAt\":\"2024-05-01T14:34:56+02:00\" , \"type\" : \"url\","
                      "\"text\" : \"t\" ,"
                      "\"id\" : \"0a1b2c3d-1111-2222-3333-444455556666\" } ]\r\n");

        ASSERT_TRUE(clips && clips->size() == 1);
        const auto& clip = clips->front();
        EXPECT_EQ(clip.id.text(), "0A1B2C3D-1111-2222-3333-444455556666");
        EXPECT_EQ(clip.useCount, 4);
        EXPECT_TRUE(clip.isPinned);
        EXPECT_EQ(clip.type, ClipType::url);
        EXPECT_EQ(clip.createdAt, TimePoint { 1714566896000ms });
        EXPECT_EQ(clip.text, "t");
    }

    TEST(ClipJsonTest, AnEmptyCustomNameIsRead)
    {
        EXPECT_EQ(clipWith(R"(,"customName":"")")->customName, "");
    }

    TEST(ClipJsonTest, AKnownKeyMayBeWrittenWithEscapes)
    {
        EXPECT_EQ(clipWith(R"(,"custom\u004eame":"x")")->customName, "x");
    }

    TEST(ClipJsonTest, AKeyThatComesTwiceIsRefused)
    {
        for (const auto* repeated : { R"(,"useCount":0)", R"(,"use\u0043ount":0)",
                 R"(,"hasEmoji":true,"hasEmoji":true)", R"(,"sourceApp":null,"sourceApp":null)",
                 R"(,"x":1,"x":1)", R"(,"x":1,"\u0078":1)", R"(,"":1,"":2)" })
            EXPECT_FALSE(clipWith(repeated)) << repeated;
    }

    TEST(ClipJsonTest, UnknownKeysArePassedOverWhateverTheyHold)
    {
        for (const auto* value : { "1", "-0.5e+300", "1e99999", "123456789012345678901234567890",
                 "\"a\\u0000\\ud83d\\ude00\"", "null", "true", "[]", "{}", R"([1,[2,{"a":[]}]])",
                 R"({"a":{"b":[{}]},"a":1})" }) {
            const auto clip
                = clipWith(R"(,"version":)" + std::string(value) + R"(,"hasEmoji":true)");
            ASSERT_TRUE(clip) << value;
            EXPECT_TRUE(clip->hasEmoji);
        }
    }

    TEST(ClipJsonTest, WhatAnUnknownKeyHoldsMustBeRightAllTheSame)
    {
        for (const auto* wrong : { "", "01", "1.", ".5", "+1", "- 1", "1e", "1e+", "0x10", "NaN",
                 "Infinity", "tru", "truex", "nul", "True", "'a'", "\"\\x\"", "\"\\u12G4\"",
                 "\"\\ud800\"", "\"\\udc00\"", "\"\\ud800\\u0041\"", "\"a\nb\"", "\"\x01\"", "[1,]",
                 "[,1]", "[1 2]", "[1}", "{\"a\"}", "{\"a\":}", "{\"a\":1,}", "{1:2}", "{a:1}",
                 "{\"a\" 1}", "{\"\\x\":1}", "[\"\\ud800\"]", "{\"a\":[01]}", "[[]", "1 1",
                 "// c\n1", "\"unclosed" })
            EXPECT_FALSE(clipWith(R"(,"version":)" + std::string(wrong))) << wrong;
    }

    TEST(ClipJsonTest, ALoneSurrogateInATextIsRefused)
    {
        for (const auto* text : { R"("\ud800")", R"("\udfff")", R"("\ud800x")", R"("\ud800\n")",
                 R"("\ud800\ud800")", R"("\udc00\ud800")" })
            EXPECT_FALSE(decoded(test::listWith("text", text))) << text;
        EXPECT_EQ(decoded(test::listWith("text", R"("\ud83d\ude00")"))->front().text, "😀");
    }

    TEST(ClipJsonTest, OnlyAnArrayOfObjectsIsAHistory)
    {
        for (const auto* document :
            { "", " ", "null", "{}", "\"text\"", "1", "[1]", "[null]", "[[]]", "[{}]", "[", "]",
                "[}", "[],", "[] []", "[]x", "[]]", "][", "[{]", "[{},]" })
            EXPECT_FALSE(decoded(document)) << document;
        EXPECT_FALSE(decoded(test::record("")));
    }

    TEST(ClipJsonTest, NothingMayStandBeforeOrBehindTheArray)
    {
        const auto list = listOf("");
        EXPECT_TRUE(decoded(list));
        for (const auto& document : { "\xEF\xBB\xBF" + list, list + "x", list + ",", list + "[]",
                 list + std::string(1, '\0'), "\f" + list, list + "\xC2\xA0" })
            EXPECT_FALSE(decoded(document)) << document;
    }

    TEST(ClipJsonTest, EveryBeginningOfADocumentIsRefused)
    {
        const auto whole = encoded({ fullClip(), fullClip() });
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_FALSE(decoded(std::string_view(whole).substr(0, size))) << size;
    }

    TEST(ClipJsonTest, BytesThatAreNotUtf8AreRefused)
    {
        for (const auto* bytes :
            { "\xFF", "\xC3", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80" }) {
            EXPECT_FALSE(decoded(test::listWith("text", '"' + std::string(bytes) + '"')));
            EXPECT_FALSE(clipWith(R"(,"x":")" + std::string(bytes) + '"'));
        }
    }

    TEST(ClipJsonTest, NestingHasALimitFarAboveAnySense)
    {
        const auto nested = [](std::size_t depth) {
            return R"(,"x":)" + std::string(depth, '[') + std::string(depth, ']');
        };

        EXPECT_TRUE(clipWith(nested(200)));
        EXPECT_FALSE(clipWith(nested(100'000)));
        EXPECT_FALSE(decoded(std::string(100'000, '[') + std::string(100'000, ']')));
        std::string objects = R"(,"x":)";
        for (int i = 0; i < 100'000; ++i)
            objects += R"({"x":)";
        EXPECT_FALSE(clipWith(objects + "1" + std::string(100'000, '}')));
    }

    /// Reading on demand checks little by itself, so whatever we accept after a random change is
    /// held against a parser that reads everything.
    TEST(ClipJsonTest, NoDamagedDocumentIsTakenThatAFullParserRefuses)
    {
        const auto whole = encoded({ fullClip() });
        const std::string_view pieces = "{}[]\",:\\0123456789eE+-.tfnu/ \n\x01\xC3\xA9";
        std::mt19937 random(20240501); // always the same, so that a failure comes again
        simdjson::dom::parser parser;
        int accepted = 0;
        for (int round = 0; round < 30'000; ++round) {
            auto damaged = whole;
            for (auto changes = random() % 3 + 1; changes > 0; --changes) {
                const auto place = random() % damaged.size();
                const auto piece = pieces[random() % pieces.size()];
                switch (random() % 3) {
                case 0:
                    damaged[place] = piece;
                    break;
                case 1:
                    damaged.insert(place, 1, piece);
                    break;
                default:
                    damaged.erase(place, 1);
                }
            }
            if (!decoded(damaged))
                continue;
            ++accepted;
            EXPECT_EQ(parser.parse(damaged).error(), simdjson::SUCCESS) << damaged;
        }
        EXPECT_GT(accepted, 1000); // most changes inside a text do no harm
    }

    /// The parser has code for several kinds of processors; all that this one can run are tried.
    TEST(ClipJsonTest, EveryImplementationOfTheParserIsAsStrict)
    {
        auto& active = simdjson::get_active_implementation();
        const auto* const before = &*active;
        for (const auto* implementation : simdjson::get_available_implementations()) {
            if (!implementation->supported_by_runtime_system())
                continue;
            active = implementation;
            EXPECT_TRUE(decoded(encoded({ fullClip() }))) << implementation->name();
            for (const auto* text : { "\"\\ud800\"", "\"\\udc00\"", "\"\\ud800\\u0041\"",
                     "\"\xFF\"", "\"\\x\"", "\"a\nb\"" }) {
                EXPECT_FALSE(decoded(test::listWith("text", text))) << implementation->name();
                EXPECT_FALSE(clipWith(R"(,"x":)" + std::string(text))) << implementation->name();
            }
        }
        active = before;
    }

} // namespace
} // namespace korvane
