#pragma once

#include "model/ClipItem.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace korvane {

/// What the search looks through: for each clip of a list one key, made of its text, source
/// application and own name, all folded so that searching is a plain comparison of bytes. Keys are
/// made when clips enter; those of a loaded history wait until there is time, or need.
class SearchKeys {
public:
    /// @param localeId  whose rules of letter case hold, for example "tr_TR"
    explicit SearchKeys(std::string localeId);

    const std::string& localeId() const { return m_localeId; }

    /// Starts anew, with so many clips whose keys are still to be made.
    void reset(std::size_t count);
    /// A clip has come to the top of the list.
    void insertFirst(const ClipItem& clip);
    /// What is searched in the clip at this place has changed.
    void update(std::size_t index, const ClipItem& clip);
    /// The clip at this place has moved down to another, unused one; `truncate` ends such a series.
    void move(std::size_t from, std::size_t to);
    void truncate(std::size_t count);

    /// Makes missing keys, in the order of the list, until so many bytes of text have been seen.
    /// False when none is missing any more.
    bool makeSome(std::span<const ClipItem> clips, std::size_t bytes);
    void makeAll(std::span<const ClipItem> clips);
    /// The key of the clip at this place. @pre it has been made
    const std::string& key(std::size_t index) const { return m_keys[index]; }

private:
    std::string make(const ClipItem& clip) const;

    std::string m_localeId;
    std::vector<std::string> m_keys; // an empty one is still to be made
    std::size_t m_firstMissing = 0;  // none is missing before this place
};

} // namespace korvane
