#include "platform/wayland/PrimaryPeer.h"

#include "support/EventLoop.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace korvane::test {

namespace {

    using Device = zwlr_data_control_device_v1;
    using OfferProxy = zwlr_data_control_offer_v1;
    using Source = zwlr_data_control_source_v1;

    void destroy(OfferProxy* offer)
    {
        if (offer != nullptr)
            zwlr_data_control_offer_v1_destroy(offer);
    }

} // namespace

PrimaryPeer::PrimaryPeer()
    : m_manager(
        m_client.bind<zwlr_data_control_manager_v1>(zwlr_data_control_manager_v1_interface, 2))
    , m_device(zwlr_data_control_manager_v1_get_data_device(m_manager, m_client.seat()))
{
    static constexpr zwlr_data_control_offer_v1_listener types {
        .offer = [](void*, OfferProxy*, const char*) {},
    };
    static constexpr zwlr_data_control_device_v1_listener listener {
        .data_offer =
            [](void*, Device*, OfferProxy* offer) {
                zwlr_data_control_offer_v1_add_listener(offer, &types, nullptr);
            },
        .selection = [](void*, Device*, OfferProxy* offer) { destroy(offer); },
        .finished = [](void*, Device*) {},
        .primary_selection =
            [](void* self, Device*, OfferProxy* offer) {
                destroy(std::exchange(static_cast<PrimaryPeer*>(self)->m_offer, offer));
            },
    };
    zwlr_data_control_device_v1_add_listener(m_device, &listener, this);
    m_client.sync();
}

PrimaryPeer::~PrimaryPeer()
{
    destroy(m_offer);
    if (m_source != nullptr)
        zwlr_data_control_source_v1_destroy(m_source);
    zwlr_data_control_device_v1_destroy(m_device);
}

void PrimaryPeer::copy(const std::string& text)
{
    m_text = text;
    static constexpr zwlr_data_control_source_v1_listener listener {
        .send =
            [](void* self, Source*, const char*, std::int32_t descriptor) {
                const Descriptor pipe(descriptor);
                const auto& copied = static_cast<PrimaryPeer*>(self)->m_text;
                [[maybe_unused]] const auto written
                    = ::write(pipe.number(), copied.data(), copied.size());
            },
        .cancelled = [](void*, Source*) {},
    };
    m_source = zwlr_data_control_manager_v1_create_data_source(m_manager);
    zwlr_data_control_source_v1_add_listener(m_source, &listener, this);
    zwlr_data_control_source_v1_offer(m_source, "UTF8_STRING");
    zwlr_data_control_device_v1_set_primary_selection(m_device, m_source);
    m_client.sync();
}

std::string PrimaryPeer::paste(const std::string& type)
{
    m_client.sync();
    std::array<int, 2> ends {};
    if (m_offer == nullptr || ::pipe2(ends.data(), O_CLOEXEC) != 0)
        return "(refused)";
    const Descriptor readEnd(ends[0]);
    Descriptor writeEnd(ends[1]);
    zwlr_data_control_offer_v1_receive(m_offer, type.c_str(), writeEnd.number());
    writeEnd = Descriptor();
    ::fcntl(readEnd.number(), F_SETFL, O_NONBLOCK);
    std::string text;
    const auto isOver = waitUntil([&] {
        m_client.listen();
        std::array<char, 4096> bytes {};
        const auto count = ::read(readEnd.number(), bytes.data(), bytes.size());
        if (count > 0)
            text.append(bytes.data(), static_cast<std::size_t>(count));
        return count == 0 || (count < 0 && errno != EAGAIN);
    });
    return isOver ? text : "(no end)";
}

} // namespace korvane::test
