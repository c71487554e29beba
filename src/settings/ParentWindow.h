#pragma once

#include "model/Signal.h"

#include <string>

namespace korvane {

/// A window of ours that a dialog of another program stands over.
class ParentWindow {
public:
    virtual ~ParentWindow() = default;

    /// What the other program knows it by (XDG Desktop Portal, "Parent window identifiers"): "x11:"
    /// and its number in hexadecimal. Empty on a desktop where it has no such name.
    virtual std::string identifier() const = 0;

    /// The user has closed it. One that is only brought back to the front has not been closed.
    Signal<> closed;
};

} // namespace korvane
