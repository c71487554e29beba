#include "benches/History.h"
#include "benches/Ratio.h"
#include "model/Text.h"

namespace korvane::bench {

using namespace std::chrono_literals;

void benchPreview(Report& report)
{
    const std::string small = prose(10'000);
    const std::string large = prose(100'000'000);
    const auto [ours, limit] = compare(
        51, [&] { keep(overflowPreview(large, 30, 4096)); },
        [&] { keep(overflowPreview(small, 30, 4096)); });
    report.ratio("overflowPreview of 100 MB, against 10 KB", ours, limit, 1.5);

    std::string cluster = "e";
    while (cluster.size() < 10'000'000)
        cluster += "\u0301";
    const auto [one, ignored] = compare(
        51, [&] { keep(overflowPreview(cluster, 30, 4096)); },
        [&] { keep(overflowPreview(small, 30, 4096)); });
    static_cast<void>(ignored);
    report.absolute("overflowPreview of one character of 10 MB", one, Seconds(100us));
}

} // namespace korvane::bench
