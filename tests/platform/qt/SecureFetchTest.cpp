// Which servers are believed, and where they may lead.

#include "platform/qt/FetcherFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    using test::answering;
    using test::Certificate;
    using test::FetcherFixture;
    using test::httpAnswer;
    using test::redirectTo;
    using test::WebServer;
    using Schemes = QtDocumentFetcher::Schemes;

    const Certificate& ours()
    {
        static const Certificate certificate("IP:127.0.0.1");
        return certificate;
    }

    TEST(SecureFetchTest, AServerThatProvesWhoItIsIsBelieved)
    {
        const test::Trust trust(ours());
        FetcherFixture f(Schemes::https);
        WebServer server(ours(), answering(httpAnswer("200 OK", "{}")));

        EXPECT_EQ(f.fetch(server.address()), "{}");
        EXPECT_TRUE(f.log.lines.empty());
    }

    TEST(SecureFetchTest, ACertificateThatNobodyVouchesForIsRefused)
    {
        for (const auto schemes : { Schemes::https, Schemes::httpToo }) {
            FetcherFixture f(schemes);
            WebServer server(ours(), answering(httpAnswer("200 OK", "{}")));

            f.expectNone(server.address());
            EXPECT_TRUE(server.questions.empty()); // nothing was told to whom we do not know
        }
    }

    TEST(SecureFetchTest, ACertificateForAnotherServerIsRefused)
    {
        const Certificate others("DNS:other.example");
        const test::Trust trust(others);
        FetcherFixture f(Schemes::https);
        WebServer server(others, answering(httpAnswer("200 OK", "{}")));

        f.expectNone(server.address());
        EXPECT_TRUE(server.questions.empty());
    }

    TEST(SecureFetchTest, APlainServerIsNotEvenAsked)
    {
        FetcherFixture f(Schemes::https);
        WebServer server(answering(httpAnswer("200 OK", "{}")));

        f.expectNone(server.address());
        EXPECT_TRUE(server.questions.empty());
        EXPECT_EQ(server.connections(), 0U);
    }

    TEST(SecureFetchTest, AddressesOfOtherKindsAreRefused)
    {
        for (const auto* address : { "", "korvane.example", "file:///etc/hostname",
                 "ftp://korvane.example/a", "data:,{}", "https://", "https:///korvane" }) {
            FetcherFixture f;
            f.expectNone(address);
        }
    }

    TEST(SecureFetchTest, ARedirectToAnotherSecureServerIsFollowed)
    {
        const test::Trust trust(ours());
        FetcherFixture f(Schemes::https);
        WebServer target(ours(), answering(httpAnswer("200 OK", "{}")));
        WebServer server(ours(), answering(redirectTo(target.address("/there"))));

        EXPECT_EQ(f.fetch(server.address()), "{}");
        ASSERT_EQ(target.questions.size(), 1U);
        EXPECT_TRUE(target.questions[0].starts_with("GET /there HTTP/1.1\r\n"));
    }

    TEST(SecureFetchTest, ARedirectToAPlainServerIsNotFollowed)
    {
        const test::Trust trust(ours());
        for (const auto schemes : { Schemes::https, Schemes::httpToo }) {
            FetcherFixture f(schemes);
            WebServer target(answering(httpAnswer("200 OK", "{}")));
            WebServer server(ours(), answering(redirectTo(target.address())));

            f.expectNone(server.address());
            EXPECT_EQ(server.questions.size(), 1U);
            EXPECT_EQ(target.connections() + target.questions.size(), 0U);
        }
    }

    TEST(SecureFetchTest, ARedirectToAServerThatIsNotBelievedIsNotFollowed)
    {
        const Certificate others("DNS:other.example");
        const test::Trust trust(ours());
        FetcherFixture f(Schemes::https);
        WebServer target(others, answering(httpAnswer("200 OK", "{}")));
        WebServer server(ours(), answering(redirectTo(target.address())));

        f.expectNone(server.address());
        EXPECT_TRUE(target.questions.empty());
    }

} // namespace
} // namespace korvane
