#include "look/view/PanelMenu.h"

#include "support/Input.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include <algorithm>

namespace korvane {
namespace {

    struct MenuFixture {
        MenuFixture()
        {
            opener.resize(300, 200);
            opener.show();
        }
        PanelMenu& open()
        {
            menu->popup(opener.mapToGlobal(QPoint(20, 20)));
            test::settle();
            return *menu;
        }
        /// The colour that differs most from the ground in a line.
        QColor inkOf(QAction* line)
        {
            const auto image = menu->grab(menu->actionGeometry(line)).toImage();
            const auto ground = image.pixelColor(2, image.height() / 2);
            auto ink = ground;
            int most = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const auto colour = image.pixelColor(x, y);
                    const int difference = std::abs(colour.red() - ground.red())
                        + std::abs(colour.green() - ground.green())
                        + std::abs(colour.blue() - ground.blue());
                    if (difference > most) {
                        most = difference;
                        ink = colour;
                    }
                }
            }
            return ink;
        }
        static bool isReddish(const QColor& colour)
        {
            return colour.red() > colour.green() + 60 && colour.red() > colour.blue() + 60;
        }

        QWidget opener;
        PanelMenu* menu = PanelMenu::make(&opener); // its opener's
    };

    TEST(PanelMenuTest, ALineDoesWhatItSays)
    {
        MenuFixture f;
        int done = 0;
        auto* line = f.menu->addLine("Copy", [&done] { ++done; });
        f.open();

        test::click(*f.menu, f.menu->actionGeometry(line).center());

        EXPECT_EQ(done, 1);
    }

    TEST(PanelMenuTest, ItIsGoneWhenItHasClosed)
    {
        MenuFixture f;
        f.menu->addLine("Copy", [] {});
        f.open().close();
        test::settle();

        EXPECT_TRUE(f.opener.findChildren<PanelMenu*>().isEmpty());
    }

    TEST(PanelMenuTest, ItsCornersAreRoundAndClear)
    {
        MenuFixture f;
        f.menu->addLine("Copy", [] {});
        f.menu->addLine("Paste", [] {});
        auto& menu = f.open();

        const auto image = menu.grab().toImage();

        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
        EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1).alpha(), 0);
        EXPECT_EQ(image.pixelColor(image.width() / 2, 3).alpha(), 255);
    }

    TEST(PanelMenuTest, WhereThePanelIsCutToItsShapeSoIsTheMenu)
    {
        MenuFixture f;
        f.opener.setMask(QRegion(1, 1, 298, 198));
        f.menu->addLine("Copy", [] {});
        f.menu->addLine("Paste", [] {});
        auto& menu = f.open();

        EXPECT_FALSE(menu.mask().contains(QPoint(0, 0)));
        EXPECT_TRUE(menu.mask().contains(QPoint(12, 0)));
        EXPECT_TRUE(menu.mask().contains(menu.rect().center()));
        // No pixel of the cut shape is left without a colour.
        const auto image = menu.grab().toImage();
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                EXPECT_TRUE(
                    !menu.mask().contains(QPoint(x, y)) || image.pixelColor(x, y).alpha() == 255)
                    << x << ", " << y;
            }
        }
    }

    TEST(PanelMenuTest, ADividerSeparatesTwoLines)
    {
        MenuFixture f;
        auto* above = f.menu->addLine("Copy", [] {});
        f.menu->addSeparator();
        auto* below = f.menu->addLine("Delete", [] {});
        f.open();

        EXPECT_EQ(f.menu->actionGeometry(below).top() - f.menu->actionGeometry(above).bottom(), 10);
        const auto image = f.menu->grab().toImage();
        const int middle = f.menu->actionGeometry(above).bottom() + 5;
        EXPECT_NE(image.pixelColor(image.width() / 2, middle),
            image.pixelColor(image.width() / 2, middle - 2));
    }

    TEST(PanelMenuTest, ADestructiveLineIsRedAndTheOthersAreNot)
    {
        MenuFixture f;
        auto* copy = f.menu->addLine("Copy", [] {});
        auto* remove = f.menu->addLine(
            "Delete", [] {}, PanelMenu::Tone::destructive);
        f.open();

        EXPECT_FALSE(MenuFixture::isReddish(f.inkOf(copy)));
        EXPECT_TRUE(MenuFixture::isReddish(f.inkOf(remove)));
    }

    TEST(PanelMenuTest, TheLineUnderThePointerHasAGroundOfItsOwn)
    {
        MenuFixture f;
        auto* line = f.menu->addLine("Copy", [] {});
        f.open();
        const auto groundOf = [&f, line] {
            const auto place = f.menu->actionGeometry(line);
            return f.menu->grab(place).toImage().pixelColor(place.width() - 4, place.height() / 2);
        };
        const auto before = groundOf();

        f.menu->setActiveAction(line);

        EXPECT_NE(groundOf(), before);
    }

    TEST(PanelMenuTest, NoLetterIsUnderlined)
    {
        MenuFixture f;
        auto* line = f.menu->addLine("Black & White", [] {});
        f.open();
        const auto before = f.menu->grab().toImage();

        EXPECT_EQ(line->text(), QStringLiteral("Black && White"));
        test::typeKey(*f.menu, Qt::Key_Alt, Qt::AltModifier); // would show the underlines

        EXPECT_EQ(f.menu->grab().toImage(), before);
    }

    TEST(PanelMenuTest, ADisabledLineStandsBackAndDoesNothing)
    {
        MenuFixture f;
        int done = 0;
        auto* enabled = f.menu->addLine("Copy", [] {});
        auto* line = f.menu->addLine("Undo", [&done] { ++done; });
        line->setEnabled(false);
        f.open();

        EXPECT_GT(f.inkOf(line).lightness(), f.inkOf(enabled).lightness());
        test::click(*f.menu, f.menu->actionGeometry(line).center());
        EXPECT_EQ(done, 0);
    }

    TEST(PanelMenuTest, ItTakesTheColoursOfWhatItBelongsTo)
    {
        MenuFixture f;
        QPalette dark(QColor(33, 35, 38));
        f.opener.setPalette(dark);
        auto* menu = PanelMenu::make(&f.opener);
        menu->addLine("Copy", [] {});
        menu->popup(f.opener.mapToGlobal(QPoint(20, 20)));
        test::settle();

        const auto image = menu->grab().toImage();

        EXPECT_LT(image.pixelColor(image.width() / 2, 3).lightness(), 60);
        menu->close();
    }

} // namespace
} // namespace korvane
