#pragma once

#include "model/MainLoop.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace korvane {

/// Puts the pieces of a text together, one in a turn of the loop, so that a large one holds up nobody.
/// Answers once, from the main loop, never from the constructor; abandoned, without an answer, when
/// destroyed.
class TextJoiner {
public:
    enum class Repair {
        none, ///< The bytes as they are.
        utf8, ///< What is not well-formed UTF-8 is repaired, and NULs are dropped (see `repairedUtf8`).
    };
    /// May destroy the joiner.
    using Answer = std::function<void(std::string)>;

    TextJoiner(MainLoop& loop, std::deque<std::string> pieces, Repair repair, Answer answer);
    TextJoiner(const TextJoiner&) = delete;
    TextJoiner& operator=(const TextJoiner&) = delete;
    ~TextJoiner() = default;

private:
    void awaitTurn();
    void joinNext();
    void append(std::string piece);

    MainLoop& m_loop;
    std::deque<std::string> m_pieces;
    Repair m_repair;
    Answer m_answer;
    std::string m_text;
    std::string m_carried; ///< the beginning of a character whose end is in the next piece
    Timer m_next;
};

/// How many bytes at the end are the beginning of a UTF-8 sequence that goes on after them.
std::size_t unfinishedBytes(std::string_view utf8);

} // namespace korvane
