#pragma once

#include "model/ClipStore.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"
#include "support/RecordingLog.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::test {

inline std::string readBytes(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return { std::istreambuf_iterator<char>(stream), {} };
}

inline void writeBytes(const std::filesystem::path& file, std::string_view bytes)
{
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// A new clip of its own identity.
inline ClipItem newClip(std::string text, ClipType type = ClipType::plainText)
{
    ClipItem clip;
    clip.id = ClipId::random();
    clip.text = std::move(text);
    clip.type = type;
    return clip;
}

/// A real store on a real folder, with time that is moved by hand.
class StoreFixture {
public:
    StoreFixture() { open(); }

    /// Makes the store, or a new one in the place of the old, as after a restart.
    ClipStore& open()
    {
        store.reset();
        store = std::make_unique<ClipStore>(folder(), preferences, loop, log);
        return *store;
    }
    std::filesystem::path folder() const { return temp.path() / "com.VNT.Korvane"; }
    std::string fileBytes() const { return readBytes(folder() / "clips.json"); }

    ClipId add(std::string text, ClipType type = ClipType::plainText)
    {
        auto clip = newClip(std::move(text), type);
        const auto id = clip.id;
        store->add(std::move(clip));
        return id;
    }
    ClipId addPinned(std::string text)
    {
        const auto id = add(std::move(text));
        store->togglePin(id);
        return id;
    }
    std::vector<std::string> texts() const { return textsOf(*store); }
    static std::vector<std::string> textsOf(const ClipStore& store)
    {
        std::vector<std::string> texts;
        for (const auto& clip : store.clips())
            texts.push_back(clip.text);
        return texts;
    }
    /// The texts that the panel would show.
    std::vector<std::string> shown() const
    {
        std::vector<std::string> texts;
        for (const auto* clip : store->filteredClips())
            texts.push_back(clip->text);
        return texts;
    }
    void search(std::string text) { store->panel().panelSearch.set(std::move(text)); }

    TempFolder temp;
    ManualLoop loop;
    MemoryPreferences preferences;
    RecordingLog log;
    std::unique_ptr<ClipStore> store;
};

} // namespace korvane::test
