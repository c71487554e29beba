#include "support/SelectionOwner.h"

#include "platform/wayland/WaylandClient.h"

#include <wlr-data-control-unstable-v1-client-protocol.h>

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::test {

namespace {

    bool readAll(int descriptor, char* bytes, std::size_t size)
    {
        while (size > 0) {
            const auto read = ::read(descriptor, bytes, size);
            if (read <= 0)
                return false;
            bytes += read;
            size -= static_cast<std::size_t>(read);
        }
        return true;
    }

    bool writeAll(int descriptor, std::string_view bytes)
    {
        while (!bytes.empty()) {
            const auto written = ::write(descriptor, bytes.data(), bytes.size());
            if (written <= 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

    /// An owner that needs no window in front to copy.
    class ScriptedOwner {
    public:
        ScriptedOwner(OwnerScript script, int commands, int reports)
            : m_script(std::move(script))
            , m_commands(commands)
            , m_reports(reports)
            , m_manager(m_client.bind<zwlr_data_control_manager_v1>(
                  zwlr_data_control_manager_v1_interface, 2))
        {
        }

        int run()
        {
            if (m_manager == nullptr || m_client.seat() == nullptr)
                return 1;
            ::signal(SIGPIPE, SIG_IGN);
            listenToDevice();
            if (!m_script.window.empty()) {
                m_window.emplace(m_client, m_script.window);
                while (!m_window->isActive())
                    ::poll(nullptr, 0, 2);
            }
            own();
            report("done");
            while (wl_display_get_error(m_client.display()) == 0) {
                m_client.listen();
                std::array<pollfd, 2> waiting { pollfd { wl_display_get_fd(m_client.display()),
                                                    POLLIN, 0 },
                    pollfd { m_commands, POLLIN, 0 } };
                ::poll(waiting.data(), waiting.size(), -1);
                if (waiting[1].revents != 0 && !obeyCommand())
                    return 0;
            }
            return 1;
        }

    private:
        void listenToDevice()
        {
            m_device = zwlr_data_control_manager_v1_get_data_device(m_manager, m_client.seat());
            static constexpr zwlr_data_control_offer_v1_listener ignored {
                .offer = [](void*, zwlr_data_control_offer_v1*, const char*) {},
            };
            static constexpr zwlr_data_control_device_v1_listener listener {
                .data_offer =
                    [](void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1* offer) {
                        zwlr_data_control_offer_v1_add_listener(offer, &ignored, nullptr);
                    },
                .selection
                = [](void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1*) {},
                .finished = [](void*, zwlr_data_control_device_v1*) {},
                .primary_selection
                = [](void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1*) {},
            };
            zwlr_data_control_device_v1_add_listener(m_device, &listener, nullptr);
        }

        void own()
        {
            static constexpr zwlr_data_control_source_v1_listener listener {
                .send =
                    [](void* self, zwlr_data_control_source_v1*, const char* type,
                        std::int32_t pipe) {
                        static_cast<ScriptedOwner*>(self)->send(type, Descriptor(pipe));
                    },
                .cancelled =
                    [](void*, zwlr_data_control_source_v1* source) {
                        zwlr_data_control_source_v1_destroy(source);
                    },
            };
            auto* const source = zwlr_data_control_manager_v1_create_data_source(m_manager);
            zwlr_data_control_source_v1_add_listener(source, &listener, this);
            for (const auto& offer : m_script.offers)
                zwlr_data_control_source_v1_offer(source, offer.target.c_str());
            zwlr_data_control_device_v1_set_selection(m_device, source);
            m_client.sync();
        }

        bool obeyCommand()
        {
            char letter = 0;
            std::uint32_t size = 0;
            if (!readAll(m_commands, &letter, 1)
                || !readAll(m_commands, reinterpret_cast<char*>(&size), sizeof size))
                return false;
            std::string text(size, '\0');
            if (!readAll(m_commands, text.data(), size))
                return false;
            m_kept.clear();
            if (letter == 'c') {
                for (auto& offer : m_script.offers) {
                    if (offer.target == "UTF8_STRING")
                        offer.bytes = text;
                }
                own();
            } else {
                zwlr_data_control_device_v1_set_selection(m_device, nullptr);
                m_client.sync();
            }
            report("done");
            return true;
        }

        void send(std::string_view type, Descriptor pipe)
        {
            const auto offer = std::ranges::find(m_script.offers, type, &Offer::target);
            if (offer == m_script.offers.end()) {
                report("(not offered)");
                return;
            }
            report(offer->target);
            switch (offer->delivery) {
            case Delivery::whole:
                writeAll(pipe.number(), offer->bytes);
                break;
            case Delivery::refused:
            case Delivery::announcedOnly:
                break; // closed without a byte: there is no other way to say it
            case Delivery::never:
                m_kept.push_back(std::move(pipe));
                break;
            case Delivery::inPieces:
            case Delivery::stopsMidway:
            case Delivery::endless:
                sendPieces(*offer, std::move(pipe));
                break;
            }
        }

        void sendPieces(const Offer& offer, Descriptor pipe)
        {
            std::string_view left = offer.bytes;
            for (std::size_t number = 0; !left.empty(); ++number) {
                if (offer.delivery == Delivery::stopsMidway
                    && left.size() <= offer.bytes.size() / 2) {
                    m_kept.push_back(std::move(pipe));
                    return;
                }
                ::poll(nullptr, 0, static_cast<int>(offer.pause.count()));
                const auto piece = left.substr(0, offer.pieces[number % offer.pieces.size()]);
                if (!writeAll(pipe.number(), piece))
                    return;
                left.remove_prefix(piece.size());
                if (left.empty() && offer.delivery == Delivery::endless)
                    left = offer.bytes;
            }
        }

        void report(const std::string& line) const
        {
            static_cast<void>(writeAll(m_reports, line + "\n"));
        }

        OwnerScript m_script;
        int m_commands;
        int m_reports;
        WaylandClient m_client;
        zwlr_data_control_manager_v1* m_manager;
        zwlr_data_control_device_v1* m_device = nullptr;
        std::optional<WaylandWindow> m_window;
        std::vector<Descriptor> m_kept;
    };

} // namespace

int runScriptedOwner(const OwnerScript& script, int commands, int reports)
{
    return ScriptedOwner(script, commands, reports).run();
}

} // namespace korvane::test
