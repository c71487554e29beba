#include "settings/view/GeneralPage.h"

#include "settings/view/FormSection.h"
#include "settings/view/FormText.h"
#include "settings/view/KitFixture.h"
#include "settings/view/SegmentedPicker.h"
#include "settings/view/SoundRow.h"
#include "settings/view/Switch.h"
#include "settings/view/SymbolButton.h"
#include "support/FakeLoginItem.h"
#include "support/FakeSoundPlayer.h"
#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace korvane {
namespace {

    struct PageFixture : test::KitFixture {
        void open()
        {
            page = &show(std::make_unique<GeneralPage>(kit,
                             GeneralPage::World { preferences, sounds, loginItem, output,
                                 [](FormSection& section) {
                                     section.addRow(QStringLiteral("Max clips:"), {});
                                 } }),
                { 0, 0 });
            page->resize(520, 420);
            test::settle();
        }
        template <typename Control>
        Control& control(const char* name) const
        {
            for (auto* const found : test::partsOf<Control>(*page))
                if (found->accessibleName() == QString::fromUtf8(name))
                    return *found;
            ADD_FAILURE() << "no control " << name;
            std::abort();
        }
        Switch& toggle(const char* name) const { return control<Switch>(name); }
        SegmentedPicker& picker(const char* name) const { return control<SegmentedPicker>(name); }
        SoundRow& soundRow(std::size_t number) const
        {
            return *test::partsOf<SoundRow>(*page).at(number);
        }
        /// The labels that are seen, from top to bottom.
        std::vector<std::string> labels() const
        {
            std::vector<FormText*> found;
            std::ranges::copy_if(test::partsOf<FormText>(*page), std::back_inserter(found),
                [](const FormText* text) { return text->isVisible(); });
            std::ranges::sort(found, {},
                [this](const FormText* text) { return text->mapTo(page->widget(), QPoint()).y(); });
            std::vector<std::string> texts;
            texts.reserve(found.size());
            for (const auto* const text : found)
                texts.push_back(text->text().toStdString());
            return texts;
        }
        static void turn(Switch& control) { test::click(control, control.rect().center()); }

        test::MemoryPreferences preferences;
        test::FakeSoundPlayer sounds;
        test::FakeLoginItem loginItem;
        std::ostringstream output;
        GeneralPage* page = nullptr; // the window's
    };

    TEST(GeneralPageTest, ItsRowsStandInTheirOrder)
    {
        PageFixture f;
        f.open();

        EXPECT_EQ(f.labels(),
            (std::vector<std::string> { "General", "Launch at login",
                "Max clips:", "Chevron scrolling:", "Show clip count in menu bar",
                "Play sound on copy", "Play sound on select in list", "Play sound on paste",
                "Appearance", "Theme:", "Panel and preview position",
                "Panel alignment below icon:", "Preview side:", "Preview position:" }));
    }

    TEST(GeneralPageTest, WithNothingStoredItShowsWhatTheProgramActsOn)
    {
        PageFixture f;
        f.open();

        for (const auto* name : { "Launch at login", "Show clip count in menu bar",
                 "Play sound on copy", "Play sound on select in list", "Play sound on paste" })
            EXPECT_FALSE(f.toggle(name).isOn()) << name;
        EXPECT_EQ(f.picker("Chevron scrolling:").value(), "hover");
        EXPECT_EQ(f.picker("Theme:").value(), "auto");
        EXPECT_EQ(f.picker("Panel alignment below icon:").value(), "middle");
        EXPECT_EQ(f.picker("Preview side:").value(), "right");
        EXPECT_EQ(f.picker("Preview position:").value(), "middle");
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(GeneralPageTest, ASwitchWritesItsKeyAtOnce)
    {
        PageFixture f;
        f.open();

        PageFixture::turn(f.toggle("Show clip count in menu bar"));
        EXPECT_TRUE(f.preferences.boolean(keys::showCountInMenuBar));
        PageFixture::turn(f.toggle("Show clip count in menu bar"));

        EXPECT_EQ(f.preferences.value<bool>(keys::showCountInMenuBar), false);
        EXPECT_EQ(f.preferences.writes, 2);
    }

    TEST(GeneralPageTest, APickerWritesItsKeyAtOnce)
    {
        PageFixture f;
        f.open();
        const auto choose = [&f](const char* name, int number) {
            auto& segment = *f.picker(name).findChildren<QAbstractButton*>().at(number);
            test::click(segment, segment.rect().center());
        };

        choose("Chevron scrolling:", 1);
        choose("Theme:", 2);
        choose("Panel alignment below icon:", 0);
        choose("Preview side:", 0);
        choose("Preview position:", 2);

        EXPECT_EQ(f.preferences.string(keys::chevronActivation), "click");
        EXPECT_EQ(f.preferences.string(keys::theme), "dark");
        EXPECT_EQ(f.preferences.string(keys::panelAlignment), "left");
        EXPECT_EQ(f.preferences.string(keys::previewSide), "left");
        EXPECT_EQ(f.preferences.string(keys::previewPosition), "follow");
    }

    TEST(GeneralPageTest, AChangeFromOutsideIsShown)
    {
        PageFixture f;
        f.open();

        f.preferences.set(keys::showCountInMenuBar, true);
        f.preferences.set(keys::theme, std::string("light"));
        f.preferences.set(keys::playSoundOnPaste, true);
        f.preferences.set(keys::pasteSoundName, std::string("Frog"));
        const int writes = f.preferences.writes;
        test::settle();

        EXPECT_TRUE(f.toggle("Show clip count in menu bar").isOn());
        EXPECT_EQ(f.picker("Theme:").value(), "light");
        EXPECT_TRUE(f.soundRow(2).isVisible());
        EXPECT_EQ(test::partsOf<SegmentedPicker>(f.soundRow(2)).front()->value(), "Frog");
        EXPECT_EQ(f.preferences.writes, writes);
    }

    TEST(GeneralPageTest, TurningASoundOffHidesItsRowAndOnAgainShowsTheNameChosenBefore)
    {
        PageFixture f;
        f.open();
        EXPECT_FALSE(f.soundRow(0).isVisible());

        PageFixture::turn(f.toggle("Play sound on copy"));
        test::settle();
        ASSERT_TRUE(f.soundRow(0).isVisible());
        auto& picker = *test::partsOf<SegmentedPicker>(f.soundRow(0)).front();
        EXPECT_EQ(picker.value(), "Tink");
        auto& basso = *picker.findChildren<QAbstractButton*>().first();
        test::click(basso, basso.rect().center());
        PageFixture::turn(f.toggle("Play sound on copy"));
        test::settle();
        EXPECT_FALSE(f.soundRow(0).isVisible());
        EXPECT_EQ(f.preferences.string(keys::copySoundName), "Basso");
        PageFixture::turn(f.toggle("Play sound on copy"));
        test::settle();

        EXPECT_TRUE(f.soundRow(0).isVisible());
        EXPECT_EQ(picker.value(), "Basso");
    }

    TEST(GeneralPageTest, EachSoundRowFollowsItsSwitchAndFitsThePage)
    {
        PageFixture f;
        for (const auto key :
            { keys::playSoundOnCopy, keys::playSoundOnSelect, keys::playSoundOnPaste })
            f.preferences.set(key, true);
        f.open();

        const auto labels = f.labels();
        EXPECT_EQ(std::ranges::count(labels, "Sound:"), 3);
        const auto copy = std::ranges::find(labels, "Play sound on copy");
        EXPECT_EQ(*std::next(copy), "Sound:");
        for (std::size_t number = 0; number < 3; ++number) {
            const auto& picker = *test::partsOf<SegmentedPicker>(f.soundRow(number)).front();
            EXPECT_TRUE(f.soundRow(number).rect().contains(picker.geometry())) << number;
            EXPECT_LE(f.soundRow(number).sizeHint().width(), 520 - 2 * 33) << number;
        }
        EXPECT_EQ(test::partsOf<SegmentedPicker>(f.soundRow(1)).front()->value(), "Pop");
        EXPECT_EQ(test::partsOf<SegmentedPicker>(f.soundRow(2)).front()->value(), "Hero");
    }

    TEST(GeneralPageTest, ThePickerOfSoundsOffersAllOfThemInTheirOrder)
    {
        PageFixture f;
        f.open();

        std::vector<std::string> names;
        for (const auto* segment :
            test::partsOf<SegmentedPicker>(f.soundRow(0)).front()->findChildren<QAbstractButton*>())
            names.push_back(segment->accessibleName().toStdString());

        EXPECT_EQ(names, std::vector<std::string>(soundNames.begin(), soundNames.end()));
    }

    TEST(GeneralPageTest, ThePreviewButtonPlaysTheSoundThatIsSelectedNow)
    {
        PageFixture f;
        f.preferences.set(keys::playSoundOnCopy, true);
        f.open();
        auto& button = *test::partsOf<SymbolButton>(f.soundRow(0)).front();

        test::click(button, button.rect().center());
        f.preferences.set(keys::copySoundName, std::string("Glass"));
        test::click(button, button.rect().center());

        EXPECT_EQ(f.sounds.played, (std::vector<std::string> { "Tink", "Glass" }));
        EXPECT_EQ(button.toolTip(), QStringLiteral("Preview sound"));
        EXPECT_EQ(button.symbol(), "play.circle");
    }

    TEST(GeneralPageTest, LaunchAtLoginIsAsItWasWhenThePageWasMade)
    {
        PageFixture f;
        f.loginItem.enabled = true;
        f.open();
        EXPECT_TRUE(f.toggle("Launch at login").isOn());

        f.loginItem.enabled = false;
        f.page->hide();
        f.page->show();

        EXPECT_TRUE(f.toggle("Launch at login").isOn());
    }

    TEST(GeneralPageTest, LaunchAtLoginKeepsItsPositionWhenItFails)
    {
        PageFixture f;
        f.loginItem.failure = "no space left";
        f.open();

        PageFixture::turn(f.toggle("Launch at login"));

        EXPECT_TRUE(f.toggle("Launch at login").isOn());
        EXPECT_EQ(f.loginItem.told, std::vector { true });
        EXPECT_EQ(f.output.str(), "Launch at login error: no space left\n");
    }

    TEST(GeneralPageTest, TheChevronsPickerHasItsTip)
    {
        PageFixture f;
        f.open();

        EXPECT_TRUE(
            f.picker("Chevron scrolling:").toolTip().startsWith(QStringLiteral("\"On hover\"")));
        EXPECT_EQ(f.picker("Theme:").toolTip(), QString());
    }

    TEST(GeneralPageTest, EveryControlIsReachedByTheTabKey)
    {
        PageFixture f;
        f.preferences.set(keys::playSoundOnCopy, true);
        f.open();
        f.window.setFocus();

        std::vector<std::string> reached;
        for (int steps = 0; steps < 40; ++steps) {
            const auto* const now = &f.tab();
            const auto name = now->accessibleName().isEmpty()
                ? std::string(now->metaObject()->className())
                : now->accessibleName().toStdString();
            if (std::ranges::find(reached, name) != reached.end())
                break;
            reached.push_back(name);
        }

        EXPECT_EQ(reached,
            (std::vector<std::string> { "Launch at login", "On hover",
                "Show clip count in menu bar", "Play sound on copy", "Tink", "Preview sound",
                "Play sound on select in list", "Play sound on paste", "Automatic", "Middle",
                "Right" }));
    }

} // namespace
} // namespace korvane
