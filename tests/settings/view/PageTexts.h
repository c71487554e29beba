#pragma once

#include "settings/view/FormText.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace korvane::test {

/// The texts of a page that can be seen, from its top to its end.
inline QStringList shownTexts(const QWidget& page)
{
    std::vector<const FormText*> shown;
    for (const auto* const text : page.findChildren<FormText*>())
        if (text->isVisible())
            shown.push_back(text);
    const auto height = [&](const FormText* text) { return text->mapTo(&page, QPoint(0, 0)).y(); };
    std::ranges::stable_sort(shown, {}, height);
    QStringList texts;
    for (const auto* const text : shown)
        texts.push_back(text->text());
    return texts;
}

} // namespace korvane::test
