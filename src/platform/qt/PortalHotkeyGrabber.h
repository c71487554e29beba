#pragma once

#include "hotkey/HotkeyGrabber.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>
#include <string>

namespace korvane {

/// Has the desktop's portal give Korvane a chord (XDG Desktop Portal, GlobalShortcuts, version 1). Which one is
/// the user's choice, whom the desktop may ask: ours is a proposal. The answer can take as long as the user does, so
/// `grab` says only whether there is such a portal and it has been asked, and `isBound` tells what came of it.
/// A portal that is started anew is asked again.
class PortalHotkeyGrabber : public QObject, public HotkeyGrabber {
    Q_OBJECT
public:
    /// A chord as the portal proposes it to the user (XDG shortcuts specification: "CTRL+space"); empty where
    /// it cannot be named.
    using TriggerOf = std::function<std::string(KeyCode, ModifierMask)>;

    explicit PortalHotkeyGrabber(
        TriggerOf triggerOf, const QDBusConnection& bus = QDBusConnection::sessionBus());
    ~PortalHotkeyGrabber() override;
    PortalHotkeyGrabber(const PortalHotkeyGrabber&) = delete;
    PortalHotkeyGrabber& operator=(const PortalHotkeyGrabber&) = delete;

    /// Waits for the portal for a second at most.
    bool grab(KeyCode keyCode, ModifierMask modifiers) override;
    void release() override;

    /// Some chord opens Korvane. Not so as long as the user has not answered, nor where the portal gave none: KDE's
    /// gives none to a program outside a sandbox.
    Observable<bool>& isBound() { return m_isBound; }

private Q_SLOTS:
    // Called by name, as the bus requires.
    void sessionMade(uint response, const QVariantMap& results);
    void shortcutsBound(uint response, const QVariantMap& results);
    void activated(const QDBusMessage& signal);
    void sessionClosed(const QDBusMessage& signal);

private: // NOLINT(readability-redundant-access-specifiers): the toolkit's own reader needs it
    /// The object by which the portal answers one call.
    struct Request {
        QString path;
        const char* slot;
    };

    bool isOffered() const;
    void makeSession();
    void endSession();
    QString pathOf(const QString& kind, const QString& token) const;
    QString expectAnswer(const char* slot);
    void forgetAnswer();

    TriggerOf m_triggerOf;
    QDBusConnection m_bus;
    QDBusServiceWatcher m_service;
    std::optional<std::string> m_trigger; // what was asked for and is to be held
    std::optional<Request> m_request;
    QString m_session;
    int m_requests = 0;
    Observable<bool> m_isBound { false };
};

} // namespace korvane
