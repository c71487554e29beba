#pragma once

#include "capture/ClipboardMonitor.h"
#include "model/ClipStore.h"
#include "model/Preferences.h"
#include "panel/PanelController.h"
#include "panel/TabSwitcher.h"
#include "support/FakeClipActions.h"
#include "support/FakePanelHost.h"
#include "support/FakePasteboard.h"
#include "support/FakeWorkspace.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"
#include "support/RecordingLog.h"
#include "support/TempFolder.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::test {

/// A panel's logic over a real history in a folder of its own.
struct PanelFixture {
    using Texts = std::vector<std::string>;

    ClipId add(std::string text, ClipType type = ClipType::plainText)
    {
        ClipItem clip;
        clip.id = ClipId::random();
        clip.text = std::move(text);
        clip.type = type;
        clip.createdAt = loop.now();
        store.add(clip);
        return clip.id;
    }
    /// Makes a history that is displayed in this order.
    void fill(const Texts& texts)
    {
        for (auto text = texts.rbegin(); text != texts.rend(); ++text)
            add(*text);
    }
    ClipId addLarge(char letter)
    {
        return add(std::string(static_cast<std::size_t>(store.maxClipSizeKB()) * 1024 + 1, letter));
    }

    ClipId idAt(std::size_t index) const { return store.filteredClips()[index]->id; }
    Texts displayed() const
    {
        Texts texts;
        for (const auto* clip : store.filteredClips())
            texts.push_back(clip->text);
        return texts;
    }
    void selectAt(std::size_t index) { store.panel().selectedClipID.set(idAt(index)); }
    /// The text of the selected clip, or "none".
    std::string selected() const
    {
        const auto& id = store.panel().selectedClipID.value();
        const ClipItem* const clip = id ? store.find(*id) : nullptr;
        return clip ? clip->text : "none";
    }

    bool press(KeyCode keyCode, ModifierMask mask = 0)
    {
        return controller.handle({ keyCode, mask, "" });
    }
    bool type(std::string characters, ModifierMask mask = 0)
    {
        constexpr KeyCode someKey = 0;
        return controller.handle({ someKey, mask, std::move(characters) });
    }

    TempFolder folder;
    ManualLoop loop;
    MemoryPreferences preferences;
    RecordingLog log;
    ClipStore store { folder.path() / "data", preferences, loop, log };
    FakePasteboard pasteboard { loop };
    FakeWorkspace workspace;
    ClipboardMonitor monitor { pasteboard, workspace, preferences, loop };
    FakePanelHost host;
    FakeClipActions actions;
    TabSwitcher tabs { store, loop };
    PanelController controller { store, monitor, preferences, host, actions, tabs };
};

} // namespace korvane::test
