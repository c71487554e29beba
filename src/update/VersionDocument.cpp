#include "update/VersionDocument.h"

#include <simdjson.h>

#include <utility>

namespace korvane {

namespace {

    /// Longer ones would be no version, and no window would have room for them.
    constexpr std::size_t longestVersion = 64;

    /// None where it is no text.
    std::optional<std::string> textOf(simdjson::dom::element value)
    {
        std::string_view view;
        if (value.get(view) != simdjson::SUCCESS)
            return std::nullopt;
        return std::string(view);
    }

} // namespace

std::optional<VersionDocument> parseVersionDocument(std::string_view json)
{
    // The whole of it is checked before the first member is looked at.
    simdjson::dom::parser parser;
    simdjson::dom::object object;
    if (parser.parse(json.data(), json.size()).get(object) != simdjson::SUCCESS)
        return std::nullopt;
    std::optional<std::string> version;
    VersionDocument document;
    for (const auto& [key, value] : object) {
        if (key == "version")
            version = textOf(value);
        else if (key == "url")
            document.url = textOf(value).value_or(std::string());
        else if (key == "notes")
            document.notes = textOf(value).value_or(std::string());
    }
    if (!version || version->size() > longestVersion)
        return std::nullopt;
    document.version = std::move(*version);
    return document;
}

} // namespace korvane
