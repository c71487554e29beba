#pragma once

#include "hotkey/HotkeyGrabber.h"
#include "model/MainLoop.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>

namespace korvane {

/// Takes a key chord by KDE's own service for that, org.kde.kglobalaccel. `grab` waits for its answer, for
/// a second at most: a chord that it does not grant by then counts as taken.
///
/// A service that is started anew is asked again for what it had granted. A chord that the user gives to
/// Korvane in KDE's own settings opens it as well, until the next start: then the one of our settings is
/// asked for again.
class KGlobalAccelGrabber : public QObject, public HotkeyGrabber {
    Q_OBJECT
public:
    /// The number by which the service names a chord (see `chordNumber`); none where it has none.
    using NumberOf = std::function<std::optional<std::int32_t>(KeyCode, ModifierMask)>;

    KGlobalAccelGrabber(MainLoop& loop, NumberOf numberOf,
        const QDBusConnection& bus = QDBusConnection::sessionBus());
    ~KGlobalAccelGrabber() override;
    KGlobalAccelGrabber(const KGlobalAccelGrabber&) = delete;
    KGlobalAccelGrabber& operator=(const KGlobalAccelGrabber&) = delete;

    bool grab(KeyCode keyCode, ModifierMask modifiers) override;
    void release() override;
    /// The user's keys may mean something else now: what is held follows the key. Where that is taken, or
    /// there is no such key, nothing is held until the keys change once more.
    void followKeyboard();

private Q_SLOTS:
    // Called by name, as the bus requires.
    void chordPressed(const QString& component, const QString& action, qlonglong time);
    void chordReleased(const QString& component, const QString& action, qlonglong time);

private: // NOLINT(readability-redundant-access-specifiers): the toolkit's own reader needs it
    struct Chord {
        KeyCode keyCode;
        ModifierMask modifiers;
    };

    bool isGranted(std::int32_t number);
    void askFor(std::int32_t number);
    void free();
    void serviceChanged(bool isThere);

    MainLoop& m_loop;
    NumberOf m_numberOf;
    QDBusConnection m_bus;
    QDBusServiceWatcher m_service;
    std::optional<Chord> m_chord;         // what was asked for and is to be held
    std::optional<std::int32_t> m_number; // what the service was asked for to that end
    Timer m_isDown;                       // active from the chord's press to its release
};

} // namespace korvane
