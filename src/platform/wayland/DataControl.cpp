#include "platform/wayland/DataControl.h"

#include "platform/wayland/WaylandConnection.h"

#include <ext-data-control-v1-client-protocol.h>
#include <wlr-data-control-unstable-v1-client-protocol.h>

#include <algorithm>
#include <list>
#include <utility>

namespace korvane {

namespace {

    // A program that offers more types than this does not mean well.
    constexpr std::size_t maxTypes = 1000;

    /// The two protocols are one in all but their names.
    struct ExtProtocol {
        using Manager = ext_data_control_manager_v1;
        using Device = ext_data_control_device_v1;
        using DeviceListener = ext_data_control_device_v1_listener;
        using Source = ext_data_control_source_v1;
        using SourceListener = ext_data_control_source_v1_listener;
        using Offer = ext_data_control_offer_v1;
        using OfferListener = ext_data_control_offer_v1_listener;
        static constexpr auto* manager = &ext_data_control_manager_v1_interface;
        static constexpr std::uint32_t version = 1;
        static constexpr std::uint32_t primarySince = 1;
        static constexpr auto destroyManager = ext_data_control_manager_v1_destroy;
        static constexpr auto device = ext_data_control_manager_v1_get_data_device;
        static constexpr auto source = ext_data_control_manager_v1_create_data_source;
        static constexpr auto listenToDevice = ext_data_control_device_v1_add_listener;
        static constexpr auto destroyDevice = ext_data_control_device_v1_destroy;
        static constexpr auto setSelection = ext_data_control_device_v1_set_selection;
        static constexpr auto setPrimary = ext_data_control_device_v1_set_primary_selection;
        static constexpr auto listenToSource = ext_data_control_source_v1_add_listener;
        static constexpr auto offerType = ext_data_control_source_v1_offer;
        static constexpr auto destroySource = ext_data_control_source_v1_destroy;
        static constexpr auto listenToOffer = ext_data_control_offer_v1_add_listener;
        static constexpr auto receive = ext_data_control_offer_v1_receive;
        static constexpr auto destroyOffer = ext_data_control_offer_v1_destroy;
    };

    struct WlrProtocol {
        using Manager = zwlr_data_control_manager_v1;
        using Device = zwlr_data_control_device_v1;
        using DeviceListener = zwlr_data_control_device_v1_listener;
        using Source = zwlr_data_control_source_v1;
        using SourceListener = zwlr_data_control_source_v1_listener;
        using Offer = zwlr_data_control_offer_v1;
        using OfferListener = zwlr_data_control_offer_v1_listener;
        static constexpr auto* manager = &zwlr_data_control_manager_v1_interface;
        static constexpr std::uint32_t version = 2;
        static constexpr std::uint32_t primarySince
            = ZWLR_DATA_CONTROL_DEVICE_V1_SET_PRIMARY_SELECTION_SINCE_VERSION;
        static constexpr auto destroyManager = zwlr_data_control_manager_v1_destroy;
        static constexpr auto device = zwlr_data_control_manager_v1_get_data_device;
        static constexpr auto source = zwlr_data_control_manager_v1_create_data_source;
        static constexpr auto listenToDevice = zwlr_data_control_device_v1_add_listener;
        static constexpr auto destroyDevice = zwlr_data_control_device_v1_destroy;
        static constexpr auto setSelection = zwlr_data_control_device_v1_set_selection;
        static constexpr auto setPrimary = zwlr_data_control_device_v1_set_primary_selection;
        static constexpr auto listenToSource = zwlr_data_control_source_v1_add_listener;
        static constexpr auto offerType = zwlr_data_control_source_v1_offer;
        static constexpr auto destroySource = zwlr_data_control_source_v1_destroy;
        static constexpr auto listenToOffer = zwlr_data_control_offer_v1_add_listener;
        static constexpr auto receive = zwlr_data_control_offer_v1_receive;
        static constexpr auto destroyOffer = zwlr_data_control_offer_v1_destroy;
    };

    /// Destroys an object of a protocol by the request that it has for that.
    template <auto destroy>
    struct Destroy {
        template <typename Proxy>
        void operator()(Proxy* proxy) const
        {
            destroy(proxy);
        }
    };

    template <typename Protocol>
    class OfferOver : public DataOffer {
    public:
        explicit OfferOver(typename Protocol::Offer* offer)
            : m_offer(offer)
        {
            static constexpr typename Protocol::OfferListener listener {
                .offer = [](void* self, auto*,
                             const char* type) { static_cast<OfferOver*>(self)->add(type); },
            };
            Protocol::listenToOffer(offer, &listener, this);
        }

        void receive(const std::string& type, int descriptor) override
        {
            Protocol::receive(m_offer.get(), type.c_str(), descriptor);
        }
        const typename Protocol::Offer* proxy() const { return m_offer.get(); }

    private:
        std::unique_ptr<typename Protocol::Offer, Destroy<Protocol::destroyOffer>> m_offer;
    };

    template <typename Protocol>
    class DataControlOver : public DataControl {
    public:
        DataControlOver(
            typename Protocol::Manager* manager, WaylandConnection& connection, Changed changed)
            : m_connection(connection)
            , m_changed(std::move(changed))
            , m_manager(manager)
            , m_device(Protocol::device(manager, connection.seat()))
        {
            static constexpr typename Protocol::DeviceListener listener {
                .data_offer
                = [](void* self, auto*,
                      auto* offer) { static_cast<DataControlOver*>(self)->introduce(offer); },
                .selection
                = [](void* self, auto*,
                      auto* offer) { static_cast<DataControlOver*>(self)->selectionCame(offer); },
                // The seat has gone: nothing is told or taken any more.
                .finished = [](void* self, auto*) { static_cast<DataControlOver*>(self)->end(); },
                .primary_selection
                = [](void* self, auto*,
                      auto* offer) { static_cast<DataControlOver*>(self)->take(offer); },
            };
            Protocol::listenToDevice(m_device.get(), &listener, this);
        }

        void setSelection(const std::vector<std::string>& types, Send send) override
        {
            if (m_device)
                Protocol::setSelection(m_device.get(), makeSource(types, std::move(send)));
            m_connection.flush();
        }
        void setPrimarySelection(const std::vector<std::string>& types, Send send) override
        {
            if (m_device && hasPrimary())
                Protocol::setPrimary(m_device.get(), makeSource(types, std::move(send)));
            m_connection.flush();
        }

    private:
        using Proxy = typename Protocol::Offer;
        using SourceProxy = typename Protocol::Source;
        struct Source {
            DataControlOver& owner;
            Send send;
            std::unique_ptr<SourceProxy, Destroy<Protocol::destroySource>> proxy;
        };

        bool hasPrimary() const
        {
            return wl_proxy_get_version(reinterpret_cast<wl_proxy*>(m_device.get()))
                >= Protocol::primarySince;
        }

        void introduce(Proxy* offer)
        {
            m_introduced.push_back(std::make_unique<OfferOver<Protocol>>(offer));
        }

        std::unique_ptr<DataOffer> take(const Proxy* offer)
        {
            const auto found = std::ranges::find_if(
                m_introduced, [offer](const auto& known) { return known->proxy() == offer; });
            if (found == m_introduced.end())
                return nullptr;
            auto taken = std::move(*found);
            m_introduced.erase(found);
            return taken;
        }

        void selectionCame(const Proxy* offer)
        {
            m_changed(take(offer)); // may destroy us: nothing comes after it
        }

        void end() { m_device.reset(); }

        SourceProxy* makeSource(const std::vector<std::string>& types, Send send)
        {
            auto& source = m_sources.emplace_back(Source { *this, std::move(send), nullptr });
            source.proxy.reset(Protocol::source(m_manager.get()));
            static constexpr typename Protocol::SourceListener listener {
                .send =
                    [](void* self, auto*, const char* type, std::int32_t descriptor) {
                        static_cast<Source*>(self)->send(type, Descriptor(descriptor));
                    },
                .cancelled
                = [](void* self, auto*) { static_cast<Source*>(self)->owner.forget(self); },
            };
            Protocol::listenToSource(source.proxy.get(), &listener, &source);
            for (const auto& type : types)
                Protocol::offerType(source.proxy.get(), type.c_str());
            return source.proxy.get();
        }

        // A source that is destroyed before it was replaced would leave the clipboard empty.
        void forget(const void* cancelled)
        {
            m_sources.remove_if([cancelled](const Source& source) { return &source == cancelled; });
        }

        WaylandConnection& m_connection;
        Changed m_changed;
        std::unique_ptr<typename Protocol::Manager, Destroy<Protocol::destroyManager>> m_manager;
        std::unique_ptr<typename Protocol::Device, Destroy<Protocol::destroyDevice>> m_device;
        std::vector<std::unique_ptr<OfferOver<Protocol>>> m_introduced;
        std::list<Source> m_sources; // their places are known to the library
    };

    template <typename Protocol>
    std::unique_ptr<DataControl> openOver(
        WaylandConnection& connection, DataControl::Changed changed)
    {
        auto* const manager
            = connection.bind<typename Protocol::Manager>(*Protocol::manager, Protocol::version);
        return std::make_unique<DataControlOver<Protocol>>(manager, connection, std::move(changed));
    }

} // namespace

bool DataOffer::has(std::string_view type) const
{
    return std::ranges::find(m_types, type) != m_types.end();
}

// Some compositors tell each type twice.
void DataOffer::add(std::string_view type)
{
    if (m_types.size() < maxTypes && !has(type))
        m_types.emplace_back(type);
}

std::unique_ptr<DataControl> DataControl::open(WaylandConnection& connection, Changed changed)
{
    if (connection.seat() == nullptr)
        return nullptr;
    if (connection.versionOf(ext_data_control_manager_v1_interface) > 0)
        return openOver<ExtProtocol>(connection, std::move(changed));
    if (connection.versionOf(zwlr_data_control_manager_v1_interface) > 0)
        return openOver<WlrProtocol>(connection, std::move(changed));
    return nullptr;
}

} // namespace korvane
