#include "panel/EmptyList.h"

#include "panel/OneLine.h"

namespace korvane {

namespace {

    struct TabTexts {
        std::string_view title;
        std::string_view hint;
    };

    TabTexts textsOf(FilterTab tab)
    {
        switch (tab) {
        case FilterTab::pinned:
            return { "No pinned clips", "⌘P pins the selected clip and keeps it." };
        case FilterTab::text:
            return { "No plain texts", "Copied text that is nothing else appears here." };
        case FilterTab::url:
            return { "No URLs", "Copied addresses appear here." };
        case FilterTab::code:
            return { "No code", "Copied source code appears here." };
        case FilterTab::email:
            return { "No email addresses", "Copied email addresses appear here." };
        case FilterTab::files:
            return { "No files", "Files copied in the file manager appear here." };
        case FilterTab::emoji:
            return { "No emoji", "Copied text with emoji appears here." };
        case FilterTab::large:
            return { "No large clips", "Clips too large for the history itself appear here." };
        case FilterTab::all:
            break;
        }
        return { "No clips yet", "Copy something, and it appears here." };
    }

} // namespace

EmptyList emptyList(bool isHistoryEmpty, bool isPrivate, FilterTab tab, std::string_view search)
{
    if (!search.empty()) {
        const auto where
            = tab == FilterTab::all ? "" : "Searched in “" + std::string(title(tab)) + "” only. ";
        return { "magnifyingglass", "Nothing found for “" + onOneLine(search) + "”",
            where + "Escape clears the search." };
    }
    if (isHistoryEmpty && isPrivate)
        return { "lock", "Private mode is on", "What you copy now is not recorded." };
    const auto texts = textsOf(isHistoryEmpty ? FilterTab::all : tab);
    return { std::nullopt, std::string(texts.title), std::string(texts.hint) };
}

} // namespace korvane
