#pragma once

#include "settings/view/Lettered.h"

#include <QLabel>

namespace korvane {

/// A text of a page, in the colours of the theme.
class FormText : public QLabel, public Lettered {
public:
    enum class Tone {
        plain,   ///< the label of a row, 13 points
        value,   ///< what a row shows, 13 points, standing back
        heading, ///< over a card, 12 points
        caption, ///< under a card, 11 points, in as many lines as it takes
        title,   ///< the name on a page, 20 points
    };

    explicit FormText(const QString& text, Tone tone = Tone::plain, QWidget* parent = nullptr);

    /// The letter of what it labels.
    void setLetter(QChar letter) { Lettered::setLetter(letter, *this); }

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void dress();

    Tone m_tone;
    bool m_isDressing = false;
};

} // namespace korvane
