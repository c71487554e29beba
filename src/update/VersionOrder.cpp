#include "update/VersionOrder.h"

#include <algorithm>

namespace korvane {

namespace {

    constexpr std::string_view digits = "0123456789";

    /// Takes the number off the front, and gives it without the zeros that it begins with. Empty:
    /// it is nothing but zeros.
    std::string_view takeNumber(std::string_view& text)
    {
        const auto end = std::min(text.find_first_not_of(digits), text.size());
        auto number = text.substr(0, end);
        text.remove_prefix(end);
        number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
        return number;
    }

    bool beginsWithDigit(std::string_view text)
    {
        return digits.find(text.front()) != std::string_view::npos;
    }

    std::weak_ordering compareNumbers(std::string_view a, std::string_view b)
    {
        return a.size() != b.size() ? a.size() <=> b.size() : a <=> b;
    }

} // namespace

std::weak_ordering compareVersions(std::string_view a, std::string_view b)
{
    while (!a.empty() && !b.empty()) {
        if (beginsWithDigit(a) && beginsWithDigit(b)) {
            const auto number = takeNumber(a);
            const auto order = compareNumbers(number, takeNumber(b));
            if (std::is_neq(order))
                return order;
            continue;
        }
        // The bytes of UTF-8 are in the order of the code points.
        const auto order
            = static_cast<unsigned char>(a.front()) <=> static_cast<unsigned char>(b.front());
        if (std::is_neq(order))
            return order;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.size() <=> b.size();
}

} // namespace korvane
