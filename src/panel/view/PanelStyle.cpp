#include "panel/view/PanelStyle.h"

#include <QGuiApplication>
#include <QScreen>

namespace korvane {

namespace {

    /// @param opacity  0 to 1
    QColor translucent(const QColor& colour, double opacity)
    {
        auto result = colour;
        result.setAlphaF(static_cast<float>(opacity));
        return result;
    }

    const QColor accentGreen { 28, 158, 117 }; // red 0.11, green 0.62, blue 0.46

    PanelColours lightColours()
    {
        const QColor text { 0x1d, 0x1f, 0x21 };
        const QColor secondary { 0x58, 0x5c, 0x61 };
        return {
            .panel = QColor { 251, 251, 250 },
            .panelAlpha = 240,
            .edge = translucent(Qt::black, 0.12),
            .line = translucent(Qt::black, 0.07),
            .text = text,
            .secondary = secondary,
            .chip = translucent(text, 0.06),
            .field = translucent(Qt::black, 0.045),
            .hover = translucent(Qt::black, 0.045),
            .pressed = translucent(Qt::black, 0.09),
            .selection = translucent(accentGreen, 0.14),
            .selectionEdge = translucent(accentGreen, 0.38),
            .onSelection = QColor { 0x4c, 0x50, 0x55 },
            .badge = translucent(secondary, 0.15),
            .icon = translucent(Qt::black, 0.05),
            .selectedIcon = accentGreen,
            .selectedIconGround = translucent(accentGreen, 0.12),
            .accent = accentGreen,
            .onAccent = Qt::white,
            .orange = QColor { 0xd9, 0x73, 0x0d },
            .red = QColor { 0xd0, 0x34, 0x2c },
        };
    }

    PanelColours darkColours()
    {
        const QColor text { 0xec, 0xee, 0xef };
        const QColor secondary { 0xb4, 0xb9, 0xbe };
        return {
            .panel = QColor { 33, 35, 38 },
            .panelAlpha = 242,
            .edge = translucent(Qt::white, 0.13),
            .line = translucent(Qt::white, 0.08),
            .text = text,
            .secondary = secondary,
            .chip = translucent(text, 0.08),
            .field = translucent(Qt::white, 0.06),
            .hover = translucent(Qt::white, 0.055),
            .pressed = translucent(Qt::white, 0.11),
            .selection = translucent(accentGreen, 0.26),
            .selectionEdge = translucent(QColor { 60, 190, 148 }, 0.50),
            .onSelection = QColor { 0xc8, 0xcd, 0xd2 },
            .badge = translucent(secondary, 0.18),
            .icon = translucent(Qt::white, 0.07),
            .selectedIcon = QColor { 0x4c, 0xc9, 0xa0 },
            .selectedIconGround = translucent(accentGreen, 0.12),
            .accent = accentGreen,
            .onAccent = Qt::white,
            .orange = QColor { 0xd9, 0x73, 0x0d },
            .red = QColor { 0xd0, 0x34, 0x2c },
        };
    }

} // namespace

const PanelColours& panelColours(ColourScheme scheme)
{
    static const auto light = lightColours();
    static const auto dark = darkColours();
    return scheme == ColourScheme::dark ? dark : light;
}

ColourScheme schemeOf(const QPalette& palette)
{
    const auto ground = palette.color(QPalette::Active, QPalette::Window).lightness();
    const auto text = palette.color(QPalette::Active, QPalette::WindowText).lightness();
    return ground < text ? ColourScheme::dark : ColourScheme::light;
}

QFont panelFont(double size, QFont::Weight weight)
{
    auto font = QGuiApplication::font();
    // Pixel sizes are whole numbers in this toolkit, point sizes are not: 72 of them are an inch.
    const auto* screen = QGuiApplication::primaryScreen();
    const auto perInch = screen ? screen->logicalDotsPerInchY() : 96.0;
    font.setPointSizeF(size * 72.0 / perInch);
    font.setWeight(weight);
    return font;
}

} // namespace korvane
