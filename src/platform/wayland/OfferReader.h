#pragma once

#include "capture/Pasteboard.h"
#include "platform/wayland/DataControl.h"
#include "platform/wayland/PipeReader.h"
#include "platform/wayland/TextJoiner.h"

#include <memory>
#include <vector>

namespace korvane {

class WaylandConnection;

/// Reads what is on the clipboard: first whether it is a secret, then its files, then its text in the
/// best type that is offered. Answers once, on the main loop, never from the constructor; abandoned,
/// without an answer, when destroyed.
class OfferReader {
public:
    using Contents = Pasteboard::Contents;

    /// @param offer   must outlive the reader
    /// @param answer  may destroy the reader
    OfferReader(WaylandConnection& connection, MainLoop& loop, DataOffer& offer,
        Pasteboard::Answer answer, Pasteboard::ListTest isEnough);
    OfferReader(const OfferReader&) = delete;
    OfferReader& operator=(const OfferReader&) = delete;
    ~OfferReader() = default;

private:
    using Step = void (OfferReader::*)(std::string bytes);
    struct Wanted {
        std::size_t maxBytes;
        TextJoiner::Repair repair;
    };

    void fetch(const std::string& type, Wanted wanted, Step next);
    void join(std::deque<std::string> pieces, TextJoiner::Repair repair, Step next);
    void takeHint(std::string bytes);
    void askForFiles();
    void takeFiles(std::string bytes);
    void askForText();
    void takeText(std::string bytes);
    void takeOldText(std::string bytes);
    void keepText(std::string text);
    void finish(std::optional<Contents> contents);

    WaylandConnection& m_connection;
    MainLoop& m_loop;
    DataOffer& m_offer;
    Pasteboard::Answer m_answer;
    Pasteboard::ListTest m_isEnough;
    /// Those that are offered and have not been tried, the best last.
    std::vector<std::string> m_textTypes;
    Contents m_contents;
    std::unique_ptr<PipeReader> m_pipe;
    std::unique_ptr<TextJoiner> m_joiner;
    Timer m_empty;
};

} // namespace korvane
