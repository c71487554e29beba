#include "look/view/PanelMenu.h"
#include "panel/view/ClipListView.h"
#include "platform/wayland/qt/OtherProgram.h"
#include "platform/wayland/qt/PanelDesk.h"
#include "platform/wayland/qt/TestSeat.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QWindow>

#include <linux/input-event-codes.h>

namespace korvane {
namespace {

    using test::seat;
    using test::waitUntil;

    /// What the widget looks like, as the toolkit paints it.
    QImage painted(QWidget& widget, const QRect& part)
    {
        return widget.grab(part).toImage().convertToFormat(QImage::Format_RGB32);
    }
    /// The middle of a frame, where no corner lets anything shine through.
    QRect inside(const QRect& frame)
    {
        return frame.adjusted(12, 12, -12, -12);
    }

    struct PictureFixture {
        PictureFixture()
        {
            desk.copyNumbered(5);
            seat().moveTo({ 20, 700 });
            isOpen = desk.open();
        }

        test::OtherBar bar;
        test::PanelDesk desk;
        bool isOpen = false;
    };

    TEST(LayerPictureTest, WhatIsSeenIsWhatWasPaintedAtItsExactPlace)
    {
        if (!test::isOn("sway"))
            GTEST_SKIP() << "pictures of the screen are taken on sway";
        PictureFixture f;
        ASSERT_TRUE(f.isOpen);
        const QRect panel = inside(f.desk.panel().visibleFrame());

        // The cursor of the search field blinks.
        EXPECT_TRUE(waitUntil(
            [&] { return test::screenshot().copy(panel) == painted(f.desk.ground(), panel); }));
    }

    TEST(LayerPictureTest, BesideThePanelTheDesktopIsSeen)
    {
        if (!test::isOn("sway"))
            GTEST_SKIP() << "pictures of the screen are taken on sway";
        PictureFixture f;
        ASSERT_TRUE(f.isOpen);

        const auto screen = test::screenshot();

        EXPECT_EQ(screen.pixel(100, 10), test::OtherBar::colour);
    }

    TEST(LayerPictureTest, AMenuIsSeenAboveThePanel)
    {
        if (!test::isOn("sway"))
            GTEST_SKIP() << "pictures of the screen are taken on sway";
        PictureFixture f;
        ASSERT_TRUE(f.isOpen);
        auto& list = *f.desk.part<ClipListView>();
        seat().clickAt(list.mapTo(&f.desk.ground(), QPoint(list.width() / 2, 75)),
            test::TestSeat::Button::right);
        ASSERT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
        auto& menu = *QApplication::activePopupWidget();
        seat().moveTo({ 20, 700 });

        EXPECT_TRUE(waitUntil([&] {
            const QRect whole({}, menu.size());
            return test::screenshot().copy(inside(menu.geometry())) == painted(menu, inside(whole));
        }));
    }

    TEST(LayerPictureTest, ThePreviewIsSeenBesideThePanel)
    {
        if (!test::isOn("sway"))
            GTEST_SKIP() << "pictures of the screen are taken on sway";
        PictureFixture f;
        ASSERT_TRUE(f.isOpen);

        seat().type(KEY_SPACE);
        ASSERT_TRUE(waitUntil([&] { return f.desk.shell().isPreviewVisible(); }));

        const QRect preview = f.desk.previewWindow->panel().visibleFrame().adjusted(12, 4, -12, -4);
        EXPECT_TRUE(waitUntil(
            [&] { return test::screenshot().copy(preview) == painted(f.desk.ground(), preview); }));
    }

} // namespace
} // namespace korvane
