#include "panel/view/ClipPreviewView.h"

#include "look/view/Fonts.h"
#include "model/ClipItem.h"
#include "panel/view/PanelMetrics.h"
#include "support/AccessEvents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace korvane {
namespace {

    ClipItem clipOf(std::string text, ClipType type = ClipType::plainText)
    {
        ClipItem clip;
        clip.id = ClipId::random();
        clip.text = std::move(text);
        clip.type = type;
        return clip;
    }

    TEST(ClipPreviewViewTest, TheTextStandsTwelvePointsInsideOnEverySide)
    {
        ClipPreviewView view;
        view.show();

        view.resize(484, 124);

        EXPECT_EQ(view.text().geometry(), QRect(12, 12, 460, 100));
    }

    TEST(ClipPreviewViewTest, ItShowsTheClipThatItWasGivenLast)
    {
        ClipPreviewView view;
        view.setClip(clipOf("first"));

        view.setClip(clipOf("second\x1B"));

        EXPECT_EQ(view.text().text(), QStringLiteral("second^["));
    }

    TEST(ClipPreviewViewTest, NothingOfTheTextIsLeftOnceItIsHidden)
    {
        const test::AccessEvents listener;
        ClipPreviewView view;
        view.show();
        view.setClip(clipOf("a secret"));
        const auto parts = view.findChildren<QWidget*>();
        ASSERT_EQ(
            std::ranges::count_if(parts,
                [](const auto* part) { return part->accessibleName().contains(u"a secret"); }),
            2); // the text itself, and what has been announced

        view.hide();

        EXPECT_EQ(view.text().text(), QString());
        for (const auto* const part : view.findChildren<QWidget*>())
            EXPECT_EQ(part->accessibleName(), QString());
    }

    TEST(ClipPreviewViewTest, ACodeClipIsInTheMonospacedFontAndAllOthersAreNot)
    {
        for (const auto type : allClipTypes) {
            ClipPreviewView view;

            view.setClip(clipOf("text", type));

            const auto expected = type == ClipType::code ? codeFont(12) : textFont(12);
            EXPECT_EQ(view.text().font().family(), expected.family()) << rawValue(type);
        }
    }

    TEST(ClipPreviewViewTest, TheHeightIsAWholeNumberOfPoints)
    {
        ClipPreviewView view;
        view.setClip(clipOf("one\ntwo"));

        EXPECT_EQ(view.textHeight(460), 2 * metrics::previewLineHeight);
    }

    TEST(ClipPreviewViewTest, NothingIsLeftOfAClipThatWentOnWhenTheNextOneDoesNot)
    {
        const auto pictureOf = [](ClipPreviewView& view) {
            view.resize(484, 60);
            return view.grab().toImage();
        };
        ClipPreviewView fresh;
        fresh.setClip(clipOf("short"));
        ClipPreviewView used;
        used.setClip(clipOf(std::string(20000, 'x')));
        const auto faded = pictureOf(used);

        used.setClip(clipOf("short"));

        EXPECT_NE(faded, pictureOf(fresh));
        EXPECT_EQ(pictureOf(used), pictureOf(fresh));
    }

} // namespace
} // namespace korvane
