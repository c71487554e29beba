#pragma once

#include "model/Signal.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace korvane {

/// What the desktop's portal tells of the user's wishes for the look of programs (XDG Desktop Portal,
/// Settings). Until it has answered, and where there is none, windows are light and things move. The
/// portal may have to be started first, so nothing waits for it.
class PortalSettings : public QObject {
    Q_OBJECT
public:
    explicit PortalSettings(
        const QDBusConnection& bus = QDBusConnection::sessionBus(), QObject* parent = nullptr);

    /// Dark windows are preferred: "color-scheme" of "org.freedesktop.appearance".
    Observable<bool>& isDark() { return m_isDark; }
    /// Things may move: not where "enable-animations" of "org.gnome.desktop.interface" is false, or
    /// "AnimationDurationFactor" of "org.kde.kdeglobals.KDE" is 0. There is no key that all share.
    Observable<bool>& isAnimated() { return m_isAnimated; }

private Q_SLOTS:
    // Called by name, as the bus requires.
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private: // NOLINT(readability-redundant-access-specifiers): the toolkit's own reader needs it
    void ask(QDBusConnection& connection, const QString& space, const QString& key);
    void accept(const QString& space, const QString& key, const QVariant& value);

    void tellAnimated() { m_isAnimated.set(m_areAnimationsOn && m_haveAnimationsTime); }

    bool m_areAnimationsOn = true;
    bool m_haveAnimationsTime = true;
    Observable<bool> m_isDark { false };
    Observable<bool> m_isAnimated { true };
};

} // namespace korvane
