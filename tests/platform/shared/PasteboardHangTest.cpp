#include "platform/shared/PasteboardDesk.h"

#include <gtest/gtest.h>

#include <QTimer>

#include <chrono>
#include <optional>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using std::chrono::steady_clock;
    using test::Delivery;
    using test::LoopGap;
    using test::PasteboardDesk;
    using test::SelectionOwner;
    using test::textOwner;

    /// The longest that keys and painting may have to wait.
    constexpr auto maxGap = 50ms;

    test::OwnerScript hanging(Delivery delivery)
    {
        return { .offers = { { .target = "UTF8_STRING",
                     .bytes = std::string(1'000'000, 'x'),
                     .delivery = delivery } } };
    }

    /// Reads from an owner that falls silent: an answer of nothing, after two seconds, while the
    /// loop goes on.
    void expectSilenceIsBorne(PasteboardDesk& desk)
    {
        LoopGap gap;
        const auto begun = steady_clock::now();

        const auto contents = desk.read();

        const auto took = steady_clock::now() - begun;
        EXPECT_FALSE(contents.has_value());
        EXPECT_GE(took, 2s);
        EXPECT_LT(took, 4s);
        EXPECT_LT(gap.longest(), maxGap);
    }

    TEST(PasteboardHangTest, AnOwnerThatIsStoppedHoldsUpNobody)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));

        owner.freeze();

        expectSilenceIsBorne(desk);
    }

    TEST(PasteboardHangTest, AnOwnerThatListsItsTypesAndThenFallsSilentHoldsUpNobody)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(hanging(Delivery::never));
        EXPECT_TRUE(desk.hasCounted(1));

        expectSilenceIsBorne(desk);
    }

    TEST(PasteboardHangTest, AnOwnerThatStopsInTheMiddleOfALargeTransferHoldsUpNobody)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(hanging(Delivery::stopsMidway));
        EXPECT_TRUE(desk.hasCounted(1));

        expectSilenceIsBorne(desk);
    }

    TEST(PasteboardHangTest, TheNextCopyIsReadWhileAnOwnerHangs)
    {
        PasteboardDesk desk;
        SelectionOwner hung(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));
        hung.freeze();
        desk.beginReading();

        const SelectionOwner next(textOwner("beta"));
        EXPECT_TRUE(desk.hasCounted(2));

        EXPECT_EQ(desk.readText(), "beta");
        EXPECT_TRUE(test::waitUntil([&] { return desk.answers.size() == 1; }));
        EXPECT_FALSE(desk.answers.front().has_value());
    }

    TEST(PasteboardHangTest, AnOwnerThatComesBackToLifeIsNotHurtByARequestGivenUp)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));
        owner.freeze();
        EXPECT_FALSE(desk.read().has_value());

        owner.thaw();

        EXPECT_EQ(desk.readText(), "alpha");
        EXPECT_EQ(desk.pasteboard().changeCount(), 1);
    }

    TEST(PasteboardHangTest, AnOwnerThatIsSlowButNeverSilentForTwoSecondsIsReadToTheEnd)
    {
        PasteboardDesk desk;
        const SelectionOwner owner({ .offers = { { .target = "UTF8_STRING",
                                         .bytes = std::string(40, 'x'),
                                         .delivery = Delivery::inPieces,
                                         .pieces = { 10 },
                                         .pause = 600ms } } });
        EXPECT_TRUE(desk.hasCounted(1));
        const auto begun = steady_clock::now();

        const auto text = desk.readText();

        EXPECT_EQ(text, std::string(40, 'x'));
        EXPECT_GT(steady_clock::now() - begun, 2s);
    }

    TEST(PasteboardHangTest, ALargeTextIsReadWithoutHoldingUpTheLoop)
    {
        PasteboardDesk desk;
        std::string text;
        text.resize(100'000'000, 'x');
        const SelectionOwner owner({ .offers = { { .target = "UTF8_STRING",
                                         .bytes = text,
                                         .delivery = Delivery::inPieces,
                                         .pieces = { 1'000'000 },
                                         .announced = 100'000'000 } } });
        EXPECT_TRUE(desk.hasCounted(1));
        // How long each piece takes is for the bench to say; here, that something else has its turn
        // between one and the next.
        int turns = 0;
        QTimer other;
        QObject::connect(&other, &QTimer::timeout, [&turns] { ++turns; });
        other.start(std::chrono::milliseconds { 0 });
        std::optional<int> turnsUntilRead;

        desk.pasteboard().read([&](auto contents) {
            EXPECT_TRUE(contents && contents->text && contents->text->size() == text.size());
            turnsUntilRead = turns;
        });

        EXPECT_TRUE(test::waitUntil([&] { return turnsUntilRead.has_value(); }));
        EXPECT_GE(turnsUntilRead, 90); // of a hundred pieces
    }

} // namespace
} // namespace korvane
