#include "model/ClipJson.h"

#include "model/ClipKeys.h"
#include "model/Files.h"
#include "model/IsoDate.h"
#include "model/JsonToken.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <utility>

namespace korvane {

namespace {

    namespace json = simdjson::ondemand;

    /// How deep a value that is passed over may be nested.
    constexpr int deepestNesting = 512;

    /// A record that we write has at least so many bytes, so this tells how many there can be. Room
    /// that is not used stays untouched; more than this is made only when it is needed.
    constexpr std::size_t smallestRecord = 170;
    constexpr std::size_t roomForClips = 10'000;

    using enum ClipKeys::Key;
    constexpr const auto& keyNames = ClipKeys::names;
    constexpr unsigned requiredKeys
        = 1U << id | 1U << text | 1U << type | 1U << createdAt | 1U << isPinned | 1U << useCount;

    /// Which key this is, when it is written without escapes; else the number of keys. Most records
    /// were written by us, so the search begins where our order leads one to expect the key.
    std::size_t knownKey(json::raw_json_string written, std::size_t expected)
    {
        for (std::size_t i = 0; i < keyNames.size(); ++i) {
            const auto index = (expected + i) % keyNames.size();
            if (written.unsafe_is_equal(keyNames[index]))
                return index;
        }
        return keyNames.size();
    }

    /// The keys that a record has had.
    struct SeenKeys {
        unsigned known = 0;
        std::set<std::string, std::less<>> unknown;
    };

    template <typename T>
    bool assign(T& field, std::optional<T> value)
    {
        if (value)
            field = std::move(*value);
        return value.has_value();
    }

    /// A value as the parser reads it; it is strict about these, whole token and range.
    template <typename T>
    bool assign(T& field, simdjson::simdjson_result<T> value)
    {
        return std::move(value).get(field) == simdjson::SUCCESS;
    }

    bool isNull(json::value& value)
    {
        bool answer = false;
        return !value.is_null().get(answer) && answer;
    }

    /// Reads one document. The parser finds the tokens and checks the encoding of all of them; what
    /// stands inside and between them it checks only where it is asked for, so every value is
    /// visited, those that nobody needs as well.
    class Reader {
    public:
        std::optional<std::vector<ClipItem>> read(const FileBytes& document);

    private:
        bool readClip(json::object record, ClipItem& clip);
        bool readOther(
            json::raw_json_string key, json::value& value, SeenKeys& seen, ClipItem& clip);
        bool readKnown(std::size_t index, json::value& value, SeenKeys& seen, ClipItem& clip);
        bool readField(ClipKeys::Key key, json::value& value, ClipItem& clip);
        bool checkValue(json::value& value, int depth);
        bool checkArray(json::value& value, int depth);
        bool checkObject(json::value& value, int depth);

        /// A text without its escapes, until the next one is read.
        std::optional<std::string_view> unescaped(json::raw_json_string text);
        /// The text that a value is, until the next one is read.
        std::optional<std::string_view> viewed(json::value& value);
        std::optional<std::string> textOf(json::value& value);
        /// What the text that a value is stands for.
        template <typename Parse>
        auto parsed(json::value& value, Parse parse)
        {
            const auto view = viewed(value);
            return view ? parse(*view) : std::nullopt;
        }

        json::parser m_parser;
        /// Where a text loses its escapes; as large as the document, which no text outgrows.
        std::unique_ptr<std::uint8_t[]> m_scratch;
    };

    std::optional<std::vector<ClipItem>> Reader::read(const FileBytes& document)
    {
        static_assert(FileBytes::spareBytes >= simdjson::SIMDJSON_PADDING);
        const auto bytes = document.view();
        const auto roomy = bytes.size() + simdjson::SIMDJSON_PADDING;
        m_scratch = std::make_unique_for_overwrite<std::uint8_t[]>(roomy);

        json::document parsed;
        json::array list;
        if (m_parser.iterate(bytes.data(), bytes.size(), roomy).get(parsed)
            || parsed.get_array().get(list))
            return std::nullopt;
        std::vector<ClipItem> clips;
        clips.reserve(std::min(bytes.size() / smallestRecord, roomForClips));
        for (auto element : list) {
            json::object record;
            if (element.get_object().get(record) || !readClip(record, clips.emplace_back()))
                return std::nullopt;
        }
        // Something behind the array would have a place.
        if (parsed.current_location().error() != simdjson::OUT_OF_BOUNDS)
            return std::nullopt;
        return clips;
    }

    bool Reader::readClip(json::object record, ClipItem& clip)
    {
        SeenKeys seen;
        std::size_t expected = 0;
        for (auto next : record) {
            if (next.error())
                return false;
            auto&& field = std::move(next).value_unsafe(); // not copied, as there are many
            const auto index = knownKey(field.key(), expected);
            expected = index + 1;
            if (index < keyNames.size() ? !readKnown(index, field.value(), seen, clip)
                                        : !readOther(field.key(), field.value(), seen, clip))
                return false;
        }
        return (seen.known & requiredKeys) == requiredKeys;
    }

    bool Reader::readOther(
        json::raw_json_string key, json::value& value, SeenKeys& seen, ClipItem& clip)
    {
        const auto name = unescaped(key);
        if (!name)
            return false;
        // A known key may hide behind escapes.
        const auto* const found = std::find(keyNames.begin(), keyNames.end(), *name);
        if (found != keyNames.end())
            return readKnown(static_cast<std::size_t>(found - keyNames.begin()), value, seen, clip);
        return seen.unknown.emplace(*name).second && checkValue(value, 1);
    }

    bool Reader::readKnown(std::size_t index, json::value& value, SeenKeys& seen, ClipItem& clip)
    {
        const auto mark = 1U << index;
        const bool isRepeated = (seen.known & mark) != 0;
        seen.known |= mark;
        return !isRepeated && readField(static_cast<ClipKeys::Key>(index), value, clip);
    }

    bool Reader::readField(ClipKeys::Key key, json::value& value, ClipItem& clip)
    {
        switch (key) {
        case id:
            return assign(clip.id, parsed(value, ClipId::parse));
        case text:
            return assign(clip.text, textOf(value));
        case type:
            return assign(clip.type, parsed(value, clipTypeFrom));
        case createdAt:
            return assign(clip.createdAt, parsed(value, parseIsoDate));
        case isPinned:
            return assign(clip.isPinned, value.get_bool());
        case useCount:
            return assign(clip.useCount, value.get_int64());
        case sourceApp:
            return isNull(value) || assign(clip.sourceApp.emplace(), textOf(value));
        case customName:
            return isNull(value) || assign(clip.customName.emplace(), textOf(value));
        case isOverflow:
            return isNull(value) || assign(clip.isOverflow, value.get_bool());
        case overflowPath:
            return isNull(value) || assign(clip.overflowPath.emplace(), textOf(value));
        case overflowByteCount:
            return isNull(value) || assign(clip.overflowByteCount.emplace(), value.get_int64());
        case hasEmoji:
            return isNull(value) || assign(clip.hasEmoji, value.get_bool());
        }
        return false;
    }

    bool Reader::checkValue(json::value& value, int depth)
    {
        const std::string_view token = value.raw_json_token();
        if (depth > deepestNesting)
            return false;
        switch (token.front()) {
        case '[':
            return checkArray(value, depth);
        case '{':
            return checkObject(value, depth);
        case '"':
            return viewed(value).has_value();
        default:
            return isJsonScalar(token);
        }
    }

    bool Reader::checkArray(json::value& value, int depth)
    {
        json::array array;
        if (value.get_array().get(array))
            return false;
        for (auto element : array) {
            json::value inner;
            if (element.get(inner) || !checkValue(inner, depth + 1))
                return false;
        }
        return true;
    }

    bool Reader::checkObject(json::value& value, int depth)
    {
        json::object object;
        if (value.get_object().get(object))
            return false;
        for (auto field : object) {
            std::string_view key;
            json::value inner;
            if (field.unescaped_key().get(key) || field.value().get(inner)
                || !checkValue(inner, depth + 1))
                return false;
        }
        return true;
    }

    std::optional<std::string_view> Reader::viewed(json::value& value)
    {
        const auto token = value.raw_json_token();
        json::raw_json_string quoted;
        if (value.get_raw_json_string().get(quoted))
            return std::nullopt;
        if (token.find('\\') != std::string_view::npos)
            return unescaped(quoted);
        // The parser has found the closing quote; white space may follow it.
        return token.substr(1, token.rfind('"') - 1);
    }

    std::optional<std::string_view> Reader::unescaped(json::raw_json_string text)
    {
        auto* end = m_scratch.get();
        std::string_view view;
        return m_parser.unescape(text, end).get(view) ? std::nullopt : std::optional(view);
    }

    std::optional<std::string> Reader::textOf(json::value& value)
    {
        const auto view = viewed(value);
        return view ? std::optional<std::string>(*view) : std::nullopt;
    }

} // namespace

std::optional<std::vector<ClipItem>> decodeClips(const FileBytes& document)
{
    return Reader().read(document);
}

} // namespace korvane
