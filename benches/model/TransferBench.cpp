#include "benches/History.h"
#include "benches/Ratio.h"
#include "model/Files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::bench {

namespace {

    namespace fs = std::filesystem;

    // The most that a user has: 9,999 clips, 100 MB.
    constexpr int clipCount = 9999;
    constexpr std::size_t clipBytes = 10'000;

    std::string bytesOf(const fs::path& file)
    {
        auto bytes = readFileText(file, Links::follow);
        if (!bytes)
            std::abort();
        return std::move(*bytes);
    }

    /// The limit of an export: the same bytes to a new file.
    void writeRaw(const fs::path& file, std::string_view bytes)
    {
        ::unlink(file.c_str());
        const Descriptor out(::open(file.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600));
        while (!bytes.empty()) {
            const auto count = ::write(out.number(), bytes.data(), bytes.size());
            if (count <= 0)
                std::abort();
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    /// The limit of an import: the file is read, and the history, which is to be on the disk when the
    /// import returns, is written.
    void readAndSaveRaw(const fs::path& file, const fs::path& target, std::string_view history)
    {
        const auto read = readFile(file, Links::follow);
        if (!read)
            std::abort();
        keep(*read);
        AtomicFile out(target);
        out.write(history);
        if (out.commit())
            std::abort();
    }

    /// A store without a clip, as a new user has it.
    struct EmptyStore {
        EmptyStore() { store.setMaxClips(clipCount); }

        test::TempFolder temp;
        test::ManualLoop loop;
        test::MemoryPreferences preferences;
        test::RecordingLog log;
        ClipStore store { temp.path() / "com.VNT.Korvane", preferences, loop, log };
    };

    void benchExport(Report& report, const HistoryOf& history)
    {
        const auto exported = history.store.exportHistory();
        const auto bytes = bytesOf(exported);
        const auto raw = history.temp.path() / "raw.json";
        const auto [ours, limit] = compare(
            9, [&] { history.store.exportHistory(); }, [&] { writeRaw(raw, bytes); });
        report.ratio("export, 9,999 clips, 100 MB", ours, limit, 5);
        fs::remove(exported);
    }

    void benchImport(Report& report, const HistoryOf& history)
    {
        const auto exported = history.store.exportHistory();
        const auto saved = bytesOf(history.store.fileURL());
        std::unique_ptr<EmptyStore> target;
        std::vector<Seconds> ours;
        std::vector<Seconds> limit;
        for (int round = 0; round < 7; ++round) {
            target = std::make_unique<EmptyStore>();
            limit.push_back(
                timeOf([&] { readAndSaveRaw(exported, history.temp.path() / "raw.json", saved); }));
            ours.push_back(timeOf([&] { target->store.importHistory(exported); }));
            if (target->store.clips().size() != clipCount)
                std::abort();
        }
        report.ratio("import, 9,999 clips, 100 MB", median(ours), median(limit), 4);
        fs::remove(exported);
    }

} // namespace

void benchTransfer(Report& report)
{
    const HistoryOf history(clipCount, clipBytes);
    benchExport(report, history);
    benchImport(report, history);
}

} // namespace korvane::bench
