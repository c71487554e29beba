#pragma once

#include "model/Signal.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace korvane {

/// Whether the desktop prefers dark windows, as its portal tells: "color-scheme" in the namespace
/// "org.freedesktop.appearance" (XDG Desktop Portal, Settings). Light until the portal has answered,
/// and where there is none. The portal may have to be started first, so nothing waits for it.
class PortalColorScheme : public QObject {
    Q_OBJECT
public:
    explicit PortalColorScheme(
        const QDBusConnection& bus = QDBusConnection::sessionBus(), QObject* parent = nullptr);

    Observable<bool>& isDark() { return m_isDark; }

private Q_SLOTS:
    // Called by name, as the bus requires.
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private: // NOLINT(readability-redundant-access-specifiers): the toolkit's own reader needs it
    void accept(const QVariant& value);

    Observable<bool> m_isDark { false };
};

} // namespace korvane
