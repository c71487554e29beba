#include "platform/shared/WorkspaceDesk.h"

namespace korvane {
namespace {

    using test::waitUntil;
    using test::WorkspaceDesk;

    TEST(WorkspaceTest, TheApplicationInFrontIsIdentifiedByItsEntry)
    {
        WorkspaceDesk desk;
        desk.install("org.example.Editor", "Name=Fine Editor\n");

        const auto window = desk.open("org.example.Editor");
        const auto application = desk.whenInFront("org.example.Editor");

        ASSERT_TRUE(application);
        EXPECT_EQ(application->localizedName, "Fine Editor");
        EXPECT_TRUE(application->isKnown);
        EXPECT_NE(application->window, 0U);
    }

    TEST(WorkspaceTest, WithoutAnEntryTheApplicationsIdentifierIsItsName)
    {
        WorkspaceDesk desk;

        const auto window = desk.open("Gadget");

        EXPECT_EQ(desk.whenInFront("Gadget")->localizedName, "Gadget");
    }

    TEST(WorkspaceTest, PasswordManagersAreKnownAsTheBuiltInListNamesThem)
    {
        WorkspaceDesk desk;

        const auto window = desk.open("KeePassXC");

        EXPECT_TRUE(desk.whenInFront("org.keepassx.keepassxc"));
    }

    TEST(WorkspaceTest, APasswordManagerUnderAnotherNameIsKnownByTheRest)
    {
        WorkspaceDesk desk;
        desk.install("com.example.repackaged", "Name=K\nStartupWMClass=KeePassXC\n");

        const auto window = desk.open("KeePassXC");

        EXPECT_TRUE(desk.whenInFront("org.keepassx.keepassxc"));
    }

    TEST(WorkspaceTest, NothingIsInFrontWhenTheLastWindowHasGone)
    {
        WorkspaceDesk desk;
        auto window = desk.open("only");
        ASSERT_TRUE(desk.whenInFront("only"));

        window.reset();

        EXPECT_TRUE(waitUntil([&] { return !desk.workspace().frontmost(); }));
    }

    TEST(WorkspaceTest, AnApplicationIsBroughtBackToTheFront)
    {
        WorkspaceDesk desk;
        const auto first = desk.open("first");
        const auto application = desk.whenInFront("first");
        const auto second = desk.open("second");
        ASSERT_TRUE(desk.whenInFront("second"));

        desk.workspace().activate(*application);

        EXPECT_TRUE(desk.whenInFront("first"));
        EXPECT_TRUE(waitUntil([&] { return first->isActive(); }));
    }

    TEST(WorkspaceTest, ActivatingAWindowThatIsGoneDoesNothing)
    {
        WorkspaceDesk desk;
        auto window = desk.open("gone");
        const auto gone = desk.whenInFront("gone");
        window.reset();
        const auto other = desk.open("other");
        ASSERT_TRUE(desk.whenInFront("other"));

        desk.workspace().activate(*gone);
        desk.real().deliverEvents();

        EXPECT_TRUE(desk.isInFront("other"));
        EXPECT_TRUE(other->isActive());
    }

    TEST(WorkspaceTest, ATerminalIsKnownByItsEntryOrItsIdentifier)
    {
        WorkspaceDesk desk;
        desk.install("blackscreen", "Name=Black Screen\nCategories=System;TerminalEmulator;\n");

        const auto byEntry = desk.open("blackscreen");
        EXPECT_TRUE(desk.whenInFront("blackscreen"));
        EXPECT_TRUE(desk.real().isTerminalInFront());
        const auto byName = desk.open("foot");
        EXPECT_TRUE(desk.whenInFront("foot"));
        EXPECT_TRUE(desk.real().isTerminalInFront());
        const auto editor = desk.open("editor");
        EXPECT_TRUE(desk.whenInFront("editor"));
        EXPECT_FALSE(desk.real().isTerminalInFront());
    }

} // namespace
} // namespace korvane
