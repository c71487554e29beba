#include "settings/view/AboutPage.h"

#include "settings/view/FormText.h"
#include "settings/view/KitFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace korvane {
namespace {

    std::vector<std::string> texts(const QWidget& page)
    {
        std::vector<std::string> found;
        for (const auto* const text : test::partsOf<FormText>(page))
            found.push_back(text->text().toStdString());
        return found;
    }

    TEST(AboutPageTest, ItShowsNameVersionAndDescriptionAndNothingElse)
    {
        test::KitFixture f;
        auto& page = f.show(std::make_unique<AboutPage>(f.symbols, QIcon(), "2.3"), { 0, 0 });

        EXPECT_EQ(texts(page),
            (std::vector<std::string> {
                "Korvane", "Version 2.3", "Native macOS menu bar clipboard manager" }));
    }

    TEST(AboutPageTest, ABuildWithoutAVersionShowsTheFirst)
    {
        test::KitFixture f;
        auto& page = f.show(std::make_unique<AboutPage>(f.symbols, QIcon(), ""), { 0, 0 });

        EXPECT_EQ(texts(page)[1], "Version 1.0");
    }

    TEST(AboutPageTest, WithoutAnIconASymbolStandsForIt)
    {
        test::KitFixture f;
        QPixmap red(96, 96);
        red.fill(Qt::red);
        auto& plain = f.show(std::make_unique<AboutPage>(f.symbols, QIcon(), "1"), { 0, 0 });
        plain.resize(520, 420);
        test::settle();
        const auto countRed = [](const QImage& image) {
            int count = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    count += image.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
            return count;
        };
        const auto look = f.look(plain);
        EXPECT_EQ(countRed(look), 0);
        EXPECT_NE(look, f.look(f.show(std::make_unique<QWidget>())));

        auto& dressed = f.show(std::make_unique<AboutPage>(f.symbols, QIcon(red), "1"), { 0, 0 });
        dressed.resize(520, 420);
        test::settle();
        EXPECT_NEAR(countRed(f.look(dressed)), 96 * 96, 200);
    }

} // namespace
} // namespace korvane
