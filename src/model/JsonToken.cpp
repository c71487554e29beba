#include "model/JsonToken.h"

#include <algorithm>
#include <charconv>

namespace korvane {

namespace {

    /// Takes the digits off the front; false when there is none.
    bool takeDigits(std::string_view& text)
    {
        const auto end = std::min(text.find_first_not_of("0123456789"), text.size());
        text.remove_prefix(end);
        return end > 0;
    }

    /// Takes the character off the front, if it is one of these.
    bool take(std::string_view& text, std::string_view oneOf)
    {
        if (text.empty() || oneOf.find(text.front()) == std::string_view::npos)
            return false;
        text.remove_prefix(1);
        return true;
    }

    /// Takes sign and digits off the front; a zero before other digits is not JSON.
    bool takeInteger(std::string_view& text)
    {
        take(text, "-");
        return take(text, "0") || takeDigits(text);
    }

    bool isNumber(std::string_view text)
    {
        if (!takeInteger(text) || (take(text, ".") && !takeDigits(text)))
            return false;
        if (take(text, "eE")) {
            take(text, "+-");
            if (!takeDigits(text))
                return false;
        }
        return text.empty();
    }

} // namespace

std::string_view bareToken(std::string_view token)
{
    const auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    while (!token.empty() && isSpace(token.back()))
        token.remove_suffix(1);
    return token;
}

std::optional<std::int64_t> jsonInteger(std::string_view token)
{
    token = bareToken(token);
    auto rest = token;
    std::int64_t value = 0;
    if (!takeInteger(rest) || !rest.empty())
        return std::nullopt;
    const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), value);
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<bool> jsonBoolean(std::string_view token)
{
    token = bareToken(token);
    if (token == "true")
        return true;
    return token == "false" ? std::optional(false) : std::nullopt;
}

bool isJsonNull(std::string_view token)
{
    return bareToken(token) == "null";
}

bool isJsonScalar(std::string_view token)
{
    return jsonBoolean(token) || isJsonNull(token) || isNumber(bareToken(token));
}

} // namespace korvane
