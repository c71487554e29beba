#pragma once

#include "app/AppDelegate.h"
#include "app/view/ApplicationTheme.h"
#include "app/view/ClipPreviewWindow.h"
#include "app/view/OverlayScreens.h"
#include "app/view/PanelWindow.h"
#include "app/view/StageOnOverlay.h"
#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/qt/LayerOverlay.h"
#include "platform/wayland/qt/LayerShell.h"
#include "support/EventLoop.h"
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
#include "support/MemoryPreferences.h"
#include "support/RecordingLog.h"
#include "support/TempFolder.h"

#include <QImage>
#include <QWidget>

#include <memory>
#include <string>

namespace korvane::test {

/// The whole program with its real panel and preview on a real compositor; the rest of the world is fakes.
class PanelDesk {
public:
    PanelDesk();
    ~PanelDesk();
    PanelDesk(const PanelDesk&) = delete;
    PanelDesk& operator=(const PanelDesk&) = delete;

    PanelShell& shell() { return app->shell(); }
    PanelState& state() { return app->clipStore().panel(); }
    QWidget& ground() { return *stage.ground(); }
    KorPanel& panel() { return panelWindow->panel(); }

    /// Another program copies so many texts, "clip 1" last.
    void copyNumbered(int count);
    /// Opens the panel and waits until it is seen and has the keyboard.
    bool open();
    /// The same, by a click on the icon in the tray, where the pointer is.
    bool openByIcon();
    /// Closes the panel and waits until the toolkit has heard that the keyboard has gone.
    bool close();
    bool isReady();
    /// Whether the compositor has found fault with what we said; it ends the connection then.
    static bool isConnected();

    /// A part of the panel; see the types in panel/view.
    template <typename Part>
    Part* part()
    {
        for (auto* widget : panel().findChildren<QWidget*>()) {
            if (auto* found = dynamic_cast<Part*>(widget))
                return found;
        }
        return nullptr;
    }

    TempFolder folder;
    QtMainLoop loop;
    RecordingLog log;
    MemoryPreferences preferences;
    FakePasteboard pasteboard { loop };
    FakeWorkspace workspace;
    FakeHotkeyGrabber grabber;
    FakeKeyboard keyboard;
    FakeDesktop desktop;
    FakeSoundPlayer sounds;
    FakeStatusItem statusItem;
    FakeAppearance appearance;
    FakeAlerts alerts;
    FakeDocumentFetcher documents;
    FakeFileDialogs fileDialogs;
    std::unique_ptr<LayerShell> layerShell = LayerShell::find();
    LayerOverlay overlay { *layerShell, log };
    StageOnOverlay stage { overlay, loop };
    OverlayScreens screens { statusItem, overlay, stage, loop };
    Observable<bool> isComposited { true };
    PanelWindow* panelWindow = nullptr;
    ClipPreviewWindow* previewWindow = nullptr; // until a clip is shown in it
    std::unique_ptr<AppDelegate> app;           // last: it ends before its world
    Connection lost;
};

/// What is seen on an output of sway; a null image where that cannot be had.
QImage screenshot(const QString& output = QStringLiteral("HEADLESS-1"));
/// Whether the tests run on this compositor ("sway", "kwin").
bool isOn(const char* compositor);
/// Has sway do something, as its user would by its configuration.
bool sway(const QString& command);

} // namespace korvane::test
