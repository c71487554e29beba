#include "app/view/ClipPreviewWindow.h"

#include "app/view/PanelShadow.h"
#include "app/view/StageOfWindows.h"
#include "app/view/TrayItem.h"
#include "app/view/TrayScreens.h"
#include "model/ClipItem.h"
#include "panel/view/ClipPreviewView.h"
#include "panel/view/PanelMetrics.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QPainter>

#include <string>
#include <utility>

namespace korvane {
namespace {

    struct PreviewWindowFixture {
        void show(std::string text)
        {
            ClipItem clip;
            clip.text = std::move(text);
            window.setClip(clip);
            window.setFrame({ 100, 200, 484, window.textHeight(460) + 24 });
            window.show();
            test::settle();
        }
        QImage picture()
        {
            QImage image(window.panel().size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            window.panel().render(&painter, {}, {}, QWidget::DrawChildren);
            return image;
        }

        TrayItem tray;
        TrayScreens screens { tray, [](QPoint) { return TrayScreens::Pixels {}; } };
        Observable<bool> isComposited { false };
        StageOfWindows stage { { [this](std::uint32_t) { ++keyboardsTaken; }, {} } };
        int keyboardsTaken = 0;
        ClipPreviewWindow window { screens, stage, isComposited };
    };

    TEST(ClipPreviewWindowTest, ItIsNeverGivenTheKeyboard)
    {
        PreviewWindowFixture f;
        const auto& panel = f.window.panel();

        EXPECT_TRUE(panel.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
        EXPECT_TRUE(panel.testAttribute(Qt::WA_ShowWithoutActivating));
        f.show("text");
        EXPECT_EQ(panel.focusWidget(), nullptr);
        EXPECT_EQ(f.keyboardsTaken, 0);
    }

    TEST(ClipPreviewWindowTest, ItStandsAboveAllOthersOutsideTheWindowManagersReach)
    {
        PreviewWindowFixture f;

        EXPECT_TRUE(f.window.panel().windowFlags().testFlag(Qt::BypassWindowManagerHint));
        EXPECT_TRUE(f.window.panel().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_EQ(f.window.panel().windowTitle(), QStringLiteral("Korvane Preview"));
    }

    TEST(ClipPreviewWindowTest, ItIsHiddenUntilItIsShown)
    {
        PreviewWindowFixture f;
        EXPECT_FALSE(f.window.isVisible());

        f.show("text");
        EXPECT_TRUE(f.window.isVisible());
        f.window.hide();

        EXPECT_FALSE(f.window.isVisible());
    }

    TEST(ClipPreviewWindowTest, AFrameWithTheMeasuredHeightShowsTheWholeText)
    {
        PreviewWindowFixture f;

        f.show("one\ntwo\nthree");

        EXPECT_EQ(f.window.frame().height, 3 * metrics::previewLineHeight + 24);
        EXPECT_EQ(f.window.view().text().height(), 3 * metrics::previewLineHeight);
        EXPECT_EQ(f.window.view().text().width(), 460);
    }

    TEST(ClipPreviewWindowTest, WithACompositorItCastsTheShadowOfThePanel)
    {
        PreviewWindowFixture f;
        f.isComposited.set(true);

        f.show("text");

        EXPECT_EQ(f.window.frame().width, 484);
        EXPECT_EQ(f.window.panel().width(),
            484 + PanelShadow::margins().left() + PanelShadow::margins().right());
        const auto picture = f.picture();
        const int below = picture.height() - PanelShadow::margins().bottom() + 4;
        EXPECT_GT(picture.pixelColor(picture.width() / 2, below).alpha(), 20);
    }

    TEST(ClipPreviewWindowTest, WithoutACompositorItIsCutToARoundedShape)
    {
        PreviewWindowFixture f;

        f.show("text");

        const auto mask = f.window.panel().mask();
        EXPECT_FALSE(mask.contains(QPoint(0, 0)));
        EXPECT_FALSE(mask.contains(QPoint(483, f.window.panel().height() - 1)));
        EXPECT_TRUE(mask.contains(QPoint(12, 0)));
        EXPECT_EQ(f.picture().pixelColor(240, 2).alpha(), 255);
    }

    TEST(ClipPreviewWindowTest, AClickInItDoesNothing)
    {
        PreviewWindowFixture f;
        f.show("text");
        const auto before = f.picture();
        int paints = 0;
        {
            test::PaintCounter counter(f.window.panel());
            test::click(f.window.panel(), { 40, 20 });
            test::rightClick(f.window.panel(), { 40, 20 });
            test::turnWheel(f.window.panel(), 1);
            test::settle();
            paints = counter.count;
        }

        EXPECT_EQ(paints, 0);
        EXPECT_TRUE(f.window.isVisible());
        EXPECT_EQ(f.picture(), before);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }

} // namespace
} // namespace korvane
