#pragma once

#include "support/Program.h"
#include "support/TempFolder.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// A certificate that vouches for itself, with its key.
class Certificate {
public:
    /// @param name  whom it is for, as a certificate puts it ("IP:127.0.0.1")
    explicit Certificate(const std::string& name)
    {
        const TempFolder folder;
        const auto path = [&folder](const char* file) {
            return QString::fromStdString((folder.path() / file).string());
        };
        Program openssl({ "openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt",
            "ec_paramgen_curve:prime256v1", "-noenc", "-days", "2", "-subj", "/CN=Test", "-addext",
            QString::fromStdString("subjectAltName=" + name), "-keyout", path("key"), "-out",
            path("certificate") });
        EXPECT_TRUE(openssl.succeeds());
        certificate = QSslCertificate::fromPath(path("certificate")).value(0);
        QFile file(path("key"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        key = QSslKey(&file, QSsl::Ec);
    }

    QSslCertificate certificate;
    QSslKey key;
};

/// While it lives, this process believes a certificate.
class Trust {
public:
    explicit Trust(const Certificate& trusted)
    {
        auto configuration = m_before;
        configuration.addCaCertificate(trusted.certificate);
        QSslConfiguration::setDefaultConfiguration(configuration);
    }
    ~Trust() { QSslConfiguration::setDefaultConfiguration(m_before); }
    Trust(const Trust&) = delete;
    Trust& operator=(const Trust&) = delete;

private:
    QSslConfiguration m_before = QSslConfiguration::defaultConfiguration();
};

/// A web server on the loopback, on a free port, in this process.
class WebServer {
public:
    /// What it does when it has read the head of a question.
    using Manner = std::function<void(QTcpSocket&)>;

    explicit WebServer(Manner manner)
        : WebServer(std::make_unique<QTcpServer>(), "http", std::move(manner))
    {
    }
    WebServer(const Certificate& certificate, Manner manner)
        : WebServer(secured(certificate), "https", std::move(manner))
    {
    }

    quint16 port() const { return m_server->serverPort(); }
    /// The address of the document with this path.
    std::string address(const std::string& path = "/korvane/version.json") const
    {
        return m_scheme + "://127.0.0.1:" + std::to_string(port()) + path;
    }
    /// How many have connected and not gone again.
    std::size_t connections() const
    {
        return static_cast<std::size_t>(std::ranges::count_if(m_sockets,
            [](const auto& socket) { return socket->state() == QAbstractSocket::ConnectedState; }));
    }

    std::vector<std::string> questions; // the heads, with their lines

private:
    WebServer(std::unique_ptr<QTcpServer> server, std::string scheme, Manner manner)
        : m_server(std::move(server))
        , m_scheme(std::move(scheme))
        , m_manner(std::move(manner))
    {
        QObject::connect(
            m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(), [this] {
                while (m_server->hasPendingConnections())
                    take(*m_server->nextPendingConnection());
            });
        EXPECT_TRUE(m_server->listen(QHostAddress::LocalHost));
    }
    static std::unique_ptr<QTcpServer> secured(const Certificate& certificate)
    {
        auto server = std::make_unique<QSslServer>();
        auto configuration = QSslConfiguration::defaultConfiguration();
        configuration.setLocalCertificate(certificate.certificate);
        configuration.setPrivateKey(certificate.key);
        server->setSslConfiguration(configuration);
        return server;
    }
    void take(QTcpSocket& socket)
    {
        m_sockets.push_back(&socket);
        QObject::connect(&socket, &QTcpSocket::readyRead, m_server.get(), [this, &socket] {
            auto& head = m_heads[&socket];
            head += socket.readAll().toStdString();
            if (head.ends_with("\r\n\r\n")) {
                questions.push_back(std::exchange(head, {}));
                m_manner(socket);
            }
        });
    }

    std::unique_ptr<QTcpServer> m_server; // the sockets are its children
    std::string m_scheme;
    Manner m_manner;
    std::vector<QTcpSocket*> m_sockets;
    std::map<QTcpSocket*, std::string> m_heads;
};

/// An answer in the form of HTTP/1.1, after which the server closes the connection.
inline std::string httpAnswer(
    const std::string& status, const std::string& body, const std::string& fields = "")
{
    return "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + fields
        + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

/// An answer that leads to another address.
inline std::string redirectTo(const std::string& address, const std::string& status = "302 Found")
{
    return httpAnswer(status, "", "Location: " + address + "\r\n");
}

inline void send(QTcpSocket& socket, const std::string& bytes)
{
    socket.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

/// A server's manner: it gives this answer to everybody.
inline WebServer::Manner answering(std::string answer)
{
    return [answer = std::move(answer)](QTcpSocket& socket) {
        send(socket, answer);
        socket.disconnectFromHost();
    };
}

} // namespace korvane::test
