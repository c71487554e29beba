#pragma once

#include "capture/Pasteboard.h"
#include "platform/x11/SelectionTransfer.h"

#include <memory>
#include <vector>

namespace korvane {

/// Reads what is on the clipboard: first which types there are, then whether it is a secret, and
/// only if it is not, the list of files and, unless that is enough, the best text. One transfer after the other; a type that
/// the owner offers and then refuses is passed over. Answers like `Pasteboard::read`; abandoned,
/// without an answer, when destroyed.
class ContentsReader {
public:
    /// `time` is when the owner became the owner. `answer` may destroy the reader.
    ContentsReader(X11Connection& connection, MainLoop& loop, RequestWindows& windows,
        xcb_timestamp_t time, Pasteboard::Answer answer, Pasteboard::ListTest isEnough);
    ContentsReader(const ContentsReader&) = delete;
    ContentsReader& operator=(const ContentsReader&) = delete;
    ~ContentsReader() = default;

private:
    using Step = void (ContentsReader::*)(TransferResult&&);

    void fetch(xcb_atom_t target, std::size_t maxBytes, Step next);
    void takeTargets(TransferResult&& result);
    void takeHint(TransferResult&& result);
    void askForFiles();
    void takeFiles(TransferResult&& result);
    void askForText();
    void takeText(TransferResult&& result);
    bool offers(xcb_atom_t target) const;
    void finish(std::optional<Pasteboard::Contents> contents);

    X11Connection& m_connection;
    MainLoop& m_loop;
    RequestWindows& m_windows;
    xcb_timestamp_t m_time;
    Pasteboard::Answer m_answer;
    Pasteboard::ListTest m_isEnough;
    std::vector<xcb_atom_t> m_offered;
    /// The text types still to be tried, the best last.
    std::vector<xcb_atom_t> m_textTargets;
    Pasteboard::Contents m_contents;
    std::unique_ptr<SelectionTransfer> m_transfer;
};

} // namespace korvane
