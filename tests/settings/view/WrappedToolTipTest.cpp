#include "settings/view/WrappedToolTip.h"

#include "settings/GeneralTexts.h"
#include "settings/LimitTexts.h"
#include "settings/view/FormText.h"
#include "settings/view/KitFixture.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QToolTip>

namespace korvane {
namespace {

    TEST(WrappedToolTipTest, ALongTipHasLinesOfAtMost360PointsAndAllItsWords)
    {
        const auto font = QToolTip::font();
        for (const auto tip : { generaltexts::chevronToolTip, limittexts::maxClipSizeToolTip,
                 limittexts::maxTotalSizeToolTip }) {
            const auto text = QString::fromUtf8(tip);

            const auto lines = wrappedTip(text, font).split(QLatin1Char('\n'));

            EXPECT_GT(lines.size(), 1);
            for (const auto& line : lines)
                EXPECT_LE(QFontMetricsF(font).horizontalAdvance(line), 360);
            EXPECT_EQ(lines.join(QLatin1Char(' ')), text);
        }
    }

    TEST(WrappedToolTipTest, AShortTipStaysAsItIs)
    {
        EXPECT_EQ(wrappedTip(QStringLiteral("Preview sound"), QToolTip::font()),
            QStringLiteral("Preview sound"));
    }

    TEST(WrappedToolTipTest, ALabelShowsItsTipInLines)
    {
        test::KitFixture f;
        auto& label = f.show(std::make_unique<FormText>(QStringLiteral("Max clip size (KB):")));
        const auto tip = QString::fromUtf8(limittexts::maxClipSizeToolTip);
        label.setToolTip(tip);

        const auto at = label.rect().center();
        QHelpEvent asked(QEvent::ToolTip, at, label.mapToGlobal(at));
        QApplication::sendEvent(&label, &asked);

        EXPECT_EQ(QToolTip::text(), wrappedTip(tip, QToolTip::font()));
        EXPECT_EQ(label.toolTip(), tip) << "as it is told to assistive technology";
    }

} // namespace
} // namespace korvane
