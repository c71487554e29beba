#pragma once

#include <QChar>
#include <QString>

class QWidget;

namespace korvane {

/// What Alt leads to together with a letter, or the label of it. The letter is seen while Alt is held.
class Lettered {
public:
    Lettered() = default;
    virtual ~Lettered() = default;
    Lettered(const Lettered&) = delete;
    Lettered& operator=(const Lettered&) = delete;

    /// Null where there is none.
    QChar letter() const { return m_letter; }
    void showLetter(bool isShown);

protected:
    /// Whether a letter is to be seen now.
    bool isLetterShown() const { return m_isShown && !m_letter.isNull(); }
    /// A text as it is painted with Qt::TextShowMnemonic: its letter is underlined while it is shown.
    QString lettered(const QString& text) const;
    /// @param widget  itself, to be painted anew when the letter comes and goes
    void setLetter(QChar letter, QWidget& widget);

private:
    QWidget* m_widget = nullptr;
    QChar m_letter;
    bool m_isShown = false;
};

} // namespace korvane
