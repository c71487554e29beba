#pragma once

#include "settings/SettingsTab.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>

class QStackedLayout;

namespace korvane {

class SettingsTabButton;
class Symbols;

/// The row of pages. It is a type of its own for assistive technology.
class SettingsTabBar : public QWidget {
public:
    explicit SettingsTabBar(QWidget* parent)
        : QWidget(parent)
    {
    }

    /// The user wants the first page of the row, or the last.
    std::function<void()> onFirst;
    std::function<void()> onLast;

protected:
    /// The keys that the buttons leave.
    void keyPressEvent(QKeyEvent* event) override;
};

/// What the settings window holds: the row of pages, one of them chosen, and the chosen page. The row
/// is one stop to the keyboard, in which the arrows choose; Ctrl-Tab goes to the next page from
/// anywhere, and Alt with a letter to the page whose letter that is, or to a button of the page.
class PreferencesView : public QWidget {
public:
    static constexpr int barHeight = 62;

    /// @param selection  what is shown, and what the row changes; it outlives the view
    PreferencesView(SettingsTabSelection& selection, Symbols& symbols, QWidget* parent = nullptr);

    /// Gives a tab its page. One without a page shows an empty one.
    void setPage(SettingsTab tab, std::unique_ptr<QWidget> page);
    QWidget& page(SettingsTab tab) const;
    SettingsTabButton& button(SettingsTab tab) const;

    /// Shows which letter goes to which page, and which presses which button, while Alt is held.
    void showLetters(bool areShown);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showPage(SettingsTab tab);
    void step(int by);
    void goTo(SettingsTab tab);

    SettingsTabSelection& m_selection;
    std::array<SettingsTabButton*, allSettingsTabs.size()> m_buttons {}; // its children
    SettingsTabBar* m_bar;
    QWidget* m_pages;
    QStackedLayout* m_stack;
    Connection m_selectionChanged;
};

} // namespace korvane
