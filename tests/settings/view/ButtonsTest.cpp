#include "settings/view/PushButton.h"
#include "settings/view/SymbolButton.h"

#include "settings/view/KitFixture.h"
#include "settings/view/SettingsColours.h"
#include "support/EventLoop.h"

#include <gtest/gtest.h>

#include <QKeySequence>

namespace korvane {
namespace {

    struct ButtonFixture : test::KitFixture {
        std::unique_ptr<PushButton> make(PushButton::Tone tone)
        {
            return std::make_unique<PushButton>(
                QStringLiteral("Clear history"), [this] { ++clicks; }, tone);
        }
        /// How many pixels are nearly of a colour.
        static int count(const QImage& image, const QColor& colour)
        {
            int found = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const auto pixel = image.pixelColor(x, y);
                    found += std::abs(pixel.red() - colour.red()) < 40
                            && std::abs(pixel.green() - colour.green()) < 40
                            && std::abs(pixel.blue() - colour.blue()) < 40
                        ? 1
                        : 0;
                }
            }
            return found;
        }

        int clicks = 0;
    };

    TEST(PushButtonTest, AClickSpaceAndReturnPressIt)
    {
        ButtonFixture f;
        auto& button = f.show(f.make(PushButton::Tone::plain));

        test::click(button, button.rect().center());
        test::typeKey(button, Qt::Key_Space);
        test::typeKey(button, Qt::Key_Return);

        EXPECT_EQ(f.clicks, 3);
    }

    TEST(PushButtonTest, WhatCannotBeUndoneIsRed)
    {
        ButtonFixture f;
        auto& plain = f.show(f.make(PushButton::Tone::plain));
        auto& destructive = f.show(f.make(PushButton::Tone::destructive), { 20, 80 });
        const auto red = coloursOf(ColourScheme::light).redText;

        EXPECT_EQ(ButtonFixture::count(f.look(plain), red), 0);
        EXPECT_GT(ButtonFixture::count(f.look(destructive), red), 20);
    }

    TEST(PushButtonTest, EachStateLooksDifferent)
    {
        ButtonFixture f;
        for (const auto tone :
            { PushButton::Tone::plain, PushButton::Tone::destructive, PushButton::Tone::chief }) {
            auto& button = f.show(f.make(tone));
            const auto plain = f.look(button);
            test::hover(button, true);
            const auto hovered = f.look(button);
            test::hover(button, false);
            button.setFocus();
            const auto focused = f.look(button);
            button.clearFocus();
            button.setEnabled(false);
            const auto disabled = f.look(button);

            EXPECT_NE(plain, hovered);
            EXPECT_NE(plain, focused);
            EXPECT_NE(plain, disabled);
            button.hide();
        }
    }

    TEST(PushButtonTest, ToAssistiveTechnologyItIsAButtonWithItsText)
    {
        ButtonFixture f;
        auto& element = f.access(f.show(f.make(PushButton::Tone::plain)));

        EXPECT_EQ(element.role(), QAccessible::Button);
        EXPECT_EQ(element.text(QAccessible::Name), QStringLiteral("Clear history"));
        element.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        // It is pressed for a moment, which is seen.
        EXPECT_TRUE(test::waitUntil([&f] { return f.clicks == 1; }));
    }

    TEST(PushButtonTest, ItsLetterIsUnderlinedOnlyWhileItIsShown)
    {
        ButtonFixture f;
        auto& button = f.show(f.make(PushButton::Tone::plain));
        const auto without = f.look(button);
        button.showLetter(true);
        EXPECT_EQ(f.look(button), without) << "it has none";

        button.setLetter(u'C');

        EXPECT_NE(f.look(button), without);
        EXPECT_EQ(button.text(), QStringLiteral("Clear history"));
        button.showLetter(false);
        EXPECT_EQ(f.look(button), without);
        EXPECT_EQ(button.shortcut(), QKeySequence(QStringLiteral("Alt+C")));
    }

    TEST(SymbolButtonTest, ItsLetterTakesTheSymbolsPlaceWhileItIsShown)
    {
        ButtonFixture f;
        auto& button = f.show(std::make_unique<SymbolButton>(
            f.symbols, "plus", QStringLiteral("Add"), [&f] { ++f.clicks; }));
        button.setLetter(u'F');
        const auto symbol = f.look(button);

        button.showLetter(true);
        EXPECT_NE(f.look(button), symbol);
        button.showLetter(false);

        EXPECT_EQ(f.look(button), symbol);
    }

    TEST(SymbolButtonTest, ItShowsItsSymbolAndSaysWhatItDoes)
    {
        ButtonFixture f;
        auto& button = f.show(std::make_unique<SymbolButton>(
            f.symbols, "play.circle", QStringLiteral("Preview sound"), [&f] { ++f.clicks; }));
        auto& element = f.access(button);

        EXPECT_EQ(button.toolTip(), QStringLiteral("Preview sound"));
        EXPECT_EQ(element.role(), QAccessible::Button);
        EXPECT_EQ(element.text(QAccessible::Name), QStringLiteral("Preview sound"));
        EXPECT_GT(
            ButtonFixture::count(f.look(button), coloursOf(ColourScheme::light).secondary), 20);
        test::click(button, button.rect().center());
        test::typeKey(button, Qt::Key_Space);
        EXPECT_EQ(f.clicks, 2);
    }

} // namespace
} // namespace korvane
