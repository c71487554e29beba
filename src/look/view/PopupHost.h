#pragma once

#include <QWidget>

#include <memory>

namespace korvane {

/// A window of ours that the desktop does not look after, and whose menus it would therefore put
/// anywhere, or below the window: it gives them their place itself.
class PopupHost {
public:
    /// A popup's place above the window. It is given up by destroying it, before the popup is hidden.
    class Standing {
    public:
        Standing() = default;
        Standing(const Standing&) = delete;
        Standing& operator=(const Standing&) = delete;
        virtual ~Standing() = default;
    };

    virtual ~PopupHost() = default;

    /// Gives the popup its place, at the geometry that it has; to be called right before it is shown. It
    /// may be moved by that, to where there is room for it.
    /// @return none: there is no place for it, and it must not be shown
    virtual std::unique_ptr<Standing> stand(QWidget& popup) = 0;

    /// The host that a widget lies in; none where its popups can look after themselves.
    static PopupHost* of(const QWidget& widget)
    {
        return dynamic_cast<PopupHost*>(widget.window());
    }
};

} // namespace korvane
