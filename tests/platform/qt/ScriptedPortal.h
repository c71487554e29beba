#pragma once

#include "support/EventLoop.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace korvane::test {

/// The desktop's portal, with a user who answers its dialogs when the test says so.
class ScriptedPortal : public QDBusVirtualObject {
public:
    enum class Manner { takesOn, takesOnElsewhere, refuses, keepsSilent };

    explicit ScriptedPortal(QDBusConnection bus, Manner manner = Manner::takesOn)
        : m_bus(std::move(bus))
        , m_manner(manner)
    {
        EXPECT_TRUE(m_bus.registerVirtualObject(
            "/org/freedesktop/portal/desktop", this, QDBusConnection::SubPath));
        EXPECT_TRUE(m_bus.registerService(name));
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        if (message.interface() == requestInterface && message.member() == "Close") {
            if (refusedClosings > 0) {
                --refusedClosings;
                m_bus.send(message.createErrorReply(
                    "org.freedesktop.DBus.Error.UnknownMethod", "No such object"));
                return true;
            }
            closed.push_back(message.path());
            m_bus.send(message.createReply());
            return true;
        }
        questions.push_back(message);
        if (m_manner == Manner::refuses)
            m_bus.send(message.createErrorReply(
                "org.freedesktop.DBus.Error.UnknownMethod", "No such interface"));
        else if (m_manner != Manner::keepsSilent)
            takeOn(questions.size() - 1);
        return true;
    }

    /// Waits for so many questions; whether they have come.
    bool isAsked(std::size_t times = 1)
    {
        return waitUntil([this, times] { return questions.size() >= times; });
    }
    /// Of the newest question.
    QVariantMap options() const
    {
        return qdbus_cast<QVariantMap>(questions.back().arguments().back());
    }
    /// Where the request of a question is, as both sides know it from its token.
    QString handle(std::size_t number = 0) const
    {
        const auto& question = questions.at(number);
        const auto options = qdbus_cast<QVariantMap>(question.arguments().back());
        const auto* const place = m_manner == Manner::takesOnElsewhere ? "elsewhere/" : "";
        return "/org/freedesktop/portal/desktop/request/" + QString(place)
            + question.service().mid(1).replace('.', '_') + '/'
            + options.value("handle_token").toString();
    }
    void takeOn(std::size_t number)
    {
        m_bus.send(
            questions.at(number).createReply(QVariant::fromValue(QDBusObjectPath(handle(number)))));
    }
    void respond(uint code, const QVariantMap& results, std::size_t number = 0)
    {
        send({ code, results }, number);
    }
    void choose(const QString& uri, std::size_t number = 0)
    {
        respond(0, { { "uris", QStringList { uri } } }, number);
    }
    /// Sends an answer of whatever kind.
    void send(const QVariantList& arguments, std::size_t number = 0)
    {
        auto signal = QDBusMessage::createSignal(handle(number), requestInterface, "Response");
        signal.setArguments(arguments);
        m_bus.send(signal);
    }
    void vanish() { m_bus.unregisterService(name); }

    std::vector<QDBusMessage> questions;
    QStringList closed;      // the dialogs that it has been asked to close, and has
    int refusedClosings = 0; // that are still to come

private:
    static constexpr auto name = "org.freedesktop.portal.Desktop";
    static constexpr auto requestInterface = "org.freedesktop.portal.Request";

    QDBusConnection m_bus;
    Manner m_manner;
};

} // namespace korvane::test
