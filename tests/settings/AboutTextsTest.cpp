#include "settings/AboutTexts.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    TEST(AboutTextsTest, ABuildWithoutAVersionShowsTheFirst)
    {
        EXPECT_EQ(abouttexts::version("2.3"), "Version 2.3");
        EXPECT_EQ(abouttexts::version(""), "Version 1.0");
    }

} // namespace
} // namespace korvane
