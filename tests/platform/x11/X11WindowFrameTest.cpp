#include "platform/x11/X11WindowFrame.h"

#include "X11Desk.h"
#include "platform/x11/X11OutsideClicks.h"
#include "platform/x11/X11RawInput.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

    using test::TestClient;
    using test::TestWindow;
    using test::waitUntil;

    constexpr PixelRect visible { 32, 22, 360, 420 };
    constexpr int width = 424;
    constexpr int height = 488;

    struct FrameFixture : test::X11Desk {
        TestClient toolkit; // the connection that our windows are made on
        TestWindow panel { toolkit, TestWindow::Kind::overrideRedirect };
        X11RawInput rawInput { connection };
        X11OutsideClicks clicks { connection, rawInput, windowsOf(toolkit.get()) };
        int pressed = 0;
        Connection connectionOfPressed = clicks.pressed.connect([this] { ++pressed; });

        FrameFixture()
        {
            panel.place(300, 300, width, height);
            panel.map();
            toolkit.sync();
            tellWindowFrame(connection, panel.id(), visible, width, height);
            clicks.watch();
            deliverEvents();
        }
        void clickAt(int x, int y)
        {
            input.movePointer(300 + x, 300 + y);
            input.click(1);
            deliverEvents();
        }
        std::vector<std::uint32_t> property(std::string_view name)
        {
            const X11Reply<xcb_get_property_reply_t> answer(xcb_get_property_reply(toolkit.get(),
                xcb_get_property(
                    toolkit.get(), 0, panel.id(), toolkit.atom(name), XCB_ATOM_CARDINAL, 0, 8),
                nullptr));
            if (!answer)
                return {};
            const auto bytes
                = static_cast<std::size_t>(xcb_get_property_value_length(answer.get()));
            std::vector<std::uint32_t> numbers(bytes / sizeof(std::uint32_t));
            std::memcpy(numbers.data(), xcb_get_property_value(answer.get()), bytes);
            return numbers;
        }
    };

    TEST(X11WindowFrameTest, AClickOnTheShadowIsAClickOutside)
    {
        FrameFixture f;

        f.clickAt(10, 200);
        f.clickAt(200, 460);

        EXPECT_EQ(f.pressed, 2);
    }

    TEST(X11WindowFrameTest, AClickOnTheWindowItselfIsNot)
    {
        FrameFixture f;

        f.clickAt(33, 23);
        f.clickAt(390, 440);

        EXPECT_EQ(f.pressed, 0);
    }

    TEST(X11WindowFrameTest, AWindowWithoutShadowAnyMoreIsAllWindow)
    {
        FrameFixture f;

        tellWindowFrame(f.connection, f.panel.id(), { 0, 0, width, height }, width, height);
        f.clickAt(10, 200);

        EXPECT_EQ(f.pressed, 0);
    }

    TEST(X11WindowFrameTest, TheDesktopIsToldHowWideTheShadowIsOnEachSide)
    {
        FrameFixture f;

        // Left, right, top, bottom.
        EXPECT_EQ(
            f.property("_GTK_FRAME_EXTENTS"), (std::vector<std::uint32_t> { 32, 32, 22, 46 }));
        EXPECT_EQ(f.property("_COMPTON_SHADOW"), (std::vector<std::uint32_t> { 0 }));
    }

} // namespace
} // namespace korvane
