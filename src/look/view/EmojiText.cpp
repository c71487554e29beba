#include "look/view/EmojiText.h"

#include "model/EmojiSequences.h"

#include <QPainter>

#include <algorithm>

namespace korvane {

namespace {

    QTextLine layOnOneLine(QTextLayout& layout)
    {
        constexpr double endless = 1e6;
        layout.beginLayout();
        auto line = layout.createLine();
        line.setLineWidth(endless);
        layout.endLayout();
        return line;
    }

    /// The same font, which shows boxes for what it has no letters for, and so takes no look at any
    /// other font.
    QFont alone(QFont font)
    {
        font.setStyleStrategy(QFont::NoFontMerging);
        return font;
    }

    /// Draws nothing of a text that is `taken` wide in the font alone, and makes it so wide.
    QTextCharFormat roomOf(double width, double taken, const QFont& font)
    {
        auto blank = alone(font);
        blank.setLetterSpacing(QFont::AbsoluteSpacing, width - taken);
        QTextCharFormat format;
        format.setFont(blank);
        format.setForeground(Qt::transparent);
        return format;
    }

} // namespace

const EmojiPictures::Picture& EmojiPictures::pictureOf(const QString& emoji, const QFont& font)
{
    auto& known = m_pictures[{ emoji, font }];
    if (known)
        return *known;
    known = std::make_unique<Picture>();

    auto families = font.families();
    families.prepend(QStringLiteral("emoji")); // fontconfig's name for the desktop's choice
    auto pictured = font;
    pictured.setFamilies(families);
    known->layout.setFont(pictured);
    // The sign that asks for a picture is no part of what the font joins to one.
    known->layout.setText(QString(emoji).remove(QChar(0xFE0F)));
    known->layout.setCacheEnabled(true);
    const auto line = layOnOneLine(known->layout);
    known->width = line.naturalTextWidth();
    known->ascent = line.ascent();

    QTextLayout blank(emoji, alone(font));
    known->room = roomOf(known->width, layOnOneLine(blank).naturalTextWidth(), font);
    return *known;
}

EmojiText::EmojiText(
    const QString& text, const QFont& font, const QTextOption& option, EmojiPictures& pictures)
    : m_layout(text, font)
{
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true); // else each painting would shape all of it again
    QList<QTextLayout::FormatRange> rooms;
    const std::u16string_view units(
        reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size()));
    for (const auto& place : emojiSequences(units)) {
        const auto begin = static_cast<int>(place.begin);
        const auto length = static_cast<int>(place.end - place.begin);
        const auto& picture = pictures.pictureOf(text.mid(begin, length), font);
        rooms.append({ begin, length, picture.room });
        m_emoji.push_back({ begin, &picture });
    }
    if (!rooms.isEmpty())
        m_layout.setFormats(rooms);
}

void EmojiText::drawLine(QPainter& painter, int number, const QPointF& origin) const
{
    const auto line = m_layout.lineAt(number);
    line.draw(&painter, origin);
    const auto lineEnd = line.textStart() + line.textLength();
    auto emoji = std::ranges::lower_bound(m_emoji, line.textStart(), {}, &Emoji::begin);
    for (; emoji != m_emoji.end() && emoji->begin < lineEnd; ++emoji) {
        // Where the writing goes to the left, an emoji begins at its right edge.
        const double left = std::min(line.cursorToX(emoji->begin, QTextLine::Leading),
            line.cursorToX(emoji->begin, QTextLine::Trailing));
        const double top = line.y() + line.ascent() - emoji->picture->ascent;
        emoji->picture->layout.draw(&painter, origin + QPointF(left, top));
    }
}

} // namespace korvane
