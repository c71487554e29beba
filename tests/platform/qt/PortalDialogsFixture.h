#pragma once

#include "platform/qt/PortalFileDialogs.h"
#include "platform/qt/ScriptedPortal.h"
#include "settings/ParentWindow.h"
#include "support/FakeFileDialogs.h"
#include "support/ManualLoop.h"
#include "support/RecordingLog.h"
#include "support/SessionBus.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// A window of ours; while there is one, a pointer of the test's knows it.
class FakeParent : public ParentWindow {
public:
    explicit FakeParent(FakeParent*& open)
        : m_open(open)
    {
        m_open = this;
    }
    ~FakeParent() override { m_open = nullptr; }
    FakeParent(const FakeParent&) = delete;
    FakeParent& operator=(const FakeParent&) = delete;

    std::string identifier() const override { return "x11:2a00007"; }

private:
    FakeParent*& m_open;
};

/// The portal's dialogs over a portal that does as the test says, on a bus of its own.
struct PortalDialogsFixture {
    explicit PortalDialogsFixture(ScriptedPortal::Manner manner = ScriptedPortal::Manner::takesOn)
    {
        portal.emplace(bus.connection("portal"), manner);
    }

    FileDialogs::Answer answer()
    {
        return [this](std::optional<std::filesystem::path> path) {
            chosen.push_back(std::move(path));
        };
    }
    /// Waits for the dialog, and has the user choose in it.
    void choose(const QString& uri)
    {
        const auto before = chosen.size();
        const auto number = portal->questions.size();
        dialogs->chooseFile(answer());
        ASSERT_TRUE(portal->isAsked(number + 1));
        portal->choose(uri, number);
        ASSERT_TRUE(waitUntil([&] { return chosen.size() > before; }));
    }
    bool isAnswered(std::size_t times = 1)
    {
        return waitUntil([this, times] { return chosen.size() >= times; });
    }

    SessionBus bus;
    ManualLoop loop;
    RecordingLog log;
    FakeFileDialogs others;
    std::optional<ScriptedPortal> portal;
    FakeParent* parent = nullptr; // while a dialog stands over it
    bool hasWindow = true;
    std::vector<std::optional<std::filesystem::path>> chosen;
    std::optional<PortalFileDialogs> dialogs { std::in_place, bus.connection("korvane"), loop, log,
        others, [this] { return hasWindow ? std::make_unique<FakeParent>(parent) : nullptr; },
        "/tmp/Eigene Übungen\xff" };
};

} // namespace korvane::test
