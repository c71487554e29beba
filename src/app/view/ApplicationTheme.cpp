#include "app/view/ApplicationTheme.h"

#include <QApplication>
#include <QProxyStyle>

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

    /// The one style of the toolkit that takes every colour from the palette, without motion where
    /// none is wanted: the toolkit's own controls and ours ask it.
    class ProgramStyle : public QProxyStyle {
    public:
        explicit ProgramStyle(Observable<bool>& isAnimated)
            : QProxyStyle(QStringLiteral("Fusion"))
            , m_isAnimated(isAnimated.value())
            , m_changed(isAnimated.onChange([this](bool is) { m_isAnimated = is; }))
        {
        }
        int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
            QStyleHintReturn* data) const override
        {
            if (hint == SH_Widget_Animation_Duration)
                return m_isAnimated ? standardDuration : 0;
            return QProxyStyle::styleHint(hint, option, widget, data);
        }

    private:
        static constexpr int standardDuration = 200; // milliseconds

        bool m_isAnimated;
        Connection m_changed;
    };

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
