#pragma once

#include "model/Signal.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// The desktop's general clipboard (on X11 the CLIPBOARD selection; PRIMARY is not a copy).
class Pasteboard {
public:
    /// What is on the clipboard.
    struct Contents {
        /// Its owner marked it as a secret ("x-kde-passwordManagerHint" with the value "secret", or
        /// with a value that it then refused to tell). Nothing else of a secret is fetched.
        bool isSecret = false;
        /// The "text/uri-list" as it was read, where one is offered (RFC 2483).
        std::optional<std::string> uriList;
        /// The text, where one is offered: valid UTF-8, without NUL.
        std::optional<std::string> text;
    };
    using Answer = std::function<void(std::optional<Contents>)>;
    /// Whether a "text/uri-list" is all that its reader wants, and the text beside it nothing.
    using ListTest = std::function<bool(std::string_view uriList)>;

    virtual ~Pasteboard() = default;

    /// Rises whenever the contents change, by us or by anyone, as soon as that is known.
    virtual std::int64_t changeCount() const = 0;
    /// Counts every change that has happened until now, also those of which the news is still under
    /// way. Never waits for another program.
    virtual void synchronise() = 0;
    /// Fetches the contents and answers on the main loop, once, never before this returns: with
    /// nothing when the owner has gone, the contents have changed meanwhile, or the owner kept
    /// silent for two seconds. Never waits. Several reads may be under way.
    /// @param isEnough  asked when a list has come: true ends the read there; none: the text is
    ///                  fetched too. A list that came before the owner fell silent is answered.
    virtual void read(Answer answer, ListTest isEnough = {}) = 0;
    /// Gives up every read that is under way; each is answered with nothing.
    virtual void abandonReads() = 0;
    /// Replaces the contents by a text. The change has been counted, once, when this returns; one by
    /// another program that came after it has not.
    virtual void writeText(std::string_view text) = 0;

    /// The count has risen because of another program.
    Signal<> changed;
    /// The program that owned the contents has ended and they are gone with it (a program that
    /// clears the clipboard on purpose does not count).
    Signal<> ownerVanished;
};

} // namespace korvane
