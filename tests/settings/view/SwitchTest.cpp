#include "settings/view/Switch.h"

#include "settings/view/KitFixture.h"

#include <gtest/gtest.h>

#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    struct SwitchFixture : test::KitFixture {
        SwitchFixture()
        {
            control.onTurned = [this](bool isOn) { turned.push_back(isOn); };
        }

        Switch& control = show(std::make_unique<Switch>(loop));
        std::vector<bool> turned;
    };

    TEST(SwitchTest, AClickTurnsItAndTellsOnce)
    {
        SwitchFixture f;

        test::click(f.control, f.control.rect().center());
        EXPECT_TRUE(f.control.isOn());
        test::click(f.control, f.control.rect().center());

        EXPECT_FALSE(f.control.isOn());
        EXPECT_EQ(f.turned, (std::vector { true, false }));
    }

    TEST(SwitchTest, SpaceAndReturnTurnIt)
    {
        SwitchFixture f;
        f.control.setFocus();

        test::typeKey(f.control, Qt::Key_Space);
        EXPECT_TRUE(f.control.isOn());
        test::typeKey(f.control, Qt::Key_Return);

        EXPECT_FALSE(f.control.isOn());
        EXPECT_EQ(f.turned.size(), 2U);
    }

    TEST(SwitchTest, TheRingComesWithAKeyAndNotWithAClick)
    {
        SwitchFixture f;
        const auto plain = f.look(f.control);
        test::movePointer(f.control, f.control.rect().center());

        f.control.setFocus(Qt::MouseFocusReason); // as the toolkit does for a click
        EXPECT_EQ(f.look(f.control), plain);
        test::typeKey(f.control, Qt::Key_Shift);
        EXPECT_NE(f.look(f.control), plain);
        test::press(f.control, f.control.rect().center());
        test::release(f.control, QPointF(-9, -9)); // which turns nothing

        EXPECT_EQ(f.look(f.control), plain);
    }

    TEST(SwitchTest, WhoComesBackToTheWindowFindsTheRingAsItWas)
    {
        SwitchFixture f;
        const auto plain = f.look(f.control);

        for (const auto reason : { Qt::MouseFocusReason, Qt::TabFocusReason }) {
            f.window.setFocus();
            f.control.setFocus(reason);
            const auto before = f.look(f.control);
            QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
            QApplication::sendEvent(&f.control, &back);

            EXPECT_EQ(f.look(f.control), before);
            EXPECT_EQ(before == plain, reason == Qt::MouseFocusReason);
        }
    }

    TEST(SwitchTest, WhatTheProgramShowsIsNotTold)
    {
        SwitchFixture f;

        f.control.setOn(true);

        EXPECT_TRUE(f.control.isOn());
        EXPECT_TRUE(f.turned.empty());
    }

    TEST(SwitchTest, ItsThumbSlidesAndItsTrackTakesTheAccent)
    {
        SwitchFixture f;
        const auto colourAt
            = [&f](double x) { return f.look(f.control).pixelColor(static_cast<int>(x), 13); };
        const auto off = colourAt(8);

        test::click(f.control, f.control.rect().center());
        f.loop.advance(40ms);
        const auto between = colourAt(8);
        f.loop.advance(1s);
        const auto on = colourAt(8);

        EXPECT_EQ(off, QColor(Qt::white)); // the thumb
        EXPECT_NE(between, on);
        EXPECT_EQ(on, QColor(28, 158, 117));
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(SwitchTest, ItLooksDifferentWhereItIsOrHasTheFocusOrIsHovered)
    {
        SwitchFixture f;
        const auto plain = f.look(f.control);

        test::hover(f.control, true);
        const auto hovered = f.look(f.control);
        test::hover(f.control, false);
        f.control.setFocus();
        const auto focused = f.look(f.control);
        f.control.clearFocus();
        f.control.setEnabled(false);
        const auto disabled = f.look(f.control);

        EXPECT_NE(plain, hovered);
        EXPECT_NE(plain, focused);
        EXPECT_NE(plain, disabled);
        EXPECT_NE(hovered, focused);
    }

    TEST(SwitchTest, ADisabledOneIsNotTurned)
    {
        SwitchFixture f;
        f.control.setEnabled(false);

        test::click(f.control, f.control.rect().center());

        EXPECT_FALSE(f.control.isOn());
    }

    TEST(SwitchTest, ToAssistiveTechnologyItIsACheckBoxThatCanBeToggled)
    {
        SwitchFixture f;
        f.control.setAccessibleName(QStringLiteral("Play sound on copy"));
        auto& element = f.access(f.control);

        EXPECT_EQ(element.role(), QAccessible::CheckBox);
        EXPECT_EQ(element.text(QAccessible::Name), QStringLiteral("Play sound on copy"));
        EXPECT_FALSE(element.state().checked);
        element.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());

        EXPECT_TRUE(element.state().checked);
        EXPECT_EQ(f.turned, std::vector { true });
    }

    TEST(SwitchTest, ItHasTheSizeOfTheDesign)
    {
        SwitchFixture f;
        f.control.setOn(true);
        f.loop.advance(1s);
        const auto image = f.look(f.control);

        // Along the middle of the row above the thumb, and down a column beside it.
        const auto isGreen
            = [&image](int x, int y) { return image.pixelColor(x, y).saturation() > 100; };
        int wide = 0;
        for (int x = 0; x < image.width(); ++x)
            wide += isGreen(x, 4) || isGreen(x, 13) || (x > 20 && x < 36) ? 1 : 0;
        int high = 0;
        for (int y = 0; y < image.height(); ++y)
            high += isGreen(14, y) ? 1 : 0;

        EXPECT_EQ(f.control.sizeHint(), QSize(40, 26));
        EXPECT_NEAR(wide, 34, 1);
        EXPECT_EQ(high, 20);
    }

} // namespace
} // namespace korvane
