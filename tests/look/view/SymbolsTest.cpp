#include "look/view/Symbols.h"

#include "panel/view/ClipRowView.h"
#include "panel/view/FilterTabBar.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>

#include <string>
#include <vector>

namespace korvane {
namespace {

    std::vector<std::string> allNames()
    {
        std::vector<std::string> names { "doc.on.clipboard", "lock.doc", "magnifyingglass",
            "externaldrive", "pin.fill", "lock", "lock.fill", "gearshape", "ellipsis.circle",
            "chevron.up", "chevron.down", "gear", "keyboard", "lock.shield", "questionmark.circle",
            "info.circle", "play.circle", "plus", "exclamationmark.triangle" };
        for (const auto tab : allFilterTabs)
            names.emplace_back(symbolOf(tab));
        for (const auto type : allClipTypes)
            names.emplace_back(symbolOf(type));
        return names;
    }

    int inkedPixels(const QImage& image)
    {
        int inked = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                inked += image.pixelColor(x, y).alpha() > 127 ? 1 : 0;
        }
        return inked;
    }

    TEST(SymbolsTest, EverySymbolThatWeShowIsDrawnAndLeavesItsEdgeFree)
    {
        Symbols symbols;

        for (const auto& name : allNames()) {
            const auto image = symbols.pixmap(name, 48, 1, Qt::black).toImage();
            EXPECT_GT(inkedPixels(image), 60) << name;
            for (int at = 0; at < image.width(); ++at) {
                EXPECT_EQ(image.pixelColor(at, 0).alpha(), 0) << name;
                EXPECT_EQ(image.pixelColor(0, at).alpha(), 0) << name;
                EXPECT_EQ(image.pixelColor(at, 47).alpha(), 0) << name;
                EXPECT_EQ(image.pixelColor(47, at).alpha(), 0) << name;
            }
        }
    }

    TEST(SymbolsTest, ASymbolWhoseStrokesAreThinnerThanAPixelIsDrawnEvenly)
    {
        Symbols symbols;

        for (const std::string name : { "chevron.up", "chevron.down", "ellipsis.circle", "lock" }) {
            const auto image = symbols.pixmap(name, 14, 1, Qt::black).toImage();
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width() / 2; ++x)
                    EXPECT_NEAR(image.pixelColor(x, y).alpha(),
                        image.pixelColor(image.width() - 1 - x, y).alpha(), 8)
                        << name << " at " << x << ", " << y;
            }
        }
    }

    TEST(SymbolsTest, ASymbolTakesTheColourThatItIsAskedForIn)
    {
        Symbols symbols;
        const QColor orange(0xd9, 0x73, 0x0d);

        const auto image = symbols.pixmap("lock.fill", 48, 1, orange).toImage();

        const auto ink = image.pixelColor(24, 36);
        EXPECT_NEAR(ink.red(), orange.red(), 2);
        EXPECT_NEAR(ink.green(), orange.green(), 2);
        EXPECT_NEAR(ink.blue(), orange.blue(), 2);
    }

    TEST(SymbolsTest, OnAFineScreenASymbolHasMorePixelsAndTheSameSize)
    {
        Symbols symbols;

        const auto pixmap = symbols.pixmap("link", 16, 1.25, Qt::black);

        EXPECT_EQ(pixmap.size(), QSize(20, 20));
        EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(16, 16));
    }

    TEST(SymbolsTest, AnUnknownSymbolIsAnEmptyPicture)
    {
        Symbols symbols;

        EXPECT_TRUE(symbols.pixmap("no.such.symbol", 16, 1, Qt::black).isNull());
    }

    TEST(SymbolsTest, AnOpacityOfTheColourIsKept)
    {
        Symbols symbols;

        const auto image = symbols.pixmap("lock.fill", 48, 1, QColor(0, 0, 0, 100)).toImage();

        EXPECT_NEAR(image.pixelColor(24, 36).alpha(), 90, 12);
    }

    TEST(SymbolsTest, AllAreDrawnOnOneGridInOneWidthOfStroke)
    {
        const QDir folder(QStringLiteral(":/symbols"));
        const auto names = folder.entryList({ QStringLiteral("*.svg") });
        EXPECT_GT(names.size(), 15);
        for (const auto& name : names) {
            QFile file(folder.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const auto drawing = file.readAll();
            EXPECT_TRUE(drawing.contains("viewBox=\"0 0 24 24\"")) << name.toStdString();
            EXPECT_TRUE(drawing.contains("stroke-width=\"1.5\"")) << name.toStdString();
            // The dots of a menu are strokes without a length, as wide as the dots are to be.
            const int widths = name.startsWith(QLatin1String("ellipsis")) ? 2 : 1;
            EXPECT_EQ(drawing.count("stroke-width"), widths) << name.toStdString();
        }
    }

} // namespace
} // namespace korvane
