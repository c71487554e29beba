// Copies several types at once and serves them until another program copies, without a window.
//
//   korvane-copier [--hang] TYPE TEXT [TYPE TEXT…]      says "ok" when the compositor has been told
//
//   --hang    stops before anybody can have asked for a text, as a program that hangs

#include "platform/wayland/WaylandClient.h"

#include <wlr-data-control-unstable-v1-client-protocol.h>

#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <string_view>

namespace {

using Texts = std::map<std::string, std::string, std::less<>>;

struct Copy {
    Texts texts;
    bool isOver = false;
};

void send(void* copy, zwlr_data_control_source_v1*, const char* type, std::int32_t pipe)
{
    const korvane::Descriptor writeEnd(pipe);
    const auto& text = static_cast<const Copy*>(copy)->texts.at(type);
    // Short texts, which a pipe takes at once. Whoever does not want them any longer is no concern of ours.
    static_cast<void>(::write(writeEnd.number(), text.data(), text.size()) < 0);
}

void cancelled(void* copy, zwlr_data_control_source_v1*)
{
    static_cast<Copy*>(copy)->isOver = true;
}

constexpr zwlr_data_control_source_v1_listener listener { .send = send, .cancelled = cancelled };

} // namespace

int main(int count, char** arguments)
{
    Copy copy;
    const bool hangs = count > 1 && std::string_view(arguments[1]) == "--hang";
    for (int place = hangs ? 2 : 1; place + 1 < count; place += 2)
        copy.texts.emplace(arguments[place], arguments[place + 1]);
    korvane::test::WaylandClient client;
    auto* const manager
        = client.bind<zwlr_data_control_manager_v1>(zwlr_data_control_manager_v1_interface, 1);
    if (manager == nullptr || client.seat() == nullptr || copy.texts.empty())
        return 1;
    auto* const source = zwlr_data_control_manager_v1_create_data_source(manager);
    zwlr_data_control_source_v1_add_listener(source, &listener, &copy);
    for (const auto& [type, text] : copy.texts)
        zwlr_data_control_source_v1_offer(source, type.c_str());
    auto* const device = zwlr_data_control_manager_v1_get_data_device(manager, client.seat());
    zwlr_data_control_device_v1_set_selection(device, source);
    wl_display_flush(client.display());
    std::cout << "ok" << std::endl;
    if (hangs)
        ::raise(SIGSTOP);
    while (!copy.isOver && wl_display_dispatch(client.display()) >= 0) { }
    return 0;
}
