#pragma once

#include "app/Windows.h"
#include "look/view/Symbols.h"

#include <QMenu>
#include <QPoint>
#include <QRect>
#include <QSystemTrayIcon>

#include <optional>
#include <string>

namespace korvane {

/// The status item as an icon in the desktop's tray (XEmbed or StatusNotifier).
class TrayItem : public StatusItem {
public:
    TrayItem();

    void setImage(std::string_view symbol) override;
    /// No tray shows a text beside its icons: it goes into the tool tip after the program's name,
    /// and its number into the icon.
    void setTitle(std::string_view title) override;
    void setMenu(std::function<std::vector<MenuItem>()> menu) override;

    /// Puts the icon into the tray; one that appears later gets it then.
    void show() { m_icon.show(); }
    /// Whether the desktop has a tray now.
    static bool isAvailable() { return QSystemTrayIcon::isSystemTrayAvailable(); }

    const std::string& title() const { return m_title; }
    QString toolTip() const { return m_icon.toolTip(); }
    QIcon icon() const { return m_icon.icon(); }
    QMenu& menu() { return m_menu; }

    /// Where the icon is, in global coordinates; empty where the tray does not tell.
    QRect geometry() const { return m_icon.geometry(); }
    /// Where the pointer was at the last click on the icon.
    std::optional<QPoint> lastClick() const { return m_lastClick; }

private:
    void draw();
    void fillMenu();
    void activated(QSystemTrayIcon::ActivationReason reason);

    Symbols m_symbols;
    std::string m_symbol;
    std::string m_title;
    std::function<std::vector<MenuItem>()> m_items;
    std::optional<QPoint> m_lastClick;
    QMenu m_menu;
    QSystemTrayIcon m_icon;
};

} // namespace korvane
