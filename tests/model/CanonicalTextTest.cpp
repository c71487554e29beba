#include "model/CanonicalText.h"

#include "model/RandomText.h"

#include <gtest/gtest.h>

#include <unicode/normalizer2.h>
#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <string>

namespace korvane {
namespace {

    icu::UnicodeString decomposed(const icu::UnicodeString& text)
    {
        auto error = U_ZERO_ERROR;
        return icu::Normalizer2::getNFDInstance(error)->normalize(text, error);
    }

    // The definition, by the library's functions for whole strings.
    std::string byDefinition(const std::string& utf8, Folding folding)
    {
        auto text = decomposed(icu::UnicodeString::fromUTF8(utf8));
        if (folding == Folding::turkic) {
            auto error = U_ZERO_ERROR;
            icu::RegexMatcher dotted(u"I([[:^ccc=0:]&&[:^ccc=230:]]*)\\u0307", text, 0, error);
            text = dotted.replaceAll(u"i$1", error);
        }
        if (folding == Folding::full)
            text.foldCase(U_FOLD_CASE_DEFAULT);
        if (folding == Folding::turkic)
            text.foldCase(U_FOLD_CASE_EXCLUDE_SPECIAL_I);
        std::string result;
        return decomposed(text).toUTF8String(result);
    }

    class CanonicalTextTest : public testing::TestWithParam<Folding> { };

    TEST_P(CanonicalTextTest, MapsEveryCodePointAsTheDefinitionDoes)
    {
        // Each stands alone on a line, and many lines are mapped at once.
        constexpr char32_t together = 256;
        for (char32_t first = 0; first <= 0x10FFFF; first += together) {
            if (first == 0xD800)
                first = 0xE000;
            std::string text;
            for (char32_t value = first; value < first + together; ++value) {
                appendUtf8(text, value);
                text += '\n';
            }
            ASSERT_EQ(canonicalForm(text, GetParam()), byDefinition(text, GetParam()))
                << "from U+" << std::hex << static_cast<std::uint32_t>(first);
        }
    }

    TEST_P(CanonicalTextTest, MapsTextsFromAllPlanesAsTheDefinitionDoes)
    {
        test::RandomText random(1);
        for (int round = 0; round < 20000; ++round) {
            const auto text = random.fromAllPlanes(40);
            ASSERT_EQ(canonicalForm(text, GetParam()), byDefinition(text, GetParam()));
        }
    }

    TEST_P(CanonicalTextTest, MapsLettersWithManyMarksAsTheDefinitionDoes)
    {
        const std::vector<std::string> pieces { "a", "I", "i", "İ", "ı", "é", "É", "ß", "ẞ", "ŉ",
            "ᾳ", "ᾼ", "ΐ", "Ω", "Å", "각", "ᄀ", "ᅡ", "ᆨ", "中", "👍", " ", "\u0301", "\u0307",
            "\u0308", "\u0323", "\u0327", "\u0334", "\u0338", "\u0344", "\u0345", "\u0345",
            "\u0f71", "\u0f72", "\u0f73", "\u0f80", "\u0f81", "\u1133", "\u05b0", "\u3099", "か",
            "が", "\u0e38", "\u0e48", "\U0001D15E", "\U0001D165", "\U0001D16E", "\U000110BA",
            "a plain run of letters, Long" };
        test::RandomText random(2);
        for (int round = 0; round < 50000; ++round) {
            const auto text = random.from(pieces, 12);
            ASSERT_EQ(canonicalForm(text, GetParam()), byDefinition(text, GetParam())) << text;
        }
    }

    INSTANTIATE_TEST_SUITE_P(AllFoldings, CanonicalTextTest,
        testing::Values(Folding::none, Folding::full, Folding::turkic));

    TEST(CanonicalFormTest, IsAlwaysWellFormed)
    {
        EXPECT_EQ(canonicalForm("a\xFF\xC3", Folding::full), "a\uFFFD\uFFFD");
        EXPECT_EQ(canonicalForm("\xED\xA0\x80", Folding::none), "\uFFFD\uFFFD\uFFFD");
    }

    // Sorting them by insertion, as libraries do, would take minutes.
    TEST(CanonicalFormTest, OrdersAMillionMarksOnOneLetter)
    {
        constexpr int pairs = 500000;
        std::string text = "e";
        std::string above;
        std::string below;
        for (int each = 0; each < pairs; ++each) {
            text += "\u0301\u0323";
            above += "\u0301";
            below += "\u0323";
        }

        EXPECT_TRUE(canonicalForm(text, Folding::full) == "e" + below + above);
    }

} // namespace
} // namespace korvane
