#pragma once

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::bench {

using Seconds = std::chrono::duration<double>;

/// Keeps the compiler from dropping a result that nobody reads.
template <typename T>
void keep(const T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

template <typename Work>
Seconds timeOf(Work&& work)
{
    const auto start = std::chrono::steady_clock::now();
    std::forward<Work>(work)();
    return std::chrono::steady_clock::now() - start;
}

/// The middle one of several measurements: one that was disturbed does not count.
inline Seconds median(std::vector<Seconds> times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// Times both in turn, so that whatever else the machine does meets both alike.
template <typename Ours, typename Limit>
std::pair<Seconds, Seconds> compare(int rounds, Ours&& ours, Limit&& limit)
{
    std::vector<Seconds> oursTimes;
    std::vector<Seconds> limitTimes;
    for (int round = 0; round < rounds; ++round) {
        limitTimes.push_back(timeOf(limit));
        oursTimes.push_back(timeOf(ours));
    }
    return { median(oursTimes), median(limitTimes) };
}

/// Prints one row: what was measured, against what, their ratio, and the most that it may be.
/// Remembers whether any row was above its most.
class Report {
public:
    void ratio(std::string_view what, Seconds ours, Seconds limit, double atMost);
    void absolute(std::string_view what, Seconds ours, Seconds atMost);
    bool allWithin() const { return m_allWithin; }

private:
    void row(std::string_view what, const std::string& figures, bool isWithin);

    bool m_allWithin = true;
};

// The benches, each in a file of its own.
void benchSearch(Report& report);
void benchSave(Report& report);
void benchTransfer(Report& report);
void benchLoad(Report& report, const std::string& ownProgram);
void benchClassifier(Report& report);
void benchPreview(Report& report);

/// What the fresh process of `benchLoad` does: loads, or merely reads, the history in the folder,
/// and prints the seconds that it took.
int loadInThisProcess(const std::string& what, const std::string& folder);

} // namespace korvane::bench
