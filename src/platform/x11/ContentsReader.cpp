#include "platform/x11/ContentsReader.h"

#include "model/Text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

    // More than any real list or mark needs, and nothing that would hurt.
    constexpr std::size_t maxTargetBytes = 64UL * 1024;
    constexpr std::size_t maxHintBytes = 4UL * 1024;
    // An owner that never stops sending must not take all the memory there is.
    constexpr std::size_t maxContentBytes = 1024UL * 1024 * 1024;

    // From the worst to the best. All but STRING (ICCCM: Latin-1) are UTF-8; "text/plain" without a
    // charset is what programs of today mean it to be.
    constexpr std::array textTargets { std::string_view { "STRING" },
        std::string_view { "text/plain" }, std::string_view { "text/plain;charset=utf-8" },
        std::string_view { "UTF8_STRING" } };

    std::vector<xcb_atom_t> atomsOf(const TransferResult& result)
    {
        std::vector<xcb_atom_t> atoms(result.bytes.size() / sizeof(xcb_atom_t));
        if (!atoms.empty())
            std::memcpy(atoms.data(), result.bytes.data(), atoms.size() * sizeof(xcb_atom_t));
        return atoms;
    }

    bool isReceived(const TransferResult& result, int format)
    {
        return result.ending == TransferResult::Ending::received && result.format == format;
    }

    std::string withoutTrailingNuls(std::string bytes)
    {
        bytes.erase(bytes.find_last_not_of('\0') + 1);
        return bytes;
    }

} // namespace

ContentsReader::ContentsReader(X11Connection& connection, MainLoop& loop, RequestWindows& windows,
    xcb_timestamp_t time, Pasteboard::Answer answer, Pasteboard::ListTest isEnough)
    : m_connection(connection)
    , m_loop(loop)
    , m_windows(windows)
    , m_time(time)
    , m_answer(std::move(answer))
    , m_isEnough(std::move(isEnough))
{
    fetch(m_connection.atom("TARGETS"), maxTargetBytes, &ContentsReader::takeTargets);
}

void ContentsReader::fetch(xcb_atom_t target, std::size_t maxBytes, Step next)
{
    m_transfer = std::make_unique<SelectionTransfer>(m_connection, m_loop, m_windows,
        SelectionTransfer::Request { target, m_time, maxBytes },
        [this, next](TransferResult result) {
            m_transfer.reset();
            if (result.ending == TransferResult::Ending::silent
                || result.ending == TransferResult::Ending::tooLarge)
                finish(m_contents.uriList ? std::optional(std::move(m_contents)) : std::nullopt);
            else
                (this->*next)(std::move(result));
        });
}

void ContentsReader::takeTargets(TransferResult&& result)
{
    if (isReceived(result, 32))
        m_offered = atomsOf(result);
    else // An owner that cannot list its types: the two that every program knows are tried.
        m_offered = { m_connection.atom("UTF8_STRING"), XCB_ATOM_STRING };
    for (const auto name : textTargets) {
        if (const auto target = m_connection.atom(name); offers(target))
            m_textTargets.push_back(target);
    }
    // Set by password managers, so that clipboard histories leave the copy alone.
    const auto hint = m_connection.atom("x-kde-passwordManagerHint");
    if (offers(hint))
        fetch(hint, maxHintBytes, &ContentsReader::takeHint);
    else
        askForFiles();
}

void ContentsReader::takeHint(TransferResult&& result)
{
    // A mark that its owner then does not show is taken for what it most likely says.
    if (!isReceived(result, 8) || withoutTrailingNuls(std::move(result.bytes)) == "secret") {
        m_contents.isSecret = true;
        finish(std::move(m_contents));
        return;
    }
    askForFiles();
}

void ContentsReader::askForFiles()
{
    const auto list = m_connection.atom("text/uri-list");
    if (offers(list))
        fetch(list, maxContentBytes, &ContentsReader::takeFiles);
    else
        askForText();
}

void ContentsReader::takeFiles(TransferResult&& result)
{
    if (isReceived(result, 8))
        m_contents.uriList = std::move(result.bytes);
    if (m_contents.uriList && m_isEnough && m_isEnough(*m_contents.uriList))
        finish(std::move(m_contents));
    else
        askForText();
}

void ContentsReader::askForText()
{
    if (m_textTargets.empty())
        finish(std::move(m_contents));
    else
        fetch(m_textTargets.back(), maxContentBytes, &ContentsReader::takeText);
}

void ContentsReader::takeText(TransferResult&& result)
{
    const auto target = m_textTargets.back();
    m_textTargets.pop_back();
    if (!isReceived(result, 8)) {
        askForText();
        return;
    }
    m_contents.text = target == XCB_ATOM_STRING ? utf8FromLatin1(result.bytes)
                                                : repairedUtf8(std::move(result.bytes));
    finish(std::move(m_contents));
}

bool ContentsReader::offers(xcb_atom_t target) const
{
    return target != XCB_ATOM_NONE
        && std::find(m_offered.begin(), m_offered.end(), target) != m_offered.end();
}

void ContentsReader::finish(std::optional<Pasteboard::Contents> contents)
{
    const auto answer = std::exchange(m_answer, nullptr);
    answer(std::move(contents)); // may destroy us: nothing comes after it
}

} // namespace korvane
