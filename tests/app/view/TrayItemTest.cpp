#include "app/view/TrayItem.h"

#include "app/view/TrayIcon.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QStringList>

namespace korvane {
namespace {

    const QColor green(28, 158, 117);

    bool hasGreen(const QImage& image)
    {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == green)
                    return true;
            }
        }
        return false;
    }
    QImage shown(const QIcon& icon, int size)
    {
        return icon.pixmap(QSize(size, size), 1.0).toImage();
    }

    TEST(TrayItemTest, TheTitleStandsInTheToolTipAfterTheProgramsName)
    {
        TrayItem item;
        EXPECT_EQ(item.toolTip(), QStringLiteral("Korvane"));

        item.setTitle(" 42");
        EXPECT_EQ(item.toolTip(), QStringLiteral("Korvane 42"));
        EXPECT_EQ(item.title(), " 42");

        item.setTitle("");
        EXPECT_EQ(item.toolTip(), QStringLiteral("Korvane"));
    }

    TEST(TrayItemTest, TheCountIsABadgeInTheIcon)
    {
        TrayItem item;
        item.setImage("doc.on.clipboard");
        EXPECT_FALSE(hasGreen(shown(item.icon(), 22)));

        item.setTitle(" 0");
        EXPECT_TRUE(hasGreen(shown(item.icon(), 22)));

        item.setTitle("");
        EXPECT_FALSE(hasGreen(shown(item.icon(), 22)));
    }

    TEST(TrayItemTest, TheIconComesInEverySizeThatTraysAskFor)
    {
        Symbols symbols;

        const auto icon = trayIcon(symbols, "doc.on.clipboard", 7);

        for (const int size : { 22, 24, 32, 44 }) {
            EXPECT_TRUE(icon.availableSizes().contains(QSize(size, size)));
            EXPECT_TRUE(hasGreen(shown(icon, size)));
        }
    }

    TEST(TrayItemTest, MoreThan999ClipsAreShownAs999)
    {
        Symbols symbols;

        const auto with = [&symbols](int count) {
            return shown(trayIcon(symbols, "doc.on.clipboard", count), 44);
        };

        EXPECT_NE(with(999), with(998));
        EXPECT_EQ(with(1000), with(999));
        EXPECT_EQ(with(9999), with(999));
    }

    TEST(TrayItemTest, PrivateModeHasAnotherIcon)
    {
        TrayItem item;
        item.setImage("doc.on.clipboard");
        const auto open = shown(item.icon(), 44);

        item.setImage("lock.doc");

        EXPECT_NE(shown(item.icon(), 44), open);
    }

    TEST(TrayItemTest, TheGlyphIsSeenOnLightAndOnDarkBars)
    {
        Symbols symbols;
        const auto icon = shown(trayIcon(symbols, "doc.on.clipboard", std::nullopt), 44);

        int light = 0;
        int dark = 0;
        for (int y = 0; y < 44; ++y) {
            for (int x = 0; x < 44; ++x) {
                const auto pixel = icon.pixelColor(x, y);
                light += pixel.alpha() > 200 && pixel.lightness() > 200 ? 1 : 0;
                dark += pixel.alpha() > 50 && pixel.lightness() < 60 ? 1 : 0;
            }
        }

        EXPECT_GT(light, 100);
        EXPECT_GT(dark, 100);
    }

    TEST(TrayItemTest, TheMenuIsAskedForAnewEachTimeThatItOpens)
    {
        TrayItem item;
        int asked = 0;
        item.setMenu([&]() -> std::vector<MenuItem> {
            return { { "asked " + std::to_string(++asked), "", {} } };
        });

        item.menu().popup({ 10, 10 });
        const auto first = item.menu().actions().front()->text();
        item.menu().close();
        item.menu().popup({ 10, 10 });
        const auto second = item.menu().actions().front()->text();
        item.menu().close();

        EXPECT_NE(first, second);
        EXPECT_EQ(item.menu().actions().size(), 1);
    }

    TEST(TrayItemTest, TheMenuHasTheTextsSeparatorsAndKeysThatItIsGiven)
    {
        TrayItem item;
        int chosen = 0;
        item.setMenu([&]() -> std::vector<MenuItem> {
            return { { "   Private Mode", "", {} }, {},
                { "Preferences...", ",", [&] { ++chosen; } }, { "This & That", "", {} } };
        });

        const auto actions = item.menu().actions();
        ASSERT_EQ(actions.size(), 4);
        actions[2]->trigger();

        EXPECT_EQ(actions[0]->text(), QStringLiteral("   Private Mode"));
        EXPECT_TRUE(actions[1]->isSeparator());
        EXPECT_EQ(actions[2]->shortcut(), QKeySequence(QStringLiteral("Ctrl+,")));
        EXPECT_EQ(actions[3]->text(), QStringLiteral("This && That"));
        EXPECT_EQ(chosen, 1);
    }

    TEST(TrayItemTest, AChosenItemMayReplaceTheMenu)
    {
        TrayItem item;
        item.setMenu([&]() -> std::vector<MenuItem> {
            return { { "Replace", "", [&] { item.setMenu({}); } } };
        });

        item.menu().actions().front()->trigger();

        EXPECT_TRUE(item.menu().actions().isEmpty());
    }

} // namespace
} // namespace korvane
