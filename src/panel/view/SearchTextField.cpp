#include "panel/view/SearchTextField.h"

#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "look/view/Symbols.h"
#include "panel/PanelTexts.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace korvane {

namespace {
    constexpr double groundRadius = 8;
    constexpr int symbolSize = 15;
    constexpr int symbolLeft = 9;
    constexpr int textLeft = symbolLeft + symbolSize + 5;
} // namespace

SearchTextField::SearchTextField(
    ClipStore& store, Symbols& symbols, TextReader reader, QWidget* parent)
    : QWidget(parent)
    , m_symbols(symbols)
    , m_field(std::move(reader), this)
{
    m_field.setPlaceholderText(QString::fromUtf8(paneltexts::searchPlaceholder));
    m_field.setFont(textFont(14));
    m_field.setAccessibleName(QStringLiteral("Search"));
    setFocusProxy(&m_field);
    setCursor(Qt::IBeamCursor);
    dress();

    m_searchChanged = store.panel().panelSearch.observe([this](const std::string& text) {
        // Written back only when it differs, so that the cursor stays where the user types.
        if (const auto shown = QString::fromStdString(text); shown != m_field.text())
            m_field.setText(shown);
    });
    connect(&m_field, &QLineEdit::textChanged, this,
        [&store](const QString& text) { store.panel().panelSearch.set(text.toStdString()); });
}

bool SearchTextField::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate
        && !qobject_cast<QLineEdit*>(window()->focusWidget()))
        m_field.setFocus(Qt::ActiveWindowFocusReason);
    else if (event->type() == QEvent::PaletteChange)
        dress();
    else if (event->type() == QEvent::FontChange)
        m_field.setFont(textFont(14));
    return QWidget::event(event);
}

void SearchTextField::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.field);
    painter.drawRoundedRect(ground(), groundRadius, groundRadius);
    const QRectF head(ground().left() + symbolLeft, ground().top(), symbolSize, ground().height());
    m_symbols.paint(painter, "magnifyingglass", head, symbolSize, colours.secondary);
}

void SearchTextField::resizeEvent(QResizeEvent*)
{
    m_field.setGeometry(ground().adjusted(textLeft, 0, -4, 0));
}

void SearchTextField::mousePressEvent(QMouseEvent*)
{
    m_field.setFocus(Qt::MouseFocusReason);
}

QRect SearchTextField::ground() const
{
    return rect().adjusted(10, 0, -10, -6);
}

void SearchTextField::dress()
{
    const auto& colours = coloursOf(palette());
    auto dressed = m_field.palette();
    dressed.setColor(QPalette::Text, colours.text);
    dressed.setColor(QPalette::PlaceholderText, colours.secondary);
    dressed.setColor(QPalette::Highlight, colours.accent);
    dressed.setColor(QPalette::HighlightedText, colours.onAccent);
    if (dressed != m_field.palette())
        m_field.setPalette(dressed);
}

} // namespace korvane
