#include "platform/wayland/qt/PanelDesk.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <wayland-client.h>

namespace korvane::test {

PanelDesk::PanelDesk()
{
    preferences.set(keys::maxClips, std::int64_t { 100 });
    app = std::make_unique<AppDelegate>(
        Ports { loop, log, preferences, pasteboard, workspace, grabber, keyboard, desktop, sounds,
            statusItem, screens, stage, appearance, alerts, documents, fileDialogs,
            [this](ClipStore& store, PanelController& controller) {
                auto window = std::make_unique<PanelWindow>(store, controller,
                    PanelWindow::World { loop, screens, isComposited, {}, stage });
                panelWindow = window.get();
                return window;
            },
            [this] {
                auto window = std::make_unique<ClipPreviewWindow>(screens, stage, isComposited);
                previewWindow = window.get();
                return window;
            },
            [] {}, "https://korvane.example",
            [](const SettingsSubjects&) { return std::make_unique<FakeWindow>(); } },
        folder.path() / "com.VNT.Korvane");
    lost = stage.lost.connect([this] { shell().hidePanel(); });
    app->launch();
    waitUntil([this] { return panelWindow != nullptr; });
}

PanelDesk::~PanelDesk() = default;

void PanelDesk::copyNumbered(int count)
{
    for (int number = count; number > 0; --number) {
        ClipItem clip;
        clip.id = ClipId::random();
        clip.text = "clip " + std::to_string(number);
        clip.createdAt = loop.now();
        app->clipStore().add(clip);
    }
}

bool PanelDesk::open()
{
    shell().showPanel();
    return waitUntil([this] { return isReady(); });
}

bool PanelDesk::openByIcon()
{
    statusItem.clicked();
    return waitUntil([this] { return isReady(); });
}

bool PanelDesk::close()
{
    shell().hidePanel();
    return waitUntil([] { return QGuiApplication::focusWindow() == nullptr; });
}

bool PanelDesk::isReady()
{
    const auto* const window = ground().windowHandle();
    return panel().isVisible() && window->isExposed() && QGuiApplication::focusWindow() == window;
}

bool PanelDesk::isConnected()
{
    auto* const display = static_cast<wl_display*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration("wl_display"));
    return wl_display_roundtrip(display) >= 0 && wl_display_get_error(display) == 0;
}

bool isOn(const char* compositor)
{
    return qgetenv("WAYLAND_DESKTOP_KIND") == compositor;
}

bool sway(const QString& command)
{
    return QProcess::execute(QStringLiteral("swaymsg"), { QStringLiteral("-q"), command }) == 0;
}

QImage screenshot(const QString& output)
{
    const TempFolder folder;
    const auto file = QString::fromStdString((folder.path() / "screen.png").string());
    QProcess::execute(QStringLiteral("grim"), { QStringLiteral("-o"), output, file });
    return QImage(file).convertToFormat(QImage::Format_RGB32);
}

} // namespace korvane::test
