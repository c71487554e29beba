#include "benches/History.h"
#include "benches/Ratio.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace korvane::bench {

namespace {

    /// The limit: the whole file into memory that no one has touched yet.
    void readFile(const std::filesystem::path& file)
    {
        const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat status { };
        if (descriptor < 0 || ::fstat(descriptor, &status) != 0)
            std::abort();
        const auto size = static_cast<std::size_t>(status.st_size);
        const std::unique_ptr<char[]> memory(new char[size]);
        std::size_t got = 0;
        while (got < size) {
            const auto count = ::read(descriptor, memory.get() + got, size - got);
            if (count <= 0)
                std::abort();
            got += static_cast<std::size_t>(count);
        }
        keep(memory.get());
        ::close(descriptor);
    }

    /// Starts this program once more and takes the seconds that it prints.
    Seconds inFreshProcess(
        const std::string& program, const std::string& what, const std::string& folder)
    {
        const std::string command = "'" + program + "' " + what + " '" + folder + "'";
        const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
        double seconds = 0;
        if (!pipe || std::fscanf(pipe.get(), "%lf", &seconds) != 1)
            std::abort();
        return Seconds(seconds);
    }

    void benchHistory(Report& report, const std::string& program, const std::string& name,
        int count, std::size_t bytes)
    {
        const HistoryOf history(count, bytes);
        std::vector<Seconds> ours;
        std::vector<Seconds> limit;
        for (int round = 0; round < 11; ++round) {
            limit.push_back(inFreshProcess(program, "read", history.folder.string()));
            ours.push_back(inFreshProcess(program, "load", history.folder.string()));
        }
        report.ratio("load, " + name, median(ours), median(limit), 5);
    }

} // namespace

int loadInThisProcess(const std::string& what, const std::string& folder)
{
    Seconds time {};
    if (what == "read") {
        time = timeOf([&] { readFile(std::filesystem::path(folder) / "clips.json"); });
    } else {
        test::ManualLoop loop;
        test::MemoryPreferences preferences;
        test::RecordingLog log;
        std::unique_ptr<ClipStore> store;
        time = timeOf([&] { store = std::make_unique<ClipStore>(folder, preferences, loop, log); });
        if (store->clips().empty())
            return EXIT_FAILURE;
    }
    std::printf("%.9f\n", time.count());
    return EXIT_SUCCESS;
}

void benchLoad(Report& report, const std::string& ownProgram)
{
    benchHistory(report, ownProgram, "500 clips of 64 KiB", 500, 65536);
    benchHistory(report, ownProgram, "9,999 clips of 200 bytes", 9999, 200);
}

} // namespace korvane::bench
