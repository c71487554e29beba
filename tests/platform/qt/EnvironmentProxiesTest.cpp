#include "platform/qt/EnvironmentProxies.h"

#include "support/Environment.h"

#include <gtest/gtest.h>

#include <QUrl>

#include <map>
#include <string>

namespace korvane {
namespace {

    /// Which proxy leads to an address: its kind, host and port; empty without one.
    std::string proxyFor(const char* address, std::map<std::string, std::string> variables)
    {
        std::map<std::string, std::string> all;
        for (const auto* name : { "http_proxy", "HTTP_PROXY", "https_proxy", "HTTPS_PROXY",
                 "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY" })
            all[name] = variables[name];
        const test::Environment environment(all);
        const auto found = environmentProxyFor(QUrl(address));
        if (!found)
            return "unknown";
        if (found->type() == QNetworkProxy::NoProxy)
            return {};
        return (found->type() == QNetworkProxy::HttpProxy ? "http " : "socks ")
            + found->hostName().toStdString() + " " + std::to_string(found->port());
    }

    constexpr auto* ours = "https://korvane.example/a";

    TEST(EnvironmentProxiesTest, WithoutVariablesThereIsNone)
    {
        EXPECT_EQ(proxyFor(ours, {}), "");
    }

    TEST(EnvironmentProxiesTest, EachSchemeHasAVariableAndOneIsForAll)
    {
        EXPECT_EQ(proxyFor(ours, { { "https_proxy", "http://a:81" } }), "http a 81");
        EXPECT_EQ(proxyFor(ours, { { "http_proxy", "http://a:81" } }), "");
        EXPECT_EQ(proxyFor("http://b", { { "http_proxy", "http://a:81" } }), "http a 81");
        EXPECT_EQ(proxyFor(ours, { { "all_proxy", "socks5://a:82" } }), "socks a 82");
        EXPECT_EQ(
            proxyFor(ours, { { "all_proxy", "c:1" }, { "https_proxy", "a:81" } }), "http a 81");
    }

    TEST(EnvironmentProxiesTest, NamesInCapitalsAreReadToo)
    {
        EXPECT_EQ(proxyFor(ours, { { "HTTPS_PROXY", "http://a:81" } }), "http a 81");
        EXPECT_EQ(
            proxyFor(ours, { { "HTTPS_PROXY", "a" }, { "NO_PROXY", "korvane.example" } }), "");
    }

    TEST(EnvironmentProxiesTest, SchemeAndPortMayBeMissing)
    {
        EXPECT_EQ(proxyFor(ours, { { "https_proxy", "a" } }), "http a 1080");
        EXPECT_EQ(proxyFor(ours, { { "https_proxy", "http://" } }), "");
    }

    TEST(EnvironmentProxiesTest, AProxyIsOfTheKindThatItsSchemeTells)
    {
        for (const std::string scheme : { "socks", "socks5", "socks5h", "SOCKS5" })
            EXPECT_EQ(proxyFor(ours, { { "all_proxy", scheme + "://a:82" } }), "socks a 82");
        EXPECT_EQ(proxyFor(ours, { { "all_proxy", "HTTP://a:82" } }), "http a 82");
    }

    TEST(EnvironmentProxiesTest, AProxyOfAnotherKindIsNotTakenForOneThatIsKnown)
    {
        for (const std::string scheme : { "https", "HTTPS", "socks4", "socks4a", "ftp", "quic" }) {
            const auto address = scheme + "://user:pw@a:82";
            EXPECT_EQ(proxyFor(ours, { { "https_proxy", address } }), "unknown") << scheme;
            EXPECT_EQ(proxyFor(ours, { { "all_proxy", address } }), "unknown") << scheme;
            EXPECT_EQ(proxyFor(ours, { { "all_proxy", address }, { "no_proxy", "*" } }), "");
        }
    }

    TEST(EnvironmentProxiesTest, ExemptHostsAndThoseBelowThemAreReachedWithoutOne)
    {
        const auto with = [](const std::string& exempt) {
            return proxyFor(ours, { { "https_proxy", "a:81" }, { "no_proxy", exempt } });
        };
        EXPECT_EQ(with("localhost, korvane.example"), "");
        EXPECT_EQ(with("Example"), "");
        EXPECT_EQ(with(".example"), "");
        EXPECT_EQ(with("*"), "");
        EXPECT_EQ(with("ane.example"), "http a 81");
        EXPECT_EQ(with("other.example,,"), "http a 81");
    }

} // namespace
} // namespace korvane
