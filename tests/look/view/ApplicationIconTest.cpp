#include "look/view/ApplicationIcon.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

#include <set>

namespace korvane {
namespace {

    TEST(ApplicationIconTest, ItIsAPictureInEverySizeThatIsAskedFor)
    {
        const auto icon = applicationIcon();

        for (const int edge : { 16, 48, 64, 128 }) {
            const auto image = icon.pixmap(QSize(edge, edge), 1.0).toImage();
            ASSERT_EQ(image.size(), QSize(edge, edge));
            std::set<QRgb> colours;
            for (int x = 0; x < edge; ++x)
                colours.insert(image.pixel(x, edge / 2));
            EXPECT_GT(colours.size(), 3U) << edge;
        }
    }

} // namespace
} // namespace korvane
