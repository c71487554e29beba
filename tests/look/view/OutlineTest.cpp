#include "look/view/Outline.h"

#include <gtest/gtest.h>

#include <QImage>

#include <cmath>

namespace korvane {
namespace {

    /// A picture of so many pixels to a point, transparent.
    QImage empty(double ratio)
    {
        QImage image(200, 100, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        return image;
    }

    TEST(OutlineTest, AtEveryScaleTheEdgeIsWholePixelsOfOneColour)
    {
        for (const double ratio : { 1.0, 1.25, 1.5, 2.0 }) {
            auto image = empty(ratio);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);

            paintOutline(painter, { 6, 4, 60, 40 }, 6, Qt::black);

            const int width = static_cast<int>(std::lround(ratio));
            const int left = static_cast<int>(std::lround(6 * ratio));
            const int middle = static_cast<int>(std::lround(24 * ratio));
            for (int x = 0; x < left + width + 3; ++x)
                EXPECT_EQ(
                    image.pixelColor(x, middle).alpha(), x >= left && x < left + width ? 255 : 0)
                    << "scale " << ratio << ", pixel " << x;
            const int bottom = static_cast<int>(std::lround(44 * ratio));
            for (int y = bottom - width - 3; y < bottom + 3; ++y)
                EXPECT_EQ(image.pixelColor(middle, y).alpha(),
                    y >= bottom - width && y < bottom ? 255 : 0)
                    << "scale " << ratio << ", pixel " << y;
        }
    }

    TEST(OutlineTest, ARectangleGoesToThePixelsNextToIt)
    {
        auto image = empty(1.25);
        QPainter painter(&image);
        painter.translate(1, 0); // 1.25 pixels

        const auto place = onPixels(painter, { 6, 4, 60, 40 });

        EXPECT_DOUBLE_EQ((place.left() + 1) * 1.25, 9); // 8.75
        EXPECT_DOUBLE_EQ(place.top() * 1.25, 5);
        EXPECT_DOUBLE_EQ((place.right() + 1) * 1.25, 84); // 83.75
    }

} // namespace
} // namespace korvane
