#include "settings/LimitFields.h"

#include "model/ClipStore.h"
#include "model/Preferences.h"
#include "settings/LimitTexts.h"

#include <algorithm>

namespace korvane {

namespace {

    constexpr std::int64_t bytesInMebibyte = 1024L * 1024;

    /// How a field's limit is read and set, and what it may be.
    struct Rule {
        std::int64_t lowest;
        std::int64_t highest;
        int (ClipStore::*value)() const;
        void (ClipStore::*set)(int);
    };

    const Rule& ruleOf(LimitField field)
    {
        static constexpr Rule maxClips { 50, 9999, &ClipStore::maxClips, &ClipStore::setMaxClips };
        static constexpr Rule maxClipSizeKB { 8, 10240, &ClipStore::maxClipSizeKB,
            &ClipStore::setMaxClipSizeKB };
        static constexpr Rule maxTotalSizeMB { 50, 10000, &ClipStore::maxTotalSizeMB,
            &ClipStore::setMaxTotalSizeMB };
        switch (field) {
        case LimitField::maxClips:
            return maxClips;
        case LimitField::maxClipSizeKB:
            return maxClipSizeKB;
        case LimitField::maxTotalSizeMB:
            break;
        }
        return maxTotalSizeMB;
    }

} // namespace

LimitFields::LimitFields(ClipStore& store, Preferences& preferences, Alerts& alerts)
    : m_store(store)
    , m_preferences(preferences)
    , m_alerts(alerts)
{
    load();
}

void LimitFields::load()
{
    for (const auto field : allLimitFields)
        settle(field, limit(field));
}

void LimitFields::commit(LimitField field, std::optional<std::int64_t> typed)
{
    if (m_isAsking)
        return; // one thing after the other
    const auto& rule = ruleOf(field);
    const auto chosen
        = static_cast<int>(std::clamp(typed.value_or(value(field)), rule.lowest, rule.highest));
    settle(field, chosen);
    if (chosen == limit(field))
        return;
    if (const auto asked = question(field, chosen))
        ask(field, chosen, *asked);
    else
        apply(field, chosen);
}

int LimitFields::limit(LimitField field) const
{
    return (m_store.*ruleOf(field).value)();
}

void LimitFields::settle(LimitField field, int value)
{
    m_values[index(field)] = value;
    settled(field);
}

void LimitFields::apply(LimitField field, int value)
{
    (m_store.*ruleOf(field).set)(value);
}

std::optional<Alert> LimitFields::question(LimitField field, int value) const
{
    if (m_preferences.boolean(keys::skipMaxClipsWarning))
        return std::nullopt; // both questions are silenced by either, deliberately
    switch (field) {
    case LimitField::maxClips: {
        const auto excess = static_cast<std::int64_t>(m_store.clips().size()) - value;
        return excess >= 1 ? std::optional(limittexts::reduceClipLimit(excess)) : std::nullopt;
    }
    case LimitField::maxClipSizeKB:
        return std::nullopt; // holds for later clips only
    case LimitField::maxTotalSizeMB:
        return m_store.totalBytes() > value * bytesInMebibyte
            ? std::optional(limittexts::reduceTotalSizeLimit(value))
            : std::nullopt;
    }
    return std::nullopt;
}

void LimitFields::ask(LimitField field, int value, const Alert& question)
{
    m_isAsking = m_alerts.ask(
        question, [this, field, value, alive = std::weak_ptr(m_isAlive)](AlertAnswer answer) {
            if (!alive.expired())
                answered(field, value, answer);
        });
    if (!m_isAsking)
        settle(field, limit(field)); // there is nobody to ask
}

void LimitFields::answered(LimitField field, int value, AlertAnswer answer)
{
    m_isAsking = false;
    if (!answer.isFirst) {
        settle(field, limit(field)); // whoever cancels has not asked for silence either
        return;
    }
    if (answer.isSuppressed)
        m_preferences.set(keys::skipMaxClipsWarning, true);
    settle(field, value); // the page may have appeared again meanwhile, with the limit before
    apply(field, value);
}

} // namespace korvane
