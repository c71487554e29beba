#include "settings/view/LimitRows.h"

#include "settings/LimitFields.h"
#include "settings/LimitTexts.h"
#include "settings/view/ControlKit.h"
#include "settings/view/FormSection.h"
#include "settings/view/NumberField.h"

#include <QShowEvent>

#include <memory>

namespace korvane {

namespace {

    /// More digits than any limit has: what is typed too large becomes the largest, and is not
    /// refused in mid-word.
    constexpr int mostDigits = 9;

    QString text(std::string_view utf8)
    {
        return QString::fromUtf8(utf8);
    }

    /// The field of one limit.
    class LimitNumber : public NumberField {
    public:
        LimitNumber(const ControlKit& kit, LimitFields& fields, LimitField field)
            : NumberField(kit.clipboardText, mostDigits)
            , m_fields(fields)
            , m_field(field)
            , m_settled(fields.settled.connect([this](LimitField which) {
                if (which == m_field)
                    showValue();
            }))
        {
            showValue();
            onCommit = [this] { m_fields.commit(m_field, number()); };
        }

    protected:
        void showEvent(QShowEvent* event) override
        {
            // The page has appeared. Out of an icon the window comes back as it was.
            if (!event->spontaneous()) {
                m_fields.load();
                edit().clearFocus();
            }
            NumberField::showEvent(event);
        }

    private:
        void showValue() { setNumber(m_fields.value(m_field)); }

        LimitFields& m_fields;
        LimitField m_field;
        Connection m_settled;
    };

} // namespace

void addLimitRows(FormSection& section, const ControlKit& kit, LimitFields& fields)
{
    const auto add = [&](LimitField field, std::string_view label, std::string_view toolTip) {
        section.addRow(
            text(label), std::make_unique<LimitNumber>(kit, fields, field), text(toolTip));
    };
    add(LimitField::maxClips, limittexts::maxClips, {});
    add(LimitField::maxClipSizeKB, limittexts::maxClipSize, limittexts::maxClipSizeToolTip);
    add(LimitField::maxTotalSizeMB, limittexts::maxTotalSize, limittexts::maxTotalSizeToolTip);
}

} // namespace korvane
