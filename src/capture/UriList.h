#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace korvane {

/// The paths of the local files in a "text/uri-list" (RFC 2483), in its order, as valid UTF-8 and
/// without a slash at the end. Empty when an entry is no URL at all: then the list is not one of
/// files, and whatever else was copied with it counts. URLs that name no file of this machine (web
/// addresses, files on other hosts) are passed over.
std::deque<std::string> filePathsFrom(std::string_view uriList);

} // namespace korvane
