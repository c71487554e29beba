// The shortcut that the desktop's own service holds: KDE has one, on the session's bus.
#include "hotkey/HotkeyManager.h"
#include "platform/qt/KGlobalAccelGrabber.h"
#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/ChordNumber.h"
#include "platform/wayland/KeyTarget.h"
#include "platform/wayland/KeyTyping.h"
#include "platform/wayland/SeatKeyboard.h"
#include "platform/x11/KeyPositions.h"
#include "support/EventLoop.h"
#include "support/MemoryPreferences.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QSignalMapper>

#include <gtest/gtest.h>

#include <set>

namespace korvane {
namespace {

    using test::waitUntil;
    using Typed = std::vector<std::string>;

    constexpr KeyCode f6 = 97;
    constexpr std::int32_t controlSpace = 67108896;
    constexpr std::int32_t controlF6 = 0x04000000 | 0x01000035;

    bool isKde()
    {
        return qgetenv("WAYLAND_DESKTOP_KIND") == "kwin";
    }

    /// Another program, or the desktop's settings, on a connection of its own to the bus.
    class OtherProgram {
    public:
        OtherProgram() { ask("doRegister", { own() }); }
        ~OtherProgram()
        {
            letGo();
            QDBusConnection::disconnectFromBus("other");
        }
        OtherProgram(const OtherProgram&) = delete;
        OtherProgram& operator=(const OtherProgram&) = delete;

        /// Says whether it got it.
        bool take(std::int32_t number)
        {
            constexpr uint present = 2;
            constexpr uint noAutoloading = 4;
            const auto answer = ask("setShortcut",
                { own(), QVariant::fromValue(QList<int> { number }), present | noAutoloading });
            return qdbus_cast<QList<int>>(answer.value(0)) == QList<int> { number };
        }
        void letGo() { ask("unregister", { "org.example.Other", "go" }); }
        bool isFree(std::int32_t number)
        {
            return ask("isGlobalShortcutAvailable", { number, "org.example.Other" })
                .value(0)
                .toBool();
        }
        /// Gives our action this chord, as the user does in the desktop's settings.
        void giveToKorvane(std::int32_t number)
        {
            ask("setForeignShortcut",
                { QStringList { "com.VNT.Korvane", "open", "Korvane", "Open Korvane" },
                    QVariant::fromValue(QList<int> { number }) });
        }

    private:
        static QStringList own() { return { "org.example.Other", "go", "Other", "Go" }; }
        QVariantList ask(const QString& method, const QVariantList& arguments)
        {
            auto message = QDBusMessage::createMethodCall(
                "org.kde.kglobalaccel", "/kglobalaccel", "org.kde.KGlobalAccel", method);
            message.setArguments(arguments);
            return m_bus.call(message).arguments();
        }

        QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "other");
    };

    /// A user who works in a window of another program.
    struct ShortcutDesk {
        ShortcutDesk() = default;
        ~ShortcutDesk() { QDBusConnection::disconnectFromBus("korvane"); }
        ShortcutDesk(const ShortcutDesk&) = delete;
        ShortcutDesk& operator=(const ShortcutDesk&) = delete;

        /// The window has the keyboard, and what the user's keys mean is known.
        bool isReady()
        {
            return waitUntil([this] { return target.hasKeyboard() && seat.keymap() != nullptr; });
        }
        void press(KeyCode position, ModifierMask modifiers)
        {
            hold(position, modifiers);
            letGo();
        }
        void hold(KeyCode position, ModifierMask modifiers)
        {
            const auto chord = chordAt(seat.keymap(), position, modifiers);
            ASSERT_TRUE(chord);
            down = chord->modifiers;
            down.push_back(chord->key);
            for (const auto key : down)
                user.press(key - kernelKeyOffset);
        }
        void letGo()
        {
            for (auto key = down.rbegin(); key != down.rend(); ++key)
                user.release(*key - kernelKeyOffset);
            down.clear();
        }
        bool hears(int count)
        {
            return waitUntil([&] { return presses >= count; }) && presses == count;
        }
        /// What the window has got when everything typed so far has been dealt with.
        Typed typed()
        {
            press(keycodes::returnKey, 0);
            waitUntil(
                [this] { return !target.typed().empty() && target.typed().back() == "Return"; });
            return target.typed();
        }

        QtMainLoop loop;
        test::UsersKeyboard user;
        test::WaylandClient client;
        SeatKeyboard seat { client.display() };
        test::KeyTarget target { client, "target" };
        ChordNumbers numbers { seat };
        // Not the toolkit's own connection, which gives out its first messages in any order.
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "korvane");
        KGlobalAccelGrabber grabber { loop,
            [this](KeyCode position, ModifierMask modifiers) {
                return numbers.numberOf(position, modifiers);
            },
            bus };
        int presses = 0;
        Connection pressed = grabber.pressed.connect([this] { ++presses; });
        std::vector<xkb_keycode_t> down;
    };

    TEST(GlobalShortcutTest, WhereTheDesktopHasNoServiceForItTheChordIsRefused)
    {
        ShortcutDesk desk;

        EXPECT_EQ(desk.grabber.grab(keycodes::space, modifiers::control), isKde());
    }

    TEST(GlobalShortcutTest, ThePressIsHeardWhileAnotherProgramHasTheKeyboardAndDoesNotReachIt)
    {
        if (!isKde())
            GTEST_SKIP() << "no such service here";
        ShortcutDesk desk;
        ASSERT_TRUE(desk.isReady());
        ASSERT_TRUE(desk.grabber.grab(keycodes::space, modifiers::control));

        desk.press(keycodes::space, modifiers::control);
        EXPECT_TRUE(desk.hears(1));
        desk.press(keycodes::space, modifiers::control);
        EXPECT_TRUE(desk.hears(2));

        EXPECT_EQ(desk.typed(), Typed { "Return" });
    }

    TEST(GlobalShortcutTest, AHeldChordIsHeardOnce)
    {
        if (!isKde())
            GTEST_SKIP() << "no such service here";
        ShortcutDesk desk;
        ASSERT_TRUE(desk.isReady());
        ASSERT_TRUE(desk.grabber.grab(keycodes::space, modifiers::control));
        int repetitions = 0;
        QSignalMapper told;
        QObject::connect(&told, &QSignalMapper::mappedString, [&] { ++repetitions; });
        desk.bus.connect("org.kde.kglobalaccel", {}, "org.kde.kglobalaccel.Component",
            "globalShortcutPressed", &told, SIGNAL(mappedString(QString)));

        desk.hold(keycodes::space, modifiers::control);
        EXPECT_TRUE(waitUntil([&] { return repetitions > 5; }));
        desk.letGo();
        EXPECT_EQ(desk.presses, 1);
        desk.press(keycodes::space, modifiers::control);

        EXPECT_TRUE(desk.hears(2));
    }

    TEST(GlobalShortcutTest, AReleasedChordIsFreeForOthersAndReachesTheWindowAgain)
    {
        if (!isKde())
            GTEST_SKIP() << "no such service here";
        ShortcutDesk desk;
        OtherProgram other;
        ASSERT_TRUE(desk.isReady());
        ASSERT_TRUE(desk.grabber.grab(keycodes::space, modifiers::control));
        ASSERT_FALSE(other.take(controlSpace));

        desk.grabber.release();
        // The service hears of that on another connection than of the key.
        ASSERT_TRUE(waitUntil([&] { return other.isFree(controlSpace); }));
        desk.press(keycodes::space, modifiers::control);

        EXPECT_EQ(desk.typed(), (Typed { "Control+space", "Return" }));
        EXPECT_EQ(desk.presses, 0);
        EXPECT_TRUE(other.take(controlSpace));
    }

    TEST(GlobalShortcutTest, AChordThatAnotherProgramHoldsIsRefusedUntilItLetsGo)
    {
        if (!isKde())
            GTEST_SKIP() << "no such service here";
        ShortcutDesk desk;
        OtherProgram other;
        ASSERT_TRUE(other.take(controlSpace));

        EXPECT_FALSE(desk.grabber.grab(keycodes::space, modifiers::control));
        other.letGo();

        EXPECT_TRUE(desk.grabber.grab(keycodes::space, modifiers::control));
    }

    TEST(GlobalShortcutTest, TheShortcutBeforeWorksOnWhenAnotherOneIsTaken)
    {
        if (!isKde())
            GTEST_SKIP() << "no such service here";
        ShortcutDesk desk;
        OtherProgram other;
        test::MemoryPreferences preferences;
        HotkeyManager manager(desk.grabber, preferences, desk.loop);
        ASSERT_TRUE(desk.isReady());
        ASSERT_TRUE(manager.registerShortcut(keycodes::space, modifiers::control));
        ASSERT_TRUE(other.take(controlF6));

        EXPECT_FALSE(manager.changeShortcut({ f6, modifiers::control, "F6" }));
        desk.press(keycodes::space, modifiers::control);

        EXPECT_TRUE(desk.hears(1));
    }

    TEST(GlobalShortcutTest, AChordThatTheUserGivesItInTheDesktopsSettingsHoldsUntilOursIsAskedFor)
    {
        if (!isKde())
            GTEST_SKIP() << "no such service here";
        ShortcutDesk desk;
        OtherProgram settings;
        ASSERT_TRUE(desk.isReady());
        ASSERT_TRUE(desk.grabber.grab(keycodes::space, modifiers::control));

        settings.giveToKorvane(controlF6);
        desk.press(f6, modifiers::control);
        EXPECT_TRUE(desk.hears(1));
        ASSERT_TRUE(desk.grabber.grab(keycodes::space, modifiers::control));
        desk.press(f6, modifiers::control);
        desk.press(keycodes::space, modifiers::control);

        EXPECT_TRUE(desk.hears(2));
        EXPECT_EQ(desk.typed(), (Typed { "Control+F6", "Return" }));
    }

    /// The keys that no chord with these modifiers can be had of; each other one is pressed.
    std::set<KeyCode> unheardKeys(ShortcutDesk& desk, ModifierMask modifiers)
    {
        std::set<KeyCode> unheard;
        for (const auto& position : keyPositions()) {
            if (!desk.grabber.grab(position.keyCode, modifiers)) {
                unheard.insert(position.keyCode);
                continue;
            }
            desk.presses = 0;
            desk.press(position.keyCode, modifiers);
            EXPECT_TRUE(desk.hears(1)) << position.xkbName;
        }
        return unheard;
    }

    TEST(GlobalShortcutTest, EveryChordOfEveryKeyIsHeardOrRefused)
    {
        if (!isKde())
            GTEST_SKIP() << "no such service here";
        ShortcutDesk desk;
        ASSERT_TRUE(desk.isReady());
        const std::set<KeyCode> nameless { 65, 67, 69, 75, 76, 78, 81, 82, 83, 84, 85, 86, 87, 88,
            89, 91, 92, 105 }; // the number pad's, and F13
        auto compositors = nameless;
        compositors.insert({ 99, 118, 120, 122 }); // goes to another desktop by Control-F1 to -F4

        EXPECT_EQ(unheardKeys(desk, modifiers::control), compositors);
        EXPECT_EQ(unheardKeys(desk, modifiers::control | modifiers::shift), nameless);
    }

} // namespace
} // namespace korvane
