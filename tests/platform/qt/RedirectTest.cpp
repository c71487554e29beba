// Which answers lead on to another address, and how it is asked.

#include "platform/qt/FetcherFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    using test::answering;
    using test::FetcherFixture;
    using test::httpAnswer;
    using test::redirectTo;
    using test::waitUntil;
    using test::WebServer;

    std::string beginOfQuestion(const std::string& target, const std::string& host)
    {
        return "GET " + target + " HTTP/1.1\r\nHost: " + host + "\r\n";
    }

    class RedirectStatusTest : public testing::TestWithParam<const char*> { };

    TEST_P(RedirectStatusTest, IsFollowedByTheSameQuestion)
    {
        FetcherFixture f;
        WebServer target(answering(httpAnswer("200 OK", "{}")));
        WebServer server(answering(redirectTo(target.address("/there?a=b"), GetParam())));

        EXPECT_EQ(f.fetch(server.address()), "{}");

        EXPECT_EQ(server.questions.size(), 1U);
        ASSERT_EQ(target.questions.size(), 1U);
        EXPECT_TRUE(target.questions[0].starts_with("GET /there?a=b HTTP/1.1\r\n"));
    }

    INSTANTIATE_TEST_SUITE_P(AllKinds, RedirectStatusTest,
        testing::Values("301 Moved Permanently", "302 Found", "303 See Other",
            "307 Temporary Redirect", "308 Permanent Redirect"),
        [](const auto& status) { return std::string(status.param).substr(0, 3); });

    TEST(RedirectTest, OtherAnswersWithAnAddressLeadNowhere)
    {
        for (const auto* status :
            { "201 Created", "300 Multiple Choices", "304 Not Modified", "305 Use Proxy" }) {
            FetcherFixture f;
            WebServer target(answering(httpAnswer("200 OK", "{}")));
            WebServer server(answering(redirectTo(target.address(), status)));

            f.expectNone(server.address());
            EXPECT_TRUE(target.questions.empty());
        }
    }

    TEST(RedirectTest, ToAFileIsNotFollowed)
    {
        FetcherFixture f;
        WebServer server(answering(redirectTo("file:///etc/hostname")));

        f.expectNone(server.address());
    }

    TEST(RedirectTest, InACircleEnds)
    {
        FetcherFixture f;
        WebServer server(answering(redirectTo("/korvane/version.json")));

        f.expectNone(server.address());
        EXPECT_GT(server.questions.size(), 1U);
        EXPECT_LT(server.questions.size(), 20U);
    }

    TEST(RedirectTest, IsFollowedWhateverStandsBesideIt)
    {
        FetcherFixture f;
        WebServer target(answering(httpAnswer("200 OK", "{}")));
        const std::string page(DocumentFetcher::largestDocument + 1, 'a');
        WebServer server(
            answering(httpAnswer("302 Found", page, "Location: " + target.address() + "\r\n")));

        EXPECT_EQ(f.fetch(server.address()), "{}");
    }

    TEST(RedirectTest, IsFollowedWithoutWaitingForTheServerToClose)
    {
        FetcherFixture f;
        WebServer target(answering(httpAnswer("200 OK", "{}")));
        WebServer server([&target](QTcpSocket& socket) {
            test::send(socket, "HTTP/1.1 302 Found\r\nLocation: " + target.address() + "\r\n\r\n");
        });

        EXPECT_EQ(f.fetch(server.address()), "{}");
        EXPECT_TRUE(waitUntil([&] { return server.connections() == 0; }));
    }

    TEST(RedirectTest, AnAnswerThatIsNoDocumentIsLeftWithItsHead)
    {
        FetcherFixture f;
        WebServer server(
            [](QTcpSocket& socket) { test::send(socket, "HTTP/1.1 404 Not Found\r\n\r\n"); });

        f.expectNone(server.address());
        EXPECT_NE(f.log.lines.at(0).find("the server answers 404"), std::string::npos);
    }

    TEST(RedirectTest, NameAndPasswordOfAnAddressAreToldToNobody)
    {
        for (const bool isByProxy : { false, true }) {
            FetcherFixture f;
            std::string withPassword;
            WebServer server([&](QTcpSocket& socket) {
                const bool isFirst = server.questions.size() == 1;
                answering(isFirst ? redirectTo(withPassword) : httpAnswer("200 OK", "{}"))(socket);
            });
            const auto place = server.address("").substr(std::string("http://").size());
            withPassword = "http://name:secret@" + place + "/a";
            const test::Environment environment { { { "no_proxy", isByProxy ? "" : "*" },
                { "http_proxy", isByProxy ? server.address("") : "" } } };

            EXPECT_EQ(f.fetch(withPassword), "{}");

            ASSERT_EQ(server.questions.size(), 2U);
            const auto begin = beginOfQuestion(isByProxy ? server.address("/a") : "/a", place);
            for (const auto& question : server.questions) {
                EXPECT_TRUE(question.starts_with(begin)) << question;
                EXPECT_EQ(question.find("Authorization"), std::string::npos);
            }
        }
    }

} // namespace
} // namespace korvane
