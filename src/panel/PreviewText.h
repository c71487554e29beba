#pragma once

#include <string>

namespace korvane {

struct ClipItem;

/// Where the preview of a clip ends, whatever the clip's size.
inline constexpr int maxPreviewLines = 200;
inline constexpr int maxPreviewBytes = 16384;

/// What the preview of a clip shows.
struct PreviewText {
    /// The beginning of the clip's stored text as its reader wants to see it: each line end is one
    /// line feed, tabs stay, and what else would be invisible is made visible: control characters,
    /// and white space where there is nothing else.
    std::string text;
    /// To be shown in the monospaced font.
    bool isCode = false;
    /// The clip's content goes on after the text.
    bool isCut = false;
};

/// Of a large clip only the stored beginning is shown; its file is not read.
PreviewText previewText(const ClipItem& clip);

} // namespace korvane
