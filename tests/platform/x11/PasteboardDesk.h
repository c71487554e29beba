#pragma once

#include "platform/qt/QtClipboardWriter.h"
#include "platform/qt/QtMainLoop.h"
#include "platform/x11/X11Pasteboard.h"

#include "support/EventLoop.h"
#include "support/SelectionOwner.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// The real pasteboard on the real X server, and what it has told.
class PasteboardDesk {
public:
    using Contents = Pasteboard::Contents;

    PasteboardDesk()
    {
        // An owner of an earlier test may have ended a moment ago, without the server knowing yet.
        waitUntil([this] {
            const auto owner = connection.reply(xcb_get_selection_owner_reply,
                xcb_get_selection_owner(connection.get(), connection.atom("CLIPBOARD")));
            return owner && (owner->owner == XCB_NONE || writer.ownsWindow(owner->owner));
        });
        pasteboard = std::make_unique<X11Pasteboard>(connection, loop, writer);
        m_connections.push_back(pasteboard->changed.connect([this] { ++changes; }));
        m_connections.push_back(pasteboard->ownerVanished.connect([this] { ++vanished; }));
    }

    /// Waits until the pasteboard has counted so many changes.
    bool hasCounted(std::int64_t count)
    {
        return waitUntil([&] { return pasteboard->changeCount() >= count; })
            && pasteboard->changeCount() == count;
    }
    /// Lets everything that the server has told of until now be delivered: what has not been told
    /// after this was not going to be.
    void settle()
    {
        connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(connection.get()));
        int turns = 0;
        MainLoop::Task turn = [&] {
            if (++turns < 3)
                loop.post(turn);
        };
        loop.post(turn);
        waitUntil([&] { return turns == 3; });
    }
    /// Begins to read; the answers are gathered in their order.
    void beginReading()
    {
        pasteboard->read(
            [this](std::optional<Contents> contents) { answers.push_back(std::move(contents)); });
    }
    /// Reads and waits for the answer, which is not gathered.
    std::optional<Contents> read(Pasteboard::ListTest isEnough = {})
    {
        std::optional<std::optional<Contents>> answer;
        pasteboard->read([&](std::optional<Contents> contents) { answer = std::move(contents); },
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

    QtMainLoop loop;
    X11Connection connection { loop };
    QtClipboardWriter writer { connection };
    std::unique_ptr<X11Pasteboard> pasteboard;
    int changes = 0;
    int vanished = 0;
    std::vector<std::optional<Contents>> answers;

private:
    std::vector<Connection> m_connections;
};

/// An owner with nothing but this UTF-8 text.
inline OwnerScript textOwner(std::string text)
{
    return { .offers = { { .target = "UTF8_STRING", .bytes = std::move(text) } } };
}

} // namespace korvane::test
