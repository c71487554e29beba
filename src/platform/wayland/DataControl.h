#pragma once

#include "model/Files.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class WaylandConnection;

/// What another program, or we, have put on the clipboard. It can be received until the clipboard
/// changes.
class DataOffer {
public:
    virtual ~DataOffer() = default;

    /// The types that it comes in, in the order of its owner, each once.
    const std::vector<std::string>& types() const { return m_types; }
    bool has(std::string_view type) const;
    /// Asks the owner to write this type of it to the descriptor, and to close that at the end. The
    /// caller's own may be closed when this returns, and must be for the end to be seen.
    virtual void receive(const std::string& type, int descriptor) = 0;

protected:
    void add(std::string_view type);

private:
    std::vector<std::string> m_types;
};

/// The clipboard of a seat for a program that needs no window in front to see and change it: the
/// protocol ext-data-control, or wlr-data-control, from which it was made.
class DataControl {
public:
    /// Writes a type of what was put on the clipboard to the descriptor. Called on the main loop,
    /// possibly long after something else has taken its place.
    using Send = std::function<void(std::string_view type, Descriptor descriptor)>;
    /// Something else is on the clipboard, by anyone; null: nothing is.
    using Changed = std::function<void(std::unique_ptr<DataOffer> offer)>;

    virtual ~DataControl() = default;

    /// The clipboard of the connection's seat; null where the compositor offers none. The connection
    /// must outlive it and all offers.
    static std::unique_ptr<DataControl> open(WaylandConnection& connection, Changed changed);

    /// Puts something on the clipboard.
    virtual void setSelection(const std::vector<std::string>& types, Send send) = 0;
    /// The same with the selection that the middle mouse button pastes; nothing where there is none.
    virtual void setPrimarySelection(const std::vector<std::string>& types, Send send) = 0;
};

} // namespace korvane
