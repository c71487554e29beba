#include "look/view/Fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>

namespace korvane {

namespace {

    QFont inSize(QFont font, double size, QFont::Weight weight)
    {
        // Pixel sizes are whole numbers in this toolkit, point sizes are not: 72 of them are an inch.
        const auto* screen = QGuiApplication::primaryScreen();
        const auto perInch = screen ? screen->logicalDotsPerInchY() : 96.0;
        font.setPointSizeF(size * 72.0 / perInch);
        font.setWeight(weight);
        // On Wayland the toolkit makes its font before it knows a screen, for a resolution that it assumes;
        // it would be measured for that, and painted for the screen's, which a picture has, too.
        const QImage dot(1, 1, QImage::Format_ARGB32_Premultiplied);
        return { font, &dot };
    }

} // namespace

QFont textFont(double size, QFont::Weight weight)
{
    return inSize(QGuiApplication::font(), size, weight);
}

QFont codeFont(double size)
{
    return inSize(QFontDatabase::systemFont(QFontDatabase::FixedFont), size, QFont::Normal);
}

} // namespace korvane
