#pragma once

#include "app/Ports.h"
#include "app/Windows.h"
#include "look/view/PanelLineEdit.h"
#include "look/view/Symbols.h"
#include "model/MainLoop.h"

#include <QMargins>
#include <QPoint>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>

namespace korvane {

class Alerts;
class Applications;
class KeyRecorder;
class LoginItem;
class PreferencesView;
class WindowScreens;

/// The window of the settings, whole: an ordinary one, which the window manager looks after. It is
/// made once; closing it only hides it.
class SettingsWindow : public PlacedWindow {
public:
    /// What the window needs of the desktop and of the program; all of it outlives the window.
    struct World {
        MainLoop& loop;
        WindowScreens& screens;
        Preferences& preferences;
        SoundPlayer& sounds;
        LoginItem& loginItem;
        std::ostream& output; ///< the standard output
        TextReader clipboardText;
        KeyRecorder& keyRecorder;
        Applications& applications;
        Alerts& alerts;
        /// Has a window of ours, given by its number, get the keyboard from the panel when it becomes the
        /// active one; may be empty.
        std::function<void(std::uint32_t)> passKeyboard;
    };

    /// Teaches the toolkit what the window and its controls are to assistive technology. Needed once,
    /// before it is made.
    static void installAccess();

    SettingsWindow(const SettingsSubjects& subjects, const World& world);
    ~SettingsWindow() override;

    /// With the frame that the window manager has put around it, once it has been shown.
    Rect frame() const override;
    /// No larger than it is meant to be. In a smaller one the pages scroll.
    void setFrame(const Rect& frame) override;
    Rect wantedFrame() const override;
    /// In front of the others, and with the keyboard, which no control of the page has.
    void show() override;
    void hide() override;
    /// A minimized one is not.
    bool isVisible() const override;

    QWidget& widget() const;
    PreferencesView& view() const { return *m_view; }

private:
    class Window;

    void lookAtFrame();
    void lookAtPlace();

    WindowScreens& m_screens;
    MainLoop& m_loop;
    Symbols m_symbols;
    std::unique_ptr<Window> m_window;
    PreferencesView* m_view; // the window's
    std::function<void(std::uint32_t)> m_passKeyboard;
    QMargins m_placedWith;         // the frame's, as they were known when it was placed last
    QPoint m_place;                // the frame's upper left corner, as it is to be
    std::optional<QPoint> m_asked; // the place that the desktop was asked for, once it is shown
    std::optional<QPoint> m_seen;  // where it was at the last look
    int m_looks = 0;               // that are left
    Timer m_afterShow;
    Timer m_afterFraming;
    Timer m_looking;
};

} // namespace korvane
