#include "platform/wayland/WaylandConnection.h"

#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/CompositorServices.h"
#include "platform/wayland/EmptyCompositor.h"
#include "platform/wayland/WaylandKeyboard.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "platform/wayland/WaylandWorkspace.h"
#include "support/EventLoop.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using std::chrono::steady_clock;
    using test::EmptyCompositor;
    using test::Environment;
    using test::waitUntil;

    TEST(WaylandConnectionTest, WhatTheCompositorOffersIsKnownAtOnce)
    {
        QtMainLoop loop;

        WaylandConnection connection(loop);

        EXPECT_TRUE(connection.isOpen());
        EXPECT_GT(connection.versionOf(wl_compositor_interface), 0U);
        EXPECT_NE(connection.seat(), nullptr);
        EXPECT_TRUE(connection.roundTrip());
    }

    TEST(WaylandConnectionTest, WithoutACompositorNothingIsThereAndNothingFails)
    {
        const Environment none { { { "WAYLAND_DISPLAY", "no-such-compositor" } } };
        QtMainLoop loop;

        WaylandConnection connection(loop);

        EXPECT_FALSE(connection.isOpen());
        EXPECT_EQ(connection.versionOf(wl_compositor_interface), 0U);
        EXPECT_EQ(connection.seat(), nullptr);
        EXPECT_FALSE(connection.roundTrip());
        connection.flush();
    }

    TEST(WaylandConnectionTest, TheEndOfTheCompositorIsToldOnce)
    {
        EmptyCompositor compositor;
        QtMainLoop loop;
        WaylandConnection connection(loop);
        ASSERT_TRUE(connection.isOpen());
        int losses = 0;
        const auto onLoss = connection.lost.connect([&] { ++losses; });

        compositor.process().signal(SIGKILL);

        EXPECT_TRUE(waitUntil([&] { return losses == 1; }));
        EXPECT_FALSE(connection.isOpen());
        EXPECT_FALSE(connection.roundTrip());
        bool isTurned = false;
        loop.post([&] { isTurned = true; });
        waitUntil([&] { return isTurned; });
        EXPECT_EQ(losses, 1);
    }

    TEST(WaylandConnectionTest, ACompositorThatHangsIsWaitedForTwoSecondsAndNoLonger)
    {
        EmptyCompositor compositor;
        QtMainLoop loop;
        WaylandConnection connection(loop);
        ASSERT_TRUE(connection.roundTrip());
        compositor.process().stop();
        const auto begun = steady_clock::now();

        const bool isAnswered = connection.roundTrip();

        EXPECT_FALSE(isAnswered);
        EXPECT_LT(steady_clock::now() - begun, 10s);
        EXPECT_TRUE(connection.isOpen());
        compositor.process().signal(SIGCONT);
        EXPECT_TRUE(connection.roundTrip());
    }

    TEST(WaylandConnectionTest, WithNothingOnOfferTheBackendsSaySoAndDoNothing)
    {
        const EmptyCompositor compositor;
        QtMainLoop loop;
        WaylandConnection connection(loop);
        DesktopEntries entries(loop, {});
        const SeatKeyboard seat(connection.get());

        WaylandWorkspace workspace(connection, entries, [] { return false; });
        WaylandPasteboard pasteboard(connection, loop,
            { [] { return std::uint64_t { 0 }; }, [](std::uint64_t) { return false; } });
        WaylandKeyboard keyboard(connection, seat, { [] { return false; }, [] {} });

        EXPECT_FALSE(workspace.isAvailable());
        EXPECT_EQ(workspace.frontmost(), std::nullopt);
        workspace.activate({});
        EXPECT_FALSE(pasteboard.isAvailable());
        pasteboard.writeText("text");
        pasteboard.writePrimaryToo();
        std::optional<bool> isAnswered;
        pasteboard.read([&](auto contents) { isAnswered = contents.has_value(); });
        EXPECT_TRUE(waitUntil([&] { return isAnswered.has_value(); }));
        EXPECT_FALSE(*isAnswered);
        EXPECT_FALSE(keyboard.canType());
        keyboard.typeChord(keycodes::v, modifiers::command);
        EXPECT_TRUE(connection.isOpen());
    }

    TEST(WaylandConnectionTest, NewsOutsideARoundTripIsToldAtOnce)
    {
        QtMainLoop loop;
        WaylandConnection connection(loop);
        bool isTold = false;

        connection.tellInOrder(std::make_shared<bool>(true), [&] { isTold = true; });

        EXPECT_TRUE(isTold);
    }

    TEST(WaylandConnectionTest, NewsOfARoundTripIsToldAfterItInOrder)
    {
        QtMainLoop loop;
        WaylandConnection connection(loop);
        const auto life = std::make_shared<bool>(true);
        auto gone = std::make_shared<bool>(true);
        std::vector<int> told;
        struct Listener {
            WaylandConnection& connection;
            const std::shared_ptr<bool>& life;
            const std::shared_ptr<bool>& gone;
            std::vector<int>& told;
        } listener { connection, life, gone, told };
        static constexpr wl_callback_listener hear {
            .done =
                [](void* data, wl_callback* callback, std::uint32_t) {
                    auto& self = *static_cast<Listener*>(data);
                    for (const int number : { 1, 2 })
                        self.connection.tellInOrder(
                            self.life, [&self, number] { self.told.push_back(number); });
                    self.connection.tellInOrder(self.gone, [&self] { self.told.push_back(3); });
                    wl_callback_destroy(callback);
                },
        };
        wl_callback_add_listener(wl_display_sync(connection.get()), &hear, &listener);

        connection.roundTrip();
        const auto toldMeanwhile = told;
        gone.reset();
        connection.tellInOrder(life, [&] { told.push_back(4); });

        EXPECT_TRUE(toldMeanwhile.empty());
        EXPECT_TRUE(waitUntil([&] { return told.size() == 3; }));
        EXPECT_EQ(told, (std::vector { 1, 2, 4 }));
    }

    TEST(CompositorServicesTest, WhatThisCompositorOffersIsToldWithoutALoop)
    {
        const auto services = lookAtCompositor();

        ASSERT_TRUE(services);
        EXPECT_TRUE(services->offers("wl_compositor"));
        EXPECT_TRUE(services->hasDataControl());
        EXPECT_TRUE(services->hasLayerShell());
        EXPECT_TRUE(services->hasWindowList());
        EXPECT_TRUE(services->hasTyping());
    }

    TEST(CompositorServicesTest, ACompositorThatOffersNothingIsOneAllTheSame)
    {
        const EmptyCompositor compositor;

        const auto services = lookAtCompositor();

        ASSERT_TRUE(services);
        EXPECT_FALSE(services->hasDataControl());
        EXPECT_FALSE(services->hasLayerShell());
        EXPECT_FALSE(services->hasWindowList());
        EXPECT_FALSE(services->hasTyping());
    }

    TEST(CompositorServicesTest, OneThatHangsOrIsNotThereIsNone)
    {
        EmptyCompositor compositor;
        compositor.process().stop();

        EXPECT_EQ(lookAtCompositor(), std::nullopt);

        const Environment none { { { "WAYLAND_DISPLAY", "no-such-compositor" } } };
        EXPECT_EQ(lookAtCompositor(), std::nullopt);
    }

} // namespace
} // namespace korvane
