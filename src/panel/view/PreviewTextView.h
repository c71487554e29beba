#pragma once

#include "panel/view/TextLines.h"

#include <QFont>
#include <QString>
#include <QWidget>

#include <memory>

namespace korvane {

/// A text to be read, over as many lines as it takes: it cannot be edited, selected or scrolled, and
/// the pointer goes through it. Where it does not end with its last line, that fades out.
class PreviewTextView : public QWidget {
public:
    explicit PreviewTextView(QWidget* parent);

    /// @param text  with line feeds between its lines
    /// @param isCode  in the desktop's monospaced font, otherwise in its proportional one
    void setText(const QString& text, bool isCode);
    const QString& text() const { return m_text; }
    /// That there is more of the text than has been given.
    void setIsCut(bool isCut);

    /// How high the text is in lines of this width.
    double usedHeight(double width);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const TextLines& lines(double width);
    bool fadesOut();
    void paintFading(QPainter& painter, const QRectF& part);

    QString m_text;
    bool m_isCode = false;
    bool m_isCut = false;
    EmojiPictures m_pictures;
    std::unique_ptr<TextLines> m_lines; // of the text in `m_linesWidth`; none until it is asked for
    double m_linesWidth = 0;
};

} // namespace korvane
