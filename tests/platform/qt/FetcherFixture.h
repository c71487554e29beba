#pragma once

#include "platform/qt/QtDocumentFetcher.h"
#include "support/Environment.h"
#include "support/EventLoop.h"
#include "support/RecordingLog.h"
#include "support/WebServer.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace korvane::test {

/// A fetcher, and what it has answered. No proxy stands between it and the test's servers.
struct FetcherFixture {
    using Schemes = QtDocumentFetcher::Schemes;

    explicit FetcherFixture(Schemes schemes = Schemes::httpToo,
        std::chrono::milliseconds limit = std::chrono::seconds { 30 })
        : fetcher(std::in_place, schemes, log, limit)
    {
    }

    void start(const std::string& address)
    {
        fetcher->fetch(address, [this](std::optional<std::string> document) {
            answers.push_back(std::move(document));
        });
    }
    /// Fetches, and waits for the answer.
    std::optional<std::string> fetch(const std::string& address)
    {
        const auto before = answers.size();
        start(address);
        EXPECT_TRUE(waitUntil([&] { return answers.size() > before; }));
        return answers.size() > before ? answers.back() : std::nullopt;
    }
    /// Fetches what must not come, and one line must tell why.
    void expectNone(const std::string& address)
    {
        EXPECT_EQ(fetch(address), std::nullopt) << address;
        EXPECT_EQ(answers.size(), 1U);
        EXPECT_EQ(log.lines.size(), 1U);
    }

    Environment environment { { { "no_proxy", "127.0.0.1" }, { "http_proxy", "" },
        { "https_proxy", "" }, { "all_proxy", "" } } };
    RecordingLog log;
    std::vector<std::optional<std::string>> answers;
    std::optional<QtDocumentFetcher> fetcher;
};

} // namespace korvane::test
