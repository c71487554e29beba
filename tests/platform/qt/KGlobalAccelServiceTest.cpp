#include "KGlobalAccelFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::Asked;
    using test::askedFor;
    using test::down;
    using test::freed;
    using test::KGlobalAccelFixture;
    using test::registered;
    using test::waitUntil;

    TEST(KGlobalAccelServiceTest, AServiceThatComesBackIsAskedAgain)
    {
        KGlobalAccelFixture f;
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

    TEST(KGlobalAccelServiceTest, AServiceThatComesBackIsAskedForNothingThatIsNotHeld)
    {
        KGlobalAccelFixture f;
        ASSERT_TRUE(f.grab());
        f.grabber.release();
        f.service.vanish();
        EXPECT_FALSE(f.grab());

        f.service.appear();
        ASSERT_TRUE(f.settle()); // we have heard that it is back
        ASSERT_TRUE(f.settle()); // and it of what we asked then

        EXPECT_EQ(f.service.asked(), (Asked { registered, askedFor(100), freed }));
    }

    TEST(KGlobalAccelServiceTest, WithoutTheServiceTheChordIsRefused)
    {
        KGlobalAccelFixture f;
        f.service.vanish();

        EXPECT_FALSE(f.grab());

        ASSERT_TRUE(f.settle());
        EXPECT_EQ(f.service.asked(), Asked {});
    }

    TEST(KGlobalAccelServiceTest, WithoutABusTheChordIsRefused)
    {
        test::ManualLoop loop;
        KGlobalAccelGrabber grabber(
            loop, [](KeyCode, ModifierMask) { return 300; },
            QDBusConnection::connectToBus("unix:path=/nonexistent", "nowhere"));

        EXPECT_FALSE(grabber.grab(keycodes::space, modifiers::control));
    }

} // namespace
} // namespace korvane
