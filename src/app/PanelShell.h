#pragma once

#include "app/Windows.h"
#include "model/MainLoop.h"
#include "model/Signal.h"
#include "panel/PanelHost.h"

#include <functional>
#include <optional>

namespace korvane {

class ClipStore;
class Preferences;

/// Shows and hides the panel, and what stands beside it.
class PanelShell : public PanelHost {
public:
    struct World {
        ClipStore& store;
        Preferences& preferences;
        Screens& screens;
        OutsideClicks& outsideClicks;
        MainLoop& loop;
        /// Builds the panel's window; called once. The window outlives the shell's use of it.
        std::function<PlacedWindow&()> makePanel;
        /// The same for the preview's window, at the first clip that is shown in it.
        std::function<PreviewWindow&()> makePreview;
        /// The same for the settings window, when it is first wanted.
        std::function<PlacedWindow&()> makeSettings;
        /// What is offered in the panel and concerns the whole program; one that is empty does nothing.
        std::function<void()> checkForUpdates;
        std::function<void()> openMakersPage;
        std::function<void()> quit;
    };

    explicit PanelShell(World world);

    /// Builds the panel, unless it stands already.
    void ensurePanel();
    void showPanel();
    void hidePanel();
    void togglePanel();
    /// A left click on the status item. In some trays its press is a click outside the panel as
    /// well and closes it just before: then the click has had its effect and opens nothing.
    void toggleFromStatusItem();
    bool isPanelVisible() const;

    void close() override { hidePanel(); }
    /// Shows the clip beside the panel, on the screen of the status item; does nothing before the
    /// panel stands. A preview that is open goes on to this clip.
    void showPreview(const ClipItem& clip, std::optional<double> rowMidY) override;
    void hidePreview() override;
    bool isPreviewVisible() const override;
    /// Shows the settings window beside the panel; one that is open is brought back, placed afresh.
    void openPreferences() override;
    /// The status item's way there: a settings window that is open is hidden.
    void togglePreferences();
    void checkForUpdates() override;
    void openMakersPage() override;
    void quit() override;

    /// The panel is about to be placed and shown; what is in front has not changed yet.
    Signal<> willOpen;
    /// The panel has its place and is about to be shown: its contents are to be made ready.
    Signal<> prepare;

private:
    void placePanel();
    void placePreview();
    void placeAnew();
    void placeSettings();
    void clickedOutside();
    void hidePreviewOfGone();

    World m_world;
    PlacedWindow* m_panel = nullptr;    // until it has been built
    PreviewWindow* m_preview = nullptr; // the same
    ClipId m_previewed;                 // the clip that was shown last
    std::optional<double> m_rowMidY;    // of its row
    PlacedWindow* m_settings = nullptr; // the same
    Timer m_afterOutsideClick;
    Connection m_outsideClick;
    Connection m_clipsChanged;
    Connection m_statusItemFound;
    Connection m_settingsFramed;
};

} // namespace korvane
