#include "platform/qt/KGlobalAccelGrabber.h"

#include "ShortcutService.h"
#include "support/ManualLoop.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using test::ShortcutService;
    using test::waitUntil;
    using Answer = ShortcutService::Answer;
    using Asked = std::vector<std::string>;
    using namespace std::chrono_literals;

    const QString down = "globalShortcutPressed";
    const QString up = "globalShortcutReleased";
    const std::string registered = "doRegister com.VNT.Korvane|open|Korvane|Open Korvane";
    const std::string freed = "unregister com.VNT.Korvane open";

    std::string askedFor(int number)
    {
        return "setShortcutKeys com.VNT.Korvane|open|Korvane|Open Korvane " + std::to_string(number)
            + ",0,0,0, 6";
    }

    /// A desktop whose service numbers the chords of Space and Tab, and knows no other key.
    struct GrabberFixture {
        bool grab(KeyCode key = keycodes::space) { return grabber.grab(key, modifiers::control); }
        bool hears(int count)
        {
            return waitUntil([&] { return presses >= count; }) && settle() && presses == count;
        }
        bool settle() { return service.settle(connection); }

        test::SessionBus bus;
        ShortcutService service { bus };
        QDBusConnection connection = bus.connection("korvane");
        test::ManualLoop loop;
        std::map<KeyCode, std::int32_t> numbers { { keycodes::space, 100 },
            { keycodes::tab, 200 } };
        KGlobalAccelGrabber grabber { loop,
            [this](KeyCode key, ModifierMask mask) -> std::optional<std::int32_t> {
                const auto known = numbers.find(key);
                if (known == numbers.end() || mask != modifiers::control)
                    return std::nullopt;
                return known->second;
            },
            connection };
        int presses = 0;
        Connection pressed = grabber.pressed.connect([this] { ++presses; });
    };

    TEST(KGlobalAccelGrabberTest, TheServiceIsAskedForThisChordAndNoOtherThatItRemembers)
    {
        GrabberFixture f;

        EXPECT_TRUE(f.grab());

        EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(100) }));
    }

    TEST(KGlobalAccelGrabberTest, EveryPressOfTheChordIsTold)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());

        f.service.tell(down);
        f.service.tell(up);
        f.service.tell(down);

        EXPECT_TRUE(f.hears(2));
    }

    TEST(KGlobalAccelGrabberTest, AHeldChordIsToldOnceHoweverOftenTheServiceRepeatsIt)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());

        for (int repetition = 0; repetition < 20; ++repetition)
            f.service.tell(down);
        f.service.tell(up);
        f.service.tell(down);

        EXPECT_TRUE(f.hears(2));
    }

    TEST(KGlobalAccelGrabberTest, AReleaseThatWasNeverToldDoesNotKeepTheNextPressBack)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        f.service.tell(down);
        ASSERT_TRUE(f.hears(1));

        f.loop.advance(4s);
        f.service.tell(down); // as it is repeated
        EXPECT_TRUE(f.hears(1));
        f.loop.advance(5s);
        f.service.tell(down);

        EXPECT_TRUE(f.hears(2));
    }

    TEST(KGlobalAccelGrabberTest, TheChordsOfOthersAreNotOurs)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        auto other = f.bus.connection("other");

        f.service.tell(down, "org.example.Other", "open");
        f.service.tell(down, "com.VNT.Korvane", "close");
        ASSERT_TRUE(other.send(ShortcutService::signalOf(down, "com.VNT.Korvane", "open")));
        ASSERT_TRUE(f.service.settle(other));
        ASSERT_TRUE(f.settle());

        EXPECT_EQ(f.presses, 0);
    }

    TEST(KGlobalAccelGrabberTest, WhateverIsNoGrantIsARefusalAndNothingIsKept)
    {
        for (const auto answer :
            { Answer::taken, Answer::another, Answer::error, Answer::nonsense }) {
            GrabberFixture f;
            f.service.answers = answer;

            EXPECT_FALSE(f.grab());

            f.service.tell(down);
            ASSERT_TRUE(f.settle());
            EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(100), freed }));
            EXPECT_EQ(f.presses, 0);
        }
    }

    TEST(KGlobalAccelGrabberTest, AServiceThatKeepsSilentIsWaitedForASecondAndHoldsNothingForUs)
    {
        GrabberFixture f;
        f.service.answers = Answer::silence;
        QElapsedTimer elapsed;
        elapsed.start();

        EXPECT_FALSE(f.grab());

        EXPECT_GE(elapsed.elapsed(), 900);
        EXPECT_LT(elapsed.elapsed(), 10'000); // the bus's own patience is 25 seconds
        ASSERT_TRUE(f.settle());
        EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(100), freed }));
    }

    TEST(KGlobalAccelGrabberTest, AnotherChordTakesThePlaceOfTheOneBefore)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());

        ASSERT_TRUE(f.grab(keycodes::tab));

        EXPECT_EQ(
            f.service.asked(), (Asked { registered, askedFor(100), registered, askedFor(200) }));
        f.service.tell(down);
        EXPECT_TRUE(f.hears(1));
    }

    TEST(KGlobalAccelGrabberTest, ARefusedChordLeavesNothingOfTheOneBefore)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        f.service.answers = Answer::taken;

        EXPECT_FALSE(f.grab(keycodes::tab));

        f.service.tell(down);
        ASSERT_TRUE(f.settle());
        EXPECT_EQ(f.service.asked().back(), freed);
        EXPECT_EQ(f.presses, 0);
    }

    TEST(KGlobalAccelGrabberTest, AKeyThatTheServiceCannotNameIsRefusedAndTheOneBeforeFreed)
    {
        GrabberFixture f;
        EXPECT_FALSE(f.grab(keycodes::v));
        ASSERT_TRUE(f.settle());
        EXPECT_EQ(f.service.asked(), Asked {});
        ASSERT_TRUE(f.grab());

        EXPECT_FALSE(f.grab(keycodes::v));

        ASSERT_TRUE(f.settle());
        EXPECT_EQ(f.service.asked().back(), freed);
    }

    TEST(KGlobalAccelGrabberTest, AReleasedChordIsFreedOnceAndToldOfNoMore)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());

        f.grabber.release();
        f.grabber.release();
        f.service.tell(down);
        ASSERT_TRUE(f.settle());

        EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(100), freed }));
        EXPECT_EQ(f.presses, 0);
    }

    TEST(KGlobalAccelGrabberTest, ItsEndFreesTheChord)
    {
        GrabberFixture f;
        {
            KGlobalAccelGrabber grabber(
                f.loop, [](KeyCode, ModifierMask) { return 300; }, f.connection);
            ASSERT_TRUE(grabber.grab(keycodes::space, 0));
        }

        ASSERT_TRUE(f.settle());

        EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(300), freed }));
    }

    TEST(KGlobalAccelGrabberTest, AServiceThatComesBackIsAskedAgain)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        f.service.tell(down);
        ASSERT_TRUE(f.hears(1));

        f.service.vanish();
        f.service.appear();

        EXPECT_TRUE(waitUntil([&] { return f.service.asked().size() == 4; }));
        EXPECT_EQ(
            f.service.asked(), (Asked { registered, askedFor(100), registered, askedFor(100) }));
        // The release of the key came to nobody.
        f.service.tell(down);
        EXPECT_TRUE(f.hears(2));
    }

    TEST(KGlobalAccelGrabberTest, AServiceThatComesBackIsAskedForNothingThatIsNotHeld)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        f.grabber.release();
        f.service.vanish();
        EXPECT_FALSE(f.grab());

        f.service.appear();
        ASSERT_TRUE(f.settle()); // we have heard that it is back
        ASSERT_TRUE(f.settle()); // and it of what we asked then

        EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(100), freed }));
    }

    TEST(KGlobalAccelGrabberTest, WithoutTheServiceTheChordIsRefused)
    {
        GrabberFixture f;
        f.service.vanish();

        EXPECT_FALSE(f.grab());

        ASSERT_TRUE(f.settle());
        EXPECT_EQ(f.service.asked(), Asked {});
    }

    TEST(KGlobalAccelGrabberTest, WithoutABusTheChordIsRefused)
    {
        test::ManualLoop loop;
        KGlobalAccelGrabber grabber(
            loop, [](KeyCode, ModifierMask) { return 300; },
            QDBusConnection::connectToBus("unix:path=/nonexistent", "nowhere"));

        EXPECT_FALSE(grabber.grab(keycodes::space, modifiers::control));
    }

    TEST(KGlobalAccelGrabberTest, WhatIsHeldFollowsTheKeyWhenTheUserChangesTheLayout)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());

        f.grabber.followKeyboard();
        f.numbers[keycodes::space] = 101;
        f.grabber.followKeyboard();
        ASSERT_TRUE(f.settle());

        EXPECT_EQ(
            f.service.asked(), (Asked { registered, askedFor(100), registered, askedFor(101) }));
        f.service.tell(down);
        EXPECT_TRUE(f.hears(1));
    }

    TEST(KGlobalAccelGrabberTest, AKeyThatTheLayoutLacksComesBackWithTheNextOne)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());

        const auto number = f.numbers.extract(keycodes::space);
        f.grabber.followKeyboard();
        f.numbers[keycodes::space] = number.mapped();
        f.grabber.followKeyboard();
        ASSERT_TRUE(f.settle());

        EXPECT_EQ(f.service.asked(),
            (Asked { registered, askedFor(100), freed, registered, askedFor(100) }));
    }

    TEST(KGlobalAccelGrabberTest, AChangeOfTheLayoutTakesNothingThatIsNotHeld)
    {
        GrabberFixture f;

        f.grabber.followKeyboard();
        ASSERT_TRUE(f.settle());

        EXPECT_EQ(f.service.asked(), Asked {});
    }

} // namespace
} // namespace korvane
