#include "settings/view/FormText.h"

#include "look/view/Fonts.h"
#include "settings/view/SettingsColours.h"
#include "settings/view/WrappedToolTip.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QStyle>

namespace korvane {

namespace {

    QFont fontOf(FormText::Tone tone)
    {
        switch (tone) {
        case FormText::Tone::plain:
        case FormText::Tone::value:
            return textFont(13);
        case FormText::Tone::heading:
            return textFont(12, QFont::DemiBold);
        case FormText::Tone::caption:
            return textFont(11);
        case FormText::Tone::title:
            return textFont(20, QFont::DemiBold);
        }
        return textFont(13);
    }

    bool isBack(FormText::Tone tone)
    {
        return tone != FormText::Tone::plain && tone != FormText::Tone::title;
    }

} // namespace

FormText::FormText(const QString& text, Tone tone, QWidget* parent)
    : QLabel(parent)
    , m_tone(tone)
{
    setTextFormat(Qt::PlainText);
    setText(text);
    setFont(fontOf(tone));
    setWordWrap(tone == Tone::caption);
    dress();
}

bool FormText::event(QEvent* event)
{
    return showWrappedTip(*event, *this) || QLabel::event(event);
}

void FormText::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange && !m_isDressing)
        dress();
    QLabel::changeEvent(event);
}

void FormText::paintEvent(QPaintEvent* event)
{
    if (!isLetterShown())
        return QLabel::paintEvent(event);
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(),
        static_cast<int>(alignment()) | Qt::TextShowMnemonic, palette(), isEnabled(),
        lettered(text()), foregroundRole());
}

void FormText::dress()
{
    // Not by its own palette, whose text has the colour of the theme before.
    const auto scheme
        = schemeOf(parentWidget() ? parentWidget()->palette() : QGuiApplication::palette());
    const auto& colours = coloursOf(scheme);
    m_isDressing = true; // to set a palette is to change it
    auto dressed = palette();
    dressed.setColor(QPalette::WindowText, isBack(m_tone) ? colours.secondary : colours.text);
    dressed.setColor(QPalette::Disabled, QPalette::WindowText, settingsColoursOf(scheme).disabled);
    setPalette(dressed);
    m_isDressing = false;
}

} // namespace korvane
