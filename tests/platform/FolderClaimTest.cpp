#include "platform/InstanceClaim.h"

#include "support/Process.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::Bell;
    using test::Process;
    using test::TempFolder;

    TEST(FolderClaimTest, AFolderIsClaimedOnce)
    {
        const TempFolder folder;

        const auto first = claimFolder(folder.path());

        ASSERT_TRUE(first && first->isOpen());
        EXPECT_FALSE(claimFolder(folder.path(), 50ms));
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

    TEST(FolderClaimTest, WhatIsNoFolderCannotBeClaimedByAnyoneAndIsNotMade)
    {
        const TempFolder folder;
        std::ofstream(folder.path() / "file") << "no folder";

        for (const auto* name : { "file", "missing" }) {
            const auto claim = claimFolder(folder.path() / name, 50ms);
            ASSERT_TRUE(claim) << name;
            EXPECT_FALSE(claim->isOpen()) << name;
        }
        EXPECT_FALSE(std::filesystem::exists(folder.path() / "missing"));
    }

} // namespace
} // namespace korvane
