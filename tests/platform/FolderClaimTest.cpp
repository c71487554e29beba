#include "platform/InstanceClaim.h"

#include "support/Process.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::Bell;
    using test::modeOf;
    using test::Process;
    using test::TempFolder;

    TEST(FolderClaimTest, AFolderIsMadeAndClaimedOnce)
    {
        const TempFolder folder;
        const auto data = folder.path() / "data";

        const auto first = claimFolder(data);
        ASSERT_TRUE(first && first->isOpen());
        EXPECT_EQ(modeOf(data), 0700U);
        EXPECT_FALSE(claimFolder(data, 50ms));
    }

    TEST(FolderClaimTest, AClaimEndsWithItsProcessHoweverThatEnds)
    {
        const TempFolder folder;
        const Bell claimed;
        const Process other([&] {
            const auto claim = claimFolder(folder.path());
            claimed.ring();
            ::pause();
            return claim ? 0 : 1;
        });
        ASSERT_TRUE(claimed.wait());
        EXPECT_FALSE(claimFolder(folder.path(), 50ms));

        other.signal(SIGKILL);

        EXPECT_TRUE(claimFolder(folder.path(), 10s));
    }

    TEST(FolderClaimTest, AFolderThatCannotBeMadeCannotBeClaimedByAnyone)
    {
        const TempFolder folder;
        std::ofstream(folder.path() / "file") << "no folder";

        const auto claim = claimFolder(folder.path() / "file", 50ms);

        ASSERT_TRUE(claim);
        EXPECT_FALSE(claim->isOpen());
    }

} // namespace
} // namespace korvane
