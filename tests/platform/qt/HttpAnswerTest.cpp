#include "platform/qt/HttpAnswer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {
namespace {

    using State = HttpState;

    /// An answer with a body of ten bytes at most, after all that has come.
    struct Answer {
        State state;
        int status;
        std::string location;
        std::string body;
    };

    /// Reads an answer of which so many bytes come at a time.
    Answer readInSteps(const std::string& bytes, std::size_t step, bool hasEnded)
    {
        HttpHead head;
        std::size_t come = 0;
        do {
            come = std::min(come + step, bytes.size());
            head = readHttpHead(bytes.substr(0, come), hasEnded && come == bytes.size());
        } while (head.state == State::unfinished && come < bytes.size());
        Answer answer { head.state, head.status, head.location, "" };
        if (head.state != State::whole)
            return answer;
        HttpBody body(head, 10);
        answer.state = body.take(std::string_view(bytes).substr(head.size, come - head.size),
            hasEnded && come == bytes.size());
        for (; answer.state == State::unfinished && come < bytes.size(); come += step)
            answer.state = body.take(std::string_view(bytes).substr(come, step),
                hasEnded && come + step >= bytes.size());
        answer.body = body.bytes();
        return answer;
    }

    /// Reads an answer that comes at once. One that comes byte by byte has to be the same.
    Answer read(const std::string& bytes, bool hasEnded = false)
    {
        auto answer = readInSteps(bytes, bytes.size(), hasEnded);
        const auto slow = readInSteps(bytes, 1, hasEnded);
        EXPECT_EQ(slow.state, answer.state) << bytes;
        EXPECT_EQ(slow.status, answer.status) << bytes;
        EXPECT_EQ(slow.body, answer.body) << bytes;
        return answer;
    }

    TEST(HttpAnswerTest, AnAnswerOfAKnownLengthIsWholeWithItsLastByte)
    {
        const std::string bytes = "HTTP/1.1 200 OK\r\ncontent-LENGTH:  3 \r\n\r\nabc";

        for (std::size_t size = 0; size < bytes.size(); ++size)
            EXPECT_EQ(read(bytes.substr(0, size)).state, State::unfinished) << size;
        EXPECT_EQ(read(bytes).state, State::whole);
        EXPECT_EQ(read(bytes).status, 200);
        EXPECT_EQ(read(bytes + "more").body, "abc");
    }

    TEST(HttpAnswerTest, AnAnswerOfNoLengthEndsWithTheConnection)
    {
        const std::string bytes = "HTTP/1.0 200 OK\r\nX: y\r\n\r\nabc";

        EXPECT_EQ(read(bytes).state, State::unfinished);
        EXPECT_EQ(read(bytes, true).state, State::whole);
        EXPECT_EQ(read(bytes, true).body, "abc");
    }

    TEST(HttpAnswerTest, AnAnswerInPiecesIsPutTogether)
    {
        const std::string bytes = "HTTP/1.1 200 OK\r\nTransfer-Encoding: "
                                  "chunked\r\n\r\n3\r\nabc\r\n2;x=y\r\nde\r\n0\r\n";

        for (std::size_t size = 0; size < bytes.size(); ++size)
            EXPECT_EQ(read(bytes.substr(0, size)).state, State::unfinished) << size;
        EXPECT_EQ(read(bytes).state, State::whole);
        EXPECT_EQ(read(bytes).body, "abcde");
    }

    TEST(HttpAnswerTest, InterimAnswersArePassedOver)
    {
        const std::string interim = "HTTP/1.1 100 Continue\r\n\r\n";

        const auto answer
            = read(interim + interim + "HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\na");

        EXPECT_EQ(answer.status, 200);
        EXPECT_EQ(answer.body, "a");
        EXPECT_EQ(read(interim).state, State::unfinished);
    }

    TEST(HttpAnswerTest, AHeadWithoutEndIsTooLarge)
    {
        const std::string much(largestHead + 1, 'a');
        std::string fields = "HTTP/1.1 200 OK\r\n";
        std::string interims;
        while (fields.size() <= largestHead)
            fields += "X: y\r\n";
        while (interims.size() <= largestHead + 30)
            interims += "HTTP/1.1 100 Continue\r\n\r\n";

        EXPECT_EQ(read("HTTP/1.1 200 " + much).state, State::tooLarge);
        EXPECT_EQ(read("HTTP/1.1 200 OK\r\nX: " + much).state, State::tooLarge);
        EXPECT_EQ(read(fields).state, State::tooLarge);
        EXPECT_EQ(read(interims).state, State::tooLarge);
    }

    TEST(HttpAnswerTest, ABodyThatIsTooLargeIsKnownAsSoonAsItIsTold)
    {
        EXPECT_EQ(read("HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\n").state, State::tooLarge);
        EXPECT_EQ(read("HTTP/1.1 200 OK\r\n\r\n12345678901").state, State::tooLarge);
        EXPECT_EQ(read("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nb\r\n").state,
            State::tooLarge);
        EXPECT_EQ(
            read("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nffffffffffffffff\r\n").state,
            State::tooLarge);
        EXPECT_EQ(
            read("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n9\r\n123456789\r\n2\r\n")
                .state,
            State::tooLarge);
    }

    TEST(HttpAnswerTest, WhatIsNoHttpIsBroken)
    {
        for (const auto* bytes : { "SSH-2.0", "H2", "HTTP/2 200 OK\r\n\r\n", "HTTP/1.1 20\r\n\r\n",
                 "HTTP/1.1 abc OK\r\n\r\n", "HTTP/1.1 200 OK\r\nno field\r\n\r\n",
                 "HTTP/1.1 200 OK\r\nContent-Length: -1\r\n\r\n",
                 "HTTP/1.1 200 OK\r\nContent-Length: 1\r\nContent-Length: 2\r\n\r\n",
                 "HTTP/1.1 200 OK\r\nTransfer-Encoding: gzip\r\n\r\n",
                 "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nxyz\r\n",
                 "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1\r\nabc\r\n" })
            EXPECT_EQ(read(bytes).state, State::broken) << bytes;
    }

    TEST(HttpAnswerTest, AConnectionThatEndsTooEarlyBreaksTheAnswer)
    {
        for (const auto* bytes :
            { "", "HTTP/1.1 200 OK\r\nX: y", "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nabc",
                "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n" })
            EXPECT_EQ(read(bytes, true).state, State::broken) << bytes;
    }

    TEST(HttpAnswerTest, ARedirectionTellsWhereItLeads)
    {
        const auto answer = read(
            "HTTP/1.1 302 Found\r\nLocation: https://a.example/b\r\nContent-Length: 0\r\n\r\n");

        EXPECT_EQ(answer.status, 302);
        EXPECT_EQ(answer.location, "https://a.example/b");
    }

    TEST(HttpAnswerTest, AHeadIsWholeWithoutItsBody)
    {
        const std::string bytes = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n";

        const auto head = readHttpHead(bytes + "ab", false);

        EXPECT_EQ(head.state, State::whole);
        EXPECT_EQ(head.size, bytes.size());
        EXPECT_EQ(head.length, 4U);
    }

    TEST(HttpAnswerTest, ABodyInTooManySmallPiecesIsTooLarge)
    {
        HttpHead head;
        head.isChunked = true;
        HttpBody body(head, 65536);
        auto state = State::unfinished;
        std::size_t taken = 0;
        for (; state == State::unfinished && taken < 1024UL * 1024; taken += 6)
            state = body.take("1\r\na\r\n", false);

        EXPECT_EQ(state, State::tooLarge);
        EXPECT_GT(taken, 4UL * 65536);
    }

} // namespace
} // namespace korvane
