#include "settings/view/FormPage.h"
#include "settings/view/FormSection.h"
#include "settings/view/FormText.h"

#include "settings/view/KitFixture.h"
#include "settings/view/NumberField.h"
#include "settings/view/SettingsColours.h"
#include "settings/view/Switch.h"

#include <gtest/gtest.h>

#include <QScrollBar>

namespace korvane {
namespace {

    struct FormFixture : test::KitFixture {
        FormFixture() { page.resize(FormPage::pageWidth, FormPage::pageHeight); }
        FormRow& addRow(FormSection& section, const char* label)
        {
            return section.addRow(QString::fromUtf8(label), std::make_unique<Switch>(loop));
        }
        QImage lookAtPage() { return look(page); }

        FormPage& page = show(std::make_unique<FormPage>(), { 0, 0 });
    };

    TEST(FormTest, RowsAreThirtySixPointsHighAndStandOneUnderTheOther)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("General"));
        auto& first = f.addRow(section, "One");
        auto& second = f.addRow(section, "Two");
        test::settle();

        EXPECT_EQ(first.height(), 36);
        EXPECT_EQ(second.y(), first.y() + 36);
        EXPECT_EQ(first.mapTo(&f.page, QPoint()).x(), 21);
        EXPECT_EQ(first.width(), 520 - 2 * 21);
    }

    TEST(FormTest, AHiddenRowLeavesNoGap)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("General"));
        auto& first = f.addRow(section, "One");
        auto& hidden = f.addRow(section, "Two");
        auto& last = f.addRow(section, "Three");
        hidden.hide();
        test::settle();

        EXPECT_EQ(last.y(), first.y() + 36);
        hidden.show();
        test::settle();
        EXPECT_EQ(last.y(), first.y() + 72);
    }

    TEST(FormTest, ARowThatIsTakenOutIsGone)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("Ignored"));
        auto& first = f.addRow(section, "One");
        auto& last = f.addRow(section, "Two");
        test::settle();

        section.removeRow(first);
        test::settle();

        EXPECT_EQ(last.y(), 1);
        EXPECT_EQ(test::partsOf<Switch>(section).size(), 1U);
    }

    TEST(FormTest, ALineStandsBetweenTwoRows)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("General"));
        f.addRow(section, "One");
        auto& second = f.addRow(section, "Two");
        test::settle();
        const auto at = second.mapTo(&f.page, QPoint(200, 0));
        const auto image = f.lookAtPage();

        EXPECT_NE(image.pixelColor(at), image.pixelColor(at + QPoint(0, 3)));
        EXPECT_EQ(image.pixelColor(at + QPoint(0, 3)), settingsColoursOf(ColourScheme::light).card);
    }

    TEST(FormTest, ALongPageScrollsAndWhatGetsTheKeyboardComesIntoView)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("General"));
        for (int number = 0; number < 20; ++number)
            f.addRow(section, "Row");
        test::settle();
        auto* const last = test::partsOf<Switch>(section).back();
        EXPECT_GT(f.page.verticalScrollBar()->maximum(), 0);
        EXPECT_EQ(f.page.horizontalScrollBar()->maximum(), 0);

        for (int steps = 0; steps < 40 && !last->hasFocus(); ++steps)
            f.tab();

        ASSERT_TRUE(last->hasFocus());
        EXPECT_TRUE(
            f.page.viewport()->rect().contains(last->mapTo(f.page.viewport(), QPoint(0, 13))));
    }

    TEST(FormTest, AControlIsCalledByItsLabel)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("General"));
        f.addRow(section, "Show clip count in menu bar");
        auto field = std::make_unique<NumberField>(f.kit.clipboardText, 4);
        auto& edit = field->edit();
        section.addRow(QStringLiteral("Max clips:"), std::move(field), QStringLiteral("So many"));

        EXPECT_EQ(f.access(*test::partsOf<Switch>(section).front()).text(QAccessible::Name),
            QStringLiteral("Show clip count in menu bar"));
        EXPECT_EQ(f.access(edit).text(QAccessible::Name), QStringLiteral("Max clips:"));
        EXPECT_EQ(edit.toolTip(), QStringLiteral("So many"));
        EXPECT_EQ(f.access(section).role(), QAccessible::Grouping);
        EXPECT_EQ(f.access(section).text(QAccessible::Name), QStringLiteral("General"));
    }

    TEST(FormTest, AValueCanBeChanged)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("Statistics"));
        auto& value = section.addValue(QStringLiteral("Total clips:"), QStringLiteral("8"));

        value.setText(QStringLiteral("9"));

        EXPECT_EQ(f.access(value).text(QAccessible::Name), QStringLiteral("9"));
        EXPECT_EQ(f.access(value).role(), QAccessible::StaticText);
    }

    TEST(FormTest, ItTakesTheColoursOfTheOtherThemeAtOnce)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("General"));
        auto& row = f.addRow(section, "One");
        test::settle();
        const auto inRow = row.mapTo(&f.page, QPoint(200, 18));

        f.darken();
        test::settle();

        const auto image = f.lookAtPage();
        const auto& dark = settingsColoursOf(ColourScheme::dark);
        EXPECT_EQ(image.pixelColor(3, 200), dark.window);
        EXPECT_EQ(image.pixelColor(inRow), dark.card);
        EXPECT_EQ(test::partsOf<FormText>(row).front()->palette().color(QPalette::WindowText),
            coloursOf(ColourScheme::dark).text);
    }

    TEST(FormTest, AClickOnNothingEndsWhatIsTyped)
    {
        FormFixture f;
        auto& section = f.page.addSection(QStringLiteral("General"));
        auto field = std::make_unique<NumberField>(f.kit.clipboardText, 4);
        int commits = 0;
        field->onCommit = [&commits] { ++commits; };
        auto& edit = field->edit();
        section.addRow(QStringLiteral("Max clips:"), std::move(field));
        test::settle();
        edit.setFocus();
        ASSERT_TRUE(edit.hasFocus());

        f.page.setFocus(Qt::MouseFocusReason); // as the toolkit does for a click on it

        EXPECT_EQ(commits, 1);
    }

} // namespace
} // namespace korvane
