#include "platform/qt/Download.h"

#include "model/Log.h"
#include "platform/qt/EnvironmentProxies.h"

#include <algorithm>
#include <array>
#include <utility>

namespace korvane {

namespace {

    constexpr int mostRedirects = 5;
    constexpr auto largest = DocumentFetcher::largestDocument;
    constexpr qint64 mostAtOnce = largest; // bytes

    quint16 portOf(const QUrl& url, bool isSecure)
    {
        return static_cast<quint16>(url.port(isSecure ? 443 : 80));
    }

    QByteArray hostOf(const QUrl& url)
    {
        return url.authority(QUrl::FullyEncoded | QUrl::RemoveUserInfo).toLatin1();
    }

    /// For the proxy, where its address has a name and a password in it.
    QByteArray passwordFor(const QNetworkProxy& proxy)
    {
        if (proxy.user().isEmpty())
            return {};
        const auto both = (proxy.user() + QLatin1Char(':') + proxy.password()).toUtf8();
        return "Proxy-Authorization: Basic " + both.toBase64() + "\r\n";
    }

    /// Tells nothing beyond the program's name and version.
    QByteArray questionFor(const QUrl& url, bool isForProxy)
    {
        const auto path = url.path(QUrl::FullyEncoded).toLatin1();
        QByteArray target = path.isEmpty() ? QByteArray("/") : path;
        if (url.hasQuery())
            target += '?' + url.query(QUrl::FullyEncoded).toLatin1();
        if (isForProxy)
            target.prepend(url.scheme().toLatin1() + "://" + hostOf(url));
        // Unpacked, a small answer could be a huge one.
        return "GET " + target + " HTTP/1.1\r\nHost: " + hostOf(url)
            + "\r\nUser-Agent: Korvane/" KORVANE_VERSION
              "\r\nAccept: application/json\r\nAccept-Language: *\r\nAccept-Encoding: identity"
              "\r\nConnection: close\r\n";
    }

    bool isRedirect(const HttpHead& head)
    {
        constexpr std::array redirects { 301, 302, 303, 307, 308 };
        return !head.location.empty()
            && std::ranges::find(redirects, head.status) != redirects.end();
    }

} // namespace

Download::Download(Order order, Log& log, QObject* parent)
    : QObject(parent)
    , m_order(std::move(order))
    , m_log(log)
{
    m_deadline.setSingleShot(true);
    m_deadline.setTimerType(Qt::PreciseTimer); // the usual kind may end before its time
    connect(&m_deadline, &QTimer::timeout, this,
        [this] { giveUp(QStringLiteral("it takes too long")); });
    m_deadline.start(m_order.limit);
    QTimer::singleShot(0, this, &Download::ask); // a socket may fail at once
}

bool Download::isSecure() const
{
    return m_order.url.scheme() == QLatin1String("https");
}

void Download::ask()
{
    m_received.clear();
    m_body.reset();
    const auto proxy = environmentProxyFor(m_order.url);
    if (!proxy)
        return giveUp(QStringLiteral("the environment names a proxy of a kind that is not known"));
    m_proxy = *proxy;
    m_isTunnelling = isSecure() && m_proxy.type() == QNetworkProxy::HttpProxy;
    if (m_socket) {
        m_socket->disconnect(this);
        m_socket->abort();
        m_socket.release()->deleteLater(); // we may have been called by it
    }
    m_socket = std::make_unique<QSslSocket>();
    // A server that sends for ever has to wait for us, and not we for the memory.
    m_socket->setReadBufferSize(mostAtOnce);
    connect(m_socket.get(), &QSslSocket::connected, this, &Download::connected);
    connect(m_socket.get(), &QSslSocket::encrypted, this,
        [this] { send(questionFor(m_order.url, false)); });
    connect(m_socket.get(), &QSslSocket::readyRead, this, [this] { takeBytes(false); });
    connect(m_socket.get(), &QSslSocket::errorOccurred, this, &Download::failed);
    connectSocket();
}

/// What a proxy for web servers says is read here as well; the other kind is the toolkit's.
void Download::connectSocket()
{
    const bool isByHttp = m_proxy.type() == QNetworkProxy::HttpProxy;
    m_socket->setProxy(isByHttp ? QNetworkProxy(QNetworkProxy::NoProxy) : m_proxy);
    if (isByHttp)
        m_socket->connectToHost(m_proxy.hostName(), m_proxy.port());
    else if (isSecure())
        m_socket->connectToHostEncrypted(m_order.url.host(), portOf(m_order.url, true));
    else
        m_socket->connectToHost(m_order.url.host(), portOf(m_order.url, false));
}

void Download::connected()
{
    const bool isByHttp = m_proxy.type() == QNetworkProxy::HttpProxy;
    if (m_isTunnelling) {
        // Not the bare host: an address of IPv6 stands in brackets, so that its port can be told.
        const auto way = hostOf(m_order.url.adjusted(QUrl::RemovePort)) + ':'
            + QByteArray::number(portOf(m_order.url, true));
        send("CONNECT " + way + " HTTP/1.1\r\nHost: " + way + "\r\n" + passwordFor(m_proxy));
    } else if (!isSecure()) {
        send(questionFor(m_order.url, isByHttp) + (isByHttp ? passwordFor(m_proxy) : QByteArray()));
    }
}

void Download::send(const QByteArray& head)
{
    m_socket->write(head + "\r\n");
}

void Download::takeBytes(bool hasEnded)
{
    m_received += m_socket->readAll().toStdString();
    if (m_isTunnelling)
        openTunnel(hasEnded);
    else
        takeAnswer(hasEnded);
}

void Download::openTunnel(bool hasEnded)
{
    const auto head = readHttpHead(m_received, hasEnded);
    if (head.state == HttpState::unfinished)
        return;
    if (head.state != HttpState::whole || head.status / 100 != 2)
        return giveUp(QStringLiteral("the proxy does not lead there"));
    m_isTunnelling = false;
    m_received.clear();
    m_socket->setPeerVerifyName(m_order.url.host());
    m_socket->startClientEncryption();
}

void Download::takeAnswer(bool hasEnded)
{
    if (!m_body) {
        const auto head = readHttpHead(m_received, hasEnded);
        if (head.state != HttpState::whole)
            return judge(head.state);
        // What stands beside a redirection or an error is nobody's document, however long it is.
        if (isRedirect(head))
            return follow(head.location);
        if (head.status != 200)
            return giveUp(QStringLiteral("the server answers %1").arg(head.status));
        m_body.emplace(head, largest);
        m_received.erase(0, head.size);
    }
    const auto state = m_body->take(std::exchange(m_received, {}), hasEnded);
    if (state == HttpState::whole)
        return finish(m_body->bytes());
    judge(state);
}

/// Whoever has proved who it is does not lead to somebody who does not.
void Download::follow(const std::string& location)
{
    const auto url = m_order.url.resolved(QUrl(QString::fromStdString(location)));
    const bool isPlain = url.scheme() == QLatin1String("http");
    const bool isAllowed
        = url.scheme() == QLatin1String("https") || (isPlain && m_order.mayBePlain && !isSecure());
    if (!url.isValid() || url.host().isEmpty() || !isAllowed)
        return giveUp(QStringLiteral("it leads to an address that may not be asked"));
    if (++m_redirects > mostRedirects)
        return giveUp(QStringLiteral("it leads on and on"));
    m_order.url = url;
    ask();
}

void Download::failed(QAbstractSocket::SocketError error)
{
    if (error != QAbstractSocket::RemoteHostClosedError)
        return giveUp(m_socket->errorString());
    takeBytes(true);
}

/// An answer of which more may come is waited for.
void Download::judge(HttpState state)
{
    if (state == HttpState::tooLarge)
        giveUp(QStringLiteral("it is too large"));
    else if (state == HttpState::broken)
        giveUp(QStringLiteral("the answer is no document"));
}

void Download::giveUp(const QString& reason)
{
    if (m_order.answer)
        m_log.line("Korvane: " + m_order.url.toDisplayString().toStdString()
            + " cannot be fetched: " + reason.toStdString());
    finish(std::nullopt);
}

void Download::finish(std::optional<std::string> document)
{
    const auto answer = std::exchange(m_order.answer, nullptr);
    if (!answer)
        return;
    m_deadline.stop();
    if (m_socket) {
        m_socket->disconnect(this);
        m_socket->abort();
    }
    deleteLater();
    answer(std::move(document));
}

} // namespace korvane
