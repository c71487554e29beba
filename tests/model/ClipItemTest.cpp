#include "model/ClipItem.h"

#include <gtest/gtest.h>

#include <set>
#include <unordered_set>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    std::string ageOf(std::chrono::milliseconds age)
    {
        ClipItem clip;
        clip.createdAt = TimePoint { 1'700'000'000s };
        return relativeAge(clip, clip.createdAt + age);
    }

    TEST(ClipItemTest, BelowAMinuteItIsJustNow)
    {
        EXPECT_EQ(ageOf(0ms), "just now");
        EXPECT_EQ(ageOf(59'900ms), "just now");
    }

    TEST(ClipItemTest, AClipFromTheFutureIsJustNow)
    {
        EXPECT_EQ(ageOf(-5min), "just now");
    }

    TEST(ClipItemTest, MinutesHoursAndDaysAreWhole)
    {
        EXPECT_EQ(ageOf(60s), "1m");
        EXPECT_EQ(ageOf(59min + 59s), "59m");
        EXPECT_EQ(ageOf(3600s), "1h");
        EXPECT_EQ(ageOf(7199s), "1h");
        EXPECT_EQ(ageOf(86399s), "23h");
        EXPECT_EQ(ageOf(86400s), "1d");
        EXPECT_EQ(ageOf(172800s), "2d");
        EXPECT_EQ(ageOf(24h * 365), "365d");
    }

    TEST(ClipItemTest, TwoRecordsWithTheSameIdentifierAreEqualWhateverTheirText)
    {
        ClipItem a;
        a.id = ClipId::random();
        ClipItem b = a;
        b.text = "other";
        b.isPinned = true;

        EXPECT_EQ(a, b);
        EXPECT_EQ(std::hash<ClipItem> {}(a), std::hash<ClipItem> {}(b));
        b.id = ClipId::random();
        EXPECT_FALSE(a == b);
    }

    TEST(ClipItemTest, IdentifiersAreRandomAndOfVersionFour)
    {
        std::set<std::string> seen;
        for (int i = 0; i < 1000; ++i) {
            const auto text = ClipId::random().text();
            EXPECT_EQ(text.size(), 36U);
            EXPECT_EQ(text[14], '4');
            EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos);
            seen.insert(text);
        }
        EXPECT_EQ(seen.size(), 1000U);
    }

    TEST(ClipItemTest, AnIdentifierIsReadInEitherCaseAndWrittenInUpperCase)
    {
        const auto id = ClipId::parse("0a1b2c3d-1111-2222-3333-444455556666");

        ASSERT_TRUE(id);
        EXPECT_EQ(id->text(), "0A1B2C3D-1111-2222-3333-444455556666");
    }

    TEST(ClipItemTest, WhatIsNoIdentifierIsRefused)
    {
        for (const auto* text :
            { "", "0A1B2C3D11112222333344445555 6666", "0A1B2C3D-1111-2222-3333-44445555666",
                "0A1B2C3D-1111-2222-3333-4444555566667", "0A1B2C3D-1111-2222-3333-44445555666G",
                "{0A1B2C3D-1111-2222-3333-44445555666}", "0A1B2C3D1-111-2222-3333-444455556666" })
            EXPECT_FALSE(ClipId::parse(text)) << text;
    }

    TEST(ClipItemTest, TheTypesHaveTheirNamesOnDisk)
    {
        std::vector<std::string_view> names;
        for (const auto type : allClipTypes) {
            names.push_back(rawValue(type));
            EXPECT_EQ(clipTypeFrom(rawValue(type)), type);
        }

        EXPECT_EQ(
            names, (std::vector<std::string_view> { "plainText", "url", "email", "code", "file" }));
        EXPECT_FALSE(clipTypeFrom("URL"));
        EXPECT_FALSE(clipTypeFrom("image"));
    }

} // namespace
} // namespace korvane
