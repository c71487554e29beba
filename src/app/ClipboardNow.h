#pragma once

#include "model/ClipItem.h"

#include <cstdint>
#include <optional>

namespace korvane {

class ClipStore;
class Pasteboard;

/// Which clip of the history is on the clipboard at this moment, as far as that is known without
/// reading it. What was refused (a password, a private copy) is never known here.
class ClipboardNow {
public:
    ClipboardNow(const ClipStore& store, const Pasteboard& pasteboard);

    /// The clipboard holds this text clip, by capture or because we put it there; none: unknown.
    void holds(std::optional<ClipId> id);

    /// The clip, if nothing has changed since and it is still in the history.
    const ClipItem* clip() const;
    /// The clip that was there before the latest change.
    const ClipItem* clipBeforeLatestChange() const;

private:
    const ClipItem* clipAt(std::int64_t changeCount) const;

    const ClipStore& m_store;
    const Pasteboard& m_pasteboard;
    std::optional<ClipId> m_id;
    std::int64_t m_changeCount = 0;
};

} // namespace korvane
