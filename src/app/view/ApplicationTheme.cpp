#include "app/view/ApplicationTheme.h"

#include "app/view/ProgramStyle.h"

#include <QApplication>

#include <memory>

namespace korvane {

namespace {

    /// A translucent colour as it looks on a ground.
    QColor laidOver(const QColor& ground, const QColor& colour)
    {
        const auto mixed = [share = colour.alphaF()](float under, float over) {
            return under * (1 - share) + over * share;
        };
        return QColor::fromRgbF(mixed(ground.redF(), colour.redF()),
            mixed(ground.greenF(), colour.greenF()), mixed(ground.blueF(), colour.blueF()));
    }

} // namespace

ApplicationTheme::ApplicationTheme(Observable<bool>& systemIsDark, Observable<bool>& isAnimated)
    : m_systemIsDark(systemIsDark)
{
    QApplication::setStyle(std::make_unique<ProgramStyle>(isAnimated).release()); // the toolkit's
    // A cursor that blinks would repaint the panel twice a second while nothing happens.
    QApplication::setCursorFlashTime(0);
    m_systemChanged = m_systemIsDark.observe([this](bool) { dress(); });
}

void ApplicationTheme::apply(Theme theme)
{
    m_theme = theme;
    dress();
}

void ApplicationTheme::dress()
{
    const bool isDark
        = m_theme == Theme::dark || (m_theme == Theme::automatic && m_systemIsDark.value());
    const auto palette = applicationPalette(isDark ? ColourScheme::dark : ColourScheme::light);
    if (palette != QApplication::palette())
        QApplication::setPalette(palette);
}

QPalette applicationPalette(ColourScheme scheme)
{
    const auto& colours = coloursOf(scheme);
    const bool isDark = scheme == ColourScheme::dark;
    QPalette palette(colours.panel);
    palette.setColor(QPalette::Window, colours.panel);
    palette.setColor(QPalette::Base, isDark ? colours.panel.lighter(115) : QColor(Qt::white));
    palette.setColor(QPalette::AlternateBase, laidOver(colours.panel, colours.field));
    palette.setColor(QPalette::Button, laidOver(colours.panel, colours.chip));
    palette.setColor(QPalette::ToolTipBase, laidOver(colours.panel, colours.field));
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
             QPalette::ToolTipText, QPalette::BrightText })
        palette.setColor(role, colours.text);
    palette.setColor(QPalette::PlaceholderText, colours.secondary);
    palette.setColor(QPalette::Highlight, colours.accent);
    palette.setColor(QPalette::HighlightedText, colours.onAccent);
    palette.setColor(QPalette::Link, colours.selectedIcon);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        palette.setColor(
            QPalette::Disabled, role, laidOver(colours.panel, QColor(128, 128, 128, 150)));
    return palette;
}

} // namespace korvane
