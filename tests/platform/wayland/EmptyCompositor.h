#pragma once

#include "support/Environment.h"
#include "support/Process.h"

#include <string>

namespace korvane::test {

/// A compositor that offers hardly anything, and that can hang and end. As long as it
/// lives it is the one that new connections go to.
class EmptyCompositor {
public:
    EmptyCompositor() { EXPECT_TRUE(m_isReady.wait()); }

    Process& process() { return m_process; }

private:
    int serve() const;

    std::string m_name = "empty-" + std::to_string(::getpid());
    Bell m_isReady;
    Environment m_environment { { { "WAYLAND_DISPLAY", m_name } } };
    Process m_process { [this] { return serve(); } };
};

} // namespace korvane::test
