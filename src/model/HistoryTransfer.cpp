#include "model/HistoryTransfer.h"

#include "model/ClipJson.h"
#include "model/Files.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace korvane {

namespace {

    std::filesystem::path temporaryFolder()
    {
        std::error_code error;
        auto folder = std::filesystem::temp_directory_path(error);
        return error ? "/tmp" : folder; // one that is named wrongly is as if it were not named
    }

    std::string nameAt(TimePoint now)
    {
        // Cut toward zero, as a number is.
        const auto time = std::chrono::duration_cast<std::chrono::seconds>(now.time_since_epoch());
        return "Korvane_export_" + std::to_string(time.count()) + ".json";
    }

} // namespace

std::filesystem::path exportClips(std::span<const ClipItem> clips, TimePoint now)
{
    auto file = temporaryFolder() / nameAt(now);
    // An export of this very second makes room for the new one. The folder belongs to everybody, and
    // the name can be guessed: what another user has laid there is not written to.
    ::unlink(file.c_str());
    NewFile out(file);
    encodeClips(
        clips, [&](std::string_view block) { out.write(block); }, JsonLayout::pretty);
    out.complete();
    return file;
}

std::vector<ClipItem> mergedClips(std::vector<ClipItem> history, std::vector<ClipItem> imported)
{
    std::unordered_set<ClipId> known;
    known.reserve(history.size());
    for (const auto& clip : history)
        known.insert(clip.id);
    // What comes in does not become known, deliberately.
    std::copy_if(std::move_iterator(imported.begin()), std::move_iterator(imported.end()),
        std::back_inserter(history),
        [&](const ClipItem& clip) { return !known.contains(clip.id); });
    std::stable_sort(history.begin(), history.end(),
        [](const ClipItem& a, const ClipItem& b) { return a.createdAt > b.createdAt; });
    return history;
}

} // namespace korvane
