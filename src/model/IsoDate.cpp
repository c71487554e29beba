#include "model/IsoDate.h"

#include <algorithm>
#include <chrono>

namespace korvane {

namespace {

    using namespace std::chrono;

    constexpr sys_seconds firstMoment = sys_days { year { 1 } / January / 1 };
    constexpr sys_seconds lastMoment = sys_days { year { 9999 } / December / 31 } + 86399s;

    void appendNumber(std::string& text, unsigned value, std::size_t width)
    {
        const auto digits = std::to_string(value);
        text.append(width - digits.size(), '0').append(digits);
    }

    // Larger than any number of four digits, and it stays so when more is added.
    constexpr unsigned notANumber = 100000;

    /// The number that stands in exactly these digits; `notANumber` or more for anything else.
    template <std::size_t width>
    unsigned number(std::string_view text, std::size_t place)
    {
        unsigned value = 0;
        for (std::size_t i = place; i < place + width; ++i) {
            const auto digit = static_cast<unsigned char>(text[i]) - unsigned { '0' };
            value = digit > 9 ? notANumber : value * 10 + digit;
        }
        return value;
    }

    std::optional<sys_days> day(std::string_view text)
    {
        const auto y = number<4>(text, 0);
        const auto m = number<2>(text, 5);
        const auto d = number<2>(text, 8);
        if (y == 0 || y > 9999 || text[4] != '-' || text[7] != '-')
            return std::nullopt;
        // A month or day out of range makes no date, however far out it is.
        const auto date = year { static_cast<int>(y) } / month { std::min(m, 99U) }
            / std::chrono::day { std::min(d, 99U) };
        return date.ok() ? std::optional<sys_days>(date) : std::nullopt;
    }

    std::optional<seconds> timeOfDay(std::string_view text)
    {
        const auto h = number<2>(text, 0);
        const auto m = number<2>(text, 3);
        const auto s = number<2>(text, 6);
        if (text[2] != ':' || text[5] != ':' || h > 23 || m > 59 || s > 59)
            return std::nullopt;
        return hours { h } + minutes { m } + seconds { s };
    }

    std::optional<seconds> offset(std::string_view text)
    {
        if (text == "Z")
            return 0s;
        if (text.size() != 6 || (text[0] != '+' && text[0] != '-') || text[3] != ':')
            return std::nullopt;
        const auto h = number<2>(text, 1);
        const auto m = number<2>(text, 4);
        if (h > 23 || m > 59)
            return std::nullopt;
        const seconds size = hours { h } + minutes { m };
        return text[0] == '+' ? size : -size;
    }

} // namespace

std::string isoDate(TimePoint moment)
{
    const auto whole = std::clamp(floor<seconds>(moment), firstMoment, lastMoment);
    const auto midnight = floor<days>(whole);
    const year_month_day date { midnight };
    const hh_mm_ss time { whole - midnight };

    std::string text;
    text.reserve(20);
    appendNumber(text, static_cast<unsigned>(static_cast<int>(date.year())), 4);
    text += '-';
    appendNumber(text, static_cast<unsigned>(date.month()), 2);
    text += '-';
    appendNumber(text, static_cast<unsigned>(date.day()), 2);
    text += 'T';
    appendNumber(text, static_cast<unsigned>(time.hours().count()), 2);
    text += ':';
    appendNumber(text, static_cast<unsigned>(time.minutes().count()), 2);
    text += ':';
    appendNumber(text, static_cast<unsigned>(time.seconds().count()), 2);
    text += 'Z';
    return text;
}

std::optional<TimePoint> parseIsoDate(std::string_view text)
{
    if (text.size() < 20 || text[10] != 'T')
        return std::nullopt;
    const auto date = day(text.substr(0, 10));
    const auto time = timeOfDay(text.substr(11, 8));
    const auto zone = offset(text.substr(19));
    if (!date || !time || !zone)
        return std::nullopt;
    const sys_seconds moment = *date + *time - *zone;
    if (moment < firstMoment || moment > lastMoment)
        return std::nullopt; // it could not be written again
    return moment;
}

} // namespace korvane
