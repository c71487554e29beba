#pragma once

#include "platform/x11/WorkArea.h"

#include <ostream>

namespace korvane {

/// How a rectangle appears in the message of a test that fails.
inline std::ostream& operator<<(std::ostream& out, const PixelRect& rect)
{
    return out << rect.x << ',' << rect.y << ' ' << rect.width << 'x' << rect.height;
}

} // namespace korvane
