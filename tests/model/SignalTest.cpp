#include "model/Signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using Calls = std::vector<std::string>;

    TEST(SignalTest, CallsTheSlotsInTheOrderOfConnecting)
    {
        Signal<> signal;
        Calls calls;
        const auto first = signal.connect([&] { calls.emplace_back("first"); });
        const auto second = signal.connect([&] { calls.emplace_back("second"); });

        signal();

        EXPECT_EQ(calls, (Calls { "first", "second" }));
    }

    TEST(SignalTest, HandsOverWhatItIsFiredWith)
    {
        Signal<int, std::string> signal;
        Calls calls;
        const auto connection = signal.connect([&](int number, const std::string& text) {
            calls.push_back(std::to_string(number) + text);
        });

        signal(7, "x");

        EXPECT_EQ(calls, Calls { "7x" });
    }

    TEST(SignalTest, EndsAConnectionWithItsOwner)
    {
        Signal<> signal;
        int calls = 0;
        {
            const auto connection = signal.connect([&] { ++calls; });
            signal();
        }

        signal();

        EXPECT_EQ(calls, 1);
    }

    TEST(SignalTest, EndsAConnectionThatIsOverwritten)
    {
        Signal<> signal;
        Calls calls;
        auto connection = signal.connect([&] { calls.emplace_back("old"); });

        connection = signal.connect([&] { calls.emplace_back("new"); });
        signal();

        EXPECT_EQ(calls, Calls { "new" });
    }

    TEST(SignalTest, KeepsAConnectionThatIsMoved)
    {
        Signal<> signal;
        int calls = 0;
        std::vector<Connection> connections;
        auto connection = signal.connect([&] { ++calls; });

        connections.push_back(std::move(connection));
        signal();

        EXPECT_EQ(calls, 1);
    }

    TEST(SignalTest, LetsAConnectionOutliveIt)
    {
        auto signal = std::make_unique<Signal<>>();
        auto held = std::make_shared<int>();
        const std::weak_ptr<int> bySlot = held;
        auto connection = signal->connect([held = std::move(held)] {});
        EXPECT_FALSE(bySlot.expired());

        signal.reset();
        connection.disconnect(); // touches nothing that is dead

        EXPECT_TRUE(bySlot.expired());
    }

    TEST(SignalTest, FirstTellsASlotThatIsConnectedDuringACallOfTheNextOne)
    {
        Signal<> signal;
        std::vector<Connection> late;
        int lateCalls = 0;
        const auto connection = signal.connect([&] {
            if (late.empty())
                late.push_back(signal.connect([&] { ++lateCalls; }));
        });

        signal();
        EXPECT_EQ(lateCalls, 0);
        signal();

        EXPECT_EQ(lateCalls, 1);
    }

    TEST(SignalTest, LetsASlotEndItsOwnConnection)
    {
        Signal<> signal;
        Connection connection;
        Calls calls;
        connection
            = signal.connect([&, mine = std::string("a text that is too long to lie within")] {
                  connection.disconnect();
                  calls.push_back(mine); // ours until we return
              });

        signal();
        signal();

        EXPECT_EQ(calls.size(), 1U);
    }

    TEST(SignalTest, SkipsASlotThatAnEarlierOneHasDisconnected)
    {
        Signal<> signal;
        Connection second;
        int calls = 0;
        const auto first = signal.connect([&] { second.disconnect(); });
        second = signal.connect([&] { ++calls; });

        signal();

        EXPECT_EQ(calls, 0);
    }

    TEST(SignalTest, LetsASlotDestroyTheSignal)
    {
        auto signal = std::make_unique<Signal<std::string>>();
        Calls calls;
        const auto first = signal->connect([&](const std::string&) { signal.reset(); });
        const auto second
            = signal->connect([&](const std::string& text) { calls.push_back(text); });

        (*signal)("told to the end");

        EXPECT_EQ(calls, Calls { "told to the end" });
    }

    TEST(SignalTest, LetsASlotFireItAgain)
    {
        Signal<> signal;
        int calls = 0;
        const auto connection = signal.connect([&] {
            if (++calls < 3)
                signal();
        });

        signal();

        EXPECT_EQ(calls, 3);
    }

    TEST(ObservableTest, TellsAnObserverThePresentValueAndEveryLaterOne)
    {
        Observable<std::string> text("now");
        Calls calls;
        const auto connection
            = text.observe([&](const std::string& value) { calls.push_back(value); });

        text.set("later");

        EXPECT_EQ(calls, (Calls { "now", "later" }));
    }

    TEST(ObservableTest, TellsWhoeverWantsOnlyChangesOfChangesOnly)
    {
        Observable<std::string> text("now");
        Calls calls;
        const auto connection
            = text.onChange([&](const std::string& value) { calls.push_back(value); });

        text.set("later");

        EXPECT_EQ(calls, Calls { "later" });
    }

    TEST(ObservableTest, TellsNobodyOfAValueThatIsTheSame)
    {
        Observable<std::string> text("same");
        int calls = 0;
        const auto connection = text.onChange([&](const std::string&) { ++calls; });

        text.set("same");

        EXPECT_EQ(calls, 0);
    }

    TEST(ObservableTest, HoldsTheNewValueWhenItTells)
    {
        Observable<int> number(1);
        int seen = 0;
        const auto connection = number.onChange([&](int) { seen = number.value(); });

        number.set(2);

        EXPECT_EQ(seen, 2);
    }

    TEST(ObservableTest, LetsASlotDestroyItAndTellsTheOthersToTheEnd)
    {
        auto text = std::make_unique<Observable<std::string>>();
        Calls calls;
        const auto first = text->onChange([&](const std::string&) { text.reset(); });
        const auto second
            = text->onChange([&](const std::string& value) { calls.push_back(value); });

        text->set("a text that is too long to lie within the string itself");

        EXPECT_EQ(calls, Calls { "a text that is too long to lie within the string itself" });
    }

    TEST(ObservableTest, LetsTheFirstCallOfAnObserverDestroyIt)
    {
        auto number = std::make_unique<Observable<int>>(1);
        int calls = 0;

        const auto connection = number->observe([&](int) {
            ++calls;
            number.reset();
        });

        EXPECT_EQ(calls, 1);
    }

} // namespace
} // namespace korvane
