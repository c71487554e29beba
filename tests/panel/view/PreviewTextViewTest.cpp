#include "panel/view/PreviewTextView.h"

#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "panel/view/PanelMetrics.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {
namespace {

    constexpr int width = 460;

    struct TextViewFixture {
        explicit TextViewFixture(const QString& text = {}, bool isCode = false)
        {
            view.setText(text, isCode);
            fit();
            view.show();
            test::settle();
        }
        int used() { return static_cast<int>(std::ceil(view.usedHeight(width))); }
        /// As high as the text is.
        void fit() { view.resize(width, used()); }
        QImage picture()
        {
            QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            view.render(&painter, {}, {}, QWidget::DrawChildren);
            return image;
        }

        QWidget parent;
        PreviewTextView view { &parent };
    };

    /// How much is painted there.
    int ink(const QImage& picture, const QRect& part)
    {
        int sum = 0;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                sum += picture.pixelColor(x, y).alpha();
        return sum;
    }
    QRect line(int number)
    {
        return { 0, number * metrics::previewLineHeight, width, metrics::previewLineHeight };
    }
    /// The columns in which something is painted: the first and the last one.
    std::pair<int, int> inkColumns(const QImage& picture)
    {
        int first = picture.width();
        int last = -1;
        for (int x = 0; x < picture.width(); ++x) {
            if (ink(picture, { x, 0, 1, picture.height() }) > 0) {
                first = std::min(first, x);
                last = x;
            }
        }
        return { first, last };
    }

    TEST(PreviewTextViewTest, TheMeasuredHeightIsWhatIsPainted)
    {
        TextViewFixture f(QStringLiteral("Exg first\nsecond\nthird\nExg first"));
        ASSERT_EQ(f.used(), 4 * metrics::previewLineHeight);
        const auto fitting = f.picture();
        EXPECT_GT(ink(fitting, line(0)), 0);
        EXPECT_EQ(fitting.copy(line(3)), fitting.copy(line(0)));

        f.view.resize(width, 600);
        const auto higher = f.picture();

        EXPECT_EQ(higher.copy(fitting.rect()), fitting);
        EXPECT_EQ(ink(higher, higher.rect().adjusted(0, fitting.height(), 0, 0)), 0);
    }

    TEST(PreviewTextViewTest, AnEmptyTextIsOneLineHighAndALineFeedAtTheEndBeginsOne)
    {
        EXPECT_EQ(TextViewFixture(QString()).used(), metrics::previewLineHeight);
        EXPECT_EQ(TextViewFixture(QStringLiteral("one\n")).used(), 2 * metrics::previewLineHeight);
        EXPECT_EQ(
            TextViewFixture(QStringLiteral("a\n\n\nb")).used(), 4 * metrics::previewLineHeight);
    }

    TEST(PreviewTextViewTest, ATallScriptMakesItsLineHigherAndNothingIsCutOff)
    {
        // Vowel signs above and below, in a script whose fonts have tall lines.
        TextViewFixture f(QStringLiteral("ཧཱུྃ བླ་མ།\nཧཱུྃ བླ་མ།"));

        EXPECT_GE(f.used(), 2 * metrics::previewLineHeight);
        const auto fitting = f.picture();
        f.view.resize(width, f.view.height() + 40);
        EXPECT_EQ(ink(f.picture(), f.view.rect()), ink(fitting, fitting.rect()));
    }

    TEST(PreviewTextViewTest, CodeIsInTheMonospacedFontAndEverythingElseInTheProportionalOne)
    {
        const auto columns = [](const QString& text, bool isCode) {
            TextViewFixture f(text, isCode);
            return inkColumns(f.picture()).second;
        };
        const auto narrow = QStringLiteral("iiiiiiiiiiiiiiiii|");
        const auto wide = QStringLiteral("WWWWWWWWWWWWWWWWW|");

        EXPECT_EQ(columns(narrow, true), columns(wide, true));
        EXPECT_LT(columns(narrow, false), columns(wide, false));
        EXPECT_EQ(TextViewFixture(wide, false).view.font().family(), textFont(12).family());
        EXPECT_EQ(TextViewFixture(wide, true).view.font().family(),
            QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    }

    TEST(PreviewTextViewTest, BothFontsAreTwelvePointsAndRegular)
    {
        for (const bool isCode : { false, true }) {
            const auto font = TextViewFixture(QStringLiteral("x"), isCode).view.font();

            EXPECT_NEAR(QFontInfo(font).pixelSize(), 12, 0.5);
            EXPECT_EQ(font.weight(), QFont::Normal);
        }
    }

    TEST(PreviewTextViewTest, CodeIsMeasuredInTheMonospacedFont)
    {
        // So many narrow letters have room on one line of the proportional font only.
        const QString narrow(90, u'i');

        EXPECT_EQ(TextViewFixture(narrow, false).used(), metrics::previewLineHeight);
        EXPECT_EQ(TextViewFixture(narrow, true).used(), 2 * metrics::previewLineHeight);
    }

    TEST(PreviewTextViewTest, AnIndentOfOneTabIsAsWideAsFourBlanksOfCode)
    {
        const auto begin = [](const QString& text) {
            TextViewFixture f(text, true);
            return inkColumns(f.picture()).first;
        };

        EXPECT_EQ(begin(QStringLiteral("\t|")), begin(QStringLiteral("    |")));
        EXPECT_EQ(begin(QStringLiteral("\t\t|")), begin(QStringLiteral("        |")));
    }

    TEST(PreviewTextViewTest, EachParagraphIsWrittenFromWhereItsScriptBegins)
    {
        TextViewFixture f(QStringLiteral("English first\nשלום עולם\nEnglish last"));
        const auto picture = f.picture();

        EXPECT_EQ(ink(picture, line(1) & QRect(0, 0, width / 2, 100)), 0);
        EXPECT_GT(ink(picture, line(1) & QRect(width / 2, 0, width / 2, 100)), 0);
        EXPECT_EQ(ink(picture, line(2) & QRect(width / 2, 0, width / 2, 100)), 0);
    }

    TEST(PreviewTextViewTest, ItIsInTheColourOfThePlatformsLabels)
    {
        TextViewFixture f(QStringLiteral("▇▇▇"));
        for (const auto scheme : { ColourScheme::light, ColourScheme::dark }) {
            const auto colour = coloursOf(scheme).text;
            QPalette palette;
            palette.setColor(QPalette::WindowText, colour);
            f.view.setPalette(palette);

            const auto picture = f.picture();

            int found = 0;
            for (int x = 0; x < 40; ++x)
                found += picture.pixelColor(x, metrics::previewLineHeight / 2) == colour ? 1 : 0;
            EXPECT_GT(found, 5);
        }
    }

    TEST(PreviewTextViewTest, ATextThatHasRoomDoesNotFade)
    {
        TextViewFixture f(QStringLiteral("▇▇▇\n").repeated(9) + QStringLiteral("▇▇▇"));
        const auto picture = f.picture();

        for (int number = 1; number < 10; ++number)
            EXPECT_EQ(picture.copy(line(number)), picture.copy(line(0))) << number;
    }

    TEST(PreviewTextViewTest, ATextThatIsCutOffByTheWindowFadesOutAtItsLowerEdge)
    {
        TextViewFixture f(QStringLiteral("▇▇▇\n").repeated(20));
        f.view.resize(width, 10 * metrics::previewLineHeight);

        const auto picture = f.picture();

        const int whole = ink(picture, line(0));
        EXPECT_EQ(ink(picture, line(7)), whole);
        EXPECT_LT(ink(picture, line(8)), whole);
        EXPECT_LT(ink(picture, line(9)), ink(picture, line(8)) / 2);
        EXPECT_LT(ink(picture, { 0, picture.height() - 1, width, 1 }), 200);
    }

    TEST(PreviewTextViewTest, ATextThatGoesOnFadesOutThoughAllThatIsShownOfItHasRoom)
    {
        TextViewFixture f(QStringLiteral("▇▇▇\n").repeated(4) + QStringLiteral("▇▇▇"));
        const auto whole = f.picture();

        f.view.setIsCut(true);
        const auto cut = f.picture();

        EXPECT_EQ(cut.copy(line(1)), whole.copy(line(1)));
        EXPECT_LT(ink(cut, line(4)), ink(whole, line(4)) / 2);
        f.view.setIsCut(false);
        EXPECT_EQ(f.picture(), whole);
    }

    TEST(PreviewTextViewTest, TheFadeKeepsTheLettersInTheirPlaces)
    {
        TextViewFixture f(QStringLiteral("Exg Exg Exg\n").repeated(8));
        const auto whole = f.picture();
        f.view.setIsCut(true);
        const auto faded = f.picture();

        for (int y = 0; y < whole.height(); ++y)
            for (int x = 0; x < 120; ++x)
                ASSERT_LE(faded.pixelColor(x, y).alpha(), whole.pixelColor(x, y).alpha() + 1)
                    << x << ", " << y;
    }

    TEST(PreviewTextViewTest, TheTextIsReplacedOnlyWhenItDiffers)
    {
        TextViewFixture f(QStringLiteral("one"));
        f.parent.show();
        test::settle();
        test::PaintCounter paints(f.view);

        f.view.setText(QStringLiteral("one"), false);
        test::settle();
        EXPECT_EQ(paints.count, 0);

        f.view.setText(QStringLiteral("two"), false);
        test::settle();
        EXPECT_EQ(f.view.text(), QStringLiteral("two"));
        EXPECT_GT(paints.count, 0);
    }

    TEST(PreviewTextViewTest, TheSameTextAsCodeChangesItsFont)
    {
        TextViewFixture f(QString(90, u'i'), false);

        f.view.setText(QString(90, u'i'), true);

        EXPECT_EQ(f.used(), 2 * metrics::previewLineHeight);
    }

    TEST(PreviewTextViewTest, ThePointerGoesThroughItAndTheFocusNeverComes)
    {
        TextViewFixture f(QStringLiteral("one"));

        EXPECT_TRUE(f.view.testAttribute(Qt::WA_TransparentForMouseEvents));
        EXPECT_EQ(f.view.focusPolicy(), Qt::NoFocus);
    }

    TEST(PreviewTextViewTest, WhoDoesNotSeeItCanHaveItRead)
    {
        TextViewFixture f(QStringLiteral("one\ntwo"));

        EXPECT_EQ(f.view.accessibleName(), QStringLiteral("one\ntwo"));
    }

    TEST(PreviewTextViewTest, OnlyTheLinesThatAreSeenArePainted)
    {
        TextViewFixture f(QStringLiteral("x\n").repeated(199));
        f.view.resize(width, 4000);
        QImage image(width, 100, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);

        f.view.render(&painter, {}, QRect(0, 10 * metrics::previewLineHeight, width, 18),
            QWidget::DrawChildren);
        painter.end();

        EXPECT_GT(ink(image, line(0)), 0);
        EXPECT_EQ(ink(image, line(2)), 0);
    }

} // namespace
} // namespace korvane
