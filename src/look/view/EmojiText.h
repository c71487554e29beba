#pragma once

#include "model/EmojiSequences.h"

#include <QFont>
#include <QPointF>
#include <QString>
#include <QTextCharFormat>
#include <QTextLayout>
#include <QTextOption>

#include <map>
#include <memory>
#include <utility>
#include <vector>

class QPainter;

namespace korvane {

/// Where the emoji of a text stand.
std::vector<EmojiPlace> emojiIn(const QString& text);

/// The pictures of emoji, each laid out once for a font. Beside a text the toolkit would take a part
/// of an emoji from the first font that has it (a black heart, a runner with a sign of her sex), and
/// unpack each picture anew wherever it stands.
class EmojiPictures {
public:
    EmojiPictures() = default;
    EmojiPictures(const EmojiPictures&) = delete;
    EmojiPictures& operator=(const EmojiPictures&) = delete;

    struct Picture {
        QTextLayout layout;
        double width = 0;
        double ascent = 0;
        /// How a text in the font leaves room for it.
        QTextCharFormat room;
    };
    /// The picture of an emoji in the size of a font.
    std::shared_ptr<const Picture> pictureOf(const QString& emoji, const QFont& font);

private:
    static std::shared_ptr<const Picture> pictureIn(const QString& emoji, const QFont& font);

    /// Those that have been asked for; not for ever, as they are parts of what the user has copied.
    std::map<std::pair<QString, QFont>, std::shared_ptr<const Picture>> m_pictures;
};

/// A text's layout in which every emoji is one picture. Lines are made as in any other layout, and
/// drawn by this.
class EmojiText {
public:
    EmojiText(
        const QString& text, const QFont& font, const QTextOption& option, EmojiPictures& pictures);

    QTextLayout& layout() { return m_layout; }
    const QTextLayout& layout() const { return m_layout; }
    /// Draws one of the layout's lines with the painter's pen.
    /// @param origin  of the layout, not of the line
    void drawLine(QPainter& painter, int line, const QPointF& origin) const;

private:
    struct Emoji {
        int begin = 0;
        int length = 0;
        std::shared_ptr<const EmojiPictures::Picture> picture;
    };
    double leftOf(const QTextLine& line, const Emoji& emoji) const;

    QTextLayout m_layout;
    bool m_goesBothWays = false; // a part of it is written from right to left
    std::vector<Emoji> m_emoji;  // in the text's order
};

} // namespace korvane
