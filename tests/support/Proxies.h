#pragma once

#include "support/WebServer.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::test {

/// Opens a way for somebody who has asked for one: to a port of the loopback, whatever the host was, so that
/// a test may ask for any name. From then on the two hear nobody but one another.
/// @param opened  what they are told first
inline void openWay(QTcpSocket& asker, quint16 port, const std::string& opened)
{
    QObject::disconnect(&asker, &QTcpSocket::readyRead, nullptr, nullptr);
    auto& target = *new QTcpSocket(&asker);
    QObject::connect(
        &target, &QTcpSocket::connected, &asker, [&asker, opened] { send(asker, opened); });
    QObject::connect(
        &asker, &QTcpSocket::readyRead, &target, [&] { target.write(asker.readAll()); });
    QObject::connect(
        &target, &QTcpSocket::readyRead, &asker, [&] { asker.write(target.readAll()); });
    QObject::connect(
        &asker, &QTcpSocket::disconnected, &target, [&] { target.disconnectFromHost(); });
    QObject::connect(
        &target, &QTcpSocket::disconnected, &asker, [&] { asker.disconnectFromHost(); });
    target.connectToHost(QHostAddress::LocalHost, port);
}

/// The manner of a proxy for web servers that opens the way to everybody (RFC 9110, 9.3.6).
inline WebServer::Manner tunnellingTo(quint16 port)
{
    return [port](QTcpSocket& socket) {
        openWay(socket, port, "HTTP/1.1 200 Connection established\r\nX: y\r\n\r\n");
    };
}

/// A SOCKS proxy of version 5 (RFC 1928, RFC 1929) on the loopback, which opens the way to everybody that tells
/// a name and a password where these are wanted.
class SocksProxy {
public:
    /// @param port         where all ways lead
    /// @param credentials  "name:password"; empty: everybody may ask
    explicit SocksProxy(quint16 port, std::string credentials = {})
        : m_target(port)
        , m_credentials(std::move(credentials))
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            auto& socket = *m_server.nextPendingConnection();
            expect(socket, &SocksProxy::greet, 2);
        });
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
    }

    /// Its host and port.
    std::string place() const { return "127.0.0.1:" + std::to_string(m_server.serverPort()); }

    std::vector<std::string> destinations; // what it was asked for, "name:port"

private:
    /// Takes the bytes that have come; answers how many it needs before it can go on, 0 when it has gone on.
    using Step = std::size_t (SocksProxy::*)(QTcpSocket&, const std::string&);

    /// Calls the step once so many bytes have come, and again when it needs more.
    void expect(QTcpSocket& socket, Step step, std::size_t bytes)
    {
        QObject::disconnect(&socket, &QTcpSocket::readyRead, nullptr, nullptr);
        QObject::connect(
            &socket, &QTcpSocket::readyRead, &m_server, [this, &socket, step, bytes]() mutable {
                while (bytes > 0 && socket.bytesAvailable() >= static_cast<qint64>(bytes)) {
                    const auto come = socket.peek(static_cast<qint64>(bytes)).toStdString();
                    bytes = (this->*step)(socket, come);
                }
            });
    }
    std::size_t greet(QTcpSocket& socket, const std::string& come)
    {
        const auto whole = 2 + number(come[1]);
        if (come.size() < whole)
            return whole;
        static_cast<void>(socket.read(static_cast<qint64>(whole)));
        const char wanted = m_credentials.empty() ? 0 : 2; // no proof, name and password
        if (come.find(wanted, 2) == std::string::npos) {
            refuse(socket, "\x05\xff");
        } else if (wanted == 0) {
            send(socket, { 5, 0 });
            expect(socket, &SocksProxy::lead, 5);
        } else {
            send(socket, { 5, 2 });
            expect(socket, &SocksProxy::judge, 2);
        }
        return 0;
    }
    std::size_t judge(QTcpSocket& socket, const std::string& come)
    {
        const auto name = number(come[1]);
        if (come.size() < name + 3)
            return name + 3;
        const auto password = number(come[name + 2]);
        const auto whole = name + password + 3;
        if (come.size() < whole)
            return whole;
        static_cast<void>(socket.read(static_cast<qint64>(whole)));
        if (come.substr(2, name) + ':' + come.substr(name + 3) == m_credentials) {
            send(socket, { 1, 0 });
            expect(socket, &SocksProxy::lead, 5);
        } else {
            refuse(socket, "\x01\x01");
        }
        return 0;
    }
    /// Who asks is expected to leave the look-up of the name to the proxy.
    std::size_t lead(QTcpSocket& socket, const std::string& come)
    {
        const std::string toName { 5, 1, 0, 3 };
        if (!come.starts_with(toName)) {
            refuse(socket, "\x05\x08");
            return 0;
        }
        const auto name = number(come[4]);
        const auto whole = name + 7;
        if (come.size() < whole)
            return whole;
        static_cast<void>(socket.read(static_cast<qint64>(whole)));
        const auto port = number(come[whole - 2]) * 256 + number(come[whole - 1]);
        destinations.push_back(come.substr(5, name) + ':' + std::to_string(port));
        openWay(socket, m_target, { 5, 0, 0, 1, 0, 0, 0, 0, 0, 0 });
        return 0;
    }
    static std::size_t number(char byte) { return static_cast<unsigned char>(byte); }
    static void refuse(QTcpSocket& socket, const std::string& why)
    {
        send(socket, why);
        socket.disconnectFromHost();
    }

    QTcpServer m_server; // the sockets are its children
    quint16 m_target;
    std::string m_credentials;
};

} // namespace korvane::test
