#include "capture/ClipboardMonitor.h"

#include "capture/MonitorFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::MonitorFixture;
    using Texts = std::vector<std::string>;

    TEST(OwnWriteTest, FilesLeaveTheLastOwnTextAsItWas)
    {
        MonitorFixture f;
        f.monitor.absorbOwnWrite("own");

        f.pasteboard.copy({ .isSecret = false, .uriList = "file:///tmp/a", .text = "own" });
        f.loop.turn();

        EXPECT_EQ(f.monitor.lastOwnText(), "own");
    }

    TEST(OwnWriteTest, AnOwnWriteAbsorbedBeforehandYieldsNothingAndIsUsedUp)
    {
        MonitorFixture f;
        f.writeOwnText("own");

        f.loop.advance(500ms);

        EXPECT_EQ(f.texts(), Texts {});
        EXPECT_EQ(f.monitor.lastOwnText(), std::nullopt);
    }

    TEST(OwnWriteTest, AnOwnWriteAbsorbedAfterwardsIsNotEvenRead)
    {
        MonitorFixture f;
        f.pasteboard.writeText("own");
        f.monitor.absorbOwnWrite("own");

        f.loop.advance(2s);

        EXPECT_EQ(f.pasteboard.reads, 0);
        EXPECT_EQ(f.monitor.lastOwnText(), "own");
    }

    TEST(OwnWriteTest, TheSameTextCopiedByTheUserLaterIsCaptured)
    {
        MonitorFixture f;
        f.writeOwnText("own");
        f.loop.advance(500ms);

        f.copyText("own");

        EXPECT_EQ(f.texts(), Texts { "own" });
    }

    TEST(OwnWriteTest, TheUsersTextBeforeTheOwnWriteWasSeenIsCaptured)
    {
        MonitorFixture f;
        f.writeOwnText("own");
        f.pasteboard.copyText("user's");

        f.loop.advance(500ms);

        EXPECT_EQ(f.texts(), Texts { "user's" });
        EXPECT_EQ(f.monitor.lastOwnText(), std::nullopt);
    }

    TEST(OwnWriteTest, AnOwnTextIsKnownInEitherCanonicalForm)
    {
        MonitorFixture f;
        f.monitor.absorbOwnWrite("caf\u00E9");
        f.pasteboard.writeText("cafe\u0301");

        f.loop.advance(500ms);

        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(OwnWriteTest, AnOwnWriteWithoutATextComesBackAsACopy)
    {
        MonitorFixture f;
        f.monitor.absorbOwnWrite(std::nullopt);
        f.pasteboard.writeText("the whole of a large clip");

        f.loop.advance(500ms);

        EXPECT_EQ(f.texts(), Texts { "the whole of a large clip" });
    }

    TEST(OwnWriteTest, AnOwnWriteWithoutATextLeavesTheLastOneStanding)
    {
        MonitorFixture f;
        f.monitor.absorbOwnWrite("own");

        f.monitor.absorbOwnWrite(std::nullopt);

        EXPECT_EQ(f.monitor.lastOwnText(), "own");
    }

    TEST(OwnWriteTest, BlankTextLeavesTheLastOwnTextAsItWas)
    {
        MonitorFixture f;
        f.monitor.absorbOwnWrite("own");

        f.copyText("  ");

        EXPECT_EQ(f.monitor.lastOwnText(), "own");
    }

    TEST(OwnWriteTest, ACopyReadBeforeAnOwnWriteIsNotTakenForIt)
    {
        MonitorFixture f;
        f.pasteboard.holdsAnswers = true;
        f.pasteboard.copyText("same");
        f.monitor.absorbOwnWrite("same");

        f.pasteboard.answerOldest();

        EXPECT_EQ(f.texts(), Texts { "same" });
        EXPECT_EQ(f.monitor.lastOwnText(), "same");
    }

    TEST(OwnWriteTest, AnOwnTextIsKnownThoughTheDesktopDropsItsNuls)
    {
        using namespace std::string_literals;
        MonitorFixture f;
        f.monitor.absorbOwnWrite("a\0b"s);

        f.copyText("ab");

        EXPECT_EQ(f.texts(), Texts {});
    }

} // namespace
} // namespace korvane
