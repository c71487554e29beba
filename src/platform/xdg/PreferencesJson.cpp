#include "platform/xdg/PreferencesJson.h"

#include "model/JsonToken.h"

#include <simdjson.h>

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace korvane {

namespace {
    namespace ondemand = simdjson::ondemand;

    /// Each of these puts a value into `stored` and says whether there was one: false means that
    /// the text is not JSON.
    template <typename T, typename Source>
    bool take(simdjson::simdjson_result<Source> result, StoredPreference& stored)
    {
        if (result.error())
            return false;
        stored.value.emplace(std::in_place_type<T>, std::move(result).value_unsafe());
        return true;
    }

    bool takeNumber(ondemand::value value, StoredPreference& stored)
    {
        auto token = value.raw_json_token();
        token = token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
        const auto isReal = token.find_first_of(".eE") != std::string_view::npos;
        if (!isReal && take<std::int64_t>(value.get_int64(), stored))
            return true;
        // Also what is too large for an integer.
        if (take<double>(value.get_double(), stored))
            return true;
        // What is too large for any number of ours is still a number.
        stored.foreignJson = token;
        return isJsonScalar(token);
    }

    bool isListOfTexts(simdjson::dom::element element, std::vector<std::string>& texts)
    {
        simdjson::dom::array array;
        if (element.get(array) != simdjson::SUCCESS)
            return false;
        for (const auto item : array) {
            std::string_view text;
            if (item.get(text) != simdjson::SUCCESS)
                return false;
            texts.emplace_back(text);
        }
        return true;
    }

    /// A list of texts, or a value that we keep without understanding it. The text is parsed anew
    /// by itself, because reading on demand would pass over what is wrong deep inside of it.
    bool takeNested(std::string_view json, StoredPreference& stored)
    {
        simdjson::dom::parser parser;
        simdjson::dom::element element;
        if (parser.parse(json).get(element) != simdjson::SUCCESS)
            return false;
        std::vector<std::string> texts;
        if (isListOfTexts(element, texts))
            stored.value.emplace(std::in_place_type<std::vector<std::string>>, std::move(texts));
        else
            stored.foreignJson = json;
        return true;
    }

    template <typename Nested>
    bool takeNested(simdjson::simdjson_result<Nested> nested, StoredPreference& stored)
    {
        std::string_view json;
        if (nested.error() || nested.value_unsafe().raw_json().get(json) != simdjson::SUCCESS)
            return false;
        while (!json.empty() && json.back() != ']' && json.back() != '}')
            json.remove_suffix(1); // the blanks that follow
        return takeNested(json, stored);
    }

    bool takeValue(ondemand::value value, StoredPreference& stored)
    {
        ondemand::json_type type {};
        if (value.type().get(type) != simdjson::SUCCESS)
            return false;
        switch (type) {
        case ondemand::json_type::boolean:
            return take<bool>(value.get_bool(), stored);
        case ondemand::json_type::number:
            return takeNumber(value, stored);
        case ondemand::json_type::string:
            return take<std::string>(value.get_string(), stored);
        case ondemand::json_type::array:
            return takeNested(value.get_array(), stored);
        case ondemand::json_type::object:
            return takeNested(value.get_object(), stored);
        case ondemand::json_type::null:
            break;
        }
        stored.foreignJson = "null";
        bool isNull = false;
        return value.is_null().get(isNull) == simdjson::SUCCESS && isNull;
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
        std::string name(key); // a copy, as the value is read into the same memory
        table.erase(name);     // the last one counts
        if (field.value().get(value) != simdjson::SUCCESS
            || !takeValue(value, table[std::move(name)]))
            return std::nullopt;
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
