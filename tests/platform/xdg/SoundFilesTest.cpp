// The sounds themselves, as they lie in resources/sounds.

#include "model/Preferences.h"
#include "support/SoundFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <numbers>
#include <string>
#include <vector>

namespace korvane {
namespace {

    constexpr double rate = 44100;

    std::uint32_t number(const std::string& bytes, std::size_t at, std::size_t size)
    {
        std::uint32_t value = 0;
        std::memcpy(&value, bytes.data() + at, size);
        return value;
    }

    /// Runs the samples through a filter of the second order; a[0] is 1.
    std::vector<double> filtered(const std::vector<double>& samples, const std::array<double, 3>& b,
        const std::array<double, 3>& a)
    {
        std::vector<double> result;
        std::array<double, 4> past {}; // two of what went in, two of what came out
        for (const double sample : samples) {
            const double value
                = b[0] * sample + b[1] * past[0] + b[2] * past[1] - a[1] * past[2] - a[2] * past[3];
            past = { sample, past[0], value, past[2] };
            result.push_back(value);
        }
        return result;
    }

    /// The two filters of ITU-R BS.1770-4, annex 1, brought from 48 kHz to our rate by the bilinear
    /// transform of the analogue filters that its tables were made from.
    std::vector<double> kWeighted(const std::vector<double>& samples)
    {
        const double shelf = std::tan(std::numbers::pi * 1681.974450955533 / rate);
        const double shelfQ = 0.7071752369554196;
        const double high = std::pow(10.0, 3.999843853973347 / 20);
        const double band = std::pow(high, 0.4996667741545416);
        const double shelfA0 = 1 + shelf / shelfQ + shelf * shelf;
        const auto raised = filtered(samples,
            { (high + band * shelf / shelfQ + shelf * shelf) / shelfA0,
                2 * (shelf * shelf - high) / shelfA0,
                (high - band * shelf / shelfQ + shelf * shelf) / shelfA0 },
            { 1, 2 * (shelf * shelf - 1) / shelfA0,
                (1 - shelf / shelfQ + shelf * shelf) / shelfA0 });
        const double low = std::tan(std::numbers::pi * 38.13547087602444 / rate);
        const double lowQ = 0.5003270373238773;
        const double lowA0 = 1 + low / lowQ + low * low;
        return filtered(raised, { 1, -2, 1 },
            { 1, 2 * (low * low - 1) / lowA0, (1 - low / lowQ + low * low) / lowA0 });
    }

    /// The energy of the loudest tenth of a second, in decibels: for about so long the ear adds up.
    double loudness(std::string_view name)
    {
        std::vector<double> samples;
        for (const auto sample : test::samplesOf(test::soundFile(name)))
            samples.push_back(sample / 32768.0);
        const auto weighted = kWeighted(samples);
        constexpr std::size_t window = 4410;
        double energy = 0;
        double loudest = 0;
        for (std::size_t index = 0; index < weighted.size(); ++index) {
            energy += weighted[index] * weighted[index];
            if (index >= window)
                energy -= weighted[index - window] * weighted[index - window];
            loudest = std::max(loudest, energy);
        }
        return 10 * std::log10(loudest / static_cast<double>(window));
    }

    TEST(SoundFilesTest, EverySoundNameHasAShortSoundThatDoesNotClick)
    {
        for (const auto name : soundNames) {
            const auto file = test::bytesOf(test::soundFile(name));
            const auto samples = test::samplesOf(test::soundFile(name));
            ASSERT_GT(samples.size(), 1000U) << name;

            EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8), "RIFFWAVEfmt ") << name;
            EXPECT_EQ(number(file, 20, 2), 1U) << name; // PCM
            EXPECT_EQ(number(file, 22, 2), 1U) << name; // mono
            EXPECT_EQ(number(file, 24, 4), 44100U) << name;
            EXPECT_EQ(number(file, 34, 2), 16U) << name;
            EXPECT_LT(samples.size(), 44100U * 3 / 10) << name;
            // It rises from silence and sinks to it: the edges stay below a hundredth of the full
            // scale.
            for (std::size_t index = 0; index < 8; ++index) {
                EXPECT_LT(std::abs(samples[index]), 328) << name;
                EXPECT_LT(std::abs(samples[samples.size() - 1 - index]), 328) << name;
            }
        }
    }

    TEST(SoundFilesTest, AllSoundsAreEquallyLoud)
    {
        const auto wanted = loudness("Ping");
        EXPECT_NEAR(wanted, -18, 0.5);

        for (const auto name : soundNames)
            EXPECT_NEAR(loudness(name), wanted, 0.5) << name;
    }

    TEST(SoundFilesTest, NoTwoSoundsAreAlike)
    {
        std::map<std::vector<std::int16_t>, std::string> known;
        for (const auto name : soundNames) {
            const auto [place, isNew] = known.emplace(test::samplesOf(test::soundFile(name)), name);
            EXPECT_TRUE(isNew) << name << " and " << place->second;
        }
    }

    TEST(SoundFilesTest, EveryFileIsASoundThatHasAName)
    {
        for (const auto& entry : std::filesystem::directory_iterator(test::ourSounds()))
            EXPECT_NE(std::ranges::find(soundNames, entry.path().stem().string()), soundNames.end())
                << entry.path();
    }

} // namespace
} // namespace korvane
