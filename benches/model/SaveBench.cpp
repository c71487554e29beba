#include "benches/History.h"
#include "benches/Ratio.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace korvane::bench {

namespace {

    std::string contentsOf(const std::filesystem::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return { std::istreambuf_iterator<char>(stream), {} };
    }

    /// The limit: the same bytes to a file beside, synced, and put in place.
    void saveRaw(const std::filesystem::path& folder, const std::string& bytes)
    {
        const auto file = folder / "raw.json";
        const auto beside = folder / "raw.json.new";
        const int descriptor
            = ::open(beside.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0600);
        std::size_t written = 0;
        while (written < bytes.size()) {
            const auto count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
            if (count <= 0)
                return;
            written += static_cast<std::size_t>(count);
        }
        ::fdatasync(descriptor);
        ::close(descriptor);
        std::rename(beside.c_str(), file.c_str());
    }

    void benchHistory(Report& report, const std::string& name, int count, std::size_t bytes)
    {
        HistoryOf history(count, bytes);
        int number = 0;
        history.store.add({ ClipId::random(), "first", ClipType::plainText });
        const std::string saved = contentsOf(history.store.fileURL());
        const auto [ours, limit] = compare(
            15,
            [&] {
                ClipItem clip;
                clip.id = ClipId::random();
                clip.text = "copy " + std::to_string(++number);
                history.store.add(std::move(clip));
            },
            [&] { saveRaw(history.folder, saved); });
        report.ratio("save after one copy, " + name, ours, limit, 2);
    }

} // namespace

void benchSave(Report& report)
{
    benchHistory(report, "500 clips of 64 KiB", 500, 65536);
    benchHistory(report, "9,999 clips of 200 bytes", 9999, 200);
}

} // namespace korvane::bench
