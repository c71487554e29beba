#include "settings/view/FormSection.h"

#include "look/view/Child.h"
#include "look/view/Outline.h"
#include "settings/view/FormText.h"
#include "settings/view/RingedButton.h"
#include "settings/view/SettingsColours.h"

#include <QBoxLayout>
#include <QPainter>

#include <utility>

namespace korvane {

namespace {
    constexpr int paddingX = 12;
    constexpr int paddingY = 4;
    constexpr int gap = 10; // between a label and its control
    constexpr double cardRadius = 8;

    std::unique_ptr<QBoxLayout> rowLayout()
    {
        auto layout = std::make_unique<QHBoxLayout>();
        layout->setContentsMargins(paddingX, paddingY, paddingX, paddingY);
        layout->setSpacing(gap);
        // Not as the row's own minimum, which would go before what its contents need.
        layout->addStrut(FormRow::leastHeight - 2 * paddingY);
        return layout;
    }
} // namespace

FormRow::FormRow(
    const QString& label, std::unique_ptr<QWidget> control, const QString& toolTip, QWidget* parent)
    : QWidget(parent)
{
    auto layout = rowLayout();
    auto* const text = makeChild<FormText>(label, FormText::Tone::plain, this);
    text->setToolTip(toolTip);
    layout->addWidget(text);
    layout->addStretch(1);
    if (control) {
        // What has the keyboard for it is what assistive technology meets.
        auto& named = control->focusProxy() ? *control->focusProxy() : *control;
        if (named.accessibleName().isEmpty())
            named.setAccessibleName(label);
        if (const auto* const button = dynamic_cast<const RingedButton*>(&named))
            text->setLetter(button->letter());
        if (!toolTip.isEmpty())
            control->setToolTip(toolTip);
        layout->addWidget(control.release()); // this row's from here on
    }
    setLayout(layout.release()); // the same
}

FormRow::FormRow(std::unique_ptr<QWidget> contents, QWidget* parent)
    : QWidget(parent)
{
    auto layout = rowLayout();
    layout->addWidget(contents.release());
    setLayout(layout.release());
}

void FormRow::paintEvent(QPaintEvent*)
{
    // The line above it; the first row that is shown has the edge of the card there.
    if (y() <= 1)
        return;
    QPainter painter(this);
    painter.fillRect(
        onPixels(painter, QRectF(0, 0, width(), 1)), settingsColoursOf(palette()).line);
}

class FormSection::Card : public QWidget {
public:
    explicit Card(QWidget* parent)
        : QWidget(parent)
    {
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const auto& colours = settingsColoursOf(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.card);
        painter.drawRoundedRect(rect(), cardRadius, cardRadius);
        paintOutline(painter, rect(), cardRadius, colours.line);
    }
};

FormSection::FormSection(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_heading(new FormText(title, FormText::Tone::heading, this))
    , m_card(new Card(this))
    , m_rows(new QVBoxLayout(m_card))
{
    setAccessibleName(title);
    m_rows->setContentsMargins(1, 1, 1, 1);
    m_rows->setSpacing(0);
    auto* const column = makeChild<QVBoxLayout>(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    m_heading->setContentsMargins(4, 0, 4, 0);
    column->addWidget(m_heading);
    column->addWidget(m_card);
}

FormRow& FormSection::addRow(
    const QString& label, std::unique_ptr<QWidget> control, const QString& toolTip)
{
    auto* const row = makeChild<FormRow>(label, std::move(control), toolTip, m_card);
    m_rows->addWidget(row);
    return *row;
}

FormText& FormSection::addValue(const QString& label, const QString& value)
{
    auto text = std::make_unique<FormText>(value, FormText::Tone::value);
    auto& shown = *text;
    // Its name is what it says; the label stands before it.
    shown.setAccessibleDescription(label);
    auto* const row = makeChild<FormRow>(label, nullptr, QString(), m_card);
    row->layout()->addWidget(text.release());
    m_rows->addWidget(row);
    return shown;
}

FormRow& FormSection::addWidget(std::unique_ptr<QWidget> contents)
{
    auto* const row = makeChild<FormRow>(std::move(contents), m_card);
    m_rows->addWidget(row);
    return *row;
}

void FormSection::removeRow(FormRow& row)
{
    m_rows->removeWidget(&row);
    row.hide();
    row.deleteLater(); // it may be the row of the button that has just been pressed
}

} // namespace korvane
