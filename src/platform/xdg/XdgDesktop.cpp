#include "platform/xdg/XdgDesktop.h"

#include "model/Log.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QUrl>

#include <gio/gio.h>

#include <filesystem>
#include <memory>
#include <utility>

namespace korvane {

namespace {
    struct Unref {
        void operator()(gpointer object) const { g_object_unref(object); }
    };
    using Application = std::unique_ptr<GAppInfo, Unref>;

    struct Free {
        void operator()(gpointer memory) const { g_free(memory); }
    };

    struct FreeError {
        void operator()(GError* error) const { g_error_free(error); }
    };

    /// The "file:" URI of an absolute path (RFC 8089), byte for byte: a name need not be UTF-8.
    std::string uriOf(const std::string& path)
    {
        const std::unique_ptr<char, Free> uri(g_filename_to_uri(path.c_str(), nullptr, nullptr));
        return uri ? uri.get() : std::string();
    }

    /// Starts the application with the address. False when there is none or it does not start.
    bool launch(
        const Application& application, std::string uri, const std::vector<std::string>& withheld)
    {
        if (!application)
            return false;
        GList uris { uri.data(), nullptr, nullptr };
        GError* error = nullptr;
        const std::unique_ptr<GAppLaunchContext, Unref> context(g_app_launch_context_new());
        for (const auto& variable : withheld)
            g_app_launch_context_unsetenv(context.get(), variable.c_str());
        const auto isStarted
            = g_app_info_launch_uris(application.get(), &uris, context.get(), &error) != FALSE;
        const std::unique_ptr<GError, FreeError> kept(error);
        return isStarted;
    }
} // namespace

/// GIO connects to the session bus when an application is started, and waits for it. One that is
/// there already is taken instead; it is made in the background, while the bus still answers.
class XdgDesktop::GioBus {
public:
    GioBus()
        : m_isGivenUp(g_cancellable_new())
    {
        g_bus_get(G_BUS_TYPE_SESSION, m_isGivenUp.get(), &GioBus::connected, this);
    }
    ~GioBus() { g_cancellable_cancel(m_isGivenUp.get()); }
    GioBus(const GioBus&) = delete;
    GioBus& operator=(const GioBus&) = delete;

private:
    static void connected(GObject*, GAsyncResult* result, gpointer self)
    {
        GError* error = nullptr;
        std::unique_ptr<GDBusConnection, Unref> connection(g_bus_get_finish(result, &error));
        const std::unique_ptr<GError, FreeError> kept(error);
        if (!connection) // given up, and then we are no more; or there is no bus
            return;
        // The desktop may end its bus before us, and the history is still to be written then.
        g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
        static_cast<GioBus*>(self)->m_connection = std::move(connection);
    }

    std::unique_ptr<GCancellable, Unref> m_isGivenUp;
    std::unique_ptr<GDBusConnection, Unref> m_connection;
};

XdgDesktop::XdgDesktop(QDBusConnection bus, Log& log, std::chrono::milliseconds patience)
    : m_bus(std::move(bus))
    , m_log(log)
    , m_patience(patience)
{
    if (m_bus.isConnected())
        m_gioBus = std::make_unique<GioBus>();
}

XdgDesktop::~XdgDesktop() = default;

void XdgDesktop::revealFile(std::string_view path)
{
    if (!path.starts_with('/'))
        return;
    std::string file(path);
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList { QString::fromStdString(uriOf(file)) } << QString();
    const auto pending = m_bus.asyncCall(call, static_cast<int>(m_patience.count()));
    // Without a connection the call has ended before it began, and nobody would tell of it.
    if (pending.isFinished())
        return openFolderOf(file);
    const auto* const watcher = new QDBusPendingCallWatcher(pending, &m_calls);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_calls,
        [this, file = std::move(file)](QDBusPendingCallWatcher* finished) {
            finished->deleteLater();
            if (const QDBusPendingReply<> reply = *finished; reply.isError())
                openFolderOf(file);
        });
}

/// Asks for the application by the type, not by the folder itself, which may lie on a network that
/// does not answer.
void XdgDesktop::openFolderOf(const std::string& path)
{
    const Application application(g_app_info_get_default_for_type("inode/directory", TRUE));
    if (!launch(application, uriOf(std::filesystem::path(path).parent_path().string()), m_withheld))
        m_log.line("Korvane: no application can show a folder");
}

void XdgDesktop::openAddress(std::string_view address)
{
    const QUrl url(QString::fromUtf8(address).trimmed());
    const auto scheme = url.scheme().toLatin1(); // in lower case already
    if (!url.isValid() || url.host().isEmpty() || (scheme != "http" && scheme != "https"))
        return;
    const Application application(g_app_info_get_default_for_uri_scheme(scheme.constData()));
    if (!launch(application, url.toEncoded().toStdString(), m_withheld))
        m_log.line("Korvane: no application can open a web address");
}

} // namespace korvane
