#pragma once

#include "capture/Pasteboard.h"
#include "model/MainLoop.h"

#include "support/EventLoop.h"
#include "support/SelectionOwner.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// The real pasteboard of the desktop that the test program is for. The clipboard was empty, or ours,
/// when it was made.
class RealPasteboard {
public:
    virtual ~RealPasteboard() = default;

    virtual MainLoop& loop() = 0;
    virtual Pasteboard& pasteboard() = 0;
    /// Ends the pasteboard, and nothing else.
    virtual void end() = 0;
    /// Has everything that the desktop has told of until now read and put where the next turns of the
    /// loop deliver it.
    virtual void hear() = 0;
    /// Puts a text into the selection that the middle mouse button pastes.
    virtual void copyToPrimary(const std::string& text) = 0;
    /// What another program gets of this type from there; "(refused)" where there is nothing.
    virtual std::string pasteFromPrimary(const char* type) = 0;
    /// Has the pasteboard put what it wrote last there too.
    virtual void writePrimaryToo() = 0;
};
std::unique_ptr<RealPasteboard> makeRealPasteboard();

/// A program that pastes this type, and writes what it gets to its standard output.
QStringList pasteCommand(const char* type);

/// The real pasteboard, and what it has told.
class PasteboardDesk {
public:
    using Contents = Pasteboard::Contents;

    PasteboardDesk()
    {
        m_connections.push_back(pasteboard().changed.connect([this] { ++changes; }));
        m_connections.push_back(pasteboard().ownerVanished.connect([this] { ++vanished; }));
    }

    MainLoop& loop() { return m_real->loop(); }
    Pasteboard& pasteboard() { return m_real->pasteboard(); }
    RealPasteboard& real() { return *m_real; }

    /// Waits until the pasteboard has counted so many changes.
    bool hasCounted(std::int64_t count)
    {
        return waitUntil([&] { return pasteboard().changeCount() >= count; })
            && pasteboard().changeCount() == count;
    }
    /// Waits until it has told of so many changes by others.
    bool hasTold(int count)
    {
        return waitUntil([&] { return changes >= count; }) && changes == count;
    }
    /// Lets everything that the desktop has told of until now be delivered: what has not been told
    /// after this was not going to be.
    void settle()
    {
        m_real->hear();
        int turns = 0;
        MainLoop::Task turn = [&] {
            if (++turns < 3)
                loop().post(turn);
        };
        loop().post(turn);
        waitUntil([&] { return turns == 3; });
    }
    /// Begins to read; the answers are gathered in their order.
    void beginReading()
    {
        pasteboard().read(
            [this](std::optional<Contents> contents) { answers.push_back(std::move(contents)); });
    }
    /// Reads and waits for the answer, which is not gathered.
    std::optional<Contents> read(Pasteboard::ListTest isEnough = {})
    {
        std::optional<std::optional<Contents>> answer;
        pasteboard().read([&](std::optional<Contents> contents) { answer = std::move(contents); },
            std::move(isEnough));
        const auto hasAnswered = waitUntil([&] { return answer.has_value(); });
        EXPECT_TRUE(hasAnswered);
        return hasAnswered ? std::move(*answer) : std::nullopt;
    }
    /// The text that is read; "(none)" where there is none.
    std::string readText()
    {
        auto contents = read();
        return contents && contents->text ? std::move(*contents->text) : "(none)";
    }
    int changes = 0;
    int vanished = 0;
    std::vector<std::optional<Contents>> answers;

private:
    std::unique_ptr<RealPasteboard> m_real = makeRealPasteboard();
    std::vector<Connection> m_connections;
};

/// An owner with nothing but this UTF-8 text.
inline OwnerScript textOwner(std::string text)
{
    return { .offers = { { .target = "UTF8_STRING", .bytes = std::move(text) } } };
}

inline OwnerScript offering(std::vector<Offer> offers)
{
    return { .offers = std::move(offers) };
}

/// The types that an owner was asked for. (On X11 it is asked for the list of them first.)
inline std::vector<std::string> typesAskedFor(SelectionOwner& owner)
{
    auto types = owner.requests();
    std::erase(types, "TARGETS");
    return types;
}

/// Different everywhere, so that a piece that is lost, doubled or out of place is seen.
inline std::string numberedLines(std::size_t size)
{
    std::string text;
    text.reserve(size + 16);
    for (int line = 0; text.size() < size; ++line)
        text += "line " + std::to_string(line) + '\n';
    text.resize(size);
    return text;
}

} // namespace korvane::test
