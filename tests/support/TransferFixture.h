#pragma once

#include "support/ClipJsonText.h"
#include "support/Environment.h"
#include "support/StoreFixture.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::test {

/// A store whose exports go to a folder of the test's own, and files to import.
class TransferFixture : public StoreFixture {
public:
    TransferFixture()
        : m_environment({ { "TMPDIR", makeExports().string() } })
    {
    }

    std::filesystem::path exports() const { return temp.path() / "exports"; }

    /// A clip of that age in seconds.
    ClipItem clipOfAge(std::int64_t seconds, std::string text) const
    {
        auto clip = newClip(std::move(text));
        clip.createdAt = loop.now() - std::chrono::seconds { seconds };
        return clip;
    }
    /// Puts clips in the history, the last of them on top.
    void add(const std::vector<ClipItem>& clips)
    {
        for (const auto& clip : clips)
            store->add(clip);
    }
    using StoreFixture::add;

    std::filesystem::path fileOf(const std::vector<ClipItem>& clips) const
    {
        return fileWith(encoded(clips));
    }
    std::filesystem::path fileWith(std::string_view bytes) const
    {
        auto file = temp.path() / "import.json";
        writeBytes(file, bytes);
        return file;
    }
    void take(const std::vector<ClipItem>& clips) { store->importHistory(fileOf(clips)); }

private:
    std::filesystem::path makeExports() const
    {
        std::filesystem::create_directory(exports());
        return exports();
    }

    Environment m_environment;
};

} // namespace korvane::test
