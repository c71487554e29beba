#include "app/view/TrayItem.h"

#include "app/view/TrayIcon.h"

#include <QAction>
#include <QCursor>
#include <QKeySequence>

#include <charconv>
#include <utility>

namespace korvane {

namespace {

    /// The number in a title such as " 42".
    std::optional<int> numberIn(std::string_view title)
    {
        title.remove_prefix(std::min(title.find_first_not_of(' '), title.size()));
        int number = 0;
        const auto [end, error]
            = std::from_chars(title.data(), title.data() + title.size(), number);
        return error == std::errc() ? std::optional(number) : std::nullopt;
    }

} // namespace

TrayItem::TrayItem()
{
    m_icon.setToolTip(QStringLiteral("Korvane"));
    m_icon.setContextMenu(&m_menu);
    QObject::connect(&m_menu, &QMenu::aboutToShow, &m_menu, [this] { fillMenu(); });
    QObject::connect(&m_icon, &QSystemTrayIcon::activated, &m_icon,
        [this](QSystemTrayIcon::ActivationReason reason) { activated(reason); });
}

void TrayItem::setImage(std::string_view symbol)
{
    if (m_symbol == symbol)
        return;
    m_symbol = symbol;
    draw();
}

void TrayItem::setTitle(std::string_view title)
{
    if (m_title == title)
        return;
    m_title = title;
    m_icon.setToolTip(QStringLiteral("Korvane") + QString::fromUtf8(title));
    draw();
}

void TrayItem::setMenu(std::function<std::vector<MenuItem>()> menu)
{
    m_items = std::move(menu);
    // Some hosts fetch the menu before they say that they are about to show it.
    fillMenu();
}

void TrayItem::draw()
{
    if (!m_symbol.empty())
        m_icon.setIcon(trayIcon(m_symbols, m_symbol, numberIn(m_title)));
}

void TrayItem::fillMenu()
{
    m_menu.clear();
    if (!m_items)
        return;
    for (auto& item : m_items()) {
        if (item.title.empty()) {
            m_menu.addSeparator();
            continue;
        }
        // An ampersand in a menu's text would mark a letter.
        auto* action
            = m_menu.addAction(QString::fromUtf8(item.title).replace(u'&', QStringLiteral("&&")));
        if (!item.keyEquivalent.empty())
            action->setShortcut(
                QKeySequence(QStringLiteral("Ctrl+") + QString::fromUtf8(item.keyEquivalent)));
        QObject::connect(action, &QAction::triggered, action, [chosen = std::move(item.action)] {
            if (chosen)
                chosen();
        });
    }
}

void TrayItem::activated(QSystemTrayIcon::ActivationReason reason)
{
    // The second of two quick clicks comes as a double click, and is a click all the same.
    if (reason != QSystemTrayIcon::Trigger && reason != QSystemTrayIcon::DoubleClick)
        return;
    m_lastClick = QCursor::pos();
    clicked();
}

} // namespace korvane
