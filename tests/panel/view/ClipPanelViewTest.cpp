#include "panel/view/ClipPanelView.h"

#include "model/ClipJson.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"
#include "support/PaintRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::PaintRecorder;

    struct PanelViewFixture : test::ViewFixture {
        explicit PanelViewFixture(int clips = 3)
        {
            addNumbered(clips);
            view.resize(metrics::panelWidth, clips * 50 + 170);
            view.show();
            test::settle();
        }

        ClipPanelView view { store, controller, loop, {} };
    };

    TEST(ClipPanelViewTest, APanelOfTheHeightForNClipsShowsNWholeRows)
    {
        for (const int clips : { 2, 3, 8 }) {
            PanelViewFixture f(clips);

            EXPECT_EQ(f.view.list().y(), 121);
            EXPECT_EQ(f.view.list().height(), f.view.list().contentHeight());
            EXPECT_EQ(f.view.footer().height(), 43);
            EXPECT_EQ(f.view.footer().geometry().bottom() + 1, f.view.height());
        }
    }

    TEST(ClipPanelViewTest, ItOpensWithTheFocusInTheSearch)
    {
        PanelViewFixture f;

        EXPECT_EQ(f.view.focusWidget(), &f.view.search().field());
    }

    TEST(ClipPanelViewTest, AKeyOfThePanelGoesNoFurther)
    {
        PanelViewFixture f;

        EXPECT_TRUE(f.view.handle({ keycodes::downArrow, 0, "" }));
        EXPECT_TRUE(f.view.handle({ keycodes::space, 0, " " }));
        EXPECT_FALSE(f.view.handle({ 0xffff, 0, "x" }));
    }

    TEST(ClipPanelViewTest, TheFootTellsTheTotalsOfNow)
    {
        PanelViewFixture f(3);
        EXPECT_EQ(f.view.footer().totals(), QStringLiteral("3 clips / 1 KB"));

        f.add("another");

        EXPECT_EQ(f.view.footer().totals(), QStringLiteral("4 clips / 1 KB"));
        EXPECT_EQ(
            f.view.footer().toolTip(), QString::fromUtf8("Total: 4 / 500 clips · 500 MB limit"));
    }

    TEST(ClipPanelViewTest, TheFootFollowsALimitThatIsChangedByHand)
    {
        PanelViewFixture f(3);

        f.preferences.set(keys::maxClips, std::int64_t { 4 });

        EXPECT_EQ(
            f.view.footer().toolTip(), QString::fromUtf8("Total: 3 / 4 clips · 500 MB limit"));
    }

    TEST(ClipPanelViewTest, AnIdlePanelDoesNotRepaint)
    {
        PanelViewFixture f(8);
        test::PaintCounter paints(f.view);

        f.loop.advance(59s);
        test::settle();

        EXPECT_EQ(paints.count, 0);
    }

    TEST(ClipPanelViewTest, AHiddenPanelAddsNothingUpUntilItIsShownAgain)
    {
        PanelViewFixture f(8);
        f.view.hide();

        f.add("another");
        f.loop.advance(1min);
        test::settle();
        EXPECT_EQ(f.view.footer().totals(), QStringLiteral("8 clips / 1 KB"));
        f.view.show();

        EXPECT_EQ(f.view.footer().totals(), QStringLiteral("9 clips / 1 KB"));
        const PaintRecorder painted(f.view);
        EXPECT_EQ(painted.text(QStringLiteral("another")).text, QStringLiteral("another"));
    }

    TEST(ClipPanelViewTest, ItsColoursFollowThePalette)
    {
        PanelViewFixture f(1);
        const auto textColours = [&f] {
            const auto image = f.view.grab().toImage();
            int light = 0;
            for (int x = 14; x < 80; ++x) {
                for (int y = 8; y < 34; ++y)
                    light += image.pixelColor(x, y).lightness() > 220 ? 1 : 0;
            }
            return light;
        };
        QPalette dark(Qt::black);
        dark.setColor(QPalette::Window, Qt::black);
        dark.setColor(QPalette::WindowText, Qt::white);

        f.view.setPalette(dark);

        // On black, what is light is the program's name.
        EXPECT_GT(textColours(), 20);
        EXPECT_LT(textColours(), 66 * 26 / 2);
    }

    /// A history as a file, for one that would take long to copy together.
    void writeHistory(const std::filesystem::path& folder, int count)
    {
        std::vector<ClipItem> clips;
        for (int number = 0; number < count; ++number) {
            ClipItem clip;
            clip.id = ClipId::random();
            clip.text = "clip " + std::to_string(number);
            clips.push_back(clip);
        }
        std::filesystem::create_directories(folder);
        std::ofstream file(folder / "clips.json", std::ios::binary);
        encodeClips(clips, [&file](std::string_view block) { file << block; });
    }

    /// The shortest time for a step of the selection, until it has been painted.
    std::chrono::nanoseconds timeOfStep(int clips)
    {
        test::TempFolder folder;
        writeHistory(folder.path(), clips);
        test::ViewFixture f;
        ClipStore store(folder.path(), f.preferences, f.loop, f.log);
        TabSwitcher tabs(store, f.loop);
        PanelController controller(store, f.monitor, f.preferences, f.host, f.actions, tabs);
        ClipPanelView view(store, controller, f.loop, {});
        view.resize(metrics::panelWidth, 880);
        view.show();
        test::settle();
        EXPECT_EQ(store.clips().size(), static_cast<std::size_t>(clips));

        auto best = std::chrono::nanoseconds(1h);
        for (int run = 0; run < 9; ++run) {
            const auto begin = std::chrono::steady_clock::now();
            controller.handle({ keycodes::downArrow, 0, "" });
            test::settle();
            best = std::min(
                best, std::chrono::nanoseconds(std::chrono::steady_clock::now() - begin));
        }
        return best;
    }

    TEST(ClipPanelViewTest, AStepOfTheSelectionCostsTheSameInTheLongestHistory)
    {
        EXPECT_LT(timeOfStep(9999), 2 * timeOfStep(50) + 2ms);
    }

    TEST(ClipPanelViewTest, EveryTextFollowsTheDesktopsFont)
    {
        PanelViewFixture f(8);
        f.monitor.setPrivateModeEnabled(true);
        const auto before = QApplication::font();
        auto other = before;
        other.setFamily(QStringLiteral("Another Family"));

        // What the toolkit sends of itself only while its loop runs.
        const auto setFont = [&f](const QFont& font) {
            QApplication::setFont(font);
            QEvent changed(QEvent::ApplicationFontChange);
            QApplication::sendEvent(&f.view, &changed);
        };

        setFont(other);
        const PaintRecorder inTheOther(f.view);
        setFont(before);
        const PaintRecorder inTheFirst(f.view);

        // The header, its badge, the search, the chosen tab, a row and the line under its title, its
        // badge, and the foot.
        for (const auto& wording :
            { "Korvane", "PRIVATE", "Search...", "All", "clip 1", "·", "⌘1", "8 clips / 1 KB" }) {
            const auto text = QString::fromUtf8(wording);
            EXPECT_EQ(inTheOther.text(text).font.family(), other.family()) << wording;
            EXPECT_EQ(inTheFirst.text(text).font.family(), before.family()) << wording;
        }
        for (const auto& text : inTheOther.texts())
            EXPECT_EQ(text.font.family(), other.family()) << text.text.toStdString();
    }

} // namespace
} // namespace korvane
