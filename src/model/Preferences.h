#pragma once

#include "model/Signal.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace korvane {

/// What a preference can hold.
using PreferenceValue
    = std::variant<bool, std::int64_t, double, std::string, std::vector<std::string>>;

/// The user's preferences: one flat table of typed values. Nothing is registered in advance, so a
/// key that was never written is absent, and every reader names its own default.
class Preferences {
public:
    virtual ~Preferences() = default;

    virtual std::optional<PreferenceValue> get(std::string_view key) const = 0;
    /// Written at once. Tells `changed` when the value differs from the one before.
    virtual void set(std::string_view key, PreferenceValue value) = 0;
    virtual void remove(std::string_view key) = 0;

    /// The value when it has exactly this type; a value of another type counts as absent.
    template <typename T>
    std::optional<T> value(std::string_view key) const
    {
        const auto stored = get(key);
        if (!stored)
            return std::nullopt;
        const auto* typed = std::get_if<T>(&*stored);
        return typed ? std::optional<T>(*typed) : std::nullopt;
    }
    bool boolean(std::string_view key) const { return value<bool>(key).value_or(false); }
    std::int64_t integer(std::string_view key) const
    {
        return value<std::int64_t>(key).value_or(0);
    }
    std::optional<std::string> string(std::string_view key) const
    {
        return value<std::string>(key);
    }

    /// Something has changed, by us, by hand or by another program.
    Signal<> changed;
};

/// The keys. Absent means: 500 clips, 64 KiB a clip, 500 MiB in all, Control-Space, and so on.
namespace keys {
    inline constexpr std::string_view showCountInMenuBar = "showCountInMenuBar"; // bool, false
    inline constexpr std::string_view playSoundOnCopy = "playSoundOnCopy";       // bool, false
    inline constexpr std::string_view enableDirectPaste
        = "enableDirectPaste"; // bool, false in the panel
    inline constexpr std::string_view enableTabCycling = "enableTabCycling";   // bool, true
    inline constexpr std::string_view chevronActivation = "chevronActivation"; // "hover", "click"
    inline constexpr std::string_view theme = "theme"; // "auto", "light", "dark"
    inline constexpr std::string_view panelAlignment
        = "panelAlignment";                                        // "middle", "left", "right"
    inline constexpr std::string_view previewSide = "previewSide"; // "right", "left"
    inline constexpr std::string_view previewPosition
        = "previewPosition"; // "middle", "top", "follow"
    inline constexpr std::string_view skipMaxClipsWarning = "skipMaxClipsWarning"; // bool, false
    inline constexpr std::string_view copySoundName = "copySoundName";             // "Tink"
    inline constexpr std::string_view playSoundOnSelect = "playSoundOnSelect";     // bool, false
    inline constexpr std::string_view selectSoundName = "selectSoundName";         // "Pop"
    inline constexpr std::string_view playSoundOnPaste = "playSoundOnPaste";       // bool, false
    inline constexpr std::string_view pasteSoundName = "pasteSoundName";           // "Hero"
    inline constexpr std::string_view maxClips = "maxClips";                       // integer, 500
    inline constexpr std::string_view maxClipSizeKB = "maxClipSizeKB";             // integer, 64
    inline constexpr std::string_view maxTotalSizeMB = "maxTotalSizeMB";           // integer, 500
    inline constexpr std::string_view maxClipSizeMB
        = "maxClipSizeMB"; // integer, of earlier versions
    inline constexpr std::string_view hotkeyKeyCode = "hotkeyKeyCode";           // integer, 49
    inline constexpr std::string_view hotkeyModifiers = "hotkeyModifiers";       // integer, 4096
    inline constexpr std::string_view hotkeyKeyLabel = "hotkeyKeyLabel";         // "Space"
    inline constexpr std::string_view ignoredBundleIDs = "ignoredBundleIDs";     // list, empty
    inline constexpr std::string_view privateModeEnabled = "privateModeEnabled"; // bool, false
} // namespace keys

enum class Theme { automatic, light, dark };
enum class PanelAlignment { left, middle, right };
enum class PreviewSide { left, right };
enum class PreviewPosition { top, middle, follow };
enum class ChevronActivation { hover, click };

/// The choices. A stored text that is none of the known ones counts as absent; case matters.
Theme theme(const Preferences& preferences);
PanelAlignment panelAlignment(const Preferences& preferences);
PreviewSide previewSide(const Preferences& preferences);
PreviewPosition previewPosition(const Preferences& preferences);
ChevronActivation chevronActivation(const Preferences& preferences);
/// On unless a Boolean false is stored: any other value, 0 included, leaves it on.
bool isTabCyclingEnabled(const Preferences& preferences);
/// Off until the key has been written, although the switch in the settings shows on: deliberately.
bool isDirectPasteEnabled(const Preferences& preferences);

/// The sounds that a user can choose from, in the order in which they are offered.
inline constexpr std::array<std::string_view, 14> soundNames { "Basso", "Blow", "Bottle", "Frog",
    "Funk", "Glass", "Hero", "Morse", "Ping", "Pop", "Purr", "Sosumi", "Submarine", "Tink" };

} // namespace korvane
