#include "model/SearchKeys.h"

#include "model/SearchText.h"

#include <algorithm>
#include <utility>

namespace korvane {

SearchKeys::SearchKeys(std::string localeId)
    : m_localeId(std::move(localeId))
{
}

void SearchKeys::reset(std::size_t count)
{
    m_keys.assign(count, {});
    m_firstMissing = 0;
}

void SearchKeys::insertFirst(const ClipItem& clip)
{
    m_keys.insert(m_keys.begin(), make(clip));
    ++m_firstMissing;
}

void SearchKeys::update(std::size_t index, const ClipItem& clip)
{
    if (!m_keys[index].empty())
        m_keys[index] = make(clip);
}

void SearchKeys::move(std::size_t from, std::size_t to)
{
    m_keys[to] = std::exchange(m_keys[from], {});
    m_firstMissing = std::min(m_firstMissing, to);
}

void SearchKeys::truncate(std::size_t count)
{
    m_keys.resize(count);
    m_firstMissing = std::min(m_firstMissing, count);
}

bool SearchKeys::makeSome(std::span<const ClipItem> clips, std::size_t bytes)
{
    std::size_t seen = 0;
    for (; m_firstMissing < m_keys.size() && seen < bytes; ++m_firstMissing) {
        auto& key = m_keys[m_firstMissing];
        if (!key.empty())
            continue;
        key = make(clips[m_firstMissing]);
        seen += key.size();
    }
    return m_firstMissing < m_keys.size();
}

void SearchKeys::makeAll(std::span<const ClipItem> clips)
{
    makeSome(clips, std::string::npos);
}

std::string SearchKeys::make(const ClipItem& clip) const
{
    // No text holds this byte, so nothing is found across the border of two.
    constexpr char border = '\xFF';
    auto key = searchKey(clip.text, m_localeId);
    for (const auto& other : { &clip.sourceApp, &clip.customName }) {
        key += border; // also before what is absent: a key that has been made is never empty
        if (*other)
            key += searchKey(**other, m_localeId);
    }
    key.shrink_to_fit();
    return key;
}

} // namespace korvane
