#include "platform/qt/QtDocumentFetcher.h"

#include "platform/qt/FetcherFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::answering;
    using test::FetcherFixture;
    using test::httpAnswer;
    using test::waitUntil;
    using test::WebServer;

    TEST(QtDocumentFetcherTest, ADocumentIsFetchedWhole)
    {
        FetcherFixture f;
        WebServer server(answering(httpAnswer("200 OK", R"({"version":"1.3"})")));

        EXPECT_EQ(f.fetch(server.address()), R"({"version":"1.3"})");
        EXPECT_TRUE(f.log.lines.empty());
    }

    TEST(QtDocumentFetcherTest, TheAnswerNeverComesFromWithinTheCall)
    {
        FetcherFixture f;
        f.start("nonsense");
        f.start("http://");

        EXPECT_TRUE(f.answers.empty());
        EXPECT_TRUE(waitUntil([&] { return f.answers.size() == 2; }));
    }

    TEST(QtDocumentFetcherTest, TheServerIsToldTheProgramAndItsVersionAndNoMore)
    {
        FetcherFixture f;
        WebServer server(answering(httpAnswer("200 OK", "{}")));

        f.fetch(server.address());

        ASSERT_EQ(server.questions.size(), 1U);
        const auto host = server.address("").substr(std::string("http://").size());
        EXPECT_EQ(server.questions[0],
            "GET /korvane/version.json HTTP/1.1\r\nHost: " + host
                + "\r\nUser-Agent: Korvane/" KORVANE_VERSION
                  "\r\nAccept: application/json\r\nAccept-Language: *\r\nAccept-Encoding: identity"
                  "\r\nConnection: close\r\n\r\n");
    }

    TEST(QtDocumentFetcherTest, NothingThatAServerSetsIsSentBack)
    {
        FetcherFixture f;
        WebServer server(answering(httpAnswer(
            "200 OK", "{}", "Set-Cookie: id=1\r\nETag: \"1\"\r\nCache-Control: max-age=3600\r\n")));

        f.fetch(server.address());
        f.fetch(server.address());

        ASSERT_EQ(server.questions.size(), 2U);
        EXPECT_EQ(server.questions[0], server.questions[1]);
    }

    TEST(QtDocumentFetcherTest, WhatIsNotThereIsNone)
    {
        FetcherFixture f;
        WebServer server(answering(httpAnswer("404 Not Found", R"({"version":"1.3"})")));

        f.expectNone(server.address());
    }

    TEST(QtDocumentFetcherTest, OtherGoodNewsIsNotTheDocument)
    {
        for (const auto* status : { "203 Elsewhere", "206 Partial Content", "304 Not Modified" }) {
            FetcherFixture f;
            WebServer server(answering(httpAnswer(status, R"({"version":"1.3"})")));

            f.expectNone(server.address());
        }
    }

    TEST(QtDocumentFetcherTest, AServerThatAsksForAPasswordIsGivenNone)
    {
        FetcherFixture f;
        WebServer server(answering(
            httpAnswer("401 Unauthorized", "{}", "WWW-Authenticate: Basic realm=\"x\"\r\n")));

        f.expectNone(server.address());
        EXPECT_EQ(server.questions.size(), 1U);
    }

    TEST(QtDocumentFetcherTest, AnAnswerThatIsCutShortIsNone)
    {
        FetcherFixture f;
        WebServer server(
            answering("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{\"version\":\"1.3\"}"));

        f.expectNone(server.address());
    }

    TEST(QtDocumentFetcherTest, WhatIsNoHttpIsNone)
    {
        FetcherFixture f;
        WebServer server(answering("SSH-2.0-OpenSSH_9.2\r\n"));

        f.expectNone(server.address());
    }

    TEST(QtDocumentFetcherTest, WithoutANetworkThereIsNone)
    {
        FetcherFixture f;
        std::string address;
        {
            WebServer server(answering(""));
            address = server.address(); // whose port is free again
        }

        f.expectNone(address);
    }

    TEST(QtDocumentFetcherTest, ALargestDocumentIsFetchedAndOneByteMoreIsNot)
    {
        for (const std::string fields : { "X: y\r\n", "" }) {
            const std::string largest(DocumentFetcher::largestDocument, 'a');
            // With its length in the head, and without.
            const auto answer = [&](const std::string& body) {
                return fields.empty() ? "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body
                                      : httpAnswer("200 OK", body);
            };
            WebServer server(answering(answer(largest)));
            WebServer tooLarge(answering(answer(largest + "a")));

            FetcherFixture good;
            EXPECT_EQ(good.fetch(server.address()), largest);
            FetcherFixture bad;
            bad.expectNone(tooLarge.address());
        }
    }

    TEST(QtDocumentFetcherTest, AServerThatSendsForEverIsLeft)
    {
        FetcherFixture f;
        qint64 sent = 0;
        WebServer server([&sent](QTcpSocket& socket) {
            test::send(socket, "HTTP/1.1 200 OK\r\n\r\n");
            const std::string piece(16384, 'a');
            QObject::connect(
                &socket, &QTcpSocket::bytesWritten, &socket, [&sent, &socket, piece](qint64 bytes) {
                    sent += bytes;
                    test::send(socket, piece);
                });
        });
        const auto begin = std::chrono::steady_clock::now();

        f.expectNone(server.address());

        EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s); // far below the time limit
        EXPECT_TRUE(waitUntil([&] { return server.connections() == 0; }));
        // What the two sockets hold has been sent as well, and is some megabytes at most.
        EXPECT_LT(sent, 16 * 1024 * 1024);
    }

    TEST(QtDocumentFetcherTest, AnswersDoNotWaitForOneAnother)
    {
        FetcherFixture f;
        QTcpSocket* waiting = nullptr;
        WebServer slow([&waiting](QTcpSocket& socket) { waiting = &socket; });
        WebServer quick(answering(httpAnswer("200 OK", "quick")));

        f.start(slow.address());
        ASSERT_TRUE(waitUntil([&] { return waiting != nullptr; }));
        EXPECT_EQ(f.fetch(quick.address()), "quick");
        test::send(*waiting, httpAnswer("200 OK", "slow"));

        EXPECT_TRUE(waitUntil([&] { return f.answers.size() == 2; }));
        EXPECT_EQ(f.answers.back(), "slow");
    }

    TEST(QtDocumentFetcherTest, ADocumentIsGivenFiveSeconds)
    {
        EXPECT_EQ(QtDocumentFetcher::patience, 5s);
    }

    TEST(QtDocumentFetcherTest, AServerThatNeverAnswersIsLeftAfterTheLimit)
    {
        FetcherFixture f(FetcherFixture::Schemes::httpToo, 300ms);
        WebServer server([](QTcpSocket&) {});
        const auto begin = std::chrono::steady_clock::now();

        f.expectNone(server.address());

        EXPECT_GE(std::chrono::steady_clock::now() - begin, 290ms);
        EXPECT_EQ(server.questions.size(), 1U);
        EXPECT_TRUE(waitUntil([&] { return server.connections() == 0; }));
    }

    TEST(QtDocumentFetcherTest, TheLimitIsForTheWholeAndNotForEachByte)
    {
        FetcherFixture f(FetcherFixture::Schemes::httpToo, 400ms);
        QTimer drops;
        QTcpSocket* drinker = nullptr;
        QObject::connect(&drops, &QTimer::timeout, [&] { test::send(*drinker, "a"); });
        WebServer server([&](QTcpSocket& socket) {
            drinker = &socket;
            test::send(socket, "HTTP/1.1 200 OK\r\n\r\n");
            drops.start(10ms);
        });

        f.expectNone(server.address());
        drops.stop();
    }

    /// Sends this, and then the piece again and again as fast as it can.
    WebServer::Manner sendingForEver(std::string begin, std::string piece)
    {
        return [begin = std::move(begin), piece = std::move(piece)](QTcpSocket& socket) {
            QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket,
                [&socket, piece] { test::send(socket, piece); });
            test::send(socket, begin + piece);
        };
    }

    TEST(QtDocumentFetcherTest, AHeadThatNeverEndsIsLeftAndTheNextServerIsAsked)
    {
        const std::string much(8000, 'a');
        for (const auto& manner :
            { sendingForEver("HTTP/1.1 200 ", much),
                sendingForEver("HTTP/1.1 200 OK\r\n", "X: " + much + "\r\n"),
                sendingForEver("HTTP/1.1 200 OK\r\nX: ", much),
                sendingForEver("", "HTTP/1.1 100 Continue\r\n\r\n"),
                sendingForEver(
                    "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", "1\r\na\r\n"),
                sendingForEver("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1;", much) }) {
            FetcherFixture f; // whose limit is longer than an answer is waited for
            WebServer server(manner);
            WebServer good(answering(httpAnswer("200 OK", "{}")));

            f.expectNone(server.address());

            EXPECT_TRUE(waitUntil([&] { return server.connections() == 0; }));
            EXPECT_EQ(f.fetch(good.address()), "{}");
        }
    }

    TEST(QtDocumentFetcherTest, AHeadThatNeverEndsAndComesSlowlyIsLeftAfterTheLimit)
    {
        FetcherFixture f(FetcherFixture::Schemes::httpToo, 400ms);
        QTimer drops;
        QTcpSocket* drinker = nullptr;
        QObject::connect(&drops, &QTimer::timeout, [&] { test::send(*drinker, "X: y\r\n"); });
        WebServer server([&](QTcpSocket& socket) {
            drinker = &socket;
            test::send(socket, "HTTP/1.1 200 OK\r\n");
            drops.start(10ms);
        });

        f.expectNone(server.address());
        drops.stop();

        EXPECT_TRUE(waitUntil([&] { return server.connections() == 0; }));
    }

    TEST(QtDocumentFetcherTest, AnAnswerInPiecesAndOneOfUnknownLengthAreFetchedWhole)
    {
        for (const auto* answer :
            { "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1\r\n{\r\n1\r\n}\r\n0\r\n\r\n",
                "HTTP/1.1 200 OK\r\n\r\n{}",
                "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n{}" }) {
            FetcherFixture f;
            WebServer server(answering(answer));

            EXPECT_EQ(f.fetch(server.address()), "{}");
        }
    }

    TEST(QtDocumentFetcherTest, AFetcherMayEndWhileADocumentIsUnderWay)
    {
        FetcherFixture f;
        QTcpSocket* waiting = nullptr;
        WebServer server([&waiting](QTcpSocket& socket) { waiting = &socket; });
        f.start(server.address());
        f.start("nonsense");
        ASSERT_TRUE(waitUntil([&] { return waiting != nullptr; }));
        f.answers.clear();
        f.start("nonsense");
        const auto begin = std::chrono::steady_clock::now();

        f.fetcher.reset();

        EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
        EXPECT_TRUE(waitUntil([&] { return server.connections() == 0; }));
        EXPECT_TRUE(f.answers.empty());
    }

} // namespace
} // namespace korvane
