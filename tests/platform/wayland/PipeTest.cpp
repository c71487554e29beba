#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/PipeReader.h"
#include "platform/wayland/PipeWriter.h"
#include "platform/wayland/TextJoiner.h"
#include "support/EventLoop.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using namespace std::string_literals;
    using test::waitUntil;

    struct Pipe {
        Pipe()
        {
            std::array<int, 2> ends {};
            EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
            readEnd = Descriptor(ends[0]);
            writeEnd = Descriptor(ends[1]);
        }

        Descriptor readEnd;
        Descriptor writeEnd;
    };

    std::shared_ptr<const FileBytes> bytesOf(const std::string& text)
    {
        return std::make_shared<const FileBytes>(*FileBytes::copyOf(text));
    }

    /// What a reader makes of a pipe into which a writer puts this text.
    PipeContents through(const std::string& text, std::size_t maxBytes)
    {
        QtMainLoop loop;
        Pipe pipe;
        std::optional<PipeContents> read;
        std::optional<PipeWriter> writer;
        writer.emplace(loop, std::move(pipe.writeEnd), bytesOf(text), [&] { writer.reset(); });
        const PipeReader reader(loop, std::move(pipe.readEnd), maxBytes,
            [&](PipeContents contents) { read = std::move(contents); });
        EXPECT_TRUE(waitUntil([&] { return read.has_value(); }));
        return read ? std::move(*read) : PipeContents {};
    }

    std::string joined(const PipeContents& contents)
    {
        std::string text;
        for (const auto& piece : contents.pieces)
            text += piece;
        return text;
    }

    TEST(PipeTest, WhatIsWrittenIsReadToItsEnd)
    {
        std::string large;
        for (int line = 0; large.size() < 5'000'000; ++line)
            large += std::to_string(line) + '\n';

        for (const auto& text : { ""s, "short"s, "a\0b"s, large }) {
            const auto contents = through(text, 10'000'000);

            EXPECT_EQ(contents.ending, PipeContents::Ending::received);
            EXPECT_TRUE(joined(contents) == text);
        }
    }

    TEST(PipeTest, MoreThanIsWantedIsGivenUp)
    {
        EXPECT_EQ(through("12345", 5).ending, PipeContents::Ending::received);
        EXPECT_EQ(through("123456", 5).ending, PipeContents::Ending::tooLarge);
    }

    TEST(PipeTest, AReaderThatGoesAwayEndsTheWriterAndNotTheProcess)
    {
        QtMainLoop loop;
        Pipe pipe;
        bool isDone = false;
        const PipeWriter writer(loop, std::move(pipe.writeEnd),
            bytesOf(std::string(1'000'000, 'x')), [&] { isDone = true; });

        pipe.readEnd = Descriptor();

        EXPECT_TRUE(waitUntil([&] { return isDone; }));
    }

    TEST(PipeTest, AReaderThatNeverReadsHoldsUpNobody)
    {
        QtMainLoop loop;
        Pipe pipe;
        bool isDone = false;
        const PipeWriter writer(loop, std::move(pipe.writeEnd),
            bytesOf(std::string(1'000'000, 'x')), [&] { isDone = true; });

        int turns = 0;
        const auto other = loop.every(1ms, [&] { ++turns; });
        EXPECT_TRUE(waitUntil([&] { return turns == 100; }));

        EXPECT_FALSE(isDone);
    }

    TEST(TextJoinerTest, ACharacterThatIsCutByAPieceIsWhole)
    {
        QtMainLoop loop;
        std::optional<std::string> text;

        const TextJoiner joiner(loop, { "caf\xC3", "\xA9 \xF0\x9F", "\x99", "\x82 \xFF z\xE2\x82" },
            TextJoiner::Repair::utf8, [&](std::string all) { text = std::move(all); });

        EXPECT_EQ(text, std::nullopt);
        EXPECT_TRUE(waitUntil([&] { return text.has_value(); }));
        EXPECT_EQ(text, "café 🙂 \xEF\xBF\xBD z\xEF\xBF\xBD");
    }

    TEST(TextJoinerTest, BytesAreJoinedAsTheyAre)
    {
        QtMainLoop loop;
        std::optional<std::string> text;

        const TextJoiner joiner(loop, { "\xFF\0"s, "\xC3" }, TextJoiner::Repair::none,
            [&](std::string all) { text = std::move(all); });

        EXPECT_TRUE(waitUntil([&] { return text.has_value(); }));
        EXPECT_EQ(text, "\xFF\0\xC3"s);
    }

} // namespace
} // namespace korvane
