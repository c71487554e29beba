#include "settings/view/SegmentedPicker.h"

#include "settings/view/KitFixture.h"

#include <gtest/gtest.h>

#include <QAbstractButton>

#include <array>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    constexpr std::array themes { Choice { "Automatic", "auto" }, Choice { "Light", "light" },
        Choice { "Dark", "dark" } };

    struct PickerFixture : test::KitFixture {
        PickerFixture()
        {
            picker.onChosen = [this](std::string_view value) { chosen.emplace_back(value); };
        }
        QAbstractButton& segment(int number) const
        {
            return *picker.findChildren<QAbstractButton*>().at(number);
        }

        SegmentedPicker& picker = show(std::make_unique<SegmentedPicker>(loop, themes));
        std::vector<std::string> chosen;
    };

    TEST(SegmentedPickerTest, AClickChooses)
    {
        PickerFixture f;
        f.picker.setValue("auto");

        test::click(f.segment(2), f.segment(2).rect().center());

        EXPECT_EQ(f.picker.value(), "dark");
        EXPECT_EQ(f.chosen, std::vector<std::string> { "dark" });
    }

    TEST(SegmentedPickerTest, TheArrowsChooseTheNext)
    {
        PickerFixture f;
        f.picker.setValue("auto");
        f.segment(0).setFocus();

        test::typeKey(f.segment(0), Qt::Key_Right);
        EXPECT_EQ(f.picker.value(), "light");
        EXPECT_TRUE(f.segment(1).hasFocus());
        test::typeKey(f.segment(1), Qt::Key_Left);

        EXPECT_EQ(f.chosen, (std::vector<std::string> { "light", "auto" }));
    }

    TEST(SegmentedPickerTest, ToTheTabKeyItIsOneStopAtTheChosenOne)
    {
        PickerFixture f;
        f.picker.setValue("light");

        const auto isStop
            = [&f](int number) { return (f.segment(number).focusPolicy() & Qt::TabFocus) != 0; };
        EXPECT_EQ((std::vector { isStop(0), isStop(1), isStop(2) }),
            (std::vector { false, true, false }));
    }

    TEST(SegmentedPickerTest, WhatTheProgramShowsIsNotTold)
    {
        PickerFixture f;

        f.picker.setValue("dark");

        EXPECT_EQ(f.picker.value(), "dark");
        EXPECT_TRUE(f.chosen.empty());
    }

    TEST(SegmentedPickerTest, AValueThatIsNoneOfTheChoicesLeavesNoneChosen)
    {
        PickerFixture f;
        f.picker.setValue("dark");

        f.picker.setValue("purple");

        EXPECT_EQ(f.picker.value(), "");
        f.picker.setValue("auto");
        EXPECT_EQ(f.picker.value(), "auto");
    }

    TEST(SegmentedPickerTest, TheChosenGroundSlidesToTheNext)
    {
        PickerFixture f;
        f.picker.setValue("auto");
        f.loop.advance(1s);
        const auto before = f.look(f.picker);

        test::click(f.segment(2), f.segment(2).rect().center());
        f.loop.advance(60ms);
        const auto between = f.look(f.picker);
        f.loop.advance(1s);
        const auto after = f.look(f.picker);

        EXPECT_NE(before, between);
        EXPECT_NE(between, after);
        EXPECT_EQ(after.pixelColor(f.segment(2).geometry().left() + 4, 13), QColor(Qt::white));
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(SegmentedPickerTest, TheChoicesStandInAsManyLinesAsAreAskedFor)
    {
        test::KitFixture f;
        auto& picker = f.show(std::make_unique<SegmentedPicker>(f.loop, themes, 2));

        const auto segments = picker.findChildren<QAbstractButton*>();

        EXPECT_EQ(segments[0]->y(), segments[1]->y());
        EXPECT_GT(segments[2]->y(), segments[1]->y());
        EXPECT_EQ(picker.height(), 48);
    }

    TEST(SegmentedPickerTest, ToAssistiveTechnologyItIsAGroupOfRadioButtons)
    {
        PickerFixture f;
        f.picker.setAccessibleName(QStringLiteral("Theme:"));
        f.picker.setValue("light");
        auto& group = f.access(f.picker);

        EXPECT_EQ(group.role(), QAccessible::Grouping);
        EXPECT_EQ(group.text(QAccessible::Name), QStringLiteral("Theme:"));
        ASSERT_EQ(group.childCount(), 3);
        for (int number = 0; number < 3; ++number) {
            EXPECT_EQ(group.child(number)->role(), QAccessible::RadioButton);
            EXPECT_EQ(group.child(number)->text(QAccessible::Name).toStdString(),
                themes.at(static_cast<std::size_t>(number)).title);
            EXPECT_EQ(group.child(number)->state().checked != 0, number == 1);
        }
        group.child(2)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(f.chosen, std::vector<std::string> { "dark" });
    }

    TEST(SegmentedPickerTest, EachStateOfASegmentLooksDifferent)
    {
        PickerFixture f;
        f.picker.setValue("auto");
        f.loop.advance(1s);
        const auto plain = f.look(f.picker);

        test::hover(f.segment(1), true);
        const auto hovered = f.look(f.picker);
        test::press(f.segment(1), f.segment(1).rect().center());
        const auto pressed = f.look(f.picker);
        test::release(f.segment(1), QPointF(-50, -50));
        test::hover(f.segment(1), false);
        f.picker.setEnabled(false);
        const auto disabled = f.look(f.picker);

        EXPECT_NE(plain, hovered);
        EXPECT_NE(hovered, pressed);
        EXPECT_NE(plain, disabled);
    }

} // namespace
} // namespace korvane
