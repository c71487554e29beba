#include "platform/qt/KGlobalAccelGrabber.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QList>
#include <QStringList>

#include <chrono>
#include <utility>

namespace korvane {

namespace {

    using namespace std::chrono_literals;

    const auto service = QStringLiteral("org.kde.kglobalaccel");
    const auto component = QStringLiteral("com.VNT.Korvane");
    const auto action = QStringLiteral("open");

    // We are there, and the chord is this one, whatever the service remembers from before.
    constexpr uint isPresent = 2;
    constexpr uint noAutoloading = 4;

    constexpr auto patience = 1s;
    // The release of a key may go unheard: the screen was locked in between, say.
    constexpr auto longestSilenceOfHeldKey = 5s;

    /// Up to four chords, one after the other; 0 for none.
    struct KeySequence {
        QList<int> numbers;

        friend bool operator==(const KeySequence&, const KeySequence&) = default;
    };
    using KeySequences = QList<KeySequence>;

    QDBusArgument& operator<<(QDBusArgument& argument, const KeySequence& keys)
    {
        argument.beginStructure();
        argument << keys.numbers;
        argument.endStructure();
        return argument;
    }

    const QDBusArgument& operator>>(const QDBusArgument& argument, KeySequence& keys)
    {
        argument.beginStructure();
        argument >> keys.numbers;
        argument.endStructure();
        return argument;
    }

    KeySequences sequencesOf(std::int32_t number)
    {
        return { { { number, 0, 0, 0 } } };
    }

    /// Both names, each once for programs and once for people.
    QStringList actionId()
    {
        return { component, action, QStringLiteral("Korvane"), QStringLiteral("Open Korvane") };
    }

    QDBusMessage request(const QString& method, const QVariantList& arguments)
    {
        auto message = QDBusMessage::createMethodCall(service, QStringLiteral("/kglobalaccel"),
            QStringLiteral("org.kde.KGlobalAccel"), method);
        message.setArguments(arguments);
        // One that is not part of this desktop could be started, and would then hear no key.
        message.setAutoStartService(false);
        return message;
    }

    QDBusMessage shortcutRequest(std::int32_t number)
    {
        return request(QStringLiteral("setShortcutKeys"),
            { actionId(), QVariant::fromValue(sequencesOf(number)), isPresent | noAutoloading });
    }

    QDBusMessage registration()
    {
        return request(QStringLiteral("doRegister"), { actionId() });
    }

    QDBusMessage answerTo(const QDBusMessage& question, const QDBusConnection& bus)
    {
        return bus.call(
            question, QDBus::Block, static_cast<int>(std::chrono::milliseconds(patience).count()));
    }

} // namespace

KGlobalAccelGrabber::KGlobalAccelGrabber(
    MainLoop& loop, NumberOf numberOf, const QDBusConnection& bus)
    : m_loop(loop)
    , m_numberOf(std::move(numberOf))
    , m_bus(bus)
    , m_service(service, bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    qDBusRegisterMetaType<KeySequence>();
    qDBusRegisterMetaType<KeySequences>();
    if (!m_bus.isConnected())
        return;
    const auto listen = [this](const char* signal, const char* slot) {
        // From whatever object: the service makes the path of the component's name in its own way.
        m_bus.connect(service, QString(), QStringLiteral("org.kde.kglobalaccel.Component"),
            QString::fromLatin1(signal), { component, action }, QStringLiteral("ssx"), this, slot);
    };
    listen("globalShortcutPressed", SLOT(chordPressed(QString, QString, qlonglong)));
    listen("globalShortcutReleased", SLOT(chordReleased(QString, QString, qlonglong)));
    connect(&m_service, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& owner) {
            serviceChanged(!owner.isEmpty());
        });
}

KGlobalAccelGrabber::~KGlobalAccelGrabber()
{
    release();
}

bool KGlobalAccelGrabber::grab(KeyCode keyCode, ModifierMask modifiers)
{
    const bool isAnyHeld = m_chord.has_value();
    m_chord.reset();
    m_isDown.stop();
    const auto number = m_numberOf(keyCode, modifiers);
    if (!number) {
        if (isAnyHeld)
            free();
        return false;
    }
    if (!isGranted(*number)) {
        // Also where it kept silent: it may grant the chord yet, and would hold it for nobody.
        free();
        return false;
    }
    m_chord = Chord { keyCode, modifiers };
    m_number = number;
    return true;
}

void KGlobalAccelGrabber::release()
{
    m_isDown.stop();
    if (!std::exchange(m_chord, std::nullopt))
        return;
    free();
    // The program may end at once. What was sent has left it when the bus answers a later question.
    static_cast<void>(answerTo(
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")),
        m_bus));
}

void KGlobalAccelGrabber::followKeyboard()
{
    if (!m_chord)
        return;
    const auto number = m_numberOf(m_chord->keyCode, m_chord->modifiers);
    if (number == m_number)
        return;
    m_isDown.stop();
    if (number)
        askFor(*number);
    else
        free();
    m_number = number;
}

bool KGlobalAccelGrabber::isGranted(std::int32_t number)
{
    m_bus.send(registration());
    const auto answer = answerTo(shortcutRequest(number), m_bus);
    // A chord that is taken comes back as none; an error has another signature.
    return answer.type() == QDBusMessage::ReplyMessage
        && answer.signature() == QStringLiteral("a(ai)")
        && qdbus_cast<KeySequences>(answer.arguments().constFirst()) == sequencesOf(number);
}

/// The same without waiting for the answer, which would change nothing.
void KGlobalAccelGrabber::askFor(std::int32_t number)
{
    m_bus.send(registration());
    m_bus.send(shortcutRequest(number));
}

void KGlobalAccelGrabber::free()
{
    m_number.reset();
    m_bus.send(request(QStringLiteral("unregister"), { component, action }));
}

void KGlobalAccelGrabber::serviceChanged(bool isThere)
{
    m_isDown.stop();
    if (isThere && m_number)
        askFor(*m_number);
}

// The service repeats the press as long as the key is held, as the keyboard does.
void KGlobalAccelGrabber::chordPressed(const QString&, const QString&, qlonglong)
{
    if (!m_chord)
        return;
    const bool isRepetition = m_isDown.isActive();
    m_isDown = m_loop.after(longestSilenceOfHeldKey, [this] { m_isDown.stop(); });
    if (!isRepetition)
        pressed();
}

void KGlobalAccelGrabber::chordReleased(const QString&, const QString&, qlonglong)
{
    m_isDown.stop();
}

} // namespace korvane
