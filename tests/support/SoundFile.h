#pragma once

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::test {

/// The sounds of the source tree.
inline std::filesystem::path ourSounds()
{
    return std::filesystem::path(__FILE__).parent_path() / "../../resources/sounds";
}

/// The file of a sound of ours.
inline std::filesystem::path soundFile(std::string_view name)
{
    return ourSounds() / (std::string(name) + ".wav");
}

/// The bytes before the first sample of a WAV file in its canonical form.
inline constexpr std::size_t soundFileHead = 44;

inline std::string bytesOf(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return { std::istreambuf_iterator(stream), {} };
}

/// The samples of a WAV file of 16 bits in its canonical form.
inline std::vector<std::int16_t> samplesOf(const std::filesystem::path& path)
{
    const auto bytes = bytesOf(path);
    if (bytes.size() < soundFileHead)
        return {};
    // The files are little-endian, and so are the machines that we run on.
    std::vector<std::int16_t> samples((bytes.size() - soundFileHead) / 2);
    std::memcpy(samples.data(), bytes.data() + soundFileHead, samples.size() * 2);
    return samples;
}

} // namespace korvane::test
