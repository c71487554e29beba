#include "platform/xdg/PreferencesJson.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace korvane {
namespace {

    using namespace std::string_literals;

    /// The value of "k" in a text with this JSON as its value; none when absent or no JSON.
    std::optional<PreferenceValue> valueOf(const std::string& json)
    {
        const auto table = parsePreferences("{\"k\": " + json + "}");
        if (!table || !table->contains("k"))
            return std::nullopt;
        return table->at("k").value;
    }

    bool isJson(const std::string& json)
    {
        return parsePreferences(json).has_value();
    }

    PreferenceValue integer(std::int64_t value)
    {
        return value;
    }
    PreferenceValue list(std::vector<std::string> texts)
    {
        return texts;
    }

    TEST(PreferencesJsonTest, EveryTypeIsRead)
    {
        EXPECT_EQ(valueOf("true"), PreferenceValue(true));
        EXPECT_EQ(valueOf("false"), PreferenceValue(false));
        EXPECT_EQ(valueOf("-7"), integer(-7));
        EXPECT_EQ(valueOf("0.5"), PreferenceValue(0.5));
        EXPECT_EQ(valueOf("\"dark\""), PreferenceValue("dark"s));
        EXPECT_EQ(valueOf("[\"a\", \"b\"]"), list({ "a", "b" }));
        EXPECT_EQ(valueOf("[]"), list({}));
    }

    TEST(PreferencesJsonTest, ANumberWithFractionOrExponentIsAReal)
    {
        EXPECT_EQ(valueOf("500.0"), PreferenceValue(500.0));
        EXPECT_EQ(valueOf("5e2"), PreferenceValue(500.0));
        EXPECT_EQ(valueOf("5E2"), PreferenceValue(500.0));
        EXPECT_EQ(valueOf("500"), integer(500));
    }

    TEST(PreferencesJsonTest, AnIntegerBeyond64BitsIsAReal)
    {
        EXPECT_EQ(valueOf("9223372036854775807"), integer(INT64_MAX));
        EXPECT_EQ(valueOf("-9223372036854775808"), integer(INT64_MIN));
        EXPECT_EQ(valueOf("9223372036854775808"), PreferenceValue(9223372036854775808.0));
        EXPECT_EQ(valueOf("-9223372036854775809"), PreferenceValue(-9223372036854775808.0));
        EXPECT_EQ(valueOf("123456789012345678901234567890"),
            PreferenceValue(123456789012345678901234567890.0));
    }

    TEST(PreferencesJsonTest, EscapesAreRead)
    {
        EXPECT_EQ(valueOf(R"("a\"b\\c\/\n\u00e9\ud83d\ude00")"), PreferenceValue("a\"b\\c/\né😀"s));
    }

    TEST(PreferencesJsonTest, ValuesOfOtherTypesReadAsAbsentAndAreWrittenAsTheyStand)
    {
        for (const auto* foreign : { "null", "{\"a\": [1, {\"b\": null}]}", "[1, \"a\"]",
                 "[\"a\", null]", "[[\"a\"]]", "{}" }) {
            const auto table = parsePreferences("{\"k\":" + std::string(foreign) + " ,\"l\":1}");

            ASSERT_TRUE(table.has_value()) << foreign;
            EXPECT_EQ(table->at("k").value, std::nullopt) << foreign;
            EXPECT_EQ(printPreferences(*table),
                "{\n  \"k\": " + std::string(foreign) + ",\n  \"l\": 1\n}\n");
        }
    }

    TEST(PreferencesJsonTest, OfAKeyThatOccursTwiceTheLastValueCounts)
    {
        const auto table = parsePreferences(R"({"k": "first", "l": 1, "k": "last"})");

        ASSERT_TRUE(table.has_value());
        EXPECT_EQ(table->at("k").value, PreferenceValue("last"s));
        EXPECT_EQ(table->size(), 2U);
    }

    TEST(PreferencesJsonTest, WhatIsNotOneWholeObjectIsRefused)
    {
        for (const auto* text :
            { "", " ", "nothing", "{", "}", "[]", "1", "\"a\"", "null", "{\"a\":1", "{\"a\":}",
                "{\"a\" 1}", "{\"a\":1,}", "{,}", "{\"a\":1 \"b\":2}", "{a:1}", "{\"a\":1}}",
                "{\"a\":1} x", "{\"a\":1}{}", "{\"a\":tru}", "{\"a\":truex}", "{\"a\":nul}",
                "{\"a\":nullx}", "{\"a\":01}", "{\"a\":+1}", "{\"a\":1.}", "{\"a\":.5}",
                "{\"a\":1e}", "{\"a\":--1}", "{\"a\":12x}", "{\"a\":0x10}", "{\"a\":NaN}",
                "{\"a\":\"b}", "{\"a\":\"\\x\"}", "{\"a\":\"\\ud800\"}", "{\"a\":\"line\nfeed\"}",
                "{\"a\":[1,]}", "{\"a\":[1 2]}", "{\"a\":{\"b\":tru}}", "{\"a\":[nul]}",
                "{\"a\":[\"b\"}", "{'a':1}", "{\"a\":1 // b\n}", "{\"a\":\"\xff\"}",
                "{\"a\":\"\xed\xa0\x80\"}", "{\"a\":1.e999}", "{\"a\":01e999}" })
            EXPECT_FALSE(isJson(text)) << text;
    }

    TEST(PreferencesJsonTest, ANumberThatNothingCanHoldIsKeptAsItStands)
    {
        for (const std::string number : { "1e999", "-1e999", "1.5E+400" }) {
            const auto table = parsePreferences("{\"a\": " + number + " , \"b\": true}");
            ASSERT_TRUE(table) << number;
            EXPECT_FALSE(table->at("a").value);
            EXPECT_EQ(table->at("b").value, PreferenceValue(true));
            EXPECT_EQ(parsePreferences(printPreferences(*table)), table);
        }
    }

    TEST(PreferencesJsonTest, WhiteSpaceAroundEverythingIsAllowed)
    {
        EXPECT_TRUE(isJson(" {\n\t\"a\" :\r\n1 , \"b\":[ \"c\" , \"d\" ] } \n"));
        EXPECT_TRUE(isJson("{}"));
        EXPECT_TRUE(isJson(" { } "));
    }

    TEST(PreferencesJsonTest, NestingWithoutEndIsRefusedWithoutHarm)
    {
        constexpr auto depth = 100'000;
        const auto opened = std::string(depth, '[');

        EXPECT_FALSE(isJson("{\"a\":" + opened + std::string(depth, ']') + "}"));
        EXPECT_FALSE(isJson("{\"a\":" + opened));
        EXPECT_FALSE(isJson(opened));
    }

    TEST(PreferencesJsonTest, EveryPrefixOfATextIsRefused)
    {
        const auto text
            = R"({"a": [1, {"b": null}], "c": ["d", "\u00e9"], "e": -1.5e3, "f": true})"s;

        for (std::size_t size = 0; size < text.size(); ++size)
            EXPECT_FALSE(isJson(text.substr(0, size))) << text.substr(0, size);
        EXPECT_TRUE(isJson(text));
    }

    TEST(PreferencesJsonTest, TheTextIsOneAPersonCanEdit)
    {
        const PreferencesTable table { { "theme", { "dark"s, {} } },
            { "ignoredBundleIDs", { list({ "org.a", "org.b" }), {} } },
            { "maxClips", { integer(50), {} } }, { "enableTabCycling", { false, {} } },
            { "scale", { 2.0, {} } }, { "none", { list({}), {} } } };

        EXPECT_EQ(printPreferences(table),
            "{\n"
            "  \"enableTabCycling\": false,\n"
            "  \"ignoredBundleIDs\": [\n"
            "    \"org.a\",\n"
            "    \"org.b\"\n"
            "  ],\n"
            "  \"maxClips\": 50,\n"
            "  \"none\": [],\n"
            "  \"scale\": 2.0,\n"
            "  \"theme\": \"dark\"\n"
            "}\n");
        EXPECT_EQ(printPreferences({}), "{}\n");
    }

    TEST(PreferencesJsonTest, ATextThatIsNotUnicodeDoesNotSpoilTheFile)
    {
        const auto json = printPreferences({ { "k", { "a\xff\"é"s, {} } } });

        const auto table = parsePreferences(json);

        ASSERT_TRUE(table.has_value());
        EXPECT_EQ(table->at("k").value, PreferenceValue("a\uFFFD\"\uFFFD\uFFFD"s));
    }

    TEST(PreferencesJsonTest, ANumberThatJsonCannotHoldReadsBackAsAbsent)
    {
        for (const auto number : { std::nan(""), std::numeric_limits<double>::infinity() }) {
            const auto table = parsePreferences(printPreferences({ { "k", { number, {} } } }));

            ASSERT_TRUE(table.has_value());
            EXPECT_EQ(table->at("k").value, std::nullopt);
        }
    }

    /// Random values of every type, with the characters that need care.
    class RandomTable {
    public:
        PreferencesTable next()
        {
            PreferencesTable table;
            for (auto count = m_random() % 6; count > 0; --count)
                table[text()] = StoredPreference { value(), {} };
            return table;
        }

    private:
        std::string text()
        {
            static const std::vector<std::string> pieces { "a", "\"", "\\", "\n",
                std::string(1, '\0'), "\x1f", "\x7f", "é", "😀", "/", "\u2028", "{", "]" };
            std::string made;
            for (auto count = m_random() % 5; count > 0; --count)
                made += pieces[m_random() % pieces.size()];
            return made;
        }
        PreferenceValue value()
        {
            switch (m_random() % 5) {
            case 0:
                return m_random() % 2 == 0;
            case 1:
                return static_cast<std::int64_t>(m_random());
            case 2:
                return std::ldexp(static_cast<double>(static_cast<std::int64_t>(m_random())),
                    static_cast<int>(m_random() % 1800) - 900);
            case 3:
                return text();
            default:
                return std::vector { text(), text() };
            }
        }

        std::mt19937_64 m_random { 20261121 };
    };

    TEST(PreferencesJsonTest, WhatIsPrintedReadsBackTheSame)
    {
        RandomTable random;
        for (auto round = 0; round < 2000; ++round) {
            const auto table = random.next();

            const auto json = printPreferences(table);

            ASSERT_EQ(parsePreferences(json), table) << json;
        }
    }

} // namespace
} // namespace korvane
