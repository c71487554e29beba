#include "benches/History.h"
#include "benches/Ratio.h"
#include "model/FilteredClips.h"
#include "model/SearchKeys.h"
#include "model/SearchText.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

namespace korvane::bench {

namespace {

    std::uint64_t readEveryByte(std::string_view text)
    {
        std::uint64_t sum = 0;
        std::size_t at = 0;
        for (; at + sizeof(std::uint64_t) <= text.size(); at += sizeof(std::uint64_t)) {
            std::uint64_t word = 0;
            std::memcpy(&word, text.data() + at, sizeof word);
            sum ^= word;
        }
        for (; at < text.size(); ++at)
            sum += static_cast<unsigned char>(text[at]);
        return sum;
    }

    /// The limit: no search can do without looking at each byte that it searches.
    void readHistory(const ClipStore& store)
    {
        std::uint64_t sum = 0;
        for (const auto& clip : store.clips()) {
            sum += readEveryByte(clip.text);
            sum += readEveryByte(clip.sourceApp.value_or(""));
        }
        keep(sum);
    }

    void benchHistory(Report& report, const std::string& name, int count, std::size_t bytes)
    {
        const HistoryOf history(count, bytes);
        const auto& clips = history.store.clips();
        SearchKeys keys(currentLocaleId());
        keys.reset(clips.size());
        keys.makeAll(clips); // as the loop would have
        FilteredClips filtered;
        const std::pair<const char*, std::string> needles[]
            = { { "rare", "Clip 7\n" }, { "absent", "zyzzyva" }, { "common letter", "e" },
                  { "common letters, absent", "eeeee" }, { "non-ASCII", "图纸带" },
                  { "non-ASCII, absent", "ÉÈÊ" } };
        for (const auto& [kind, needle] : needles) {
            const auto [ours, limit] = compare(
                21,
                [&, &needle = needle] {
                    filtered.forget();
                    keep(filtered.of(clips, keys, FilterTab::all, needle));
                },
                [&] { readHistory(history.store); });
            report.ratio("search " + name + ", " + kind, ours, limit, 5);
        }
    }

} // namespace

void benchSearch(Report& report)
{
    benchHistory(report, "500 clips of 64 KiB", 500, 65536);
    benchHistory(report, "9,999 clips of 200 bytes", 9999, 200);
}

} // namespace korvane::bench
