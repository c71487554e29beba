#include "model/Classifier.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    std::string addressOf(std::size_t characters)
    {
        const std::string domain = "@example.org";
        return std::string(characters - domain.size(), 'a') + domain;
    }

    TEST(ClassifierTest, TrimsBeforeItLooksForAnAddressOfTheWeb)
    {
        EXPECT_EQ(classifyContent("  \nhttps://example.org/a b"), ClipType::url);
        EXPECT_EQ(classifyContent("\u3000http://example.org\u2028"), ClipType::url);
        EXPECT_EQ(classifyContent("https://example.org/{a}<b>"), ClipType::url);
        EXPECT_EQ(classifyContent("http://"), ClipType::url);
    }

    TEST(ClassifierTest, TakesNoOtherBeginningForAnAddressOfTheWeb)
    {
        for (const auto* each : { "HTTP://example.org", "Https://example.org", "example.org",
                 "see https://example.org", "ftp://example.org", "http:/example.org", "https:" })
            EXPECT_EQ(classifyContent(each), ClipType::plainText) << each;
    }

    TEST(ClassifierTest, TakesAWordAtAWordWithADotForAMailAddress)
    {
        EXPECT_EQ(classifyContent("anna@example.org"), ClipType::email);
        EXPECT_EQ(classifyContent(" anna@example.org\n"), ClipType::email);
    }

    TEST(ClassifierTest, TakesNothingWithoutADotForAMailAddress)
    {
        EXPECT_EQ(classifyContent("anna@example"), ClipType::plainText);
        EXPECT_EQ(classifyContent("example.org"), ClipType::plainText);
    }

    TEST(ClassifierTest, TakesNothingWithABlankInsideForAMailAddress)
    {
        EXPECT_EQ(classifyContent("anna @example.org"), ClipType::plainText);
        EXPECT_EQ(classifyContent("anna@example.org now"), ClipType::plainText);
    }

    TEST(ClassifierTest, CountsOnlyTheCommonBlankAsOne)
    {
        EXPECT_EQ(classifyContent("anna@example.org\nberta@example.org"), ClipType::email);
        EXPECT_EQ(classifyContent("anna\u00A0@example.org"), ClipType::email);
        EXPECT_EQ(classifyContent("anna\t@example.org"), ClipType::email);
    }

    TEST(ClassifierTest, TakesAMailAddressOf253CharactersButNotOf254)
    {
        EXPECT_EQ(classifyContent(addressOf(253)), ClipType::email);
        EXPECT_EQ(classifyContent(addressOf(254)), ClipType::plainText);
    }

    TEST(ClassifierTest, CountsTheCharactersOfAMailAddressAsAUserSeesThem)
    {
        std::string marks;
        for (int each = 0; each < 300; ++each)
            marks += "\u0301";

        EXPECT_EQ(classifyContent("e" + marks + "@example.org"), ClipType::email);
    }

    TEST(ClassifierTest, LetsTheDotOfAMailAddressStandAnywhere)
    {
        EXPECT_EQ(classifyContent("a.b@c"), ClipType::email);
        EXPECT_EQ(classifyContent("a@b."), ClipType::email);
        EXPECT_EQ(classifyContent("@."), ClipType::email);
    }

    TEST(ClassifierTest, TakesMarkupForCode)
    {
        for (const auto* each : { "<div>", "</p>", "<h1>", "a <b c>", "> <x", "<<a>" })
            EXPECT_EQ(classifyContent(each), ClipType::code) << each;
    }

    TEST(ClassifierTest, TakesComparisonsForText)
    {
        for (const auto* each : { "3 < 4 and 5 > 2", "a < b > c", "<>", "</>", "</ p>", "<1>",
                 "<é>", "<//p>", "<div", "<" })
            EXPECT_EQ(classifyContent(each), ClipType::plainText) << each;
    }

    TEST(ClassifierTest, GoesOnToTheOtherTestsWhenBracketsHoldNoTag)
    {
        EXPECT_EQ(classifyContent("3 < 4 > 2 }"), ClipType::code);
    }

    TEST(ClassifierTest, TakesAnArrowBetweenBlanksForCode)
    {
        EXPECT_EQ(classifyContent("a -> b"), ClipType::code);
        EXPECT_EQ(classifyContent("a => b"), ClipType::code);
        EXPECT_EQ(classifyContent("a->b"), ClipType::plainText);
        EXPECT_EQ(classifyContent("a=>b"), ClipType::plainText);
        EXPECT_EQ(classifyContent(" -> b"), ClipType::plainText);
    }

    TEST(ClassifierTest, TakesOneBraceForCode)
    {
        EXPECT_EQ(classifyContent("Dear {name}"), ClipType::code);
        EXPECT_EQ(classifyContent("{"), ClipType::code);
        EXPECT_EQ(classifyContent("and }"), ClipType::code);
        EXPECT_EQ(classifyContent("#include"), ClipType::code);
    }

    TEST(ClassifierTest, TakesTwoKeywordsForCode)
    {
        EXPECT_EQ(classifyContent("let x = 1; return x"), ClipType::code);
        EXPECT_EQ(classifyContent("public class"), ClipType::code);
        EXPECT_EQ(classifyContent("def func"), ClipType::code);
        EXPECT_EQ(classifyContent("const private import"), ClipType::code);
    }

    TEST(ClassifierTest, TakesOneKeywordForText)
    {
        EXPECT_EQ(classifyContent("return to sender"), ClipType::plainText);
        EXPECT_EQ(classifyContent("return, return and return"), ClipType::plainText);
        EXPECT_EQ(classifyContent("Let me Return"), ClipType::plainText);
    }

    TEST(ClassifierTest, TakesKeywordsInsideOtherWordsForText)
    {
        EXPECT_EQ(classifyContent("classify the imports"), ClipType::plainText);
        EXPECT_EQ(classifyContent("outlet returning"), ClipType::plainText);
    }

    TEST(ClassifierTest, WantsAWordDirectlyAfterTheParenthesisOfIfAndFor)
    {
        EXPECT_EQ(classifyContent("if (x) for (y)"), ClipType::code);
        EXPECT_EQ(classifyContent("if ( x ) for ( y )"), ClipType::plainText);
        EXPECT_EQ(classifyContent("if () for ()"), ClipType::plainText);
        EXPECT_EQ(classifyContent("if (x) for ("), ClipType::plainText);
    }

    TEST(ClassifierTest, TakesNothingForText)
    {
        EXPECT_EQ(classifyContent(""), ClipType::plainText);
        EXPECT_EQ(classifyContent(" \n"), ClipType::plainText);
    }

    TEST(ClassifierTest, BearsTenMegabytesWithoutALineFeedAndAMillionMarks)
    {
        std::string oneLine;
        oneLine.resize(10'000'000, 'a');
        std::string marks = "e";
        for (int each = 0; each < 1'000'000; ++each)
            marks += "\u0301";

        EXPECT_EQ(classifyContent(oneLine), ClipType::plainText);
        EXPECT_EQ(classifyContent(marks), ClipType::plainText);
        EXPECT_EQ(classifyContent(marks + "@."), ClipType::email);
        EXPECT_FALSE(containsEmoji(marks));
    }

    TEST(ClassifierTest, SeesNoEmojiInDigitsAndOldSymbols)
    {
        EXPECT_FALSE(containsEmoji(""));
        EXPECT_FALSE(containsEmoji("0123456789#*©™®‼⁉ℹ↔↩"));
        EXPECT_FALSE(containsEmoji("\u2328")); // a keyboard, below the bound
        EXPECT_FALSE(containsEmoji("plain, naïve, 中文, кириллица"));
    }

    TEST(ClassifierTest, SeesAnEmojiThatIsOneByItself)
    {
        EXPECT_TRUE(containsEmoji("\U0001F44D"));
        EXPECT_TRUE(containsEmoji("a long text of more than sixteen bytes, then 👍 and more"));
        EXPECT_TRUE(containsEmoji("中文👍"));
        EXPECT_TRUE(containsEmoji("\u231A")); // a watch, below the bound, but shown as an emoji
    }

    TEST(ClassifierTest, SeesAnEmojiInASymbolAboveTheBound)
    {
        EXPECT_TRUE(containsEmoji("\u2600"));
        EXPECT_TRUE(containsEmoji("\u2764"));
        EXPECT_TRUE(containsEmoji("\u23CF")); // the first symbol above it that is not shown as one
    }

    TEST(ClassifierTest, SeesNoEmojiInIllFormedText)
    {
        EXPECT_FALSE(containsEmoji("\xF0\x9F\x91"));
        EXPECT_FALSE(containsEmoji("\xFF\xE2\x98"));
        EXPECT_TRUE(containsEmoji("\xFF\U0001F44D\xE2\x98"));
    }

} // namespace
} // namespace korvane
