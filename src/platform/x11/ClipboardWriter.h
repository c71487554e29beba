#pragma once

#include <cstdint>
#include <string_view>

namespace korvane {

/// Puts texts of ours on the desktop's selections and hands them out to other programs. The
/// toolkit does this, not the backend's own connection: a text field that pastes asks the toolkit,
/// which would wait for ourselves if it did not know the text to be its own.
class ClipboardWriter {
public:
    virtual ~ClipboardWriter() = default;

    /// Takes the CLIPBOARD selection with this text (UTF-8); it is ours when this returns.
    virtual void writeClipboard(std::string_view text) = 0;
    /// Takes PRIMARY as well, with the text that CLIPBOARD holds; nothing when that is not ours any
    /// more.
    virtual void copyToPrimary() = 0;
    /// Is this X window one of the toolkit's? (A selection that it owns is then our own.)
    virtual bool ownsWindow(std::uint32_t window) const = 0;
};

} // namespace korvane
