#include "model/SearchText.h"

#include "model/RandomText.h"

#include <gtest/gtest.h>

#include <unicode/uchar.h>

#include <algorithm>
#include <string>

namespace korvane {
namespace {

    const std::string english = "en_US";
    const std::string turkish = "tr_TR";

    bool finds(std::string_view typed, std::string_view text, const std::string& locale = english)
    {
        return SearchNeedle(typed, locale).occursIn(searchKey(text, locale));
    }

    std::u32string codePoints(std::string_view utf8)
    {
        std::u32string result;
        for (std::size_t at = 0; at < utf8.size();) {
            const auto next = codePointAt(utf8, at);
            result.push_back(next.value);
            at += next.size;
        }
        return result;
    }

    bool isMark(char32_t value)
    {
        return u_getCombiningClass(static_cast<UChar32>(value)) != 0;
    }

    // The rule, place by place and code point by code point.
    bool occursByTheRule(const std::u32string& needle, const std::u32string& text)
    {
        for (std::size_t at = 0; at + needle.size() <= text.size(); ++at) {
            const auto end = at + needle.size();
            if (text.compare(at, needle.size(), needle) == 0 && !isMark(text[at])
                && (end == text.size() || !isMark(text[end])))
                return true;
        }
        return false;
    }

    TEST(SearchTextTest, IgnoresLetterCase)
    {
        EXPECT_TRUE(finds("MAIL", "Mail"));
        EXPECT_TRUE(finds("invoice", "Invoice"));
        EXPECT_TRUE(finds("ПРИВЕТ", "скажи привет всем"));
        EXPECT_TRUE(finds("straße", "STRASSE"));
        EXPECT_TRUE(finds("STRASSE", "straße"));
        EXPECT_TRUE(finds("ΟΔΟΣ", "οδος"));
        EXPECT_TRUE(finds("οδος", "ΟΔΟΣ"));
    }

    TEST(SearchTextTest, FindsNoAccentedLetterByThePlainOne)
    {
        EXPECT_FALSE(finds("cafe", "café"));
        EXPECT_FALSE(finds("cafe", "cafe\u0301"));
        EXPECT_FALSE(finds("cafe", "the cafe\u0301s"));
        EXPECT_FALSE(finds("café", "cafe"));
    }

    TEST(SearchTextTest, FindsThePlainWordBehindTheAccentedOne)
    {
        EXPECT_TRUE(finds("cafe", "café, cafe"));
        EXPECT_TRUE(finds("caf", "café"));
    }

    TEST(SearchTextTest, FindsAnAccentedLetterHoweverItIsSpelt)
    {
        EXPECT_TRUE(finds("café", "cafe\u0301"));
        EXPECT_TRUE(finds("cafe\u0301", "CAFÉ"));
        EXPECT_TRUE(finds("\u1EC7", "e\u0302\u0323"));
    }

    TEST(SearchTextTest, FindsNoOtherFormOfALetter)
    {
        EXPECT_FALSE(finds("a", "ａ"));
        EXPECT_FALSE(finds("a", "ⓐ"));
        EXPECT_FALSE(finds("fi", "ﬁ") && !finds("ﬁ", "fi"));
    }

    TEST(SearchTextTest, FindsNothingByAMarkAlone)
    {
        EXPECT_FALSE(finds("\u0301", "e\u0301"));
        EXPECT_FALSE(finds("\u0301", "\u0301"));
    }

    TEST(SearchTextTest, TakesTheSearchLiterally)
    {
        EXPECT_TRUE(finds(".*", "a.*b"));
        EXPECT_FALSE(finds(".*", "ab"));
        EXPECT_FALSE(finds("two words", "words two"));
    }

    TEST(SearchTextTest, TakesABlankAsARealSearch)
    {
        EXPECT_FALSE(SearchNeedle(" ", english).isEmpty());
        EXPECT_TRUE(finds(" ", "a b"));
        EXPECT_FALSE(finds(" ", "ab"));
    }

    TEST(SearchTextTest, FindsEverythingByNothing)
    {
        EXPECT_TRUE(SearchNeedle("", english).isEmpty());
        EXPECT_TRUE(finds("", ""));
        EXPECT_TRUE(finds("", "a"));
    }

    TEST(SearchTextTest, KeepsTheTwoLettersIApartInTurkishAndAzeri)
    {
        for (const std::string locale :
            { "tr", "tr_TR", "tr-TR", "az_Latn_AZ", "tr_TR@collation=x" }) {
            EXPECT_TRUE(finds("istanbul", "İSTANBUL", locale)) << locale;
            EXPECT_TRUE(finds("istanbul", "I\u0307STANBUL", locale)) << locale;
            EXPECT_TRUE(finds("ısı", "ISI", locale)) << locale;
            EXPECT_FALSE(finds("isi", "ISI", locale)) << locale;
            EXPECT_FALSE(finds("i", "I", locale)) << locale;
            EXPECT_FALSE(finds("ı", "İ", locale)) << locale;
        }
    }

    TEST(SearchTextTest, TakesTheLettersIForOneElsewhere)
    {
        for (const std::string locale : { "en_US", "de", "trv", "en_TR", "" }) {
            EXPECT_TRUE(finds("i", "I", locale)) << locale;
            EXPECT_FALSE(finds("i", "ı", locale)) << locale;
        }
    }

    TEST(SearchTextTest, NeverReachesAcrossTheByteBetweenKeys)
    {
        const auto keys = searchKey("left", english) + '\xFF' + searchKey("right", english);

        EXPECT_TRUE(SearchNeedle("left", english).occursIn(keys));
        EXPECT_TRUE(SearchNeedle("right", english).occursIn(keys));
        EXPECT_FALSE(SearchNeedle("leftright", english).occursIn(keys));
        EXPECT_FALSE(SearchNeedle("left\xFFright", english).occursIn(keys));
    }

    const std::vector<std::string>& pieces()
    {
        static const std::vector<std::string> all { "a", "b", "e", "E", "é", "ê", "I", "İ", "ı",
            "i", "ss", "ß", "中", "国", "👍", "각", "\u1100", " ", "\u0301", "\u0301", "\u0302",
            "\u0323", "\u0345" };
        return all;
    }

    TEST(SearchTextTest, WhatGoesOnAnEarlierSearchOccursOnlyWhereThatDoes)
    {
        test::RandomText random(2);
        int found = 0;
        for (int round = 0; round < 100000; ++round) {
            const auto& locale = round % 2 == 0 ? english : turkish;
            const auto typed = random.from(pieces(), 2);
            const SearchNeedle earlier(typed, locale);
            const auto typedOn = typed + random.from(pieces(), 2);
            const SearchNeedle later(typedOn, locale);
            const auto text = random.from(pieces(), 60);
            const auto key = searchKey(text, locale);

            if (later.extends(earlier) && later.occursIn(key)) {
                ++found;
                ASSERT_TRUE(earlier.occursIn(key)) << typed << ", " << typedOn << " in " << text;
            }
        }
        EXPECT_GT(found, 1000);
    }

    TEST(SearchTextTest, ALetterMoreGoesOnTheSearchAndAMarkDoesNot)
    {
        const SearchNeedle cafe("cafe", english);

        EXPECT_TRUE(SearchNeedle("Cafes", english).extends(cafe));
        EXPECT_TRUE(cafe.extends(SearchNeedle("", english)));
        EXPECT_FALSE(SearchNeedle("cafe\u0301", english).extends(cafe));
        EXPECT_FALSE(SearchNeedle("caf", english).extends(cafe));
        EXPECT_FALSE(cafe.extends(cafe));
    }

    TEST(SearchTextTest, OccursWhereTheRuleSaysSo)
    {
        test::RandomText random(1);
        for (int round = 0; round < 100000; ++round) {
            const auto& locale = round % 2 == 0 ? english : turkish;
            const auto text = random.from(pieces(), 60);
            const auto typed = random.from(pieces(), 3);
            const auto key = searchKey(text, locale);
            const auto needle = searchKey(typed, locale);

            const auto occurs = SearchNeedle(typed, locale).occursIn(key);

            ASSERT_EQ(
                occurs, needle.empty() || occursByTheRule(codePoints(needle), codePoints(key)))
                << typed << " in " << text;
        }
    }

    TEST(SearchTextTest, KeepsNoMoreMemoryThanTheKeyNeeds)
    {
        std::string text;
        for (int each = 0; each < 10000; ++each)
            text += "é각";

        const auto key = searchKey(text, english);

        EXPECT_LE(key.capacity(), key.size() + key.size() / 8 + 1);
    }

    TEST(SearchTextTest, NamesTheLocaleOfTheSession)
    {
        EXPECT_FALSE(currentLocaleId().empty());
    }

} // namespace
} // namespace korvane
