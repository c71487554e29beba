#include "platform/qt/PortalRequest.h"

#include "platform/qt/ScriptedPortal.h"
#include "support/ManualLoop.h"
#include "support/SessionBus.h"

#include <QPointer>
#include <QRegularExpression>

#include <chrono>
#include <optional>
#include <utility>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::ScriptedPortal;
    using test::waitUntil;
    using End = PortalRequest::End;
    using Manner = ScriptedPortal::Manner;

    struct RequestFixture {
        explicit RequestFixture(Manner manner = Manner::takesOn)
            : portal(std::in_place, bus.connection("portal"), manner)
        {
            ask();
            EXPECT_TRUE(portal->isAsked());
        }

        void ask()
        {
            const PortalRequest::Question question { "org.freedesktop.portal.FileChooser",
                "OpenFile", { "parent", "title" }, { { "modal", true } } };
            auto* const made = new PortalRequest(
                ours, loop, question,
                [this](End how, const QVariantMap& told, const QString&) {
                    ends.push_back(how);
                    results = told;
                },
                &requests);
            request = made;
        }
        /// Waits for its end; how it was, if it was told once.
        std::optional<End> end()
        {
            waitUntil([this] { return !ends.empty(); });
            return ends.size() == 1 ? std::optional(ends.front()) : std::nullopt;
        }
        /// Waits for the portal's reply, with which the patience is over.
        bool isTakenOn()
        {
            return waitUntil([this] { return loop.pendingTimers() == 0; });
        }
        bool isDeleted()
        {
            return waitUntil([this] {
                // What asks for its deletion outside of the loop, as a test does, is not met by it.
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                return request.isNull();
            });
        }
        /// Waits until the portal has been asked to close its dialog.
        bool isClosed()
        {
            return waitUntil([this] { return portal->closed == QStringList { portal->handle() }; });
        }

        test::SessionBus bus;
        test::ManualLoop loop;
        QDBusConnection ours = bus.connection("korvane");
        std::optional<ScriptedPortal> portal;
        std::vector<End> ends;
        QVariantMap results;
        QPointer<PortalRequest> request;
        QObject requests; // ends first
    };

    TEST(PortalRequestTest, AQuestionIsAskedAsItStandsWithATokenOfItsOwn)
    {
        RequestFixture f;

        const auto& question = f.portal->questions.front();
        EXPECT_EQ(question.interface(), "org.freedesktop.portal.FileChooser");
        EXPECT_EQ(question.member(), "OpenFile");
        EXPECT_EQ(question.signature(), "ssa{sv}");
        EXPECT_EQ(question.arguments().mid(0, 2), (QVariantList { "parent", "title" }));
        const auto options = f.portal->options();
        EXPECT_EQ(options.keys(), (QStringList { "handle_token", "modal" }));
        EXPECT_TRUE(QRegularExpression("^[A-Za-z0-9_]+$")
                        .match(options.value("handle_token").toString())
                        .hasMatch());
        EXPECT_TRUE(f.ends.empty());
    }

    TEST(PortalRequestTest, NoTwoQuestionsHaveOneToken)
    {
        RequestFixture f;

        f.ask();

        ASSERT_TRUE(f.portal->isAsked(2));
        EXPECT_NE(f.portal->handle(0), f.portal->handle(1));
    }

    TEST(PortalRequestTest, WhoAgreesHasItsResultsTold)
    {
        RequestFixture f;

        f.portal->respond(0, { { "one", 1 } });

        EXPECT_EQ(f.end(), End::accepted);
        EXPECT_EQ(f.results, (QVariantMap { { "one", 1 } }));
        EXPECT_TRUE(f.isDeleted());
    }

    TEST(PortalRequestTest, WhoDoesNotHasGivenUpWhateverTheResultsSay)
    {
        for (const uint code : { 1U, 2U, 3U }) {
            RequestFixture f;

            f.portal->respond(code, { { "one", 1 } });

            EXPECT_EQ(f.end(), End::givenUp);
            EXPECT_TRUE(f.results.empty());
            EXPECT_TRUE(f.isDeleted());
        }
    }

    TEST(PortalRequestTest, AnAnswerMayComeBeforeTheReply)
    {
        RequestFixture f(Manner::keepsSilent);

        f.portal->respond(0, { { "one", 1 } });
        f.portal->takeOn(0);

        EXPECT_EQ(f.end(), End::accepted);
        EXPECT_TRUE(f.isDeleted());
        EXPECT_TRUE(f.portal->closed.empty());
    }

    TEST(PortalRequestTest, AnOldPortalsAnswerIsHeardWhereItHasPutTheRequest)
    {
        RequestFixture f(Manner::takesOnElsewhere);

        // Nothing tells when it is heard there.
        EXPECT_TRUE(waitUntil([&] {
            f.portal->respond(0, {});
            return !f.ends.empty();
        }));

        EXPECT_EQ(f.end(), End::accepted);
    }

    TEST(PortalRequestTest, AnAnswerThatIsNoneIsGivenUp)
    {
        for (const auto& strange : { QVariantList {}, QVariantList { "0" },
                 QVariantList { 0U, QStringList { "file:///a" } } }) {
            RequestFixture f;

            f.portal->send(strange);

            EXPECT_EQ(f.end(), End::givenUp);
        }
    }

    TEST(PortalRequestTest, AnAnswerToAnotherQuestionIsNotOurs)
    {
        RequestFixture f;
        f.ask();
        ASSERT_TRUE(f.portal->isAsked(2));

        f.portal->respond(1, {}, 1);
        EXPECT_EQ(f.end(), End::givenUp);
        f.portal->respond(0, {}, 0);

        EXPECT_TRUE(waitUntil([&] { return f.ends.size() == 2; }));
        EXPECT_EQ(f.ends.back(), End::accepted);
    }

    TEST(PortalRequestTest, APortalThatRefusesIsUnavailable)
    {
        RequestFixture f(Manner::refuses);

        EXPECT_EQ(f.end(), End::unavailable);
        EXPECT_TRUE(f.isDeleted());
    }

    TEST(PortalRequestTest, APortalThatIsSilentIsUnavailableAfterThePatience)
    {
        RequestFixture f(Manner::keepsSilent);

        f.loop.advance(PortalRequest::patience - 1ms);
        EXPECT_TRUE(f.ends.empty());
        f.loop.advance(1ms);

        EXPECT_EQ(f.end(), End::unavailable);
    }

    TEST(PortalRequestTest, ADialogThatComesTooLateIsClosed)
    {
        RequestFixture f(Manner::keepsSilent);
        f.loop.advance(PortalRequest::patience);

        f.portal->takeOn(0);

        EXPECT_TRUE(f.isClosed());
        EXPECT_TRUE(f.isDeleted());
        EXPECT_EQ(f.end(), End::unavailable);
    }

    TEST(PortalRequestTest, TheUserMayTakeLongerThanThePatience)
    {
        RequestFixture f;
        ASSERT_TRUE(f.isTakenOn());

        f.loop.advance(1h);
        EXPECT_TRUE(f.ends.empty());
        f.portal->respond(0, {});

        EXPECT_EQ(f.end(), End::accepted);
    }

    TEST(PortalRequestTest, APortalThatEndsBeforeItHasTakenTheQuestionOnIsUnavailable)
    {
        RequestFixture f(Manner::keepsSilent);

        f.portal.reset();
        QDBusConnection::disconnectFromBus("portal");

        EXPECT_EQ(f.end(), End::unavailable);
        EXPECT_TRUE(f.isDeleted());
    }

    TEST(PortalRequestTest, ADialogWhosePortalGoesIsGivenUp)
    {
        RequestFixture f;

        f.portal->vanish();

        EXPECT_EQ(f.end(), End::givenUp);
        EXPECT_TRUE(f.isDeleted());
    }

    TEST(PortalRequestTest, ADialogIsGivenUpWhenTheBusGoes)
    {
        RequestFixture f;
        ASSERT_TRUE(f.isTakenOn());

        f.bus.kill();

        EXPECT_EQ(f.end(), End::givenUp);
    }

    TEST(PortalRequestTest, AQuestionThatNobodyHasTakenOnEndsWithTheBus)
    {
        RequestFixture f(Manner::keepsSilent);

        f.bus.kill();

        EXPECT_EQ(f.end(), End::unavailable);
    }

    TEST(PortalRequestTest, AWithdrawnDialogIsClosedAndTellsNothing)
    {
        RequestFixture f;
        ASSERT_TRUE(f.isTakenOn());

        f.request->withdraw();
        f.portal->respond(0, {});

        EXPECT_TRUE(f.isClosed());
        EXPECT_TRUE(f.isDeleted());
        EXPECT_TRUE(f.ends.empty());
    }

    TEST(PortalRequestTest, APortalThatCannotCloseItsDialogYetIsAskedAgain)
    {
        RequestFixture f;
        ASSERT_TRUE(f.isTakenOn());
        f.portal->refusedClosings = 2;

        f.request->withdraw();
        for (int again = 0; again < 2; ++again) {
            ASSERT_TRUE(waitUntil([&] { return f.loop.pendingTimers() == 1; }));
            EXPECT_TRUE(f.portal->closed.empty());
            f.loop.advance(500ms);
        }

        EXPECT_TRUE(f.isClosed());
        EXPECT_TRUE(f.isDeleted());
    }

    TEST(PortalRequestTest, APortalThatNeverClosesItsDialogIsLeftAloneInTheEnd)
    {
        RequestFixture f;
        ASSERT_TRUE(f.isTakenOn());
        f.portal->refusedClosings = 1000;

        f.request->withdraw();
        for (int again = 0; again < 9; ++again) {
            ASSERT_TRUE(waitUntil([&] { return f.loop.pendingTimers() == 1; }));
            f.loop.advance(500ms);
        }

        EXPECT_TRUE(f.isDeleted());
        EXPECT_EQ(f.portal->refusedClosings, 990);
    }

    TEST(PortalRequestTest, ADialogThatIsWithdrawnBeforeItIsThereIsClosedWhenItComes)
    {
        RequestFixture f(Manner::keepsSilent);

        f.request->withdraw();
        f.loop.advance(1h);
        f.portal->takeOn(0);

        EXPECT_TRUE(f.isClosed());
        EXPECT_TRUE(f.isDeleted());
        EXPECT_TRUE(f.ends.empty());
    }

} // namespace
} // namespace korvane
