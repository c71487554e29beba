#pragma once

#include "model/Alerts.h"
#include "model/Signal.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace korvane {

class ClipStore;
class Preferences;

/// The fields in which the user edits the limits, in the order in which they stand.
enum class LimitField { maxClips, maxClipSizeKB, maxTotalSizeMB };

inline constexpr std::array allLimitFields { LimitField::maxClips, LimitField::maxClipSizeKB,
    LimitField::maxTotalSizeMB };

/// What stands in the fields of the limits, and what becomes of it. A limit that would cost clips is
/// confirmed before it is set, unless the user has asked not to be asked again.
class LimitFields {
public:
    LimitFields(ClipStore& store, Preferences& preferences, Alerts& alerts);
    LimitFields(const LimitFields&) = delete;
    LimitFields& operator=(const LimitFields&) = delete;

    /// The page with the fields has come into view: they show the limits of the store. A limit that
    /// is changed elsewhere later is not shown before the next time, deliberately: it would change
    /// under the user's hands.
    void load();
    /// What a field shows while nobody types in it.
    int value(LimitField field) const { return m_values[index(field)]; }
    /// The user has finished with a field. A number out of the field's range becomes the nearest one
    /// in it, and is applied, or first asked about.
    /// @param typed  none: no number stands in the field, which gets back the one from before
    void commit(LimitField field, std::optional<std::int64_t> typed);

    /// What the field must show has been decided; it may be what it was.
    Signal<LimitField> settled;

private:
    static constexpr std::size_t index(LimitField field) { return static_cast<std::size_t>(field); }
    int limit(LimitField field) const;
    void settle(LimitField field, int value);
    void apply(LimitField field, int value);
    /// What must be asked before the limit is set to the value.
    std::optional<Alert> question(LimitField field, int value) const;
    void ask(LimitField field, int value, const Alert& question);
    void answered(LimitField field, int value, AlertAnswer answer);

    ClipStore& m_store;
    Preferences& m_preferences;
    Alerts& m_alerts;
    std::array<int, allLimitFields.size()> m_values {};
    bool m_isAsking = false;
    /// Shared with the question under way, whose answer comes to nothing when we have gone before it.
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

} // namespace korvane
