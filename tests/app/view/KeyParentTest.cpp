#include "app/view/KeyParent.h"

#include "support/Input.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>

namespace korvane {
namespace {

    struct ParentFixture {
        ParentFixture()
        {
            window.show();
            QApplication::setActiveWindow(&window);
            parent = keyParent();
            if (parent)
                closing = parent->closed.connect([this] { ++closings; });
        }

        QWidget window;
        std::unique_ptr<ParentWindow> parent;
        int closings = 0;
        Connection closing;
    };

    TEST(KeyParentTest, AWindowThatIsClosedTellsSoOnce)
    {
        ParentFixture f;
        ASSERT_NE(f.parent, nullptr);

        f.window.close();
        test::settle();

        EXPECT_EQ(f.closings, 1);
    }

    TEST(KeyParentTest, AWindowThatIsOnlyBroughtBackHasNotBeenClosed)
    {
        ParentFixture f;
        ASSERT_NE(f.parent, nullptr);

        f.window.hide();
        f.window.show();
        test::settle();

        EXPECT_EQ(f.closings, 0);
    }

    TEST(KeyParentTest, WhoHearsOfTheEndMayEndIt)
    {
        ParentFixture f;
        ASSERT_NE(f.parent, nullptr);
        const auto ending = f.parent->closed.connect([&] { f.parent.reset(); });

        f.window.close();
        test::settle();

        EXPECT_EQ(f.parent, nullptr);
        EXPECT_EQ(f.closings, 1);
    }

    TEST(KeyParentTest, OtherwiseThanOnX11OtherProgramsHaveNoNameForIt)
    {
        ParentFixture f;
        ASSERT_NE(f.parent, nullptr);

        EXPECT_EQ(f.parent->identifier(), ""); // these tests have no display
    }

    TEST(KeyParentTest, WhereTheUserIsInAnotherProgramThereIsNone)
    {
        EXPECT_EQ(keyParent(), nullptr);
    }

} // namespace
} // namespace korvane
