#include "update/UpdateChecker.h"

#include "support/FakeAlerts.h"
#include "support/FakeDocumentFetcher.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using Texts = std::vector<std::string>;
    using enum UpdateChecker::Check;

    struct CheckerFixture {
        explicit CheckerFixture(std::string running = "1.2.9") { make(std::move(running)); }

        void make(std::string running)
        {
            checker.emplace(
                UpdateChecker::World { fetcher,
                    [this](const Alert& alert, Alerts::Answered answered) {
                        alerts.show(alert, std::move(answered));
                    },
                    [this](std::string_view address) { opened.emplace_back(address); } },
                "https://korvane.example/korvane/version.json", std::move(running));
        }
        void check(std::optional<std::string> answer, UpdateChecker::Check manner = asked)
        {
            checker->checkForUpdates(manner);
            fetcher.answer(std::move(answer));
        }

        test::FakeDocumentFetcher fetcher;
        test::FakeAlerts alerts;
        Texts opened;
        std::optional<UpdateChecker> checker;
    };

    std::string document(const std::string& version, const std::string& more = "")
    {
        return R"({"version":")" + version + R"(","url":"https://korvane.example/get")" + more
            + "}";
    }

    TEST(UpdateCheckerTest, NothingIsAskedBeforeTheUserAsks)
    {
        CheckerFixture f;
        EXPECT_TRUE(f.fetcher.fetched.empty());

        f.checker->checkForUpdates(asked);

        EXPECT_EQ(f.fetcher.fetched, (Texts { "https://korvane.example/korvane/version.json" }));
        EXPECT_TRUE(f.alerts.shown.empty());
    }

    TEST(UpdateCheckerTest, ANewerVersionIsOfferedWithItsNotes)
    {
        CheckerFixture f;

        f.check(document("1.2.10", R"(,"notes":"Faster.")"));

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane update available");
        EXPECT_EQ(f.alerts.shown[0].informativeText,
            "Version 1.2.10 is available.\n\nRelease notes: Faster.");
        EXPECT_EQ(f.alerts.shown[0].buttons, (Texts { "Download Update", "Later" }));
    }

    TEST(UpdateCheckerTest, WithoutNotesTheTextIsShort)
    {
        CheckerFixture f;

        f.check(document("1.3"));

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].informativeText, "Version 1.3 is available.");
    }

    TEST(UpdateCheckerTest, WithEmptyNotesTheTextIsShort)
    {
        CheckerFixture f;

        f.check(document("1.3", R"(,"notes":"")"));

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].informativeText, "Version 1.3 is available.");
    }

    TEST(UpdateCheckerTest, LongNotesAreShownWhole)
    {
        CheckerFixture f;
        const std::string notes(40'000, 'a');

        f.check(document("1.3", R"(,"notes":")" + notes + R"(")"));

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].informativeText,
            "Version 1.3 is available.\n\nRelease notes: " + notes);
    }

    TEST(UpdateCheckerTest, ANewerVersionWithoutAnAddressIsToldAndOpensNothing)
    {
        CheckerFixture f;
        f.check(R"({"version":"1.3","notes":null})");
        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane update available");
        EXPECT_EQ(f.alerts.shown[0].informativeText, "Version 1.3 is available.");

        f.alerts.agree();

        EXPECT_TRUE(f.opened.empty());
    }

    TEST(UpdateCheckerTest, TheSameVersionWithoutAnAddressIsUpToDate)
    {
        CheckerFixture f("1.2");

        f.check(R"({"version":"1.2"})");

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane is up to date");
    }

    TEST(UpdateCheckerTest, TheFirstButtonOpensTheAddressOfTheDocument)
    {
        CheckerFixture f;
        f.check(document("1.3"));
        EXPECT_TRUE(f.opened.empty());

        f.alerts.agree();

        EXPECT_EQ(f.opened, (Texts { "https://korvane.example/get" }));
    }

    TEST(UpdateCheckerTest, AnOfferThatOutlivesTheCheckerStillOpensItsAddress)
    {
        CheckerFixture f;
        f.check(document("1.3"));
        f.checker.reset();

        f.alerts.agree();

        EXPECT_EQ(f.opened, (Texts { "https://korvane.example/get" }));
    }

    void expectUpToDate(const CheckerFixture& f)
    {
        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane is up to date");
        EXPECT_EQ(f.alerts.shown[0].informativeText, "You're running the latest version.");
        EXPECT_EQ(f.alerts.shown[0].buttons, (Texts { "OK" }));
        EXPECT_FALSE(f.alerts.isOpen());
    }

    TEST(UpdateCheckerTest, TheSameVersionIsUpToDate)
    {
        CheckerFixture f("1.2");

        f.check(document("1.2"));

        expectUpToDate(f);
    }

    TEST(UpdateCheckerTest, AnOlderVersionIsUpToDateAsWell)
    {
        CheckerFixture f("1.2");

        f.check(document("1.1", R"(,"notes":"Of last year.")"));

        expectUpToDate(f);
    }

    TEST(UpdateCheckerTest, ACheckThatFailsTellsTheUserWhoAskedForIt)
    {
        CheckerFixture f;

        f.check(std::nullopt);

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane could not check for updates");
        EXPECT_EQ(f.alerts.shown[0].informativeText,
            "The server could not be reached, or its answer could not be used. Please try again "
            "later.");
        EXPECT_EQ(f.alerts.shown[0].buttons, (Texts { "OK" }));
        EXPECT_FALSE(f.alerts.isOpen());
    }

    TEST(UpdateCheckerTest, AnAnswerThatCannotBeUsedIsAFailure)
    {
        for (const auto* answer : { "", "Not found", "[]", R"({"url":"https://korvane.example"})",
                 R"({"version":2,"url":"https://korvane.example"})" }) {
            CheckerFixture f;

            f.check(answer);

            ASSERT_EQ(f.alerts.shown.size(), 1U) << answer;
            EXPECT_EQ(f.alerts.shown[0].message, "Korvane could not check for updates") << answer;
        }
    }

    TEST(UpdateCheckerTest, ASilentCheckTellsOnlyOfANewerVersion)
    {
        CheckerFixture f("1.2");

        f.check(std::nullopt, silent);
        f.check("Not found", silent);
        f.check(document("1.1"), silent);
        f.check(document("1.2"), silent);
        EXPECT_TRUE(f.alerts.shown.empty());

        f.check(document("1.3"), silent);
        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane update available");
    }

    TEST(UpdateCheckerTest, ChecksThatOverlapKnowNothingOfEachOther)
    {
        CheckerFixture f("1.2");
        f.checker->checkForUpdates(silent);
        f.checker->checkForUpdates(asked);

        f.fetcher.answerLatest(document("1.2"));
        f.fetcher.answer(std::nullopt);

        EXPECT_EQ(f.fetcher.fetched.size(), 2U);
        expectUpToDate(f);
    }

    TEST(UpdateCheckerTest, AnAnswerAfterItsEndComesToNothing)
    {
        CheckerFixture f;
        f.checker->checkForUpdates(asked);
        f.checker.reset();

        f.fetcher.answer(document("9"));

        EXPECT_TRUE(f.alerts.shown.empty());
    }

    TEST(VersionAddressTest, OnlyTheHostOfTheSiteCounts)
    {
        const std::string address = "https://korvane.example/korvane/version.json";
        EXPECT_EQ(versionAddress("https://korvane.example"), address);
        EXPECT_EQ(versionAddress("https://korvane.example/"), address);
        EXPECT_EQ(versionAddress("https://korvane.example/pages/en?a=b#c"), address);
        EXPECT_EQ(
            versionAddress("http://127.0.0.1:8080"), "http://127.0.0.1:8080/korvane/version.json");
    }

    TEST(RunningVersionTest, ABuildWithoutAVersionIsTheFirst)
    {
        EXPECT_EQ(runningVersion("0.1.0"), "0.1.0");
        EXPECT_EQ(runningVersion(""), "1.0");
    }

} // namespace
} // namespace korvane
