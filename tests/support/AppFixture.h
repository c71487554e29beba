#pragma once

#include "app/AppDelegate.h"
#include "support/FakeAlerts.h"
#include "support/FakeDesktop.h"
#include "support/FakeDocumentFetcher.h"
#include "support/FakeFileDialogs.h"
#include "support/FakeHotkeyGrabber.h"
#include "support/FakeKeyboard.h"
#include "support/FakePasteboard.h"
#include "support/FakeSoundPlayer.h"
#include "support/FakeWindows.h"
#include "support/FakeWorkspace.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"
#include "support/RecordingLog.h"
#include "support/TempFolder.h"

#include <memory>
#include <string>
#include <utility>

namespace korvane::test {

/// The whole program without a toolkit: the real store on a real folder, the real rules, and a
/// world of fakes whose time is moved by hand.
class AppFixture {
public:
    AppFixture() { workspace.bringToFront("org.xfce.mousepad", "Mousepad"); }

    /// Makes the application and starts it, up to the first pass of the loop.
    AppDelegate& launch()
    {
        make();
        wasLaunched = app->launch();
        loop.turn();
        return *app;
    }
    void make()
    {
        app = std::make_unique<AppDelegate>(
            Ports { loop, log, preferences, pasteboard, workspace, grabber, keyboard, desktop,
                sounds, statusItem, screens, outsideClicks, appearance, alerts, documents,
                fileDialogs,
                [this](ClipStore&, PanelController& controller) {
                    panelController = &controller;
                    auto window = std::make_unique<FakeWindow>();
                    panel = window.get();
                    return window;
                },
                [this] {
                    auto window = std::make_unique<FakePreviewWindow>();
                    preview = window.get();
                    return window;
                },
                [this] { ++quits; }, "https://korvane.example",
                [this](const SettingsSubjects& subjects) {
                    settingsTab = &subjects.selection;
                    ++settingsMade;
                    auto window = std::make_unique<FakeWindow>();
                    settings = window.get();
                    return window;
                } },
            folder.path() / "com.VNT.Korvane");
    }

    /// Another program copies, and the clip is captured.
    void copy(std::string text)
    {
        pasteboard.copyText(std::move(text));
        loop.turn();
    }
    /// The text of the clip at this place of the history.
    std::string clipText(std::size_t index) const
    {
        return app->clipStore().clips().at(index).text;
    }
    std::size_t clipCount() const { return app->clipStore().clips().size(); }
    void press(KeyCode key, ModifierMask mask = 0, std::string characters = "")
    {
        panelController->handle({ key, mask, std::move(characters) });
    }

    TempFolder folder;
    ManualLoop loop;
    RecordingLog log;
    MemoryPreferences preferences;
    FakePasteboard pasteboard { loop };
    FakeWorkspace workspace;
    FakeHotkeyGrabber grabber;
    FakeKeyboard keyboard;
    FakeDesktop desktop;
    FakeSoundPlayer sounds;
    FakeStatusItem statusItem;
    FakeScreens screens;
    FakeOutsideClicks outsideClicks;
    FakeAppearance appearance;
    FakeAlerts alerts;
    FakeDocumentFetcher documents;
    FakeFileDialogs fileDialogs;
    FakeWindow* panel = nullptr;
    FakePreviewWindow* preview = nullptr; // until a clip is shown in it
    FakeWindow* settings = nullptr;       // until they are first opened
    SettingsTabSelection* settingsTab = nullptr;
    int settingsMade = 0;
    PanelController* panelController = nullptr;
    bool wasLaunched = false;
    int quits = 0;
    std::unique_ptr<AppDelegate> app; // last: it ends before its world
};

} // namespace korvane::test
