// How documents are fetched through a proxy of SOCKS.

#include "platform/qt/ProxyFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::answering;
    using test::Certificate;
    using test::FetcherFixture;
    using test::httpAnswer;
    using test::ourName;
    using test::plainAddress;
    using test::proxyFor;
    using test::secureAddress;
    using test::SocksProxy;
    using test::WebServer;
    using Schemes = QtDocumentFetcher::Schemes;

    TEST(SocksFetchTest, ASocksProxyLeadsToPlainAndToSecureServers)
    {
        const test::Trust trust(ourName());
        for (const auto* address : { plainAddress, secureAddress }) {
            FetcherFixture f;
            const auto answer = answering(httpAnswer("200 OK", "{}"));
            WebServer plain(answer);
            WebServer secure(ourName(), answer);
            const bool isPlain = address == plainAddress;
            SocksProxy proxy((isPlain ? plain : secure).port());
            const auto environment = proxyFor("all_proxy", "socks5://" + proxy.place());

            EXPECT_EQ(f.fetch(address), "{}");

            ASSERT_EQ(proxy.destinations.size(), 1U);
            EXPECT_EQ(
                proxy.destinations[0], isPlain ? "korvane.example:80" : "korvane.example:443");
            EXPECT_EQ((isPlain ? plain : secure).questions.size(), 1U);
        }
    }

    TEST(SocksFetchTest, ASocksProxyIsToldTheNameAndThePasswordOfItsAddress)
    {
        WebServer server(answering(httpAnswer("200 OK", "{}")));
        SocksProxy proxy(server.port(), "a:b c");

        FetcherFixture good;
        {
            const auto environment = proxyFor("all_proxy", "socks5h://a:b%20c@" + proxy.place());
            EXPECT_EQ(good.fetch(plainAddress), "{}");
        }
        FetcherFixture bad;
        const auto environment = proxyFor("all_proxy", "socks5h://a:c@" + proxy.place());
        bad.expectNone(plainAddress);

        EXPECT_EQ(proxy.destinations.size(), 1U);
        EXPECT_EQ(server.questions.size(), 1U);
    }

    TEST(SocksFetchTest, BehindASocksProxyTheCertificateIsHeldAgainstTheServersName)
    {
        const Certificate proxys("IP:127.0.0.1");
        const test::Trust trust(proxys);
        FetcherFixture f(Schemes::https);
        WebServer server(proxys, answering(httpAnswer("200 OK", "{}")));
        SocksProxy proxy(server.port());
        const auto environment = proxyFor("all_proxy", "socks5://" + proxy.place());

        f.expectNone(secureAddress);

        EXPECT_EQ(proxy.destinations.size(), 1U);
        EXPECT_TRUE(server.questions.empty());
    }

    TEST(SocksFetchTest, ASocksProxyThatNeverAnswersIsLeftAfterTheLimit)
    {
        FetcherFixture f(Schemes::https, 300ms);
        QTcpServer proxy;
        ASSERT_TRUE(proxy.listen(QHostAddress::LocalHost));
        const auto environment
            = proxyFor("all_proxy", "socks5://127.0.0.1:" + std::to_string(proxy.serverPort()));

        f.expectNone(secureAddress);

        EXPECT_TRUE(proxy.hasPendingConnections());
        EXPECT_NE(f.log.lines.at(0).find("it takes too long"), std::string::npos);
    }

} // namespace
} // namespace korvane
