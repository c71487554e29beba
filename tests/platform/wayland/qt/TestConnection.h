#pragma once

#include <wayland-client.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// A connection of another program to the compositor, and what that offers.
class TestConnection {
public:
    TestConnection();
    TestConnection(const TestConnection&) = delete;
    TestConnection& operator=(const TestConnection&) = delete;

    wl_display* display() const { return m_display.get(); }
    /// Null where the compositor has none.
    template <typename Object>
    Object* bind(const wl_interface& interface, unsigned version)
    {
        return static_cast<Object*>(bindAny(interface, version));
    }
    /// Sends what was asked, waits until it is done, and runs what has been told.
    void roundTrip() { wl_display_roundtrip(m_display.get()); }
    /// Runs what has been told meanwhile, without waiting.
    void dispatch();

private:
    void* bindAny(const wl_interface& interface, unsigned version);

    struct Global {
        unsigned name = 0;
        std::string interface;
        unsigned version = 0;
    };
    struct Disconnected {
        void operator()(wl_display* display) const { wl_display_disconnect(display); }
    };

    std::unique_ptr<wl_display, Disconnected> m_display; // ends every object with it
    wl_registry* m_registry = nullptr;
    std::vector<Global> m_globals;
};

} // namespace korvane::test
