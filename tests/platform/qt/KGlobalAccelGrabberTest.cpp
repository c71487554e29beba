#include "KGlobalAccelFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::Asked;
    using test::askedFor;
    using test::down;
    using test::freed;
    using test::KGlobalAccelFixture;
    using test::registered;
    using test::ShortcutService;
    using test::up;
    using Answer = ShortcutService::Answer;

    TEST(KGlobalAccelGrabberTest, TheServiceIsAskedForThisChordAndNoOtherThatItRemembers)
    {
        KGlobalAccelFixture f;

        EXPECT_TRUE(f.grab());

        EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(100) }));
    }

    TEST(KGlobalAccelGrabberTest, EveryPressOfTheChordIsTold)
    {
        KGlobalAccelFixture f;
        ASSERT_TRUE(f.grab());

        f.service.tell(down);
        f.service.tell(up);
        f.service.tell(down);

        EXPECT_TRUE(f.hears(2));
    }

    TEST(KGlobalAccelGrabberTest, AHeldChordIsToldOnceHoweverOftenTheServiceRepeatsIt)
    {
        KGlobalAccelFixture f;
        ASSERT_TRUE(f.grab());

        for (int repetition = 0; repetition < 20; ++repetition)
            f.service.tell(down);
        f.service.tell(up);
        f.service.tell(down);

        EXPECT_TRUE(f.hears(2));
    }

    TEST(KGlobalAccelGrabberTest, AReleaseThatWasNeverToldDoesNotKeepTheNextPressBack)
    {
        KGlobalAccelFixture f;
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
        KGlobalAccelFixture f;
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
            KGlobalAccelFixture f;
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
        KGlobalAccelFixture f;
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
        KGlobalAccelFixture f;
        ASSERT_TRUE(f.grab());

        ASSERT_TRUE(f.grab(keycodes::tab));

        EXPECT_EQ(
            f.service.asked(), (Asked { registered, askedFor(100), registered, askedFor(200) }));
        f.service.tell(down);
        EXPECT_TRUE(f.hears(1));
    }

    TEST(KGlobalAccelGrabberTest, ARefusedChordLeavesNothingOfTheOneBefore)
    {
        KGlobalAccelFixture f;
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
        KGlobalAccelFixture f;
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
        KGlobalAccelFixture f;
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
        KGlobalAccelFixture f;
        {
            KGlobalAccelGrabber grabber(
                f.loop, [](KeyCode, ModifierMask) { return 300; }, f.connection);
            ASSERT_TRUE(grabber.grab(keycodes::space, 0));
        }

        ASSERT_TRUE(f.settle());

        EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(300), freed }));
    }

    TEST(KGlobalAccelGrabberTest, WhatIsHeldFollowsTheKeyWhenTheUserChangesTheLayout)
    {
        KGlobalAccelFixture f;
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
        KGlobalAccelFixture f;
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
        KGlobalAccelFixture f;

        f.grabber.followKeyboard();
        ASSERT_TRUE(f.settle());

        EXPECT_EQ(f.service.asked(), Asked {});
    }

} // namespace
} // namespace korvane
