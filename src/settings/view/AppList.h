#pragma once

#include "look/view/Symbols.h"
#include "settings/view/KeyboardUse.h"

#include <QListWidget>

#include <string_view>

namespace korvane {

/// One application of a list: its icon and its name.
class AppRow : public QListWidgetItem {
public:
    /// @param icon  see `Application::icon`
    AppRow(std::string_view name, std::string_view icon);
};

/// Applications by icon and name, one under the other, of which one at a time can be selected.
class AppList : public QListWidget {
public:
    static constexpr int rowHeight = 32;

    explicit AppList(Symbols& symbols, QWidget* parent = nullptr);

    /// Whether the row that has the keyboard shows it.
    bool isRingShown() const { return m_use.isShown(); }

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void note(const QEvent& event);

    KeyboardUse m_use;
};

} // namespace korvane
