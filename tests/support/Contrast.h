#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace korvane::test {

inline double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}
inline double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}
inline QColor over(const QColor& ground, const QColor& colour)
{
    const double share = colour.alphaF();
    const auto mixed = [share](double under, double above) {
        return static_cast<float>(under * (1 - share) + above * share);
    };
    return QColor::fromRgbF(mixed(ground.redF(), colour.redF()),
        mixed(ground.greenF(), colour.greenF()), mixed(ground.blueF(), colour.blueF()));
}
/// WCAG 2.1, 1.4.3.
inline double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace korvane::test
