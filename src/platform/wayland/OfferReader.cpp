#include "platform/wayland/OfferReader.h"

#include "model/Text.h"
#include "platform/wayland/WaylandConnection.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

    // More than any real mark needs, and nothing that would hurt.
    constexpr std::size_t maxHintBytes = 4UL * 1024;
    // An owner that never stops sending must not take all the memory there is.
    constexpr std::size_t maxContentBytes = 1024UL * 1024 * 1024;

    // Set by password managers, so that clipboard histories leave the copy alone.
    constexpr std::string_view hintType = "x-kde-passwordManagerHint";
    constexpr std::string_view listType = "text/uri-list";

    // From the worst to the best.
    constexpr std::array textTypes { std::string_view { "STRING" }, std::string_view { "TEXT" },
        std::string_view { "text/plain" }, std::string_view { "UTF8_STRING" },
        std::string_view { "text/plain;charset=utf-8" } };

    // By the custom of X their encoding is Latin-1, or not said; most programs of today mean UTF-8.
    bool isOldTextType(std::string_view type)
    {
        return type == "STRING" || type == "TEXT";
    }

    std::string withoutTrailingNuls(std::string bytes)
    {
        bytes.erase(bytes.find_last_not_of('\0') + 1);
        return bytes;
    }

    struct Pipe {
        Descriptor readEnd;
        Descriptor writeEnd;
    };

    std::optional<Pipe> makePipe()
    {
        std::array<int, 2> ends {};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            return std::nullopt;
        return Pipe { Descriptor(ends[0]), Descriptor(ends[1]) };
    }

} // namespace

OfferReader::OfferReader(WaylandConnection& connection, MainLoop& loop, DataOffer& offer,
    Pasteboard::Answer answer, Pasteboard::ListTest isEnough)
    : m_connection(connection)
    , m_loop(loop)
    , m_offer(offer)
    , m_answer(std::move(answer))
    , m_isEnough(std::move(isEnough))
{
    for (const auto type : textTypes)
        if (m_offer.has(type))
            m_textTypes.emplace_back(type);
    if (m_offer.has(hintType))
        fetch(std::string(hintType), { maxHintBytes, TextJoiner::Repair::none },
            &OfferReader::takeHint);
    else
        askForFiles();
}

void OfferReader::fetch(const std::string& type, Wanted wanted, Step next)
{
    auto pipe = makePipe();
    if (!pipe) { // For want of descriptors nothing can be read, and later perhaps it can.
        m_empty = m_loop.after(std::chrono::milliseconds { 0 }, [this] { finish(std::nullopt); });
        return;
    }
    m_offer.receive(type, pipe->writeEnd.number());
    m_connection.flush();
    m_pipe = std::make_unique<PipeReader>(m_loop, std::move(pipe->readEnd), wanted.maxBytes,
        [this, wanted, next](PipeContents contents) {
            if (contents.ending != PipeContents::Ending::received) {
                finish(m_contents.uriList ? std::optional(std::move(m_contents)) : std::nullopt);
                return;
            }
            m_pipe.reset();
            join(std::move(contents.pieces), wanted.repair, next);
        });
}

void OfferReader::join(std::deque<std::string> pieces, TextJoiner::Repair repair, Step next)
{
    if (pieces.size() > 1) {
        m_joiner = std::make_unique<TextJoiner>(m_loop, std::move(pieces), repair,
            [this, next](std::string bytes) { (this->*next)(std::move(bytes)); });
        return;
    }
    auto bytes = pieces.empty() ? std::string() : std::move(pieces.front());
    if (repair == TextJoiner::Repair::utf8)
        bytes = repairedUtf8(std::move(bytes));
    (this->*next)(std::move(bytes)); // may destroy us: nothing comes after it
}

void OfferReader::takeHint(std::string bytes)
{
    // A mark that its owner then does not show is taken for what it most likely says.
    const auto hint = withoutTrailingNuls(std::move(bytes));
    if (hint.empty() || hint == "secret") {
        m_contents.isSecret = true;
        finish(std::move(m_contents));
        return;
    }
    askForFiles();
}

void OfferReader::askForFiles()
{
    if (m_offer.has(listType))
        fetch(std::string(listType), { maxContentBytes, TextJoiner::Repair::none },
            &OfferReader::takeFiles);
    else
        askForText();
}

void OfferReader::takeFiles(std::string bytes)
{
    if (!bytes.empty())
        m_contents.uriList = std::move(bytes);
    if (m_contents.uriList && m_isEnough && m_isEnough(*m_contents.uriList))
        finish(std::move(m_contents));
    else
        askForText();
}

void OfferReader::askForText()
{
    if (m_textTypes.empty()) {
        m_empty = m_loop.after(
            std::chrono::milliseconds { 0 }, [this] { finish(std::move(m_contents)); });
        return;
    }
    const auto type = std::move(m_textTypes.back());
    m_textTypes.pop_back();
    if (isOldTextType(type))
        fetch(type, { maxContentBytes, TextJoiner::Repair::none }, &OfferReader::takeOldText);
    else
        fetch(type, { maxContentBytes, TextJoiner::Repair::utf8 }, &OfferReader::takeText);
}

void OfferReader::takeOldText(std::string bytes)
{
    if (isValidUtf8(bytes))
        keepText(repairedUtf8(std::move(bytes)));
    else
        keepText(utf8FromLatin1(bytes));
}

void OfferReader::takeText(std::string bytes)
{
    keepText(std::move(bytes));
}

void OfferReader::keepText(std::string text)
{
    m_contents.text = std::move(text);
    // An owner that does not give a type after all says nothing and closes the pipe; so does one
    // whose text is empty, and then all of them are.
    if (m_contents.text->empty() && !m_textTypes.empty())
        askForText();
    else
        finish(std::move(m_contents));
}

void OfferReader::finish(std::optional<Contents> contents)
{
    const auto answer = std::exchange(m_answer, nullptr);
    answer(std::move(contents)); // may destroy us: nothing comes after it
}

} // namespace korvane
