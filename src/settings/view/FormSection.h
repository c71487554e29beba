#pragma once

#include <QString>
#include <QWidget>

#include <memory>

class QVBoxLayout;

namespace korvane {

class FormText;

/// One row of a card, at least 36 points high. Where it is hidden, the card closes up.
class FormRow : public QWidget {
public:
    static constexpr int leastHeight = 36;

    /// A label on the left and a control on the right. A control without a name of its own is called by
    /// the label, by assistive technology too.
    /// @param control  may be none
    FormRow(const QString& label, std::unique_ptr<QWidget> control, const QString& toolTip,
        QWidget* parent);
    /// One widget over the whole row.
    FormRow(std::unique_ptr<QWidget> contents, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A heading and a card of rows.
class FormSection : public QWidget {
public:
    FormSection(const QString& title, QWidget* parent);

    FormRow& addRow(
        const QString& label, std::unique_ptr<QWidget> control, const QString& toolTip = {});
    /// A row that only shows something; the text can be changed later.
    FormText& addValue(const QString& label, const QString& value);
    FormRow& addWidget(std::unique_ptr<QWidget> contents);
    /// Takes a row out of the card and ends it.
    void removeRow(FormRow& row);

private:
    class Card;

    FormText* m_heading; // its child, and made first: that is the order in which it is read out
    Card* m_card;        // its child
    QVBoxLayout* m_rows;
};

} // namespace korvane
