#include "model/Classifier.h"

#include "model/RandomText.h"
#include "model/Text.h"

#include <gtest/gtest.h>

#include <unicode/brkiter.h>
#include <unicode/regex.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <string>

// The classifier against its rules as they are written: with regular expressions, where the program
// looks for literals and asks for boundaries itself.
namespace korvane {
namespace {

    constexpr std::array<const char*, 11> keywords { "func", "def", "const", "let", "class",
        "import", "public", "private", "return", "if (", "for (" };

    std::string escaped(const std::string& literal)
    {
        std::string pattern;
        for (const char each : literal) {
            if (each == '(')
                pattern += '\\';
            pattern += each;
        }
        return pattern;
    }

    class Expression {
    public:
        explicit Expression(const std::string& pattern)
        {
            auto error = U_ZERO_ERROR;
            m_pattern.reset(
                icu::RegexPattern::compile(icu::UnicodeString::fromUTF8(pattern), 0, error));
            EXPECT_TRUE(U_SUCCESS(error)) << pattern;
        }

        bool isFoundIn(const icu::UnicodeString& text) const
        {
            auto error = U_ZERO_ERROR;
            const std::unique_ptr<icu::RegexMatcher> matcher(m_pattern->matcher(text, error));
            return matcher->find() != 0;
        }

    private:
        std::unique_ptr<icu::RegexPattern> m_pattern;
    };

    class RulesAsWritten {
    public:
        RulesAsWritten()
        {
            for (const auto* each : keywords)
                m_keywords.emplace_back("\\b" + escaped(each) + "\\b");
        }

        const Expression& keyword(std::size_t index) const { return m_keywords[index]; }

        ClipType classify(const std::string& utf8) const
        {
            auto text = icu::UnicodeString::fromUTF8(utf8);
            while (!text.isEmpty() && u_isUWhiteSpace(text.char32At(0)) != 0)
                text.remove(0, text.moveIndex32(0, 1));
            while (!text.isEmpty() && u_isUWhiteSpace(text.char32At(text.length() - 1)) != 0)
                text.truncate(text.moveIndex32(text.length(), -1));
            const auto has = [&text](const char16_t* part) { return text.indexOf(part) >= 0; };
            if (text.startsWith(u"http://") || text.startsWith(u"https://"))
                return ClipType::url;
            if (has(u"@") && has(u".") && !has(u" ") && characters(text) < 254)
                return ClipType::email;
            if (has(u"<") && has(u">") && m_tag.isFoundIn(text))
                return ClipType::code;
            if (has(u"{") || has(u"}") || has(u" -> ") || has(u" => ") || has(u"#include"))
                return ClipType::code;
            const auto found = std::ranges::count_if(
                m_keywords, [&text](const Expression& each) { return each.isFoundIn(text); });
            return found >= 2 ? ClipType::code : ClipType::plainText;
        }

    private:
        static int characters(const icu::UnicodeString& text)
        {
            auto error = U_ZERO_ERROR;
            const std::unique_ptr<icu::BreakIterator> breaks(
                icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), error));
            breaks->setText(text);
            int count = 0;
            while (breaks->next() != icu::BreakIterator::DONE)
                ++count;
            return count;
        }

        Expression m_tag { R"(<\/?[a-zA-Z][a-zA-Z0-9]*)" };
        std::vector<Expression> m_keywords;
    };

    // What decides about a boundary: marks, format characters, joiners, connectors, digits, letters
    // and symbols of several scripts.
    const std::vector<std::string> surroundings { "", "", " ", "\t", "\n", "_", "7", "a", "Z", "é",
        "ж", "中", "क", "ا", "٣", "\u0301", "\u0308", "\u0903", "\u093F", "\u20DD", "\u00AD",
        "\u200B", "\u200C", "\u200D", "\u200E", "\u2060", "\uFEFF", "\u0600", "\u203F", "\uFE4F",
        "\u00B2", "½", "Ⅷ", "ⓐ", "👍", "\U0001F3FD", "\uFE0F", "\U000E0061", "\U00013430", "-", "(",
        ")", "$", "\u3099", "\uFF9E", "\U0001D165", "\u0E33", "\u0D3E", "\U0001F1E9" };

    TEST(ClassifierDifferentialTest, FindsKeywordsWhereTheRegularExpressionsDo)
    {
        const RulesAsWritten rules;
        test::RandomText random(1);
        std::map<bool, int> answers;
        for (int round = 0; round < 60000; ++round) {
            const auto index = random.number(keywords.size() - 1);
            const std::string keyword = keywords[index];
            std::string text;
            for (auto times = 1 + random.number(1); times > 0; --times) {
                text += random.from(surroundings, 4);
                text += keyword;
                text += random.from(surroundings, 4);
            }
            const auto expected
                = rules.keyword(index).isFoundIn(icu::UnicodeString::fromUTF8(text));
            ++answers[expected];

            ASSERT_EQ(containsWord(text, keyword), expected) << text;
        }
        EXPECT_GT(answers[true], 5000); // else the texts put nothing to the test
        EXPECT_GT(answers[false], 5000);
    }

    TEST(ClassifierDifferentialTest, AgreesAboutTheBoundaryAtEveryCodePoint)
    {
        const RulesAsWritten rules;
        constexpr std::size_t let = 3;
        constexpr std::size_t ifOpen = 9;
        for (char32_t value = 0; value <= 0x10FFFF; value += value < 0x3000 ? 1 : 17) {
            if (value >= 0xD800 && value < 0xE000)
                value = 0xE000;
            std::string each;
            appendUtf8(each, value);
            for (const auto& text : { each + "let", "let" + each, "." + each + "let",
                     "a" + each + "let", "let" + each + "." }) {
                ASSERT_EQ(containsWord(text, "let"),
                    rules.keyword(let).isFoundIn(icu::UnicodeString::fromUTF8(text)))
                    << text << std::hex << static_cast<std::uint32_t>(value);
            }
            const auto opened = "if (" + each;
            ASSERT_EQ(containsWord(opened, "if ("),
                rules.keyword(ifOpen).isFoundIn(icu::UnicodeString::fromUTF8(opened)))
                << std::hex << static_cast<std::uint32_t>(value);
        }
    }

    TEST(ClassifierDifferentialTest, ClassifiesAsTheRulesAsWritten)
    {
        std::vector<std::string> pieces { "http://", "https://", "@", ".", " ", " ", "<", ">", "/",
            "a", "p1", "->", "=>", " -> ", "#include", "\n", "\u3000", "\u00A0", "é", "\u0301",
            "中", "👍", "_", "(", ")", "x", "9", "\u200D", std::string(120, 'w'),
            std::string(126, 'w') };
        for (const auto* each : keywords) {
            pieces.emplace_back(each);
            pieces.emplace_back(std::string(each) + " ");
        }
        const RulesAsWritten rules;
        test::RandomText random(2);
        std::map<ClipType, int> answers;
        for (int round = 0; round < 60000; ++round) {
            const auto text = (random.number(3) == 0 ? "a@b." : "") + random.from(pieces, 10);
            const auto expected = rules.classify(text);
            ++answers[expected];

            ASSERT_EQ(classifyContent(text), expected) << text;
        }
        for (const auto type :
            { ClipType::plainText, ClipType::url, ClipType::email, ClipType::code })
            EXPECT_GT(answers[type], 500) << rawValue(type);
    }

    TEST(ClassifierDifferentialTest, SeesTheEmojiOfEveryCodePoint)
    {
        for (char32_t value = 0; value <= 0x10FFFF; ++value) {
            if (value == 0xD800)
                value = 0xE000;
            const auto c = static_cast<UChar32>(value);
            const auto expected = u_hasBinaryProperty(c, UCHAR_EMOJI_PRESENTATION) != 0
                || (u_hasBinaryProperty(c, UCHAR_EMOJI) != 0 && value > 0x238C);
            std::string text;
            appendUtf8(text, value);

            ASSERT_EQ(containsEmoji(text), expected)
                << std::hex << static_cast<std::uint32_t>(value);
        }
    }

    TEST(ClassifierDifferentialTest, SeesEmojiInTextsFromAllPlanes)
    {
        test::RandomText random(3);
        for (int round = 0; round < 20000; ++round) {
            const auto text = random.fromAllPlanes(60);
            auto expected = false;
            for (std::size_t at = 0; at < text.size();) {
                const auto next = codePointAt(text, at);
                const auto c = static_cast<UChar32>(next.value);
                expected = expected || u_hasBinaryProperty(c, UCHAR_EMOJI_PRESENTATION) != 0
                    || (u_hasBinaryProperty(c, UCHAR_EMOJI) != 0 && c > 0x238C);
                at += next.size;
            }

            ASSERT_EQ(containsEmoji(text), expected) << text;
        }
    }

} // namespace
} // namespace korvane
