#include "platform/xdg/PreferencesJson.h"

#include <simdjson.h>

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace korvane {

namespace {
    namespace ondemand = simdjson::ondemand;

    using Parsed = std::optional<StoredPreference>; // none: not JSON

    template <typename T, typename Source = T>
    Parsed typed(simdjson::simdjson_result<Source> result)
    {
        if (result.error())
            return std::nullopt;
        return StoredPreference { PreferenceValue(T(std::move(result).value_unsafe())), {} };
    }

    Parsed parseNumber(ondemand::value value)
    {
        if (value.raw_json_token().find_first_of(".eE") != std::string_view::npos)
            return typed<double>(value.get_double());
        if (auto integer = typed<std::int64_t>(value.get_int64()))
            return integer;
        // Too large for an integer, or no number at all: the reader of reals tells which.
        return typed<double>(value.get_double());
    }

    /// A list of texts, or a value that we keep without understanding it. The text is parsed anew
    /// by itself, because reading on demand would pass over what is wrong deep inside of it.
    Parsed parseNested(std::string_view json)
    {
        simdjson::dom::parser parser;
        simdjson::dom::element element;
        if (parser.parse(json).get(element) != simdjson::SUCCESS)
            return std::nullopt;
        StoredPreference foreign { std::nullopt, std::string(json) };
        simdjson::dom::array array;
        if (element.get(array) != simdjson::SUCCESS)
            return foreign;
        std::vector<std::string> texts;
        for (const auto item : array) {
            std::string_view text;
            if (item.get(text) != simdjson::SUCCESS)
                return foreign;
            texts.emplace_back(text);
        }
        return StoredPreference { PreferenceValue(std::move(texts)), {} };
    }

    template <typename Nested>
    Parsed parseNested(simdjson::simdjson_result<Nested> nested)
    {
        std::string_view json;
        if (nested.error() || nested.value_unsafe().raw_json().get(json) != simdjson::SUCCESS)
            return std::nullopt;
        while (!json.empty() && json.back() != ']' && json.back() != '}')
            json.remove_suffix(1); // the blanks that follow
        return parseNested(json);
    }

    Parsed parseValue(ondemand::value value)
    {
        ondemand::json_type type {};
        if (value.type().get(type) != simdjson::SUCCESS)
            return std::nullopt;
        switch (type) {
        case ondemand::json_type::boolean:
            return typed<bool>(value.get_bool());
        case ondemand::json_type::number:
            return parseNumber(value);
        case ondemand::json_type::string:
            return typed<std::string>(value.get_string());
        case ondemand::json_type::array:
            return parseNested(value.get_array());
        case ondemand::json_type::object:
            return parseNested(value.get_object());
        case ondemand::json_type::null:
            break;
        }
        if (bool isNull = false; value.is_null().get(isNull) != simdjson::SUCCESS || !isNull)
            return std::nullopt;
        return StoredPreference { std::nullopt, "null" };
    }

    void printText(std::string& json, std::string_view text)
    {
        static constexpr std::string_view hexDigits = "0123456789abcdef";
        // A text that is not UTF-8 would make the whole file unreadable, the other keys with it.
        const auto isValid = simdjson::validate_utf8(text);
        json += '"';
        for (const char character : text) {
            const auto code = static_cast<unsigned char>(character);
            if (character == '"' || character == '\\')
                (json += '\\') += character;
            else if (code < 0x20)
                ((json += "\\u00") += hexDigits[code >> 4U]) += hexDigits[code & 15U];
            else if (code >= 0x80 && !isValid)
                json += "\uFFFD";
            else
                json += character;
        }
        json += '"';
    }

    template <typename Number>
    std::string shortest(Number number)
    {
        std::array<char, 32> digits {};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        return { digits.data(), end };
    }

    /// Writes one value.
    struct Printer {
        std::string& json;

        void operator()(bool value) const { json += value ? "true" : "false"; }
        void operator()(std::int64_t value) const { json += shortest(value); }
        void operator()(double value) const
        {
            // JSON has no word for what is not a finite number.
            const auto text = std::isfinite(value) ? shortest(value) : "null";
            json += text;
            if (text.find_first_of(".en") == std::string::npos)
                json += ".0"; // so that it is a real when it is read again
        }
        void operator()(const std::string& value) const { printText(json, value); }
        void operator()(const std::vector<std::string>& value) const
        {
            json += '[';
            std::string_view separator = "\n    ";
            for (const auto& text : value) {
                json += std::exchange(separator, ",\n    ");
                printText(json, text);
            }
            json += value.empty() ? "]" : "\n  ]";
        }
    };
} // namespace

std::optional<PreferencesTable> parsePreferences(std::string_view json)
{
    const simdjson::padded_string padded(json);
    ondemand::parser parser;
    ondemand::document document;
    ondemand::object object;
    if (parser.iterate(padded).get(document) != simdjson::SUCCESS
        || document.get_object().get(object) != simdjson::SUCCESS)
        return std::nullopt;
    PreferencesTable table;
    for (auto field : object) {
        std::string_view key;
        ondemand::value value;
        if (field.unescaped_key().get(key) != simdjson::SUCCESS)
            return std::nullopt;
        std::string name(key);
        if (field.value().get(value) != simdjson::SUCCESS)
            return std::nullopt;
        auto parsed = parseValue(value);
        if (!parsed)
            return std::nullopt;
        table.insert_or_assign(std::move(name), std::move(*parsed));
    }
    // Nothing may follow: then there is no place left to tell of.
    if (document.current_location().error() != simdjson::OUT_OF_BOUNDS)
        return std::nullopt;
    return table;
}

std::string printPreferences(const PreferencesTable& table)
{
    std::string json = "{";
    std::string_view separator = "\n  ";
    for (const auto& [key, stored] : table) {
        json += std::exchange(separator, ",\n  ");
        printText(json, key);
        json += ": ";
        if (stored.value)
            std::visit(Printer { json }, *stored.value);
        else
            json += stored.foreignJson;
    }
    json += table.empty() ? "}\n" : "\n}\n";
    return json;
}

} // namespace korvane
