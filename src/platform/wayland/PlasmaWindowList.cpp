#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WindowList.h"

#include <plasma-window-management-client-protocol.h>

#include <algorithm>
#include <list>
#include <utility>

namespace korvane {

namespace {

    using Manager = org_kde_plasma_window_management;
    using Window = org_kde_plasma_window;

    // All that is needed here; what later versions add is told in vain.
    constexpr std::uint32_t version = 4;

    struct Release {
        void operator()(Manager* manager) const
        {
            org_kde_plasma_window_management_destroy(manager);
        }
        void operator()(Window* window) const
        {
            if (org_kde_plasma_window_get_version(window)
                >= ORG_KDE_PLASMA_WINDOW_DESTROY_SINCE_VERSION)
                org_kde_plasma_window_destroy(window);
            else
                wl_proxy_destroy(reinterpret_cast<wl_proxy*>(window));
        }
    };

    class PlasmaWindowList : public WindowList {
    public:
        PlasmaWindowList(WaylandConnection& connection, Manager* manager, Listener listener)
            : m_connection(connection)
            , m_listener(std::move(listener))
            , m_manager(manager)
        {
            static constexpr org_kde_plasma_window_management_listener windows {
                .show_desktop_changed = [](void*, Manager*, std::uint32_t) {},
                .window =
                    [](void* self, Manager*, std::uint32_t number) {
                        static_cast<PlasmaWindowList*>(self)->introduce(number);
                    },
                .stacking_order_changed = [](void*, Manager*, wl_array*) {},
                .stacking_order_uuid_changed = [](void*, Manager*, const char*) {},
                .window_with_uuid = [](void*, Manager*, std::uint32_t, const char*) {},
            };
            org_kde_plasma_window_management_add_listener(manager, &windows, this);
        }

        void activate(std::uint64_t id) override
        {
            const auto found = std::ranges::find(
                m_windows, id, [](const Known& known) { return known.window.id; });
            if (found == m_windows.end())
                return;
            constexpr std::uint32_t active = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
            org_kde_plasma_window_set_state(found->proxy.get(), active, active);
            m_connection.flush();
        }

    private:
        struct Known {
            PlasmaWindowList& list;
            ListedWindow window;
            std::unique_ptr<Window, Release> proxy;
            bool isComplete = false; ///< All that there is to tell of a new window has been told.

            void tell() const
            {
                if (isComplete)
                    list.m_listener.changed(window);
            }
        };

        static Known& knownOf(void* self) { return *static_cast<Known*>(self); }

        void introduce(std::uint32_t number)
        {
            auto* const proxy
                = org_kde_plasma_window_management_get_window(m_manager.get(), number);
            auto& known = m_windows.emplace_back(
                Known { *this, { .id = ++m_lastId }, std::unique_ptr<Window, Release>(proxy) });
            org_kde_plasma_window_add_listener(proxy, &news(), &known);
            m_listener.announced(known.window.id);
            m_connection.flush();
        }

        static const org_kde_plasma_window_listener& news()
        {
            static constexpr org_kde_plasma_window_listener listener {
                .title_changed =
                    [](void* self, Window*, const char* title) {
                        knownOf(self).window.title = title;
                        knownOf(self).tell();
                    },
                .app_id_changed =
                    [](void* self, Window*, const char* appId) {
                        knownOf(self).window.appId = appId;
                        knownOf(self).tell();
                    },
                .state_changed =
                    [](void* self, Window*, std::uint32_t flags) {
                        knownOf(self).window.isActive
                            = (flags & ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE) != 0;
                        knownOf(self).tell();
                    },
                .virtual_desktop_changed = [](void*, Window*, std::int32_t) {},
                .themed_icon_name_changed = [](void*, Window*, const char*) {},
                .unmapped = [](void* self, Window*) { knownOf(self).list.forget(knownOf(self)); },
                .initial_state =
                    [](void* self, Window*) {
                        knownOf(self).isComplete = true;
                        knownOf(self).tell();
                    },
                .parent_window = [](void*, Window*, Window*) {},
                .geometry
                = [](void*, Window*, std::int32_t, std::int32_t, std::uint32_t, std::uint32_t) {},
                .icon_changed = [](void*, Window*) {},
                .pid_changed =
                    [](void* self, Window*, std::uint32_t process) {
                        knownOf(self).window.process = process;
                        knownOf(self).tell();
                    },
                .virtual_desktop_entered = [](void*, Window*, const char*) {},
                .virtual_desktop_left = [](void*, Window*, const char*) {},
                .application_menu = [](void*, Window*, const char*, const char*) {},
                .activity_entered = [](void*, Window*, const char*) {},
                .activity_left = [](void*, Window*, const char*) {},
                .resource_name_changed = [](void*, Window*, const char*) {},
            };
            return listener;
        }

        void forget(const Known& gone)
        {
            const auto id = gone.window.id;
            m_windows.remove_if([&](const Known& known) { return &known == &gone; });
            m_listener.closed(id);
        }

        WaylandConnection& m_connection;
        Listener m_listener;
        std::unique_ptr<Manager, Release> m_manager;
        std::list<Known> m_windows; // their places are known to the library
        std::uint64_t m_lastId = 0;
    };

} // namespace

std::unique_ptr<WindowList> openPlasmaWindowList(
    WaylandConnection& connection, WindowList::Listener listener)
{
    auto* const manager
        = connection.bind<Manager>(org_kde_plasma_window_management_interface, version);
    if (manager == nullptr)
        return nullptr;
    return std::make_unique<PlasmaWindowList>(connection, manager, std::move(listener));
}

} // namespace korvane
