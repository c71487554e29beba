#pragma once

#include "app/view/SettingsWindow.h"
#include "app/view/TrayItem.h"
#include "app/view/TrayScreens.h"
#include "capture/ClipboardMonitor.h"
#include "hotkey/HotkeyManager.h"
#include "settings/DataActions.h"
#include "settings/LimitFields.h"
#include "settings/SettingsTab.h"
#include "support/FakeAlerts.h"
#include "support/FakeApplications.h"
#include "support/FakeFileDialogs.h"
#include "support/FakeHotkeyGrabber.h"
#include "support/FakeKeyRecorder.h"
#include "support/FakeLoginItem.h"
#include "support/FakePasteboard.h"
#include "support/FakeSoundPlayer.h"
#include "support/FakeWorkspace.h"
#include "support/Input.h"
#include "support/StoreFixture.h"

#include <chrono>
#include <cstdint>
#include <sstream>

namespace korvane::test {

/// The settings window on the screen, over fakes of all that it needs of the world.
struct SettingsWindowFixture : StoreFixture {
    SettingsWindowFixture()
    {
        window.show();
        loop.advance(std::chrono::milliseconds { 1 });
        settle();
    }
    PreferencesView& view() { return window.view(); }

    FakePasteboard pasteboard { loop };
    FakeWorkspace workspace;
    FakeHotkeyGrabber grabber;
    FakeSoundPlayer sounds;
    FakeLoginItem loginItem;
    std::ostringstream output;
    ClipboardMonitor monitor { pasteboard, workspace, preferences, loop };
    HotkeyManager hotkeys { grabber, preferences, loop };
    FakeAlerts alerts;
    FakeFileDialogs dialogs;
    FakeKeyRecorder keys;
    FakeApplications applications;
    LimitFields limits { *store, preferences, alerts };
    DataActions actions { *store, loop, dialogs, alerts };
    SettingsTabSelection tabs;
    std::uint32_t passedTo = 0;
    TrayItem tray;
    TrayScreens screens { tray, [](QPoint) { return TrayScreens::Pixels {}; } };
    SettingsWindow window { { *store, monitor, hotkeys, limits, actions, tabs },
        { loop, screens, preferences, sounds, loginItem, output, {}, keys, applications, alerts,
            [this](std::uint32_t next) { passedTo = next; } } };
};

} // namespace korvane::test
