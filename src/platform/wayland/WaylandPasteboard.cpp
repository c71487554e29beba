#include "platform/wayland/WaylandPasteboard.h"

#include <random>
#include <utility>

namespace korvane {

namespace {

    // What there is of a text in the types that programs ask for. Each gives UTF-8: that is what
    // programs of today expect of the old names, too.
    const std::vector<std::string>& textTypes()
    {
        static const std::vector<std::string> types { "text/plain;charset=utf-8", "text/plain",
            "UTF8_STRING", "TEXT", "STRING" };
        return types;
    }

    // A window and the clipboard of a program that ends go at about the same time, in either order.
    constexpr std::chrono::milliseconds farewell { 100 };
    // More readers than this at the same time are no readers.
    constexpr std::size_t maxWriters = 64;

    // Nobody else's: two runs of this program must not take each other's writes for their own.
    std::string makeMark(std::uint64_t run, std::uint64_t writeNumber)
    {
        return "application/x-korvane-write;run=" + std::to_string(run)
            + ";number=" + std::to_string(writeNumber);
    }

} // namespace

WaylandPasteboard::WaylandPasteboard(WaylandConnection& connection, MainLoop& loop, Windows windows)
    : m_connection(connection)
    , m_loop(loop)
    , m_windows(std::move(windows))
    , m_run(std::random_device {}())
    , m_control(
          DataControl::open(connection, [this](Offer offer) { selectionCame(std::move(offer)); }))
{
    // What was there before: some compositors tell it at once, some only with the second answer, and
    // where nothing was, some say so and some keep silent.
    m_connection.roundTrip();
    m_connection.roundTrip();
    m_isStarting = false;
}

void WaylandPasteboard::selectionCame(Offer offer)
{
    if (m_isStarting)
        m_offer = std::move(offer);
    else if (m_isWriting && m_hasOwnCome)
        m_held.push_back(std::move(offer));
    else
        note(std::move(offer));
}

void WaylandPasteboard::note(Offer offer)
{
    const bool wasForeign = m_offer && !m_isOwn;
    ++m_changeCount;
    abandonReads();
    m_offer = std::move(offer);
    m_isOwn = m_offer && isOwn(*m_offer);
    if (m_isOwn)
        m_hasOwnCome = true;
    else
        m_ownText.reset();
    const Change change { .isForeign = m_offer ? !m_isOwn : wasForeign,
        .isGone = !m_offer && wasForeign };
    m_connection.tellInOrder(m_life, [this, change] { tell(change); });
}

void WaylandPasteboard::noteHeld()
{
    for (auto& offer : std::exchange(m_held, {}))
        note(std::move(offer));
}

void WaylandPasteboard::tell(Change change)
{
    if (change.isGone) {
        m_gone = m_loop.after(farewell, [this] { tellGone(); });
    } else if (change.isForeign) {
        m_gone.stop(); // another copy has come: of that they hear now
        m_copiedIn = m_windows.front();
        changed();
    }
}

void WaylandPasteboard::tellGone()
{
    const auto life = std::weak_ptr(m_life);
    // In this order, so that who puts the vanished text back has done so before anyone looks.
    if (!m_offer && m_copiedIn != 0 && !m_windows.isThere(m_copiedIn))
        ownerVanished();
    if (!life.expired())
        changed();
}

void WaylandPasteboard::synchronise()
{
    noteHeld();
    m_connection.roundTrip();
}

void WaylandPasteboard::read(Answer answer, ListTest isEnough)
{
    if (!m_offer) {
        post([answer = std::move(answer)] { answer(std::nullopt); });
        return;
    }
    const auto reading = m_readings.emplace(m_readings.end());
    reading->answer = std::move(answer);
    reading->reader = std::make_unique<OfferReader>(
        m_connection, m_loop, *m_offer,
        [this, reading](std::optional<Contents> contents) {
            const auto done = std::move(reading->answer);
            m_readings.erase(reading);
            done(std::move(contents));
        },
        std::move(isEnough));
}

void WaylandPasteboard::abandonReads()
{
    for (auto& reading : std::exchange(m_readings, {}))
        post([answer = std::move(reading.answer)] { answer(std::nullopt); });
}

void WaylandPasteboard::writeText(std::string_view text)
{
    noteHeld();
    auto bytes = FileBytes::copyOf(text);
    if (!m_control
        || !bytes) // for want of memory nothing can be written: the clipboard stays as it is
        return;
    const auto written = std::make_shared<const FileBytes>(std::move(*bytes));
    m_ownMark = makeMark(m_run, ++m_writeCount);
    auto types = textTypes();
    types.push_back(m_ownMark);
    m_control->setSelection(types, sending(written));
    // The compositor has told us of it before it answers. What listeners make of other programs' changes
    // before it comes on the next turn; what comes after it is counted then, too.
    m_isWriting = true;
    m_hasOwnCome = false;
    m_connection.roundTrip();
    m_isWriting = false;
    if (m_hasOwnCome)
        m_ownText = written;
    if (!m_held.empty())
        post([this] { noteHeld(); });
}

void WaylandPasteboard::writePrimaryToo()
{
    if (!m_ownText)
        return;
    m_control->setPrimarySelection(textTypes(), sending(m_ownText));
    m_connection.roundTrip();
}

bool WaylandPasteboard::isOwn(const DataOffer& offer) const
{
    return !m_ownMark.empty() && offer.has(m_ownMark);
}

DataControl::Send WaylandPasteboard::sending(Text text)
{
    return [this, text = std::move(text)](std::string_view, Descriptor pipe) {
        if (m_writers.size() >= maxWriters)
            m_writers.pop_front();
        const auto place = std::make_shared<std::list<PipeWriter>::iterator>();
        m_writers.emplace_back(
            m_loop, std::move(pipe), text, [this, place] { m_writers.erase(*place); });
        *place = std::prev(m_writers.end());
    };
}

void WaylandPasteboard::post(MainLoop::Task task)
{
    m_loop.post([task = std::move(task), life = std::weak_ptr(m_life)] {
        if (!life.expired())
            task();
    });
}

} // namespace korvane
