#include "settings/view/Lettered.h"

#include <QWidget>

namespace korvane {

void Lettered::setLetter(QChar letter, QWidget& widget)
{
    m_letter = letter;
    m_widget = &widget;
}

void Lettered::showLetter(bool isShown)
{
    if (m_isShown == isShown)
        return;
    m_isShown = isShown;
    if (m_widget != nullptr)
        m_widget->update();
}

QString Lettered::lettered(const QString& text) const
{
    auto marked = text;
    marked.replace(u'&', QStringLiteral("&&"));
    const auto at = isLetterShown() ? marked.indexOf(m_letter, 0, Qt::CaseInsensitive) : -1;
    if (at >= 0)
        marked.insert(at, u'&');
    return marked;
}

} // namespace korvane
