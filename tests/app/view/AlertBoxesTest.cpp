#include "app/view/AlertBoxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace korvane {
namespace {

    constexpr Alert someAlert { "Something happened", "It need not worry <b>you</b>.", "OK" };

    std::vector<QMessageBox*> shownBoxes()
    {
        std::vector<QMessageBox*> boxes;
        for (auto* widget : QApplication::topLevelWidgets()) {
            if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible())
                boxes.push_back(box);
        }
        return boxes;
    }

    TEST(AlertBoxesTest, AWarningIsShownAsItIsAndNobodyWaitsForIt)
    {
        AlertBoxes alerts;

        alerts.warn(someAlert);

        const auto boxes = shownBoxes();
        ASSERT_EQ(boxes.size(), 1U);
        const auto& box = *boxes.front();
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.text(), QStringLiteral("Something happened"));
        EXPECT_EQ(box.informativeText(), QStringLiteral("It need not worry <b>you</b>."));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        ASSERT_EQ(box.buttons().size(), 1);
        EXPECT_EQ(box.buttons().front()->text(), QStringLiteral("OK"));
        EXPECT_FALSE(box.isModal());
    }

    TEST(AlertBoxesTest, TheSameAlertIsShownOnce)
    {
        AlertBoxes alerts;
        alerts.warn(someAlert);
        alerts.warn(someAlert);
        EXPECT_EQ(shownBoxes().size(), 1U);

        shownBoxes().front()->buttons().front()->click();
        EXPECT_TRUE(shownBoxes().empty());

        alerts.warn(someAlert);
        EXPECT_EQ(shownBoxes().size(), 1U);
    }

} // namespace
} // namespace korvane
