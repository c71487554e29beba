#include "platform/qt/EnvironmentProxies.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <array>

namespace korvane {

namespace {

    constexpr int usualPort = 1080; // as other programs read these variables

    /// The value of a variable, whose name is in use in either case.
    QString valueOf(const QString& name)
    {
        const auto value = qEnvironmentVariable(name.toLatin1().constData());
        return value.isEmpty() ? qEnvironmentVariable(name.toUpper().toLatin1().constData())
                               : value;
    }

    bool isExempt(const QString& host)
    {
        const auto names
            = valueOf(QStringLiteral("no_proxy")).split(QLatin1Char(','), Qt::SkipEmptyParts);
        return std::ranges::any_of(names, [&host](const QString& written) {
            auto name = written.trimmed();
            if (name.startsWith(QLatin1Char('.')))
                name.remove(0, 1);
            return name == QLatin1String("*") || host.compare(name, Qt::CaseInsensitive) == 0
                || host.endsWith(QLatin1Char('.') + name, Qt::CaseInsensitive);
        });
    }

    /// None: there is no such kind. The one of SOCKS without a number is the one that desktops name so.
    std::optional<QNetworkProxy::ProxyType> typeOf(const QString& scheme)
    {
        if (scheme == QLatin1String("http"))
            return QNetworkProxy::HttpProxy;
        constexpr std::array socks { "socks", "socks5", "socks5h" };
        if (std::ranges::any_of(socks, [&](auto* name) { return scheme == QLatin1String(name); }))
            return QNetworkProxy::Socks5Proxy;
        return std::nullopt;
    }

    std::optional<QNetworkProxy> proxyAt(const QString& address)
    {
        const QUrl url(
            address.contains(QLatin1String("://")) ? address : QStringLiteral("http://") + address);
        if (url.host().isEmpty())
            return QNetworkProxy(QNetworkProxy::NoProxy);
        const auto type = typeOf(url.scheme());
        if (!type)
            return std::nullopt;
        return QNetworkProxy(*type, url.host(), static_cast<quint16>(url.port(usualPort)),
            url.userName(), url.password());
    }

} // namespace

std::optional<QNetworkProxy> environmentProxyFor(const QUrl& url)
{
    auto address = valueOf(url.scheme() + QLatin1String("_proxy"));
    if (address.isEmpty())
        address = valueOf(QStringLiteral("all_proxy"));
    if (address.isEmpty() || isExempt(url.host()))
        return QNetworkProxy(QNetworkProxy::NoProxy);
    return proxyAt(address);
}

} // namespace korvane
