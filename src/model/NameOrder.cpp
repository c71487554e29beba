#include "model/NameOrder.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/stringpiece.h>

#include <cstring>

namespace korvane {

namespace {

    icu::StringPiece pieceOf(std::string_view text)
    {
        return { text.data(), static_cast<int32_t>(text.size()) };
    }

    // The order of the locale "POSIX" ("C") is that of the bytes, all capitals first: what scripts
    // expect, and no order for a person's eyes.
    icu::Locale readable(const icu::Locale& locale)
    {
        return std::strcmp(locale.getVariant(), "POSIX") == 0 ? icu::Locale::getRoot() : locale;
    }

} // namespace

class NameOrder::Collator {
public:
    explicit Collator(const icu::Locale& locale)
    {
        auto error = U_ZERO_ERROR;
        m_collator.reset(icu::Collator::createInstance(readable(locale), error));
        if (U_FAILURE(error) != 0)
            m_collator.reset();
        else
            m_collator->setStrength(icu::Collator::SECONDARY); // case is the third difference
    }

    int compare(std::string_view a, std::string_view b) const
    {
        if (!m_collator) // the library's data is missing: any order that is always the same
            return a.compare(b);
        auto error = U_ZERO_ERROR;
        return m_collator->compareUTF8(pieceOf(a), pieceOf(b), error);
    }

private:
    std::unique_ptr<icu::Collator> m_collator;
};

NameOrder::NameOrder(const char* locale)
    : m_collator(std::make_unique<Collator>(
        locale == nullptr ? icu::Locale::getDefault() : icu::Locale(locale)))
{
}

NameOrder::~NameOrder() = default;

int NameOrder::compare(std::string_view a, std::string_view b) const
{
    return m_collator->compare(a, b);
}

} // namespace korvane
