#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WindowList.h"

#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <algorithm>
#include <list>
#include <span>
#include <utility>

namespace korvane {

namespace {

    using Manager = zwlr_foreign_toplevel_manager_v1;
    using Handle = zwlr_foreign_toplevel_handle_v1;

    constexpr std::uint32_t version = 3;

    struct Release {
        void operator()(Manager* manager) const
        {
            zwlr_foreign_toplevel_manager_v1_destroy(manager);
        }
        void operator()(Handle* handle) const { zwlr_foreign_toplevel_handle_v1_destroy(handle); }
    };

    class ForeignToplevelList : public WindowList {
    public:
        ForeignToplevelList(WaylandConnection& connection, Manager* manager, Listener listener)
            : m_connection(connection)
            , m_listener(std::move(listener))
            , m_manager(manager)
        {
            static constexpr zwlr_foreign_toplevel_manager_v1_listener windows {
                .toplevel
                = [](void* self, Manager*, Handle* handle) { listOf(self).introduce(handle); },
                .finished = [](void* self, Manager*) { listOf(self).m_manager.reset(); },
            };
            zwlr_foreign_toplevel_manager_v1_add_listener(manager, &windows, this);
        }

        void activate(std::uint64_t id) override
        {
            const auto found = std::ranges::find(
                m_toplevels, id, [](const Toplevel& toplevel) { return toplevel.window.id; });
            if (found == m_toplevels.end() || m_connection.seat() == nullptr)
                return;
            zwlr_foreign_toplevel_handle_v1_activate(found->handle.get(), m_connection.seat());
            m_connection.flush();
        }

    private:
        /// What a window tells of itself holds from its next "done" on.
        struct Toplevel {
            ForeignToplevelList& list;
            ListedWindow window;
            std::unique_ptr<Handle, Release> handle;
        };

        static ForeignToplevelList& listOf(void* self)
        {
            return *static_cast<ForeignToplevelList*>(self);
        }
        static Toplevel& toplevelOf(void* self) { return *static_cast<Toplevel*>(self); }

        void introduce(Handle* handle)
        {
            static constexpr zwlr_foreign_toplevel_handle_v1_listener news {
                .title = [](void* self, Handle*,
                             const char* title) { toplevelOf(self).window.title = title; },
                .app_id = [](void* self, Handle*,
                              const char* appId) { toplevelOf(self).window.appId = appId; },
                .output_enter = [](void*, Handle*, wl_output*) {},
                .output_leave = [](void*, Handle*, wl_output*) {},
                .state = [](void* self, Handle*, wl_array* states) { readState(self, *states); },
                .done =
                    [](void* self, Handle*) {
                        toplevelOf(self).list.m_listener.changed(toplevelOf(self).window);
                    },
                .closed
                = [](void* self, Handle*) { toplevelOf(self).list.forget(toplevelOf(self)); },
                .parent = [](void*, Handle*, Handle*) {},
            };
            auto& toplevel = m_toplevels.emplace_back(
                Toplevel { *this, { .id = ++m_lastId }, std::unique_ptr<Handle, Release>(handle) });
            zwlr_foreign_toplevel_handle_v1_add_listener(handle, &news, &toplevel);
            m_listener.announced(toplevel.window.id);
        }

        static void readState(void* self, const wl_array& states)
        {
            const std::span all(static_cast<const std::uint32_t*>(states.data),
                states.size / sizeof(std::uint32_t));
            toplevelOf(self).window.isActive
                = std::ranges::find(
                      all, std::uint32_t { ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED })
                != all.end();
        }

        void forget(const Toplevel& closed)
        {
            const auto id = closed.window.id;
            m_toplevels.remove_if([&](const Toplevel& known) { return &known == &closed; });
            m_listener.closed(id);
        }

        WaylandConnection& m_connection;
        Listener m_listener;
        std::unique_ptr<Manager, Release> m_manager;
        std::list<Toplevel> m_toplevels; // their places are known to the library
        std::uint64_t m_lastId = 0;
    };

} // namespace

std::unique_ptr<WindowList> openForeignToplevelList(
    WaylandConnection& connection, WindowList::Listener listener)
{
    auto* const manager
        = connection.bind<Manager>(zwlr_foreign_toplevel_manager_v1_interface, version);
    if (manager == nullptr)
        return nullptr;
    return std::make_unique<ForeignToplevelList>(connection, manager, std::move(listener));
}

} // namespace korvane
