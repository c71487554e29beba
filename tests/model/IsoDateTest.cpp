#include "model/IsoDate.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono;

    TimePoint at(int y, unsigned m, unsigned d, milliseconds time = 0ms)
    {
        return TimePoint { sys_days { year { y } / month { m } / day { d } }.time_since_epoch()
            + time };
    }

    TEST(IsoDateTest, WholeSecondsInUtcWithAZ)
    {
        EXPECT_EQ(isoDate(at(2024, 5, 1, 12h + 34min + 56s)), "2024-05-01T12:34:56Z");
    }

    TEST(IsoDateTest, TheFractionIsDroppedDownwardAlsoBefore1970)
    {
        EXPECT_EQ(isoDate(at(2024, 5, 1, 999ms)), "2024-05-01T00:00:00Z");
        EXPECT_EQ(isoDate(at(1969, 12, 31, 23h + 59min + 59s + 1ms)), "1969-12-31T23:59:59Z");
    }

    TEST(IsoDateTest, EveryYearOfTheFormIsWrittenAndRead)
    {
        for (const int y : { 1, 999, 1600, 1899, 1970, 2262, 2263, 9999 }) {
            const auto moment = at(y, 2, 28, 1h);
            EXPECT_EQ(parseIsoDate(isoDate(moment)), moment) << y;
        }
        EXPECT_EQ(isoDate(at(1, 1, 1)), "0001-01-01T00:00:00Z");
    }

    TEST(IsoDateTest, AnOffsetWithAColonIsRead)
    {
        EXPECT_EQ(parseIsoDate("2024-05-01T12:34:56+01:30"), at(2024, 5, 1, 11h + 4min + 56s));
        EXPECT_EQ(parseIsoDate("2024-05-01T12:34:56-01:00"), at(2024, 5, 1, 13h + 34min + 56s));
    }

    TEST(IsoDateTest, ALeapDayExistsInLeapYearsOnly)
    {
        EXPECT_EQ(parseIsoDate("2024-02-29T00:00:00Z"), at(2024, 2, 29));
        EXPECT_FALSE(parseIsoDate("2023-02-29T00:00:00Z"));
        EXPECT_FALSE(parseIsoDate("1900-02-29T00:00:00Z"));
    }

    TEST(IsoDateTest, WhatIsNoDateIsRefused)
    {
        for (const auto* text : { "", "2024-05-01", "2024-13-01T00:00:00Z", "2024-00-01T00:00:00Z",
                 "2024-05-32T00:00:00Z", "2024-05-01T24:00:01Z", "2024-05-01T00:60:00Z",
                 "2024-05-01T00:00:00", "2024-05-01 00:00:00Z", "2024-05-01T00:00:00Z ",
                 " 2024-05-01T00:00:00Z", "2024-05-01T00:00:00z0", "2024-5-1T00:00:00Z",
                 "2024-05-01T00:00:00.5Z", "+2024-05-01T00:00:00Z", "2024-05-01T00:00:00+1:00" })
            EXPECT_FALSE(parseIsoDate(text)) << text;
    }

} // namespace
} // namespace korvane
