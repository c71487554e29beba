#include "settings/ApplicationSearch.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    Application application(std::string identifier, std::string name)
    {
        return { std::move(identifier), std::move(name), "", "" };
    }
    std::vector<std::string> names(const std::vector<Application>& applications)
    {
        std::vector<std::string> result;
        result.reserve(applications.size());
        for (const auto& each : applications)
            result.push_back(each.name);
        return result;
    }
    using Names = std::vector<std::string>;

    const ApplicationSearch search(
        { application("org.gnome.Nautilus", "Files"), application("beta", "beta"),
            application("firefox", "Fïrefox"), application("gamma", "Gamma") });

    TEST(ApplicationSearchTest, WhileNothingIsTypedAllAreThereByTheirNames)
    {
        EXPECT_EQ(names(search.matching("")), (Names { "beta", "Files", "Fïrefox", "Gamma" }));
    }

    TEST(ApplicationSearchTest, CaseMakesNoDifference)
    {
        EXPECT_EQ(names(search.matching("GAM")), (Names { "Gamma" }));
    }

    TEST(ApplicationSearchTest, TheEncodingOfAnAccentMakesNoDifference)
    {
        EXPECT_EQ(names(search.matching("fi\u0308re")), (Names { "Fïrefox" }));
    }

    TEST(ApplicationSearchTest, TheIdentifierIsLookedThroughToo)
    {
        EXPECT_EQ(names(search.matching("nautilus")), (Names { "Files" }));
    }

    TEST(ApplicationSearchTest, WhatNothingHoldsIsNotFound)
    {
        EXPECT_TRUE(search.matching("zzz").empty());
    }

    TEST(ApplicationSearchTest, EqualNamesStandByTheirIdentifiers)
    {
        const ApplicationSearch twins({ application("b", "Twin"), application("a", "twin") });

        const auto found = twins.matching("");

        ASSERT_EQ(found.size(), 2U);
        EXPECT_EQ(found[0].identifier, "a");
    }

} // namespace
} // namespace korvane
