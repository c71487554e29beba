#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// What the project's server tells of the newest release.
struct VersionDocument {
    /// Dotted numbers.
    std::string version;
    /// Where the release can be downloaded; empty where that is not told.
    std::string url;
    /// What is new in it; may be empty.
    std::string notes;
};

/// Reads the document: a JSON object (RFC 8259) whose "version" is a text. Without "url" and "notes", or
/// where they are anything but texts, it tells of the version alone. Other members are for later programs,
/// and passed over; a member that occurs twice counts as it stands last. None: it is anything else.
std::optional<VersionDocument> parseVersionDocument(std::string_view json);

} // namespace korvane
