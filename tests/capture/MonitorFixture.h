#pragma once

#include "capture/ClipboardMonitor.h"

#include "model/Preferences.h"
#include "support/FakePasteboard.h"
#include "support/FakeWorkspace.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"

#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// A monitor that is running, with nothing on its list, and what it has captured.
struct MonitorFixture {
    MonitorFixture()
    {
        monitor.onNewClip = [this](ClipItem clip) { clips.push_back(std::move(clip)); };
        monitor.startMonitoring();
    }

    std::vector<std::string> texts() const
    {
        std::vector<std::string> all;
        all.reserve(clips.size());
        for (const auto& clip : clips)
            all.push_back(clip.text);
        return all;
    }
    void copyText(std::string text)
    {
        pasteboard.copyText(std::move(text));
        loop.turn();
    }
    void writeOwnText(const std::string& text)
    {
        monitor.absorbOwnWrite(text);
        pasteboard.writeText(text);
    }
    /// Another program changes the preferences.
    void setFromOutside(std::string_view key, PreferenceValue value)
    {
        preferences.values.insert_or_assign(std::string(key), std::move(value));
        preferences.changed();
    }

    ManualLoop loop;
    FakePasteboard pasteboard { loop };
    FakeWorkspace workspace;
    MemoryPreferences preferences;
    ClipboardMonitor monitor { pasteboard, workspace, preferences, loop };
    std::vector<ClipItem> clips;
};

} // namespace korvane::test
