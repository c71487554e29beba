#include "settings/view/IgnoredAppsView.h"

#include "look/view/Child.h"
#include "settings/PrivacyTexts.h"
#include "settings/view/FormText.h"
#include "settings/view/IgnoredAppRow.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace korvane {

namespace {
    // More of them scroll, so that the buttons below the list stay in sight.
    constexpr int mostRows = 5;
} // namespace

IgnoredAppsView::IgnoredAppsView(IgnoredAppsEditor& editor, Symbols& symbols, QWidget* parent)
    : QWidget(parent)
    , m_editor(editor)
    , m_list(new AppList(symbols, this))
    , m_empty(new FormText(QString::fromUtf8(privacytexts::noApps), FormText::Tone::value, this))
    , m_changed(editor.changed.connect([this] { refresh(); }))
{
    auto* const column = makeChild<QVBoxLayout>(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_list);
    column->addWidget(m_empty);
    m_list->setAccessibleName(QString::fromUtf8(privacytexts::ignoredApps));
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this] { selectionChanged(); });
    fill();
}

IgnoredAppsView::~IgnoredAppsView()
{
    // The list ends after the editor may have ended, and tells of its emptying.
    m_list->disconnect(this);
}

void IgnoredAppsView::refresh()
{
    const QSignalBlocker silence(m_list); // what the editor says need not be told to the editor
    // The rows stay where only the selection is another one: it may be a click on one of them.
    if (m_editor.apps() != m_shown)
        fill();
    showSelection();
}

void IgnoredAppsView::fill()
{
    m_shown = m_editor.apps();
    m_list->clear();
    for (const auto& app : m_shown)
        m_list->addItem(makeChild<IgnoredAppRow>(app)); // the list's
    const auto rows = std::clamp(static_cast<int>(m_shown.size()), 1, mostRows);
    m_list->setFixedHeight(rows * AppList::rowHeight);
    m_list->setVisible(!m_shown.empty());
    m_empty->setVisible(m_shown.empty());
}

void IgnoredAppsView::showSelection()
{
    const auto selected = m_editor.selection();
    if (!selected) {
        m_list->clearSelection();
        return;
    }
    const auto row = std::ranges::find(m_shown, *selected, &IgnoredApp::bundleID);
    m_list->setCurrentRow(static_cast<int>(row - m_shown.begin()));
}

void IgnoredAppsView::selectionChanged()
{
    const auto selected = m_list->selectedItems();
    if (selected.isEmpty())
        m_editor.select(std::nullopt);
    else // every row of this list is one of ours
        m_editor.select(static_cast<const IgnoredAppRow*>(selected.front())->bundleID());
}

} // namespace korvane
