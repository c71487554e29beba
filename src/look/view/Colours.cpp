#include "look/view/Colours.h"

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

    Colours lightColours()
    {
        const QColor text { 0x1d, 0x1f, 0x21 };
        const QColor secondary { 0x4f, 0x53, 0x58 };
        return {
            .panel = QColor { 251, 251, 250 },
            .edge = translucent(Qt::black, 0.12),
            .line = translucent(Qt::black, 0.07),
            .text = text,
            .secondary = secondary,
            .chip = translucent(text, 0.06),
            .field = translucent(Qt::black, 0.045),
            .hover = translucent(Qt::black, 0.045),
            .pressed = translucent(Qt::black, 0.07),
            .selection = translucent(accentGreen, 0.14),
            .selectionEdge = translucent(accentGreen, 0.38),
            .onSelection = QColor { 0x42, 0x46, 0x4a },
            .badge = translucent(secondary, 0.15),
            .icon = translucent(Qt::black, 0.05),
            .selectedIcon = accentGreen,
            .selectedIconGround = translucent(accentGreen, 0.12),
            .accent = accentGreen,
            .onAccent = Qt::white,
            .orange = QColor { 0xd9, 0x73, 0x0d },
            .orangeText = QColor { 0xa6, 0x4b, 0x00 },
            .redText = QColor { 0xbf, 0x28, 0x21 },
        };
    }

    Colours darkColours()
    {
        const QColor text { 0xec, 0xee, 0xef };
        const QColor secondary { 0xc4, 0xc9, 0xce };
        return {
            .panel = QColor { 33, 35, 38 },
            .edge = translucent(Qt::white, 0.13),
            .line = translucent(Qt::white, 0.08),
            .text = text,
            .secondary = secondary,
            .chip = translucent(text, 0.06),
            .field = translucent(Qt::white, 0.06),
            .hover = translucent(Qt::white, 0.055),
            .pressed = translucent(Qt::white, 0.08),
            .selection = translucent(accentGreen, 0.26),
            .selectionEdge = translucent(QColor { 60, 190, 148 }, 0.50),
            .onSelection = QColor { 0xe2, 0xe6, 0xea },
            .badge = translucent(secondary, 0.15),
            .icon = translucent(Qt::white, 0.07),
            .selectedIcon = QColor { 0x4c, 0xc9, 0xa0 },
            .selectedIconGround = translucent(accentGreen, 0.12),
            .accent = accentGreen,
            .onAccent = Qt::white,
            .orange = QColor { 0xd9, 0x73, 0x0d },
            .orangeText = QColor { 0xf0, 0x92, 0x3a },
            .redText = QColor { 0xff, 0x7d, 0x73 },
        };
    }

} // namespace

const Colours& coloursOf(ColourScheme scheme)
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

} // namespace korvane
