#include "benches/Ratio.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace korvane::bench {

namespace {

    std::string inWords(Seconds time)
    {
        char text[32];
        const double ms = time.count() * 1000;
        if (ms >= 0.1)
            std::snprintf(text, sizeof text, "%.2f ms", ms);
        else
            std::snprintf(text, sizeof text, "%.2f µs", ms * 1000);
        return text;
    }

    std::string inWords(double number)
    {
        char text[32];
        std::snprintf(text, sizeof text, "%.2f", number);
        return text;
    }

} // namespace

void Report::ratio(std::string_view what, Seconds ours, Seconds limit, double atMost)
{
    const double times = ours / limit;
    row(what,
        inWords(times) + " times (" + inWords(ours) + " / " + inWords(limit) + "), at most "
            + inWords(atMost),
        times <= atMost);
}

void Report::absolute(std::string_view what, Seconds ours, Seconds atMost)
{
    row(what, inWords(ours) + ", at most " + inWords(atMost), ours <= atMost);
}

void Report::row(std::string_view what, const std::string& figures, bool isWithin)
{
    std::printf("%s  %-62.*s %s\n", isWithin ? "ok  " : "OVER", static_cast<int>(what.size()),
        what.data(), figures.c_str());
    std::fflush(stdout);
    m_allWithin = m_allWithin && isWithin;
}

} // namespace korvane::bench

int main(int argc, char** argv)
{
    using namespace korvane::bench;
    if (argc == 3)
        return loadInThisProcess(argv[1], argv[2]);

    Report report;
    benchSearch(report);
    benchSave(report);
    benchTransfer(report);
    benchLoad(report, argv[0]);
    benchClassifier(report);
    benchPreview(report);
    return report.allWithin() ? EXIT_SUCCESS : EXIT_FAILURE;
}
