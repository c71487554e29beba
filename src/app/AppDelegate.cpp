#include "app/AppDelegate.h"

#include "app/Windows.h"
#include "capture/Pasteboard.h"
#include "hotkey/Keyboard.h"
#include "model/Log.h"
#include "model/Preferences.h"
#include "settings/Desktop.h"
#include "settings/HotkeyRecorder.h"

#include <string_view>
#include <utility>

namespace korvane {

namespace {

    constexpr std::string_view makersPage = KORVANE_SITE "/more";

    PanelShell::World shellWorld(Ports& ports, ClipStore& store,
        std::function<PlacedWindow&()> makePanel, std::function<PreviewWindow&()> makePreview,
        std::function<PlacedWindow&()> makeSettings, std::function<void()> checkForUpdates)
    {
        return { store, ports.preferences, ports.screens, ports.outsideClicks, ports.loop,
            std::move(makePanel), std::move(makePreview), std::move(makeSettings),
            std::move(checkForUpdates),
            [&desktop = ports.desktop] { desktop.openAddress(makersPage); }, ports.quit };
    }

} // namespace

AppDelegate::AppDelegate(Ports ports, const std::filesystem::path& dataFolder)
    : m_ports(std::move(ports))
    , m_store(dataFolder, m_ports.preferences, m_ports.loop, m_ports.log)
    , m_monitor(m_ports.pasteboard, m_ports.workspace, m_ports.preferences, m_ports.loop)
    , m_hotkeys(m_ports.hotkeyGrabber, m_ports.preferences, m_ports.loop)
    , m_sounds(m_ports.preferences, m_ports.sounds)
    , m_clipboard(m_store, m_ports.pasteboard)
    , m_shell(shellWorld(
          m_ports, m_store,
          [this]() -> PlacedWindow& {
              m_panelWindow = m_ports.makePanel(m_store, m_panel);
              return *m_panelWindow;
          },
          [this]() -> PreviewWindow& {
              m_previewPanel = m_ports.makePreview();
              return *m_previewPanel;
          },
          [this]() -> PlacedWindow& {
              m_preferencesWindow = m_ports.makeSettings({ m_store, m_monitor, m_hotkeys, m_limits,
                  m_actions, m_preferencesTabSelection });
              return *m_preferencesWindow;
          },
          [this] { checkForUpdates(); }))
    , m_paster({ m_store, m_monitor, m_clipboard, m_ports.pasteboard, m_ports.workspace,
          m_ports.keyboard, m_ports.desktop, m_sounds, m_ports.loop,
          [this] { m_shell.hidePanel(); } })
    , m_tabs(m_store, m_ports.loop)
    , m_panel(m_store, m_monitor, m_ports.preferences, m_shell, m_paster, m_tabs)
    , m_limits(m_store, m_ports.preferences, m_ports.alerts)
    , m_actions(m_store, m_ports.loop, m_ports.fileDialogs, m_ports.alerts)
{
}

AppDelegate::~AppDelegate()
{
    // The window that the panel has taken the keyboard from gets it back.
    m_shell.hidePanel();
    m_monitor.deliverWaiting();
}

bool AppDelegate::launch()
{
    setupStatusItem();
    connectCapture();
    m_monitor.startMonitoring();

    m_hotkeys.onHotkey = [this] { m_shell.togglePanel(); };
    const auto shortcut = m_hotkeys.loadShortcut();
    if (!shortcut) {
        m_ports.log.line("Korvane: the stored shortcut is not possible: hotkeyKeyCode and "
                         "hotkeyModifiers must lie between 0 and 4294967295");
        return false;
    }
    // A shortcut that is taken is no reason not to run: the status item and a second start of the
    // program open the panel as well.
    static_cast<void>(m_hotkeys.registerShortcut(shortcut->keyCode, shortcut->modifiers));

    m_connections.push_back(m_hotkeys.refused.connect(
        [this] { m_ports.alerts.show(recordertexts::shortcutUnavailable(), {}); }));

    connectPreferences();
    connectPanel();
    updateStatusTitle();
    applyTheme();
    installPasteListener();
    m_ports.loop.post([this] { m_shell.ensurePanel(); });
    return true;
}

void AppDelegate::setupStatusItem()
{
    m_ports.statusItem.setImage(statustext::image);
    m_ports.statusItem.setMenu([this] {
        return statustext::menu(m_monitor.isPrivateModeEnabled(),
            { [this] { m_panel.togglePrivateMode(); }, [this] { m_shell.togglePreferences(); },
                [this] { m_shell.checkForUpdates(); }, [this] { m_shell.openMakersPage(); },
                [this] { m_shell.quit(); } });
    });
    m_connections.push_back(
        m_ports.statusItem.clicked.connect([this] { m_shell.toggleFromStatusItem(); }));
}

void AppDelegate::connectCapture()
{
    m_monitor.onNewClip = [this](ClipItem clip) { captured(std::move(clip)); };
    m_monitor.deliverTogether
        = [this](const std::function<void()>& deliver) { m_store.savingOnce(deliver); };
    m_connections.push_back(
        m_monitor.privateModeChanged.connect([this](bool) { updateStatusIcon(); }));
    m_connections.push_back(m_ports.pasteboard.ownerVanished.connect([this] {
        const ClipItem* clip = m_clipboard.clipBeforeLatestChange();
        if (clip && !m_monitor.isPrivateModeEnabled())
            m_paster.restore(*clip);
    }));
}

void AppDelegate::captured(ClipItem clip)
{
    const bool isText = clip.type != ClipType::file;
    const auto kept = m_store.add(std::move(clip));
    // An answer that was held back behind an earlier copy may no longer be what is there.
    const bool isThere = m_monitor.deliveredChangeCount() == m_ports.pasteboard.changeCount();
    m_clipboard.holds(isText && isThere ? kept : std::nullopt);
    m_sounds.clipCaptured();
}

void AppDelegate::connectPanel()
{
    m_connections.push_back(
        m_shell.willOpen.connect([this] { m_paster.rememberFrontApplication(); }));
    m_connections.push_back(m_shell.prepare.connect([this] { preparePanel(); }));
}

void AppDelegate::preparePanel()
{
    if (const ClipItem* clip = m_clipboard.clip()) {
        // The clipboard holds the whole of a large clip, which is the text of no row.
        m_panel.prepareToOpen(
            clip->isOverflow ? std::nullopt : std::optional<std::string_view>(clip->text));
        return;
    }
    m_panel.prepareToOpen(std::nullopt);
    if (m_monitor.mayBeRead())
        selectWhatIsOnTheClipboard();
}

/// What was copied before our start, or from a clip that is in the history no more, has to be
/// fetched; the panel does not wait for it, and a user who has gone on meanwhile is not disturbed.
void AppDelegate::selectWhatIsOnTheClipboard()
{
    auto& state = m_store.panel();
    const auto opening = state.panelOpenCount.value();
    const auto selected = state.selectedClipID.value();
    m_ports.pasteboard.read([this, opening, selected, alive = std::weak_ptr(m_isAlive)](
                                std::optional<Pasteboard::Contents> contents) {
        if (alive.expired() || !contents)
            return;
        if (contents->isSecret)
            m_monitor.refusePresentContents();
        if (!contents->text)
            return;
        const auto& now = m_store.panel();
        if (now.panelOpenCount.value() == opening && now.selectedClipID.value() == selected
            && now.panelSearch.value().empty())
            m_panel.selectText(*contents->text);
    });
}

void AppDelegate::connectPreferences()
{
    m_connections.push_back(m_store.clipsChanged.connect([this] { updateStatusTitle(); }));
    m_connections.push_back(m_ports.preferences.changed.connect([this] {
        updateStatusTitle();
        applyTheme();
    }));
}

void AppDelegate::installPasteListener()
{
    if (!m_ports.keyboard.listen()) {
        m_ports.log.line("Korvane: failed to create CGEventTap — is Accessibility granted?");
        return;
    }
    m_connections.push_back(m_ports.keyboard.keyDown.connect(
        [this](const KeyPress& press) { m_sounds.keyPressed(press); }));
}

void AppDelegate::updateStatusTitle()
{
    m_ports.statusItem.setTitle(statustext::title(
        m_ports.preferences.boolean(keys::showCountInMenuBar), m_store.clips().size()));
}

void AppDelegate::updateStatusIcon()
{
    // Only when private mode is switched: a start in private mode shows the plain icon, deliberately.
    m_ports.statusItem.setImage(
        m_monitor.isPrivateModeEnabled() ? statustext::privateImage : statustext::image);
}

void AppDelegate::checkForUpdates()
{
    if (!m_updates) {
        UpdateChecker::World world { m_ports.documents,
            [this](const Alert& alert, Alerts::Answered answered) {
                showUpdateAlert(alert, std::move(answered));
            },
            [&desktop = m_ports.desktop](
                std::string_view address) { desktop.openAddress(address); } };
        m_updates.emplace(
            std::move(world), versionAddress(m_ports.site), runningVersion(KORVANE_VERSION));
    }
    m_updates->checkForUpdates(UpdateChecker::Check::asked);
}

/// The alert takes the keyboard, and a panel that stays open without it would hear no key.
void AppDelegate::showUpdateAlert(const Alert& alert, Alerts::Answered answered)
{
    m_shell.hidePanel();
    m_ports.alerts.show(alert, std::move(answered));
}

void AppDelegate::applyTheme()
{
    m_ports.appearance.apply(theme(m_ports.preferences));
}

} // namespace korvane
