#pragma once

#include <string_view>

namespace korvane {

/// What the desktop's other programs do for us.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Shows the file, selected, in the file manager, or at least the folder that it lies in.
    virtual void revealFile(std::string_view path) = 0;
    /// Opens an http or https address in the browser; any other address is left alone.
    virtual void openAddress(std::string_view address) = 0;
};

} // namespace korvane
