#pragma once

#include <QSize>

#include <optional>

class QScreen;

namespace korvane {

class LayerShell;

/// What the compositor tells of the output that the user works on. It tells no client; but a surface that
/// asks for what the bars leave of it is told that size, and, once it has a picture, which output it is on.
/// So one is made and thrown away, of a single transparent pixel that no click can meet.
struct OutputLook {
    QSize usable;              ///< what the bars leave, in points
    QScreen* screen = nullptr; ///< null where that was not told in time

    /// @return none when the compositor keeps silent
    static std::optional<OutputLook> take(LayerShell& shell);
};

} // namespace korvane
