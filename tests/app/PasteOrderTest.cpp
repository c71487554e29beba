#include "app/Paster.h"

#include "app/ClipboardNow.h"
#include "app/SoundCues.h"
#include "capture/ClipboardMonitor.h"
#include "support/AppFixture.h"
#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using Steps = std::vector<std::string>;

    /// What happened, in order. That the monitor has absorbed a write leaves no trace but its own
    /// fields: it stands before the next step.
    struct Journal {
        void note(std::string step)
        {
            if (monitor && !isAbsorbed && monitor->lastOwnText() == "text"
                && monitor->lastChangeCount() == pasteboard->changeCount()) {
                isAbsorbed = true;
                steps.emplace_back("own write absorbed");
            }
            steps.push_back(std::move(step));
        }

        const ClipboardMonitor* monitor = nullptr;
        const Pasteboard* pasteboard = nullptr;
        bool isAbsorbed = false;
        Steps steps;
    };

    struct NotedPasteboard : test::FakePasteboard {
        NotedPasteboard(MainLoop& loop, Journal& where)
            : FakePasteboard(loop)
            , journal(where)
        {
        }
        void writeText(std::string_view text) override
        {
            journal.note("written: " + std::string(text));
            FakePasteboard::writeText(text);
        }
        Journal& journal;
    };

    struct NotedWorkspace : test::FakeWorkspace {
        explicit NotedWorkspace(Journal& where)
            : journal(where)
        {
        }
        void activate(const RunningApplication& application) override
        {
            journal.note("in front again: " + application.localizedName.value_or("nobody"));
            FakeWorkspace::activate(application);
        }
        Journal& journal;
    };

    struct NotedKeyboard : test::FakeKeyboard {
        explicit NotedKeyboard(Journal& where)
            : journal(where)
        {
        }
        void typeChord(KeyCode keyCode, ModifierMask modifiers) override
        {
            journal.note("typed");
            FakeKeyboard::typeChord(keyCode, modifiers);
        }
        Journal& journal;
    };

    struct NotedSounds : test::FakeSoundPlayer {
        explicit NotedSounds(Journal& where)
            : journal(where)
        {
        }
        void play(std::string_view name) override
        {
            journal.note("sound: " + std::string(name));
            FakeSoundPlayer::play(name);
        }
        Journal& journal;
    };

    struct NotedDesktop : test::FakeDesktop {
        explicit NotedDesktop(Journal& where)
            : journal(where)
        {
        }
        void revealFile(std::string_view path) override
        {
            journal.note("revealed: " + std::string(path));
            FakeDesktop::revealFile(path);
        }
        Journal& journal;
    };

    /// A paster in a world that notes every step, with one clip, and an editor in front.
    struct OrderFixture : test::StoreFixture {
        OrderFixture()
        {
            journal.monitor = &monitor;
            journal.pasteboard = &pasteboard;
            preferences.set(keys::playSoundOnSelect, true);
            workspace.bringToFront("org.xfce.mousepad", "Mousepad");
            id = add("text");
            used = store->clipsChanged.connect(
                [this] { journal.note("used: " + std::to_string(clip().useCount)); });
            paster.rememberFrontApplication();
        }
        const ClipItem& clip() const { return *store->find(id); }

        Journal journal;
        NotedPasteboard pasteboard { loop, journal };
        NotedWorkspace workspace { journal };
        NotedKeyboard keyboard { journal };
        NotedSounds sounds { journal };
        NotedDesktop desktop { journal };
        SoundCues cues { preferences, sounds };
        ClipboardMonitor monitor { pasteboard, workspace, preferences, loop };
        ClipboardNow clipboard { *store, pasteboard };
        std::optional<RunningApplication> previousAtClosing;
        Paster paster { { *store, monitor, clipboard, pasteboard, workspace, keyboard, desktop,
            cues, loop, [this] {
                previousAtClosing = paster.previousApp();
                journal.note("panel closed");
            } } };
        ClipId id;
        Connection used;
    };

    TEST(PasteOrderTest, APasteFromTheKeyboardTakesItsStepsInOrder)
    {
        OrderFixture f;

        f.paster.activate(f.clip());
        f.loop.advance(249ms);
        f.journal.note("249 ms later");
        f.loop.advance(1ms);

        EXPECT_EQ(f.journal.steps,
            (Steps { "used: 1", "panel closed", "written: text", "own write absorbed", "sound: Pop",
                "in front again: Mousepad", "written: text", "249 ms later", "typed" }));
    }

    TEST(PasteOrderTest, TheApplicationIsTakenBeforeThePanelCloses)
    {
        OrderFixture f;
        ASSERT_TRUE(f.paster.previousApp());

        f.paster.activate(f.clip());

        EXPECT_EQ(f.previousAtClosing, std::nullopt);
        EXPECT_EQ(f.paster.previousApp(), std::nullopt);
    }

    TEST(PasteOrderTest, NeitherWriteOfAPasteIsTakenForACopy)
    {
        OrderFixture f;
        std::vector<std::string> captured;
        f.monitor.onNewClip = [&](ClipItem clip) { captured.push_back(std::move(clip.text)); };
        f.monitor.startMonitoring();

        f.paster.activate(f.clip());
        f.loop.advance(2s);
        EXPECT_EQ(captured, std::vector<std::string> {});

        // The text was let go by once: the same text, copied by the user, is a copy.
        f.pasteboard.copyText("text");
        f.loop.turn();
        EXPECT_EQ(captured, std::vector<std::string> { "text" });
    }

    TEST(PasteOrderTest, TheSecondPasteInARowHasNoApplicationToBringBack)
    {
        OrderFixture f;

        f.paster.activate(f.clip());
        f.paster.activate(f.clip());
        f.loop.advance(250ms);

        EXPECT_EQ(f.workspace.activated.size(), 1U);
        EXPECT_EQ(f.keyboard.typed.size(), 2U);
    }

    TEST(PasteOrderTest, AFileClipLeavesTheApplicationForTheTextThatFollows)
    {
        OrderFixture f;
        const auto file = f.add("/home/ada/plan.txt", ClipType::file);

        f.paster.activate(*f.store->find(file));
        ASSERT_TRUE(f.paster.previousApp());
        EXPECT_EQ(f.paster.previousApp()->localizedName, "Mousepad");
        EXPECT_TRUE(f.workspace.activated.empty());
        f.paster.activate(f.clip());

        EXPECT_EQ(f.workspace.activated.size(), 1U);
        EXPECT_EQ(f.paster.previousApp(), std::nullopt);
    }

    TEST(PasteOrderTest, AFileClipIsRevealedBeforeThePanelCloses)
    {
        OrderFixture f;
        const auto file = f.add("/home/ada/plan.txt", ClipType::file);
        f.journal.steps.clear();
        f.id = file;

        f.paster.activate(f.clip());

        EXPECT_EQ(
            f.journal.steps, (Steps { "used: 1", "revealed: /home/ada/plan.txt", "panel closed" }));
    }

    TEST(PasteOrderTest, AClickOnARowTakesItsStepsInOrderAndPastesNothing)
    {
        OrderFixture f;

        f.paster.choose(f.clip());
        f.loop.advance(1s);

        EXPECT_EQ(f.journal.steps,
            (Steps {
                "used: 1", "written: text", "own write absorbed", "sound: Pop", "panel closed" }));
    }

    TEST(PasteOrderTest, AClickOnAFileClipRevealsItBeforeThePanelClosesAndWritesNothing)
    {
        OrderFixture f;
        const auto file = f.add("/home/ada/plan.txt", ClipType::file);
        f.journal.steps.clear();
        f.id = file;

        f.paster.choose(f.clip());
        f.loop.advance(1s);

        EXPECT_EQ(
            f.journal.steps, (Steps { "used: 1", "revealed: /home/ada/plan.txt", "panel closed" }));
    }

    TEST(PasteOrderTest, AClickOnARowLeavesTheApplicationForALaterPaste)
    {
        OrderFixture f;

        f.paster.choose(f.clip());

        EXPECT_TRUE(f.paster.previousApp());
        EXPECT_TRUE(f.workspace.activated.empty());
    }

    TEST(PasteOrderTest, APasteFromTheRowsMenuIsOneFromTheKeyboard)
    {
        test::AppFixture f;
        f.launch();
        f.copy("text");
        f.app->shell().showPanel();

        f.panelController->pasteDirectly(f.app->clipStore().clips()[0].id);
        f.loop.advance(500ms);

        EXPECT_EQ(f.pasteboard.written, (Steps { "text", "text" }));
        EXPECT_EQ(f.workspace.activated.size(), 1U);
        EXPECT_EQ(f.keyboard.typed.size(), 1U);
        EXPECT_FALSE(f.panel->isShown);
        EXPECT_EQ(f.clipCount(), 1U);
    }

    TEST(PasteOrderTest, EachOpeningNamesTheApplicationAnew)
    {
        test::AppFixture f;
        f.launch();
        f.copy("text");
        f.app->shell().showPanel();
        f.app->shell().hidePanel();
        f.workspace.bringToFront("org.featherpad", "FeatherPad");

        f.app->shell().showPanel();
        f.press(keycodes::returnKey);

        ASSERT_EQ(f.workspace.activated.size(), 1U);
        EXPECT_EQ(f.workspace.activated[0].localizedName, "FeatherPad");
    }

} // namespace
} // namespace korvane
