#pragma once

#include "model/Utf8.h"

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace korvane::test {

/// Makes texts by chance, the same ones in every run.
class RandomText {
public:
    explicit RandomText(unsigned seed)
        : m_engine(seed)
    {
    }

    /// A number from 0 to `last`.
    std::size_t number(std::size_t last)
    {
        return std::uniform_int_distribution<std::size_t>(0, last)(m_engine);
    }

    /// Any Unicode scalar value; half of them from the planes' lower, more crowded end.
    char32_t codePoint()
    {
        const auto last = number(1) == 0 ? 0x3FFFU : 0x10FFFFU - 0x800U;
        const auto value = static_cast<char32_t>(number(last));
        return value < 0xD800 ? value : value + 0x800;
    }

    /// Up to `most` code points from anywhere.
    std::string fromAllPlanes(std::size_t most)
    {
        std::string text;
        for (auto left = number(most); left > 0; --left)
            appendUtf8(text, codePoint());
        return text;
    }

    /// Up to `most` of the given pieces, one after the other.
    std::string from(const std::vector<std::string>& pieces, std::size_t most)
    {
        std::string text;
        for (auto left = number(most); left > 0; --left)
            text += pieces[number(pieces.size() - 1)];
        return text;
    }

    /// Up to `most` bytes from anywhere, mostly not UTF-8.
    std::string bytes(std::size_t most)
    {
        std::string text;
        for (auto left = number(most); left > 0; --left)
            text.push_back(static_cast<char>(number(255)));
        return text;
    }

private:
    std::mt19937 m_engine;
};

} // namespace korvane::test
