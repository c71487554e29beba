#pragma once

#include "model/Files.h"

#include <filesystem>

namespace korvane {

/// Listens at the path (unix(7)), non-blocking, for this user alone (0600), replacing what lies
/// there. None on failure; `errno` tells why.
Descriptor listenAt(const std::filesystem::path& path, int backlog);

/// Connects, non-blocking and without waiting. None when nobody listens or too many wait already.
Descriptor connectTo(const std::filesystem::path& path);

/// Whether the process at the other end is of our own user, by the kernel's word.
bool isOwnUser(int connection);

} // namespace korvane
