#include "WorkspaceFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

    using test::TestWindow;
    using test::waitUntil;

    /// Waits for what other programs do, while none of our events is delivered.
    bool waitWithoutDelivering(const std::function<bool()>& isSo)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds { 20 };
        while (!isSo())
            if (std::chrono::steady_clock::now() > end)
                return false;
        return true;
    }

    /// Whatever happens between `holdUp` and `atTheCopy` lies in the queue all at once, as when the
    /// loop was busy.
    struct BusyFixture : test::WorkspaceFixture {
        void holdUp()
        {
            xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, m_receiver, connection.root(),
                0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
            connection.succeeded(xcb_no_operation_checked(connection.get()));
        }
        /// An event that stands for a copy, in its place among the others.
        void copy()
        {
            xcb_client_message_event_t message {};
            message.response_type = XCB_CLIENT_MESSAGE;
            message.format = 32;
            message.type = m_copyMark;
            xcb_send_event(otherProgram.get(), 0, m_receiver, XCB_EVENT_MASK_NO_EVENT,
                reinterpret_cast<const char*>(&message));
            otherProgram.sync();
        }
        /// A window comes, and something is copied while it is active.
        void copyInA(TestWindow& late)
        {
            late.map();
            ASSERT_TRUE(
                waitWithoutDelivering([&] { return late.isActive() && late.hasKeyboard(); }));
            copy();
        }
        /// The manager may still be telling of what was done.
        bool comesToFront(std::string_view identifier)
        {
            return waitUntil([&] {
                const auto application = workspace.frontmost();
                return application && application->bundleIdentifier == identifier;
            });
        }
        /// Who was in front at the copy, once everything until now has been delivered.
        std::optional<RunningApplication> atTheCopy()
        {
            deliverEvents();
            EXPECT_EQ(m_copies.size(), 1U);
            return m_copies.empty() ? std::nullopt : m_copies.back();
        }

    private:
        xcb_window_t m_receiver = xcb_generate_id(connection.get());
        xcb_atom_t m_copyMark = connection.atom("KORVANE_TEST_COPY");
        std::vector<std::optional<RunningApplication>> m_copies;
        Connection m_copied = connection.onEvent(XCB_CLIENT_MESSAGE, [this](const auto& event) {
            if (reinterpret_cast<const xcb_client_message_event_t&>(event).type == m_copyMark)
                m_copies.push_back(workspace.frontmost());
        });
    };

    TEST(X11WorkspaceOrderTest, WhatIsInFrontIsFollowedInTheOrderOfTheEvents)
    {
        BusyFixture f;
        f.window.setClass("first", "First");
        TestWindow second(f.otherProgram);
        second.setClass("second", "Second");
        ASSERT_TRUE(f.bringToFront(second));
        ASSERT_TRUE(f.bringToFront(f.window));

        f.holdUp();
        f.copy();
        f.setActive(second.id());

        EXPECT_EQ(f.atTheCopy()->bundleIdentifier, "First");
        EXPECT_TRUE(f.comesToFront("Second"));
    }

    TEST(X11WorkspaceOrderTest, ACopyBetweenTwoChangesIsJudgedByTheWindowItWasMadeIn)
    {
        BusyFixture f;
        f.window.setClass("keepassxc", "KeePassXC");
        TestWindow editor(f.otherProgram);
        editor.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        ASSERT_TRUE(f.bringToFront(editor));

        f.holdUp();
        f.goTo(f.window);
        f.setActive(f.window.id()); // managers say it twice
        f.copy();
        f.goTo(editor);

        EXPECT_TRUE(f.atTheCopy()->isKnown);
        EXPECT_EQ(f.atTheCopy()->bundleIdentifier, "org.keepassx.keepassxc");
        EXPECT_TRUE(f.comesToFront("Editor"));
    }

    TEST(X11WorkspaceOrderTest, AKeyboardThatIsLentOrGivenToAChildIsStillTheWindows)
    {
        BusyFixture f;
        f.window.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        const auto child = xcb_generate_id(f.otherProgram.get());
        xcb_create_window(f.otherProgram.get(), XCB_COPY_FROM_PARENT, child, f.window.id(), 0, 0, 9,
            9, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(f.otherProgram.get(), child);

        f.holdUp();
        ASSERT_TRUE(f.holdKeyboard()); // as an open menu does
        xcb_ungrab_keyboard(f.otherProgram.get(), XCB_CURRENT_TIME);
        xcb_set_input_focus(f.otherProgram.get(), XCB_INPUT_FOCUS_PARENT, child, XCB_CURRENT_TIME);
        f.setActive(f.window.id());
        f.copy();
        f.setActive(f.window.id());

        ASSERT_TRUE(f.atTheCopy());
        EXPECT_TRUE(f.atTheCopy()->isKnown);
        EXPECT_EQ(f.atTheCopy()->bundleIdentifier, "Editor");
    }

    TEST(X11WorkspaceOrderTest, ACopyInAWindowThatCameWhileTheLoopWasBusyIsNobodysThatIsKnown)
    {
        BusyFixture f;
        f.window.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        TestWindow late(f.otherProgram);
        late.setClass("keepassxc", "KeePassXC");

        f.holdUp();
        f.copyInA(late);
        f.goTo(f.window);

        ASSERT_TRUE(f.atTheCopy());
        EXPECT_FALSE(f.atTheCopy()->isKnown);
        EXPECT_TRUE(f.comesToFront("Editor"));
    }

    TEST(
        X11WorkspaceOrderTest, ACopyInAWindowThatCameAndWentWhileTheLoopWasBusyIsNobodysThatIsKnown)
    {
        BusyFixture f;
        f.window.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        TestWindow late(f.otherProgram);

        f.holdUp();
        f.copyInA(late);
        late.destroy();
        ASSERT_TRUE(waitWithoutDelivering([&] { return f.window.hasKeyboard(); }));

        ASSERT_TRUE(f.atTheCopy());
        EXPECT_FALSE(f.atTheCopy()->isKnown);
        f.deliverEvents();
        EXPECT_TRUE(f.comesToFront("Editor"));
    }

    TEST(X11WorkspaceOrderTest, ACopyInAWindowThatIsGoneIsNobodysThatIsKnown)
    {
        BusyFixture f;
        TestWindow editor(f.otherProgram);
        editor.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        ASSERT_TRUE(f.bringToFront(editor));

        f.holdUp();
        f.goTo(f.window);
        f.copy();
        f.window.destroy();
        f.otherProgram.sync();

        ASSERT_TRUE(f.atTheCopy());
        EXPECT_FALSE(f.atTheCopy()->isKnown);
        EXPECT_TRUE(waitUntil([&] {
            return f.workspace.frontmost() && f.workspace.frontmost()->bundleIdentifier == "Editor";
        }));
    }

    TEST(X11WorkspaceOrderTest, ACopyInAWindowThatIsGoneIsNobodysThatIsKnownAlsoWhereItsNumberStays)
    {
        BusyFixture f;
        ASSERT_TRUE(f.whenInFront());
        const auto vanished = xcb_generate_id(f.otherProgram.get());

        f.holdUp();
        f.setActive(vanished);
        f.copy();
        ASSERT_TRUE(f.atTheCopy());
        EXPECT_FALSE(f.atTheCopy()->isKnown);

        // Whatever is copied later is not its doing.
        EXPECT_EQ(f.workspace.frontmost(), std::nullopt);
    }

    TEST(X11WorkspaceOrderTest, AWindowThatHasJustGoneIsKnownByWhatItWas)
    {
        BusyFixture f;
        f.window.setClass("keepassxc", "KeePassXC");
        ASSERT_TRUE(f.whenInFront());

        f.window.destroy(); // of which nothing has been delivered
        f.otherProgram.sync();
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "org.keepassx.keepassxc");

        f.deliverEvents();
        EXPECT_EQ(f.workspace.frontmost(), std::nullopt);
    }

} // namespace
} // namespace korvane
