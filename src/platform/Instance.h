#pragma once

#include "model/MainLoop.h"
#include "model/Signal.h"
#include "platform/CommandLine.h"
#include "platform/InstanceClaim.h"

#include <list>
#include <string>

namespace korvane {

/// Hears the wishes of later starts. One line a connection ("show", "toggle", "hide" or "quit"),
/// answered with "ok"; processes of other users are not heard.
class Instance {
public:
    Instance(InstanceClaim claim, MainLoop& loop);
    ~Instance();
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    /// Somebody wishes something. Told on the main loop, after the answer. After `quit` no more
    /// wishes are heard: a start that comes then waits for our end and becomes the first.
    Signal<Wish> wished;

private:
    struct Visitor;

    void welcome();
    void hear(std::list<Visitor>::iterator visitor);

    InstanceClaim m_claim;
    MainLoop& m_loop;
    std::list<Visitor> m_visitors;
    Timer m_door; // last, so that it ends first
};

} // namespace korvane
