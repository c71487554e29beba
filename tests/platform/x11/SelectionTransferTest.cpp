#include "platform/x11/SelectionTransfer.h"

#include "platform/qt/QtMainLoop.h"

#include "support/EventLoop.h"
#include "support/SelectionOwner.h"

#include <gtest/gtest.h>

#include <optional>

namespace korvane {
namespace {

    using test::Delivery;
    using Ending = TransferResult::Ending;

    constexpr std::size_t limit = 10'000'000;

    /// What comes of a request for UTF8_STRING that takes at most `limit` bytes.
    TransferResult transfer(const test::Offer& offer)
    {
        const test::SelectionOwner owner({ .offers = { offer } });
        QtMainLoop loop;
        X11Connection connection(loop);
        RequestWindows windows(connection);
        std::optional<TransferResult> result;

        SelectionTransfer transfer(connection, loop, windows,
            { connection.atom("UTF8_STRING"), XCB_CURRENT_TIME, limit },
            [&](TransferResult received) { result = std::move(received); });
        EXPECT_TRUE(test::waitUntil([&] { return result.has_value(); }));

        return result.value_or(TransferResult { Ending::silent, {}, 0 });
    }

    TEST(SelectionTransferTest, AnOwnerThatNeverStopsSendingIsGivenUpAtTheLimit)
    {
        const auto result = transfer({ .target = "UTF8_STRING",
            .bytes = std::string(200'000, 'x'),
            .delivery = Delivery::endless });

        EXPECT_EQ(result.ending, Ending::tooLarge);
        EXPECT_TRUE(result.bytes.empty());
    }

    TEST(SelectionTransferTest, APropertyOverTheLimitIsGivenUp)
    {
        const auto result
            = transfer({ .target = "UTF8_STRING", .bytes = std::string(limit + 1, 'x') });

        EXPECT_EQ(result.ending, Ending::tooLarge);
    }

    TEST(SelectionTransferTest, ExactlyTheLimitIsReceived)
    {
        for (const auto delivery : { Delivery::whole, Delivery::inPieces }) {
            const auto result = transfer({ .target = "UTF8_STRING",
                .bytes = std::string(limit, 'x'),
                .delivery = delivery,
                .pieces = { 1'000'000 } });

            EXPECT_EQ(result.ending, Ending::received);
            EXPECT_EQ(result.bytes.size(), limit);
            EXPECT_EQ(result.format, 8);
        }
    }

    TEST(SelectionTransferTest, AnOwnerThatDoesNotHaveTheTypeRefuses)
    {
        const auto result = transfer({ .target = "image/png", .bytes = "picture" });

        EXPECT_EQ(result.ending, Ending::refused);
    }

    TEST(SelectionTransferTest, AnOwnerThatOnlySaysThatItHasDeliveredHasRefused)
    {
        const auto result
            = transfer({ .target = "UTF8_STRING", .delivery = Delivery::announcedOnly });

        EXPECT_EQ(result.ending, Ending::refused);
    }

    TEST(SelectionTransferTest, ASmallTextInPiecesKeepsNoMoreRoomThanItNeeds)
    {
        const auto result = transfer({ .target = "UTF8_STRING",
            .bytes = std::string(1000, 'x'),
            .delivery = Delivery::inPieces,
            .announced = 0xFFFF'FFFF });

        EXPECT_EQ(result.ending, Ending::received);
        EXPECT_LT(result.bytes.capacity(), 2000U);
    }

} // namespace
} // namespace korvane
