#include "platform/qt/FileUri.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    TEST(FileUriTest, APathIsTakenAsItStands)
    {
        EXPECT_EQ(fileOf("file:///tmp/a-b_c.json"), "/tmp/a-b_c.json");
        EXPECT_EQ(fileOf("file:/tmp/a"), "/tmp/a");
        EXPECT_EQ(fileOf("FILE://LocalHost/tmp/a"), "/tmp/a");
    }

    TEST(FileUriTest, EncodedBytesAreDecodedOnceWhateverTheyAre)
    {
        EXPECT_EQ(fileOf("file:///tmp/my%20file%23%3f"), "/tmp/my file#?");
        EXPECT_EQ(fileOf("file:///%C3%BCbung"), "/übung");
        EXPECT_EQ(fileOf("file:///100%25%2541"), "/100%%41");
        EXPECT_EQ(fileOf("file:///%ff"), "/\xff");
        EXPECT_EQ(fileOf("file:///a+b"), "/a+b");
        EXPECT_EQ(fileOf("file:///ü"), "/ü");
    }

    TEST(FileUriTest, WhatIsNoFileOfThisMachineIsNone)
    {
        for (const auto* uri : { "", "file:", "file://", "/tmp/a", "tmp", "http://localhost/tmp/a",
                 "sftp:///tmp/a", "file://elsewhere/tmp/a", "file://localhosts/tmp/a", "file:tmp/a",
                 "file:///tmp/a?b", "file:///tmp/a#b" })
            EXPECT_FALSE(fileOf(uri)) << uri;
    }

    TEST(FileUriTest, AnEncodingThatIsNoneIsNoFile)
    {
        for (const auto* uri : { "file:///a%", "file:///a%2", "file:///a%zz", "file:///a%-1",
                 "file:///a% 1", "file:///a%00b" })
            EXPECT_FALSE(fileOf(uri)) << uri;
        EXPECT_FALSE(fileOf(std::string("file:///a\0b", 11)));
    }

} // namespace
} // namespace korvane
