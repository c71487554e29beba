#include "model/NameOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace korvane {
namespace {

    std::vector<std::string> sorted(const NameOrder& order, std::vector<std::string> names)
    {
        std::ranges::stable_sort(
            names, [&](const auto& a, const auto& b) { return order.compare(a, b) < 0; });
        return names;
    }
    using Names = std::vector<std::string>;

    TEST(NameOrderTest, CaseMakesNoDifference)
    {
        const NameOrder order("en_US");

        EXPECT_EQ(
            sorted(order, { "Gamma", "beta", "Alpha" }), (Names { "Alpha", "beta", "Gamma" }));
        EXPECT_EQ(order.compare("beta", "BETA"), 0);
    }

    TEST(NameOrderTest, TheUsersLocaleServesWhateverItIs)
    {
        const NameOrder order;

        EXPECT_EQ(
            sorted(order, { "Gamma", "beta", "Alpha" }), (Names { "Alpha", "beta", "Gamma" }));
    }

    TEST(NameOrderTest, TheLocaleOfScriptsIsReadLikeAnyOther)
    {
        for (const char* const name : { "C", "POSIX", "en_US_POSIX" }) {
            const NameOrder order(name);

            EXPECT_EQ(sorted(order, { "Gamma", "beta" }), (Names { "beta", "Gamma" })) << name;
        }
    }

    TEST(NameOrderTest, AnAccentIsADifferenceButASmallOne)
    {
        const NameOrder order("en_US");

        EXPECT_EQ(sorted(order, { "zebra", "éclair", "eclair", "Editor" }),
            (Names { "eclair", "éclair", "Editor", "zebra" }));
        EXPECT_NE(order.compare("eclair", "éclair"), 0);
    }

    TEST(NameOrderTest, TheOrderIsThatOfTheLanguage)
    {
        const NameOrder german("de_DE");
        const NameOrder swedish("sv_SE");

        EXPECT_EQ(sorted(german, { "Zebra", "Äpfel" }), (Names { "Äpfel", "Zebra" }));
        EXPECT_EQ(sorted(swedish, { "Zebra", "Äpfel" }), (Names { "Zebra", "Äpfel" }));
    }

    TEST(NameOrderTest, ALocaleThatNobodyKnowsOrdersLikeTheRest)
    {
        const NameOrder order("xx_YY");

        EXPECT_EQ(sorted(order, { "Gamma", "beta" }), (Names { "beta", "Gamma" }));
    }

    TEST(NameOrderTest, TextThatIsNotUtf8HasItsPlaceToo)
    {
        const NameOrder order("en_US");

        EXPECT_EQ(order.compare("\xFF", "\xFF"), 0);
        EXPECT_NE(order.compare("\xFF", "a"), 0);
    }

} // namespace
} // namespace korvane
