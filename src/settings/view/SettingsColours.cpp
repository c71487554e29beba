#include "settings/view/SettingsColours.h"

namespace korvane {

namespace {

    QColor black(int alpha)
    {
        return { 0, 0, 0, alpha };
    }
    QColor white(int alpha)
    {
        return { 255, 255, 255, alpha };
    }

    SettingsColours lightColours()
    {
        const auto& common = coloursOf(ColourScheme::light);
        return {
            .window = QColor { 0xf4, 0xf4, 0xf2 },
            .bar = QColor { 0xec, 0xeb, 0xe8 },
            .card = Qt::white,
            .line = black(18),
            .control = Qt::white,
            .controlEdge = black(41),
            .controlHover = QColor { 0xf6, 0xf6, 0xf5 },
            .controlPressed = QColor { 0xea, 0xea, 0xe8 },
            .chief = QColor { 0x15, 0x80, 0x5e },
            .chiefHover = QColor { 0x12, 0x73, 0x54 },
            .track = black(36),
            .trackHover = black(51),
            .trackOn = common.accent,
            .trackOnHover = QColor { 24, 141, 104 },
            .thumb = Qt::white,
            .thumbShadow = black(77),
            .segments = black(15),
            .segmentOn = Qt::white,
            .chosenTab = common.chip,
            .chosenTabText = QColor { 0x0b, 0x64, 0x48 },
            .focus = QColor { 0x15, 0x80, 0x5e },
            .disabled = QColor { 0x9a, 0x9d, 0xa1 },
        };
    }

    SettingsColours darkColours()
    {
        const auto& common = coloursOf(ColourScheme::dark);
        return {
            .window = QColor { 0x1f, 0x21, 0x23 },
            .bar = QColor { 0x27, 0x29, 0x2c },
            .card = QColor { 0x2a, 0x2c, 0x2f },
            .line = white(18),
            .control = QColor { 0x34, 0x37, 0x3a },
            .controlEdge = white(36),
            .controlHover = QColor { 0x38, 0x3b, 0x3f },
            .controlPressed = QColor { 0x2f, 0x32, 0x35 },
            .chief = QColor { 0x15, 0x80, 0x5e },
            .chiefHover = QColor { 0x12, 0x73, 0x54 },
            .track = white(46),
            .trackHover = white(61),
            .trackOn = common.accent,
            .trackOnHover = QColor { 34, 172, 128 },
            .thumb = Qt::white,
            .thumbShadow = black(77),
            .segments = white(18),
            .segmentOn = QColor { 0x4a, 0x4e, 0x52 },
            .chosenTab = common.chip,
            .chosenTabText = QColor { 0x4c, 0xc9, 0xa0 },
            .focus = common.selectedIcon,
            .disabled = QColor { 0x76, 0x7a, 0x7f },
        };
    }

} // namespace

const SettingsColours& settingsColoursOf(ColourScheme scheme)
{
    static const auto light = lightColours();
    static const auto dark = darkColours();
    return scheme == ColourScheme::dark ? dark : light;
}

} // namespace korvane
