#pragma once

#include "platform/qt/HttpAnswer.h"
#include "update/DocumentFetcher.h"

#include <QByteArray>
#include <QNetworkProxy>
#include <QObject>
#include <QSslSocket>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace korvane {

class Log;

/// One document under way, over a connection of its own, on the main loop. It deletes itself when it has
/// answered. Deliberately not the toolkit's own way of asking web servers: its thread reads a head that
/// never ends for ever, and nothing can have it stop.
class Download : public QObject {
public:
    struct Order {
        QUrl url;
        bool mayBePlain = false; ///< whether a server may be asked that does not prove who it is
        std::chrono::milliseconds limit;
        DocumentFetcher::Answer answer;
    };

    Download(Order order, Log& log, QObject* parent);

private:
    /// Asks for the address in `m_order`.
    void ask();
    void connectSocket();
    bool isSecure() const;
    void connected();
    void send(const QByteArray& head);
    void takeBytes(bool hasEnded);
    void openTunnel(bool hasEnded);
    void takeAnswer(bool hasEnded);
    void follow(const std::string& location);
    void failed(QAbstractSocket::SocketError error);
    void judge(HttpState state);
    void giveUp(const QString& reason);
    void finish(std::optional<std::string> document);

    Order m_order;
    Log& m_log;
    QNetworkProxy m_proxy;
    bool m_isTunnelling = false; // the proxy has still to open the way
    int m_redirects = 0;
    std::string m_received; // of a head; a body is read as it comes
    std::optional<HttpBody> m_body;
    QTimer m_deadline;
    std::unique_ptr<QSslSocket> m_socket;
};

} // namespace korvane
