#pragma once

#include "app/view/PanelShadow.h"
#include "hotkey/KeyCodes.h"
#include "model/Signal.h"

#include <QPointF>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace korvane {

/// The panel: a window without a frame, above all others, outside the window manager's reach, so
/// that it stands exactly where it is put; or the same on a ground that covers the screen. With a
/// compositor it casts a shadow into a margin of its own; without one it is cut to its rounded shape.
/// Every key press comes to it before any control sees it.
class KorPanel : public QWidget {
public:
    /// True: the key press is used up and goes no further.
    using KeyHandler = std::function<bool(const KeyPress&)>;

    /// Told whenever the panel's place in its window changes: the window's number, the panel's
    /// rectangle in it and the window's size, both in pixels. Where a shadow surrounds the panel,
    /// the desktop must neither take it for a part of the window nor give it clicks.
    using FrameTeller = std::function<void(std::uint32_t window, QRect panel, QSize whole)>;

    /// Which window it is: the panel, or the preview beside it, which is only looked at and never
    /// gets the keyboard.
    enum class Role { panel, preview };

    /// The native window is made at once, so that showing it later costs nothing more.
    /// @param isComposited  whether a compositor runs; may change at any time
    /// @param ground        a window that the panel is to be a part of, and whose keys it hears; null: it
    ///                      is a window by itself
    explicit KorPanel(Observable<bool>& isComposited, FrameTeller tellFrame = {},
        Role role = Role::panel, QWidget* ground = nullptr);

    bool takesKeyboard() const { return m_role == Role::panel; }

    /// Teaches the toolkit that such a panel is a window to assistive technology, or a part of one. Needed
    /// once, before the first is made.
    static void installAccess();

    void setKeyHandler(KeyHandler handler) { m_handleKey = std::move(handler); }
    /// What the window calls when it should have the keyboard again: the pointer has entered it
    /// (some desktops take the focus away from what the pointer leaves) or it was clicked.
    void setKeyboardWanted(std::function<void()> wanted) { m_keyboardWanted = std::move(wanted); }
    /// Fills the panel.
    void setContents(std::unique_ptr<QWidget> contents);

    /// The panel as it is seen, without its shadow, in global coordinates (on a ground: in those of the
    /// ground).
    QRect visibleFrame() const { return geometry().marginsRemoved(m_margins); }
    void setVisibleFrame(const QRect& frame) { setGeometry(frame.marginsAdded(m_margins)); }
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeWindow();
    QWindow* handle() const { return window()->windowHandle(); }
    bool isReachedBy(const QEvent& event);
    void setComposited(bool isComposited);
    void shape();
    void tellFrame();
    void paintTranslucent(QPainter& painter, const QRect& dirty);
    void paintOpaque(QPainter& painter);

    Role m_role;
    FrameTeller m_tellFrame;
    KeyHandler m_handleKey;
    std::function<void()> m_keyboardWanted;
    std::unique_ptr<QWidget> m_contents;
    PanelShadow m_shadow;
    QMargins m_margins;
    std::optional<QPointF> m_pointer; // where it was seen last
    bool m_isComposited = false;
    bool m_hasToldFrame = false;
    Connection m_compositedChanged;
};

} // namespace korvane
