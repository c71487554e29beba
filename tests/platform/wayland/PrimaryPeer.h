#pragma once

#include "platform/wayland/WaylandClient.h"

#include <wlr-data-control-unstable-v1-client-protocol.h>

#include <string>

namespace korvane::test {

/// Another program that copies to the selection that the middle mouse button pastes, and pastes from it.
/// (The programs that there are for this find none on KWin.)
class PrimaryPeer {
public:
    PrimaryPeer();
    PrimaryPeer(const PrimaryPeer&) = delete;
    PrimaryPeer& operator=(const PrimaryPeer&) = delete;
    ~PrimaryPeer();

    /// Puts a text there, in the type "UTF8_STRING".
    void copy(const std::string& text);
    /// What it gets of this type, while the loop goes on; "(refused)" where there is nothing.
    std::string paste(const std::string& type);

private:
    WaylandClient m_client;
    zwlr_data_control_manager_v1* m_manager;
    zwlr_data_control_device_v1* m_device;
    zwlr_data_control_offer_v1* m_offer = nullptr;
    zwlr_data_control_source_v1* m_source = nullptr;
    std::string m_text;
};

} // namespace korvane::test
