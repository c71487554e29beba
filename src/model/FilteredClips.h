#pragma once

#include "model/ClipItem.h"
#include "model/FilterTab.h"
#include "model/SearchText.h"

#include <string>
#include <vector>

namespace korvane {

class SearchKeys;

/// The clips of a list that belong to a tab and contain a search text, in the order of the list. The
/// last answer is kept: for those who ask the same again, as one key press is the business of
/// several, and for a search that goes on by a letter, which is then among the hits alone.
class FilteredClips {
public:
    /// The pointers are good until the list changes, which must be told by `forget`.
    /// @param keys  of the list; those that are missing are made where there is a search
    const std::vector<const ClipItem*>& of(const std::vector<ClipItem>& clips, SearchKeys& keys,
        FilterTab tab, const std::string& search);
    /// The list has changed, or one of its clips.
    void forget() { m_isStale = true; }

private:
    std::vector<const ClipItem*> m_clips;
    bool m_isStale = true;
    FilterTab m_tab = FilterTab::all;
    std::string m_search;
    SearchNeedle m_needle; // of the search
};

} // namespace korvane
