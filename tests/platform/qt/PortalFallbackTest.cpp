#include "platform/qt/PortalFileDialogs.h"

#include "platform/qt/PortalDialogsFixture.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using namespace std::chrono_literals;
    using test::waitUntil;
    using DialogsFixture = test::PortalDialogsFixture;
    using Manner = test::ScriptedPortal::Manner;
    using Lines = std::vector<std::string>;
    using Chosen = std::vector<std::optional<fs::path>>;

    TEST(PortalFallbackTest, ADialogOfTheOthersIsNotTold)
    {
        DialogsFixture f(Manner::refuses);
        int openings = 0;
        const auto listening = f.dialogs->opening.connect([&] { ++openings; });

        f.dialogs->chooseFile(f.answer());

        ASSERT_TRUE(waitUntil([&] { return f.others.isOpen(); }));
        EXPECT_EQ(openings, 0);
    }

    TEST(PortalFallbackTest, WithoutAPortalTheOthersServe)
    {
        DialogsFixture f;
        f.portal.reset();
        QDBusConnection::disconnectFromBus("portal");

        f.dialogs->chooseNewFile("new.json", f.answer());

        ASSERT_TRUE(waitUntil([&] { return f.others.isOpen(); }));
        EXPECT_EQ(f.others.proposed, Lines { "new.json" });
        EXPECT_EQ(f.parent, nullptr);
        EXPECT_TRUE(f.chosen.empty());
        f.others.choose("/tmp/new.json");
        EXPECT_EQ(f.chosen, Chosen { "/tmp/new.json" });
    }

    TEST(PortalFallbackTest, WithoutABusTheOthersServe)
    {
        test::ManualLoop loop;
        test::RecordingLog log;
        test::FakeFileDialogs others;
        PortalFileDialogs dialogs(
            QDBusConnection("nobody"), loop, log, others, [] { return nullptr; }, "/tmp");

        dialogs.chooseFile([](auto) {});

        EXPECT_EQ(others.openings, 1);
    }

    TEST(PortalFallbackTest, WhereThePortalRefusesTheOthersServeAndTheReasonIsLogged)
    {
        DialogsFixture f(Manner::refuses);

        f.dialogs->chooseFile(f.answer());

        ASSERT_TRUE(waitUntil([&] { return f.others.isOpen(); }));
        EXPECT_EQ(f.log.lines,
            Lines { "Korvane: the desktop's portal shows no file dialog: "
                    "org.freedesktop.DBus.Error.UnknownMethod" });
        f.others.giveUp();
        EXPECT_EQ(f.chosen, Chosen { std::nullopt });
    }

    TEST(PortalFallbackTest, WhereThePortalIsSilentTheOthersServeAfterThreeSeconds)
    {
        DialogsFixture f(Manner::keepsSilent);
        f.dialogs->chooseFile(f.answer());
        ASSERT_TRUE(f.portal->isAsked());

        f.loop.advance(2999ms);
        EXPECT_EQ(f.others.openings, 0);
        f.loop.advance(1ms);

        EXPECT_EQ(f.others.openings, 1);
        EXPECT_EQ(f.log.lines,
            Lines { "Korvane: the desktop's portal shows no file dialog: it does not answer" });
    }

    TEST(PortalFallbackTest, ABusThatHangsHoldsNothingUp)
    {
        DialogsFixture f;
        f.bus.hang();
        const auto began = std::chrono::steady_clock::now();

        f.dialogs->chooseFile(f.answer());
        f.loop.advance(3s);

        EXPECT_EQ(f.others.openings, 1);
        EXPECT_LT(std::chrono::steady_clock::now() - began, 5s); // the toolkit waits for 25
    }

    TEST(PortalFallbackTest, ADialogThatComesTooLateGoesAndTheOthersAnswer)
    {
        DialogsFixture f(Manner::keepsSilent);
        f.dialogs->chooseFile(f.answer());
        ASSERT_TRUE(f.portal->isAsked());
        f.loop.advance(3s);

        f.portal->takeOn(0);
        EXPECT_TRUE(
            waitUntil([&] { return f.portal->closed == QStringList { f.portal->handle() }; }));
        EXPECT_TRUE(f.chosen.empty());
        f.others.choose("/tmp/a.json");

        EXPECT_EQ(f.chosen, Chosen { "/tmp/a.json" });
    }

    TEST(PortalFallbackTest, AWindowThatIsClosedBeforeThePortalAnswersHasNoDialogLater)
    {
        DialogsFixture f(Manner::keepsSilent);
        f.dialogs->chooseFile(f.answer());
        ASSERT_TRUE(f.portal->isAsked());

        f.parent->closed();
        f.loop.advance(1h);

        EXPECT_EQ(f.chosen, Chosen { std::nullopt });
        EXPECT_EQ(f.others.openings, 0);
    }

} // namespace
} // namespace korvane
