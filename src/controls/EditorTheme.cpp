#include "controls/EditorTheme.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double goodContrast = 4.5;

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// Relative luminance of a colour, 0 to 1.
double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// Contrast ratio of two colours, 1 to 21.
double contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor mix(const QColor &a, const QColor &b, double shareOfA)
{
    const auto channel = [shareOfA](int x, int y) {
        return static_cast<int>(std::lround(x * shareOfA + y * (1 - shareOfA)));
    };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

} // namespace

EditorTheme::EditorTheme(const QColor &background)
    : m_background(background)
{
    const QColor light(0xE6, 0xE6, 0xE6);
    m_text =
        contrast(Qt::black, background) >= contrast(light, background) ? QColor(Qt::black) : light;
    if (contrast(m_text, background) < goodContrast && m_text == light)
        m_text = Qt::white;
}

QColor EditorTheme::lineNumber() const
{
    return blend(m_text, 0.6);
}

QColor EditorTheme::margin() const
{
    return blend(m_text, 0.05);
}

QColor EditorTheme::currentLine() const
{
    return blend(m_text, 0.06);
}

QColor EditorTheme::selection() const
{
    return blend(QColor(0x3D, 0x8E, 0xE6), 0.32);
}

QColor EditorTheme::brace() const
{
    return blend(QColor(0x2E, 0xA0, 0x43), 0.35);
}

QColor EditorTheme::unmatchedBrace() const
{
    return blend(QColor(0xE0, 0x40, 0x40), 0.4);
}

QColor EditorTheme::readable(const QColor &color) const
{
    if (color == QColor(Qt::black))
        return m_text;
    // Colours are chosen for white paper: no background asks more of one than white does.
    const double wanted = std::min(goodContrast, 0.95 * contrast(color, Qt::white));
    QColor result = color;
    for (double share = 0.95; contrast(result, m_background) < wanted && share >= 0; share -= 0.05)
        result = mix(color, m_text, share);
    return result;
}

QColor EditorTheme::blend(const QColor &color, double share) const
{
    return mix(color, m_background, share);
}
