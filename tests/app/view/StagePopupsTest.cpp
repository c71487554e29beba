#include "app/view/StageOnOverlay.h"

#include "app/view/StageFixture.h"
#include "look/view/PanelMenu.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QToolTip>

#include <vector>

namespace korvane {
namespace {

    using test::StageFixture;

    TEST(StagePopupsTest, AMenuHasAPlaceAboveTheGroundWhileItIsOpen)
    {
        StageFixture f;
        f.open();
        auto* const menu = PanelMenu::make(f.field);
        menu->addLine("Copy", [] {});

        menu->popup({ 450, 60 });
        EXPECT_TRUE(menu->isVisible());
        EXPECT_TRUE(menu->windowFlags().testFlag(Qt::BypassWindowManagerHint));
        EXPECT_EQ(f.overlay.stood, std::vector<const QWidget*> { menu });
        EXPECT_EQ(f.overlay.standing, 1);
        menu->close();

        EXPECT_EQ(f.overlay.standing, 0);
    }

    TEST(StagePopupsTest, AnOpenMenuGoesWithThePanel)
    {
        StageFixture f;
        f.open();
        auto* const menu = PanelMenu::make(f.field);
        menu->addLine("Copy", [] {});
        menu->popup({ 450, 60 });

        f.stage.hide(f.panel);

        EXPECT_EQ(f.overlay.standing, 0);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }

    TEST(StagePopupsTest, AMenuThatGetsNoPlaceIsNotShownAndGoes)
    {
        StageFixture f;
        f.open();
        f.overlay.isRefusing = true;
        const QPointer<PanelMenu> menu = PanelMenu::make(f.field);
        int hidden = 0;
        QObject::connect(menu, &QMenu::aboutToHide, [&] { ++hidden; });
        menu->addLine("Copy", [] {});

        menu->popup({ 450, 60 });
        test::settle();
        test::settle();

        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(hidden, 1);
        EXPECT_TRUE(menu.isNull());
    }

    TEST(StagePopupsTest, AToolTipIsAPartOfTheGround)
    {
        StageFixture f;
        f.open();

        QToolTip::showText({ 500, 100 }, QStringLiteral("Pinned"), f.field);
        QWidget* tip = nullptr;
        for (auto* const child : f.stage.ground()->findChildren<QWidget*>())
            tip = child->inherits("QTipLabel") ? child : tip;

        ASSERT_NE(tip, nullptr);
        EXPECT_EQ(tip->parentWidget(), f.stage.ground());
        EXPECT_FALSE(tip->isWindow());
        EXPECT_TRUE(tip->isVisible());
        QToolTip::hideText();
        f.stage.hide(f.panel);
    }

} // namespace
} // namespace korvane
