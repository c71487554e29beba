#include "model/JsonToken.h"

#include <algorithm>

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

bool isJsonScalar(std::string_view token)
{
    token = token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
    return token == "true" || token == "false" || token == "null" || isNumber(token);
}

} // namespace korvane
