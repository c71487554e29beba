#include "app/PanelShell.h"

#include "app/Placement.h"
#include "app/PreviewPlacement.h"
#include "model/ClipStore.h"
#include "model/Preferences.h"

#include <utility>

namespace korvane {

using namespace std::chrono_literals;

namespace {
    void callIfAny(const std::function<void()>& action)
    {
        if (action)
            action();
    }
} // namespace

PanelShell::PanelShell(World world)
    : m_world(std::move(world))
    , m_outsideClick(m_world.outsideClicks.pressed.connect([this] { clickedOutside(); }))
    , m_clipsChanged(m_world.store.clipsChanged.connect([this] { hidePreviewOfGone(); }))
    , m_statusItemFound(m_world.screens.found.connect([this] { placeAnew(); }))
{
}

void PanelShell::ensurePanel()
{
    if (!m_panel)
        m_panel = &m_world.makePanel();
}

void PanelShell::showPanel()
{
    if (isPanelVisible()) {
        m_panel->show(); // it may have lost the keyboard
        if (isPreviewVisible())
            m_preview->show(); // above the panel again
        return;
    }
    willOpen();
    ensurePanel();
    placePanel();
    prepare();
    m_panel->show();
    m_world.outsideClicks.watch();
}

void PanelShell::placePanel()
{
    const auto frames = m_world.screens.look();
    m_panel->setFrame(placement::panelFrame(frames.statusItem, frames.visible,
        m_world.store.clips().size(), panelAlignment(m_world.preferences)));
}

void PanelShell::placeAnew()
{
    if (isPanelVisible())
        placePanel();
    if (isPreviewVisible())
        placePreview();
}

void PanelShell::hidePanel()
{
    hidePreview();
    m_world.outsideClicks.unwatch();
    if (m_panel)
        m_panel->hide();
}

void PanelShell::togglePanel()
{
    if (isPanelVisible())
        hidePanel();
    else
        showPanel();
}

void PanelShell::toggleFromStatusItem()
{
    if (!m_afterOutsideClick.isActive())
        togglePanel();
}

bool PanelShell::isPanelVisible() const
{
    return m_panel && m_panel->isVisible();
}

void PanelShell::showPreview(const ClipItem& clip, std::optional<double> rowMidY)
{
    if (!m_panel || !m_panel->isVisible())
        return; // it stands beside the panel
    if (!m_preview)
        m_preview = &m_world.makePreview();
    m_preview->setClip(clip);
    m_previewed = clip.id;
    m_rowMidY = rowMidY;
    placePreview();
    m_preview->show();
}

void PanelShell::placePreview()
{
    // The look at the screen comes before the panel's frame, which is told on the screen looked at.
    const Rect visible = m_world.screens.look().visible;
    const double textHeight = m_preview->textHeight(previewplacement::textWidth);
    m_preview->setFrame(previewplacement::frame(textHeight, m_panel->frame(), visible,
        { previewSide(m_world.preferences), previewPosition(m_world.preferences), m_rowMidY }));
}

void PanelShell::hidePreview()
{
    if (m_preview)
        m_preview->hide();
}

/// What the user has thrown away is not to be read on the screen any longer.
void PanelShell::hidePreviewOfGone()
{
    if (isPreviewVisible() && !m_world.store.find(m_previewed))
        hidePreview();
}

bool PanelShell::isPreviewVisible() const
{
    return m_preview && m_preview->isVisible();
}

void PanelShell::openPreferences()
{
    if (!m_settings) {
        m_settings = &m_world.makeSettings();
        m_settingsFramed = m_settings->framed.connect([this] { placeSettings(); });
    }
    // A window manager brings to the front and to the workspace that is looked at what is shown anew.
    if (m_settings->isVisible())
        m_settings->hide();
    placeSettings();
    m_settings->show();
}

void PanelShell::placeSettings()
{
    const Rect visible = m_world.screens.look().visible;
    const Rect size = m_settings->wantedFrame();
    m_settings->setFrame(placement::besidePanel(size.width, size.height,
        isPanelVisible() ? std::optional(m_panel->frame()) : std::nullopt, visible));
}

void PanelShell::togglePreferences()
{
    if (m_settings && m_settings->isVisible())
        m_settings->hide();
    else
        openPreferences();
}

void PanelShell::checkForUpdates()
{
    callIfAny(m_world.checkForUpdates);
}

void PanelShell::openMakersPage()
{
    callIfAny(m_world.openMakersPage);
}

void PanelShell::quit()
{
    callIfAny(m_world.quit);
}

void PanelShell::clickedOutside()
{
    hidePanel();
    m_afterOutsideClick = m_world.loop.after(400ms, [this] { m_afterOutsideClick.stop(); });
}

} // namespace korvane
