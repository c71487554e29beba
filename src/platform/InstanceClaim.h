#pragma once

#include "model/Files.h"
#include "platform/CommandLine.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace korvane {

/// The right to be the one running program: a lock that the kernel takes back when its holder ends,
/// however it ends, and the socket on which the holder hears wishes.
class InstanceClaim {
public:
    InstanceClaim(Descriptor lock, Descriptor listener, std::filesystem::path socket);
    InstanceClaim(InstanceClaim&&) noexcept = default;
    InstanceClaim& operator=(InstanceClaim&&) = delete;
    InstanceClaim(const InstanceClaim&) = delete;
    InstanceClaim& operator=(const InstanceClaim&) = delete;
    ~InstanceClaim();

    /// The socket, listening and non-blocking.
    int listener() const { return m_listener.number(); }

private:
    Descriptor m_lock;
    Descriptor m_listener;
    std::filesystem::path m_socket;
};

/// What a start came to.
struct InstanceStart {
    enum class Outcome {
        first,  ///< no other runs; `claim` is set
        passed, ///< the one that runs has taken the wish
        failed, ///< neither; `reason` is one line for standard error
    };

    Outcome outcome = Outcome::failed;
    std::optional<InstanceClaim> claim;
    std::string reason;
};

/// Becomes the one running program of this user, or passes the wish to the one that is. It comes
/// back within the patience, even when the other hangs. What a crash has left behind is taken over;
/// of many that start at once, exactly one becomes the first.
/// @param folder  see `findRuntimeFolder`
InstanceStart startInstance(const std::filesystem::path& folder, Wish wish,
    std::chrono::milliseconds patience = std::chrono::seconds(2));

/// Claims the folder of a history for this process, until the descriptor is closed or the process
/// ends: two programs that write one history, from two sessions of the user, would each undo what
/// the other has saved. A descriptor that is not open: the folder cannot be claimed (it is not there,
/// or its file system knows no locks), and nobody else can have done so. None: another process has it, and has kept it for all of the patience.
std::optional<Descriptor> claimFolder(const std::filesystem::path& folder,
    std::chrono::milliseconds patience = std::chrono::seconds(2));

} // namespace korvane
