#include "settings/view/DataPage.h"

#include "look/view/Child.h"
#include "model/ClipStore.h"
#include "settings/DataTexts.h"
#include "settings/view/FormSection.h"
#include "settings/view/FormText.h"
#include "settings/view/PushButton.h"
#include "settings/view/WorkMark.h"

#include <QBoxLayout>

#include <algorithm>
#include <functional>
#include <memory>

namespace korvane {

namespace {
    constexpr int buttonGap = 8;

    QString text(std::string_view utf8)
    {
        return QString::fromUtf8(utf8);
    }

    QString textOf(DataActions::Work work)
    {
        switch (work) {
        case DataActions::Work::exporting:
            return text(datatexts::exporting);
        case DataActions::Work::importing:
            return text(datatexts::importing);
        case DataActions::Work::none:
            break;
        }
        return {};
    }
} // namespace

DataPage::DataPage(ClipStore& store, DataActions& actions, QWidget* parent)
    : FormPage(parent)
    , m_store(store)
    , m_actions(actions)
{
    auto& statistics = addSection(text(datatexts::statistics));
    m_total = &statistics.addValue(text(datatexts::totalClips), {});
    m_pinned = &statistics.addValue(text(datatexts::pinned), {});
    addButtons(addSection(text(datatexts::actions)));
    auto mark = std::make_unique<WorkMark>();
    m_mark = mark.get();
    addWidget(std::move(mark));

    count();
    m_clipsChanged = m_store.clipsChanged.connect([this] { count(); });
    m_workChanged = m_actions.work.observe(
        [this](DataActions::Work work) { m_mark->showWork(textOf(work)); });
}

void DataPage::addButtons(FormSection& section)
{
    auto row = std::make_unique<QWidget>();
    auto* const line = makeChild<QHBoxLayout>(row.get());
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(buttonGap);
    const auto add = [&](std::string_view title, std::function<void()> action,
                         PushButton::Tone tone) {
        auto* const button = makeChild<PushButton>(text(title), std::move(action), tone, row.get());
        button->setLetter(text(title).front()); // they differ
        line->addWidget(button);
    };
    using Tone = PushButton::Tone;
    add(
        datatexts::exportHistory, [this] { m_actions.exportHistory(); }, Tone::plain);
    add(
        datatexts::importHistory, [this] { m_actions.importHistory(); }, Tone::plain);
    line->addStretch(1); // what destroys stands apart
    add(
        datatexts::clearHistory, [this] { m_actions.clearHistory(); }, Tone::destructive);
    section.addWidget(std::move(row));
}

void DataPage::count()
{
    const auto& clips = m_store.clips();
    const auto pinned = std::count_if(
        clips.begin(), clips.end(), [](const ClipItem& clip) { return clip.isPinned; });
    m_total->setText(QString::number(clips.size()));
    m_pinned->setText(QString::number(pinned));
}

} // namespace korvane
