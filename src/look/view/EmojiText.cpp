#include "look/view/EmojiText.h"

#include <QGlyphRun>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

    bool isFromRightToLeft(QChar unit)
    {
        switch (unit.direction()) {
        case QChar::DirR:
        case QChar::DirAL:
        case QChar::DirAN: // what stands between two of them goes to the left, too (UAX #9, N1)
        case QChar::DirRLE:
        case QChar::DirRLO:
        case QChar::DirRLI:
            return true;
        default:
            break;
        }
        // The letters beyond the first plane that go to the left lie in two blocks, each behind two
        // high surrogates.
        const auto half = unit.unicode();
        return half == 0xD802 || half == 0xD803 || half == 0xD83A || half == 0xD83B;
    }

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

std::vector<EmojiPlace> emojiIn(const QString& text)
{
    const QStringView units(text);
    return emojiSequences({ units.utf16(), static_cast<std::size_t>(units.size()) });
}

std::shared_ptr<const EmojiPictures::Picture> EmojiPictures::pictureOf(
    const QString& emoji, const QFont& font)
{
    if (const auto known = m_pictures.find({ emoji, font }); known != m_pictures.end())
        return known->second;
    auto picture = pictureIn(emoji, font);
    // The longest that Unicode recommends has fifteen units; what is longer is nothing to keep.
    constexpr qsizetype longest = 20;
    constexpr std::size_t most = 2000;
    if (emoji.size() <= longest) {
        if (m_pictures.size() >= most)
            m_pictures.clear();
        m_pictures.emplace(std::pair(emoji, font), picture);
    }
    return picture;
}

std::shared_ptr<const EmojiPictures::Picture> EmojiPictures::pictureIn(
    const QString& emoji, const QFont& font)
{
    auto picture = std::make_shared<Picture>();
    auto families = font.families();
    families.prepend(QStringLiteral("emoji")); // fontconfig's name for the desktop's choice
    auto pictured = font;
    pictured.setFamilies(families);
    picture->layout.setFont(pictured);
    // The sign that asks for a picture is no part of what the font joins to one.
    picture->layout.setText(QString(emoji).remove(QChar(0xFE0F)));
    picture->layout.setCacheEnabled(true);
    const auto line = layOnOneLine(picture->layout);
    picture->width = line.naturalTextWidth();
    picture->ascent = line.ascent();

    QTextLayout blank(emoji, alone(font));
    picture->room = roomOf(picture->width, layOnOneLine(blank).naturalTextWidth(), font);
    return picture;
}

EmojiText::EmojiText(
    const QString& text, const QFont& font, const QTextOption& option, EmojiPictures& pictures)
    : m_layout(text, font)
{
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true); // else each painting would shape all of it again
    QList<QTextLayout::FormatRange> rooms;
    for (const auto& place : emojiIn(text)) {
        const auto begin = static_cast<int>(place.begin);
        const auto length = static_cast<int>(place.end - place.begin);
        auto picture = pictures.pictureOf(text.mid(begin, length), font);
        rooms.append({ begin, length, picture->room });
        m_emoji.push_back({ begin, length, std::move(picture) });
    }
    m_goesBothWays = option.textDirection() == Qt::RightToLeft
        || (!m_emoji.empty() && std::ranges::any_of(text, isFromRightToLeft));
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
        const double left = leftOf(line, *emoji);
        const double top = line.y() + line.ascent() - emoji->picture->ascent;
        emoji->picture->layout.draw(&painter, origin + QPointF(left, top));
    }
}

double EmojiText::leftOf(const QTextLine& line, const Emoji& emoji) const
{
    if (!m_goesBothWays)
        return line.cursorToX(emoji.begin);
    // Where directions meet, a place in the text is two places on the line; the boxes that keep the
    // room have one. The last of them is as wide as the rest of the room.
    const auto runs = line.glyphRuns(emoji.begin, emoji.length);
    if (runs.isEmpty() || runs.first().positions().isEmpty())
        return line.cursorToX(emoji.begin);
    const auto& run = runs.first();
    return run.isRightToLeft() ? run.positions().last().x() : run.positions().first().x();
}

} // namespace korvane
