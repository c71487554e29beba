#include "capture/UriList.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using Paths = std::deque<std::string>;
    using namespace std::string_view_literals;

    TEST(UriListTest, FilesAreGivenInTheirOrder)
    {
        EXPECT_EQ(
            filePathsFrom("file:///b\r\nfile:///a\r\nfile:///c\r\n"), (Paths { "/b", "/a", "/c" }));
    }

    TEST(UriListTest, LinesMayEndInALineFeedAlone)
    {
        EXPECT_EQ(filePathsFrom("file:///a\nfile:///b"), (Paths { "/a", "/b" }));
    }

    TEST(UriListTest, ANulAtTheEndIsNoPartOfTheList)
    {
        EXPECT_EQ(filePathsFrom("file:///a\r\n\0"sv), Paths { "/a" });
        EXPECT_EQ(filePathsFrom("file:///a\0"sv), Paths { "/a" });
    }

    TEST(UriListTest, CommentsAndEmptyLinesArePassedOver)
    {
        EXPECT_EQ(filePathsFrom("# two files\r\n\r\nfile:///a\r\n#file:///no\r\nfile:///b\r\n"),
            (Paths { "/a", "/b" }));
    }

    TEST(UriListTest, BlanksAroundAnEntryAreNoPartOfIt)
    {
        EXPECT_EQ(filePathsFrom(" \tfile:///a \r\n \r\n"), Paths { "/a" });
    }

    TEST(UriListTest, EveryFormOfALocalFileUrlIsRead)
    {
        EXPECT_EQ(filePathsFrom("file:///a/b"), Paths { "/a/b" });
        EXPECT_EQ(filePathsFrom("file:/a/b"), Paths { "/a/b" });
        EXPECT_EQ(filePathsFrom("file://localhost/a/b"), Paths { "/a/b" });
        EXPECT_EQ(filePathsFrom("FILE://LocalHost/a/b"), Paths { "/a/b" });
    }

    TEST(UriListTest, AFileOnAnotherHostIsNoneOfOurs)
    {
        EXPECT_EQ(filePathsFrom("file://server/share/a\r\nfile:///b"), Paths { "/b" });
        EXPECT_EQ(filePathsFrom("file://server"), Paths {});
    }

    TEST(UriListTest, APathThatIsNotAbsoluteIsNoFileOfOurs)
    {
        EXPECT_EQ(filePathsFrom("file:a/b\r\nfile:\r\nfile:///c"), Paths { "/c" });
    }

    TEST(UriListTest, WebAddressesAreUrlsButNoFiles)
    {
        EXPECT_EQ(filePathsFrom("https://example.org/a%20b?c#d\r\nfile:///a"), Paths { "/a" });
        EXPECT_EQ(filePathsFrom("https://example.org/"), Paths {});
    }

    TEST(UriListTest, EscapedBytesAreDecoded)
    {
        EXPECT_EQ(filePathsFrom("file:///a%20b/%C3%A9%c3%bc%23%3F%25"), Paths { "/a b/éü#?%" });
    }

    TEST(UriListTest, UnescapedBlanksAndLettersStandForThemselves)
    {
        EXPECT_EQ(filePathsFrom("file:///a b/é"), Paths { "/a b/é" });
    }

    TEST(UriListTest, ABadPercentSignMakesTheWholeListNoListOfUrls)
    {
        EXPECT_EQ(filePathsFrom("file:///a\r\nfile:///100%"), Paths {});
        EXPECT_EQ(filePathsFrom("file:///a%2"), Paths {});
        EXPECT_EQ(filePathsFrom("file:///%zz\r\nfile:///a"), Paths {});
        EXPECT_EQ(filePathsFrom("https://example.org/%\r\nfile:///a"), Paths {});
    }

    TEST(UriListTest, AnEscapeAtTheVeryEndIsDecoded)
    {
        EXPECT_EQ(filePathsFrom("file:///a%41"), Paths { "/aA" });
    }

    TEST(UriListTest, AnEscapedNulIsRefused)
    {
        EXPECT_EQ(filePathsFrom("file:///etc/passwd%00.txt"), Paths {});
    }

    TEST(UriListTest, AnEntryWithoutASchemeMakesTheWholeListNoListOfUrls)
    {
        EXPECT_EQ(filePathsFrom("file:///a\r\n/home/b"), Paths {});
        EXPECT_EQ(filePathsFrom("just some words"), Paths {});
        EXPECT_EQ(filePathsFrom("1file:///a"), Paths {});
    }

    TEST(UriListTest, AFoldersPathHasNoSlashAtItsEnd)
    {
        EXPECT_EQ(filePathsFrom("file:///a/b/"), Paths { "/a/b" });
        EXPECT_EQ(filePathsFrom("file:///"), Paths { "/" });
    }

    TEST(UriListTest, AQueryAndAFragmentAreNoPartOfThePath)
    {
        EXPECT_EQ(filePathsFrom("file:///a?b\r\nfile:///c#d"), (Paths { "/a", "/c" }));
    }

    TEST(UriListTest, APathThatIsNotUtf8IsRepaired)
    {
        EXPECT_EQ(filePathsFrom("file:///a%FFb"), Paths { "/a\uFFFDb" });
    }

    TEST(UriListTest, AnEmptyListHasNoFiles)
    {
        EXPECT_EQ(filePathsFrom(""), Paths {});
        EXPECT_EQ(filePathsFrom("\r\n"), Paths {});
        EXPECT_EQ(filePathsFrom("# nothing"), Paths {});
    }

    TEST(UriListTest, ALineFeedInAFilesNameStaysInItsPath)
    {
        EXPECT_EQ(filePathsFrom("file:///a%0Ab\r\n"), Paths { "/a\nb" });
    }

} // namespace
} // namespace korvane
