#include "app/ClipboardNow.h"

#include "capture/Pasteboard.h"
#include "model/ClipStore.h"

namespace korvane {

ClipboardNow::ClipboardNow(const ClipStore& store, const Pasteboard& pasteboard)
    : m_store(store)
    , m_pasteboard(pasteboard)
{
}

void ClipboardNow::holds(std::optional<ClipId> id)
{
    m_id = id;
    m_changeCount = m_pasteboard.changeCount();
}

const ClipItem* ClipboardNow::clip() const
{
    return clipAt(m_pasteboard.changeCount());
}

const ClipItem* ClipboardNow::clipBeforeLatestChange() const
{
    return clipAt(m_pasteboard.changeCount() - 1);
}

const ClipItem* ClipboardNow::clipAt(std::int64_t changeCount) const
{
    return m_id && changeCount == m_changeCount ? m_store.find(*m_id) : nullptr;
}

} // namespace korvane
