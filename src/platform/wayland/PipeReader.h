#pragma once

#include "model/Files.h"
#include "model/MainLoop.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace korvane {

/// What came out of a pipe.
struct PipeContents {
    enum class Ending {
        received, ///< All of it; the other end has been closed.
        silent,   ///< Two seconds passed without a byte.
        tooLarge, ///< More than was wanted.
    };
    Ending ending = Ending::received;
    /// The bytes, in pieces of about a megabyte: to enlarge one text again and again would copy it each
    /// time, and the last times take longer than anyone should wait.
    std::deque<std::string> pieces {};
};

/// Reads a pipe to its end, bit by bit as it comes, so that whoever writes to it and hangs holds up
/// nobody. Answers once, from the main loop, never from the constructor; abandoned, without an answer,
/// when destroyed.
class PipeReader {
public:
    /// May destroy the reader.
    using Answer = std::function<void(PipeContents)>;

    PipeReader(MainLoop& loop, Descriptor pipe, std::size_t maxBytes, Answer answer);
    PipeReader(const PipeReader&) = delete;
    PipeReader& operator=(const PipeReader&) = delete;
    ~PipeReader() = default;

private:
    void readSome();
    void keep(std::size_t byteCount);
    void awaitBytes();
    void finish(PipeContents::Ending ending);

    MainLoop& m_loop;
    Descriptor m_pipe;
    std::size_t m_bytesLeft;
    Answer m_answer;
    PipeContents m_contents;
    std::vector<char> m_buffer;
    Timer m_silence;
    Timer m_watch;
};

} // namespace korvane
