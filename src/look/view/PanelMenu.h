#pragma once

#include "look/view/PopupHost.h"

#include <QMenu>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

class QStyle;

namespace korvane {

/// A menu in the look of the panel: the same rounded corners, colours and font, and no underlined
/// letters. It deletes itself when it has closed.
class PanelMenu : public QMenu {
public:
    enum class Tone { plain, destructive };

    /// @param opener  what the menu belongs to, and takes its colours from. A press on it closes the
    ///                open menu and does nothing else, where it is a button
    static PanelMenu* make(QWidget* opener);
    explicit PanelMenu(QWidget* opener);
    ~PanelMenu() override;

    QAction* addLine(std::string_view title, std::function<void()> chosen, Tone tone = Tone::plain);
    Tone toneOf(const QAction* line) const;

    void setVisible(bool isVisible) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget& m_opener;
    std::unique_ptr<QStyle> m_style;
    std::vector<const QAction*> m_destructive;
    std::unique_ptr<PopupHost::Standing> m_standing; // in a window that is a host of popups
};

} // namespace korvane
