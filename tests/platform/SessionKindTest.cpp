#include "platform/SessionKind.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    TEST(SessionKindTest, WithoutACompositorItIsTheXServer)
    {
        EXPECT_EQ(sessionKind({ .hasX11Display = true }), SessionKind::x11);
        EXPECT_EQ(sessionKind({}), SessionKind::none);
    }

    TEST(SessionKindTest, ACompositorWithDataControlAndLayerShellIsServedNatively)
    {
        SessionFacts facts { .hasX11Display = true,
            .hasCompositor = true,
            .hasDataControl = true,
            .hasLayerShell = true };

        EXPECT_EQ(sessionKind(facts), SessionKind::wayland);
        facts.hasX11Display = false;
        EXPECT_EQ(sessionKind(facts), SessionKind::wayland);
    }

    TEST(SessionKindTest, WhereEitherIsMissingItIsServedThroughX11InALimitedWay)
    {
        SessionFacts facts { .hasX11Display = true, .hasCompositor = true };
        EXPECT_EQ(sessionKind(facts), SessionKind::limitedX11);

        facts.hasDataControl = true;
        EXPECT_EQ(sessionKind(facts), SessionKind::limitedX11);

        facts.hasX11Display = false;
        EXPECT_EQ(sessionKind(facts), SessionKind::none);
    }

    TEST(SessionKindTest, AWishIsFulfilledOrRefusedAndNeverReplaced)
    {
        SessionFacts facts { .hasX11Display = true,
            .hasCompositor = true,
            .hasDataControl = true,
            .hasLayerShell = true,
            .wish = "x11" };
        EXPECT_EQ(sessionKind(facts), SessionKind::limitedX11);

        facts.wish = "wayland";
        EXPECT_EQ(sessionKind(facts), SessionKind::wayland);
        facts.hasLayerShell = false;
        EXPECT_EQ(sessionKind(facts), SessionKind::none);

        facts.wish = "something else";
        EXPECT_EQ(sessionKind(facts), SessionKind::limitedX11);
    }

} // namespace
} // namespace korvane
