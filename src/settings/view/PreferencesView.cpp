#include "settings/view/PreferencesView.h"

#include "look/view/Child.h"
#include "settings/view/FormPage.h"
#include "settings/view/Lettered.h"
#include "settings/view/OneStop.h"
#include "settings/view/SettingsColours.h"
#include "settings/view/SettingsTabButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>
#include <QStackedLayout>

#include <algorithm>

namespace korvane {

namespace {
    constexpr int barTop = 2;
    constexpr int buttonGap = 4;

    std::size_t indexOf(SettingsTab tab)
    {
        return static_cast<std::size_t>(tab);
    }
} // namespace

void SettingsTabBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Home && onFirst)
        onFirst();
    else if (event->key() == Qt::Key_End && onLast)
        onLast();
    else
        QWidget::keyPressEvent(event);
}

PreferencesView::PreferencesView(SettingsTabSelection& selection, Symbols& symbols, QWidget* parent)
    : QWidget(parent)
    , m_selection(selection)
    , m_bar(new SettingsTabBar(this))
    , m_pages(new QWidget(this))
    , m_stack(new QStackedLayout(m_pages))
{
    m_bar->setObjectName(QStringLiteral("KorvaneSettingsToolbar"));
    m_bar->setAccessibleName(QStringLiteral("Pages"));
    for (const auto tab : allSettingsTabs) {
        auto* const button = makeChild<SettingsTabButton>(tab, symbols, m_bar);
        m_buttons[indexOf(tab)] = button;
        connect(button, &QAbstractButton::clicked, this,
            [this, tab] { m_selection.select(identifierOf(tab)); });
        m_stack->addWidget(makeChild<FormPage>(m_pages)); // until it is given its own
    }
    m_bar->onFirst = [this] { goTo(allSettingsTabs.front()); };
    m_bar->onLast = [this] { goTo(allSettingsTabs.back()); };
    const auto leadTo = [this](const QKeySequence& keys, int by) {
        connect(makeChild<QShortcut>(keys, this), &QShortcut::activated, this,
            [this, by] { step(by); });
    };
    leadTo(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
    leadTo(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1);
    leadTo(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
    leadTo(QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1);
    m_selectionChanged = selection.selection.observe([this](SettingsTab tab) { showPage(tab); });
}

void PreferencesView::setPage(SettingsTab tab, std::unique_ptr<QWidget> page)
{
    const auto at = static_cast<int>(indexOf(tab));
    const bool isShown = m_stack->currentIndex() == at;
    const std::unique_ptr<QWidget> before(m_stack->widget(at));
    m_stack->removeWidget(before.get());
    m_stack->insertWidget(at, page.release()); // the stack's from here on
    if (isShown)
        m_stack->setCurrentIndex(at);
}

QWidget& PreferencesView::page(SettingsTab tab) const
{
    return *m_stack->widget(static_cast<int>(indexOf(tab)));
}

SettingsTabButton& PreferencesView::button(SettingsTab tab) const
{
    return *m_buttons[indexOf(tab)];
}

void PreferencesView::showLetters(bool areShown)
{
    for (auto* const child : findChildren<QWidget*>())
        if (auto* const lettered = dynamic_cast<Lettered*>(child))
            lettered->showLetter(areShown);
}

void PreferencesView::showPage(SettingsTab tab)
{
    auto& chosen = button(tab);
    chosen.setChecked(true);
    makeOneStop(m_buttons);
    // A page that goes would hand the keyboard to whatever comes first on the next one.
    const auto* const focused = window()->focusWidget();
    if (focused && m_pages->isAncestorOf(focused))
        chosen.setFocus(Qt::OtherFocusReason);
    // The ring of who goes through the pages by keys goes with them.
    if (focused && focused != &chosen && m_bar->isAncestorOf(focused))
        chosen.setFocus(Qt::TabFocusReason);
    m_stack->setCurrentIndex(static_cast<int>(indexOf(tab)));
}

void PreferencesView::step(int by)
{
    const auto count = static_cast<int>(allSettingsTabs.size());
    const auto next = (static_cast<int>(m_selection.selection.value()) + by + count) % count;
    m_selection.selection.set(allSettingsTabs[static_cast<std::size_t>(next)]);
}

/// From within the row, where the keyboard stays.
void PreferencesView::goTo(SettingsTab tab)
{
    m_selection.selection.set(tab);
    button(tab).setFocus(Qt::TabFocusReason);
}

void PreferencesView::paintEvent(QPaintEvent*)
{
    const auto& colours = settingsColoursOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colours.window);
    const QRect bar(0, 0, width(), barHeight);
    painter.fillRect(bar, colours.bar);
    painter.fillRect(QRect(0, barHeight - 1, width(), 1), colours.line);
}

void PreferencesView::resizeEvent(QResizeEvent*)
{
    m_bar->setGeometry(0, 0, width(), barHeight - 1);
    m_pages->setGeometry(0, barHeight, width(), height() - barHeight);
    int whole = -buttonGap;
    for (const auto* const shown : m_buttons)
        whole += shown->sizeHint().width() + buttonGap;
    // On a screen that is too small for them they share what there is.
    const auto count = static_cast<int>(m_buttons.size());
    const int most = whole <= width() ? whole : (width() + buttonGap) / count - buttonGap;
    int left = std::max((width() - whole) / 2, 0);
    for (auto* const shown : m_buttons) {
        const auto size = shown->sizeHint().boundedTo({ most, barHeight });
        shown->setGeometry(left, barTop, size.width(), size.height());
        left += size.width() + buttonGap;
    }
}

} // namespace korvane
