#include "settings/view/NumberField.h"

#include "look/view/Child.h"
#include "look/view/Fonts.h"
#include "look/view/Outline.h"
#include "settings/view/FocusRing.h"
#include "settings/view/SettingsColours.h"
#include "settings/view/WrappedToolTip.h"

#include <QFocusEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

#include <utility>

namespace korvane {

namespace {
    constexpr QSize fieldSize { 80, 26 };
    constexpr double radius = 6;
    constexpr int padding = 6;

    /// Whether who loses the keyboard for this reason loses it to something else in the window.
    bool isWithinWindow(Qt::FocusReason reason)
    {
        return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
    }
} // namespace

/// The part that is typed in.
class NumberField::Edit : public PanelLineEdit {
public:
    Edit(TextReader reader, NumberField& field)
        : PanelLineEdit(std::move(reader), &field)
        , m_field(field)
    {
    }

protected:
    bool event(QEvent* event) override
    {
        return showWrappedTip(*event, *this) || PanelLineEdit::event(event);
    }
    void focusInEvent(QFocusEvent* event) override
    {
        PanelLineEdit::focusInEvent(event);
        m_field.update();
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        PanelLineEdit::focusOutEvent(event);
        m_field.update();
        if (isVisible() && isWithinWindow(event->reason()) && m_field.onCommit)
            m_field.onCommit();
    }

private:
    NumberField& m_field;
};

NumberField::NumberField(TextReader clipboardText, int mostDigits, QWidget* parent)
    : QWidget(parent)
    , m_edit(new Edit(std::move(clipboardText), *this))
{
    const QRegularExpression digits(QStringLiteral("[0-9]{0,%1}").arg(mostDigits));
    m_edit->setValidator(makeChild<QRegularExpressionValidator>(digits, m_edit));
    m_edit->setAlignment(Qt::AlignRight);
    m_edit->setFont(textFont(13));
    setFocusProxy(m_edit);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedSize(fieldSize);
    dress();
    // The window itself then has the keyboard, so that no other field of the page gets it.
    connect(m_edit, &QLineEdit::returnPressed, this, [this] { window()->setFocus(); });
}

std::optional<std::int64_t> NumberField::number() const
{
    bool isNumber = false;
    const auto number = m_edit->text().toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

void NumberField::setNumber(std::int64_t number)
{
    const auto text = QString::number(number);
    if (text != m_edit->text()) // the cursor stays where it is
        m_edit->setText(text);
}

QLineEdit& NumberField::edit() const
{
    return *m_edit;
}

QSize NumberField::sizeHint() const
{
    return fieldSize;
}

bool NumberField::event(QEvent* event)
{
    // The field is the edit's frame: assistive technology, and who sets a tip, mean the edit.
    if (event->type() == QEvent::ToolTipChange)
        m_edit->setToolTip(toolTip());
    return showWrappedTip(*event, *this) || QWidget::event(event);
}

void NumberField::paintEvent(QPaintEvent*)
{
    const auto& colours = settingsColoursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.control);
    painter.drawRoundedRect(rect(), radius, radius);
    if (m_edit->hasFocus())
        paintFocusRing(painter, *this, rect(), radius);
    else
        paintOutline(painter, rect(), radius, colours.controlEdge);
}

void NumberField::resizeEvent(QResizeEvent*)
{
    m_edit->setGeometry(rect().adjusted(padding, 1, -padding, -1));
}

void NumberField::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        dress();
    QWidget::changeEvent(event);
}

void NumberField::dress()
{
    const auto& colours = coloursOf(palette());
    auto dressed = m_edit->palette();
    dressed.setColor(QPalette::Text, colours.text);
    dressed.setColor(QPalette::Disabled, QPalette::Text, settingsColoursOf(palette()).disabled);
    dressed.setColor(QPalette::Highlight, colours.accent);
    dressed.setColor(QPalette::HighlightedText, colours.onAccent);
    if (dressed != m_edit->palette())
        m_edit->setPalette(dressed);
}

} // namespace korvane
