#include "platform/wayland/qt/OtherProgram.h"
#include "platform/wayland/qt/PanelDesk.h"
#include "platform/wayland/qt/TestSeat.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <linux/input-event-codes.h>
#include <sys/socket.h>

#include <csignal>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using test::seat;
    using test::waitUntil;

    TEST(LayerPanelTest, ItTakesTheKeyboardAndGivesItBack)
    {
        test::OtherWindow other;
        ASSERT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        test::PanelDesk desk;
        desk.copyNumbered(3);

        ASSERT_TRUE(desk.open());
        EXPECT_TRUE(waitUntil([&] { return !other.hasKeyboard(); }));
        seat().type(KEY_C);
        seat().type(KEY_L);
        EXPECT_TRUE(waitUntil([&] { return desk.state().panelSearch.value() == "cl"; }))
            << desk.state().panelSearch.value();
        desk.shell().hidePanel();

        EXPECT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, AClickOutsideClosesItAndReachesNobody)
    {
        test::OtherWindow other;
        ASSERT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        test::PanelDesk desk;
        ASSERT_TRUE(desk.open());

        seat().clickAt({ 200, 600 });

        EXPECT_TRUE(waitUntil([&] { return !desk.shell().isPanelVisible(); }));
        EXPECT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        EXPECT_EQ(other.presses(), 0);
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, ItHangsUnderTheBar)
    {
        const test::OtherBar bar;
        test::PanelDesk desk;
        desk.copyNumbered(3);

        ASSERT_TRUE(desk.open());

        EXPECT_EQ(desk.ground().geometry(), QRect(0, 0, 1280, 800));
        EXPECT_EQ(desk.panel().visibleFrame(), QRect(1280 - 360 - 8, 30, 360, 320));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, OpenedByTheIconItHangsUnderThePointer)
    {
        const test::OtherBar bar;
        test::PanelDesk desk;
        desk.copyNumbered(3);
        seat().moveTo({ 700, 14 });

        ASSERT_TRUE(desk.openByIcon());
        EXPECT_EQ(desk.panel().visibleFrame(), QRect(700 - 180, 30, 360, 320));
        desk.shell().hidePanel();
        seat().moveTo({ 100, 600 });
        ASSERT_TRUE(desk.open());

        EXPECT_EQ(desk.panel().visibleFrame(), QRect(700 - 180, 30, 360, 320));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, ItOpensAgainAndAgain)
    {
        test::PanelDesk desk;
        desk.copyNumbered(3);

        for (int time = 0; time < 20; ++time) {
            ASSERT_TRUE(desk.open()) << time;
            seat().type(KEY_ESC);
            ASSERT_TRUE(waitUntil([&] { return !desk.shell().isPanelVisible(); })) << time;
        }

        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    /// The compositor hears and says nothing while this lives.
    class SilentCompositor {
    public:
        SilentCompositor()
        {
            const test::TestConnection connection;
            ucred peer {};
            socklen_t size = sizeof peer;
            if (::getsockopt(
                    wl_display_get_fd(connection.display()), SOL_SOCKET, SO_PEERCRED, &peer, &size)
                == 0)
                m_process = peer.pid;
            tell(SIGSTOP);
        }
        ~SilentCompositor() { tell(SIGCONT); }
        SilentCompositor(const SilentCompositor&) = delete;
        SilentCompositor& operator=(const SilentCompositor&) = delete;

    private:
        void tell(int signal) const
        {
            if (m_process > 0)
                ::kill(m_process, signal);
        }

        pid_t m_process = 0;
    };

    TEST(LayerPanelTest, ACompositorThatKeepsSilentGetsNoPanelUntilItAnswersAgain)
    {
        test::PanelDesk desk;
        ASSERT_TRUE(test::PanelDesk::isConnected());
        {
            const SilentCompositor silent;

            desk.shell().showPanel();

            EXPECT_FALSE(desk.shell().isPanelVisible());
        }
        EXPECT_EQ(desk.log.lines,
            std::vector<std::string> { "Korvane: the compositor gives the panel no place" });

        EXPECT_TRUE(desk.open());
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, HiddenBeforeItWasSeenItLeavesNothingBehind)
    {
        test::OtherWindow other;
        ASSERT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        test::PanelDesk desk;

        for (int time = 0; time < 20; ++time) {
            desk.shell().showPanel();
            desk.shell().hidePanel();
        }
        EXPECT_TRUE(test::PanelDesk::isConnected());
        EXPECT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        EXPECT_TRUE(desk.open());
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

} // namespace
} // namespace korvane
