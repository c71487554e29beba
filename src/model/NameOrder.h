#pragma once

#include <memory>
#include <string_view>

namespace korvane {

/// The order in which a list shows names to its user: that of the user's language (Unicode Collation
/// Algorithm, UTS #10), whatever the case of the letters. Accents count. To be made for a sort and
/// let go; making one costs more than many comparisons.
class NameOrder {
public:
    /// @param locale  a name such as "de_DE"; null: the user's
    explicit NameOrder(const char* locale = nullptr);
    ~NameOrder();
    NameOrder(const NameOrder&) = delete;
    NameOrder& operator=(const NameOrder&) = delete;

    /// Below, equal to or above 0, as the first name comes before, with or after the second.
    int compare(std::string_view a, std::string_view b) const;

private:
    class Collator;

    std::unique_ptr<Collator> m_collator;
};

} // namespace korvane
