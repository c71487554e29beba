#pragma once

#include <string>
#include <string_view>

namespace korvane {

/// The language, and what belongs to it, of the user's session, as ICU names it ("tr_TR").
std::string currentLocaleId();

/// What a text is searched by: texts have equal keys when they are equal but for letter case and
/// canonical equivalence. Accents count. Letter case follows Unicode's full case folding, in
/// Turkish and Azeri with the dotted and the dotless i as two letters. The key is well-formed UTF-8,
/// so the byte 0xFF can stand between keys.
std::string searchKey(std::string_view utf8, const std::string& localeId);

/// A search text, made ready to be looked for in many keys. It is taken literally.
class SearchNeedle {
public:
    SearchNeedle() = default;
    SearchNeedle(std::string_view typed, const std::string& localeId);

    /// Nothing was typed; it then occurs in every key.
    bool isEmpty() const { return m_key.empty(); }
    /// Whether the text of this key contains it. An occurrence does not count when it would cut a
    /// letter from its marks: "cafe" does not occur in "café", however that is spelt.
    bool occursIn(std::string_view key) const;
    /// Whether it can occur only where an earlier one does, as when more has been typed. May be false
    /// although it is so.
    bool extends(const SearchNeedle& earlier) const;

private:
    std::string m_key;
    bool m_beginsWithMark = false;
};

} // namespace korvane
