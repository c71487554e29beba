#pragma once

#include "update/DocumentFetcher.h"
#include "update/UpdateAlerts.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace korvane {

/// The address of the document that tells the newest version, on the host of a site; a path that the
/// site's address has does not count.
std::string versionAddress(std::string_view site);
/// The version that this program calls its own: what the build says, "1.0" where it says nothing.
std::string runningVersion(std::string_view built);

/// Looks whether there is a newer version, when it is told to, and at no other time.
class UpdateChecker {
public:
    /// How it reaches the world. All of it outlives the checker.
    struct World {
        DocumentFetcher& fetcher;
        /// Shows an alert; see `Alerts::show`.
        std::function<void(const Alert&, Alerts::Answered)> show;
        /// Opens a web address in the browser, and leaves any other address alone.
        std::function<void(std::string_view)> openAddress;
    };

    /// `silent` tells nothing but a newer version; what the user asked for is answered in any case.
    enum class Check { silent, asked };

    UpdateChecker(World world, std::string versionURL, std::string version);

    /// Asks for the newest version and returns. What comes of it is told when the server has
    /// answered. Checks may overlap, and know nothing of each other.
    void checkForUpdates(Check check);

private:
    void tell(const std::optional<std::string>& json, Check check);

    World m_world;
    std::string m_versionURL;
    std::string m_version;
    /// Shared with checks under way, which come to nothing when we have gone before them.
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

} // namespace korvane
