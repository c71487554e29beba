#include "model/Classifier.h"

#include "benches/History.h"
#include "benches/Ratio.h"

#include <cstdlib>

namespace korvane::bench {

void benchClassifier(Report& report)
{
    const std::string text = prose(10'000'000);
    if (classifyContent(text) != ClipType::plainText || containsEmoji(text))
        std::abort(); // the prose must be read to its end by every test
    const auto onePass = [&] {
        unsigned sum = 0;
        for (const char byte : text)
            sum += static_cast<unsigned char>(byte);
        keep(sum);
    };

    const auto [classify, pass] = compare(
        11, [&] { keep(classifyContent(text)); }, onePass);
    report.ratio("classify 10 MB of prose", classify, pass, 60);
    const auto [emoji, passAgain] = compare(
        11, [&] { keep(containsEmoji(text)); }, onePass);
    report.ratio("containsEmoji of 10 MB of prose", emoji, passAgain, 10);
}

} // namespace korvane::bench
