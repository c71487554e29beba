#pragma once

#include "capture/Workspace.h"
#include "model/MainLoop.h"
#include "panel/PanelHost.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

class ClipboardMonitor;
class ClipboardNow;
class ClipStore;
class Desktop;
class Keyboard;
class Pasteboard;
class SoundCues;

/// Puts clips on the pasteboard unseen by the monitor, and pastes them into the application that
/// was in front. The one door for our own writes.
class Paster : public ClipActions {
public:
    /// What it works on; all of it outlives it.
    struct World {
        ClipStore& store;
        ClipboardMonitor& monitor;
        ClipboardNow& clipboard;
        Pasteboard& pasteboard;
        Workspace& workspace;
        Keyboard& keyboard;
        Desktop& desktop;
        SoundCues& sounds;
        MainLoop& loop;
        std::function<void()> closePanel;
    };

    explicit Paster(World world);

    /// Called when the panel opens, before it is shown: a paste goes to the application that is in
    /// front now.
    void rememberFrontApplication();
    /// The application to paste into; taken by each text paste.
    const std::optional<RunningApplication>& previousApp() const { return m_previousApp; }

    void place(const ClipItem& clip) override;
    void copy(const ClipItem& clip) override;
    void choose(const ClipItem& clip) override;
    void activate(const ClipItem& clip) override;
    void reveal(const ClipItem& clip) override;

    /// Puts back a clip that was on the clipboard when its owner ended, so that it can still be
    /// pasted; the monitor takes it for the copy that it has seen already.
    void restore(const ClipItem& clip);

private:
    void write(const ClipItem& clip, const std::string& text);
    void pasteText(const std::string& text);
    void simulatePaste();
    bool chooseFile(const ClipItem& clip);

    World m_world;
    std::optional<RunningApplication> m_previousApp;
    std::vector<Timer> m_pastes; // die with us
    std::size_t m_pendingPastes = 0;
};

} // namespace korvane
