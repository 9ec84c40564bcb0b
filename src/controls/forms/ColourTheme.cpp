#include "controls/forms/ColourTheme.h"

#include <QPalette>

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

QColor mix(const QColor &a, const QColor &b, double shareOfA)
{
    const auto channel = [shareOfA](int x, int y) {
        return static_cast<int>(std::lround(x * shareOfA + y * (1 - shareOfA)));
    };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

/// The mixture with the smallest share of @p towards, in steps, that has the wanted contrast to a
/// ground; @p towards itself where none has.
QColor nearestReadable(const QColor &color, const QColor &towards, const QColor &ground,
                       double wanted)
{
    constexpr int steps = 20;
    for (int step = steps; step > 0; --step) {
        const QColor result = mix(color, towards, static_cast<double>(step) / steps);
        if (contrast(result, ground) >= wanted)
            return result;
    }
    return towards;
}

} // namespace

double contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

ColourTheme::ColourTheme(const QColor &background, const QColor &text)
    : m_background(background)
    , m_text(Qt::white)
{
    for (const QColor &candidate : {text, QColor(Qt::black), QColor(0xE6, 0xE6, 0xE6)}) {
        if (contrast(candidate, background) >= goodContrast) {
            m_text = candidate;
            break;
        }
    }
}

ColourTheme::ColourTheme(const QPalette &palette)
    : ColourTheme(palette.color(QPalette::Active, QPalette::Base),
                  palette.color(QPalette::Active, QPalette::Text))
{
}

QColor ColourTheme::tinted(const QColor &color, double share) const
{
    const QColor wanted = mix(color, m_background, share);
    return nearestReadable(wanted, m_background, m_text, goodContrast);
}

QColor ColourTheme::lineNumber() const
{
    return nearestReadable(mix(m_text, m_background, 0.6), m_text, margin(), goodContrast);
}

QColor ColourTheme::gridLine() const
{
    return mix(m_text, m_background, 0.25);
}

QColor ColourTheme::readable(const QColor &color) const
{
    if (color == QColor(Qt::black))
        return m_text;
    // Colours are chosen for white paper: no background asks more of one than white does.
    const double wanted = std::min(goodContrast, 0.95 * contrast(color, Qt::white));
    const QColor result = nearestReadable(color, m_text, m_background, wanted);
    return wanted < goodContrast ? result : nearestReadable(result, m_text, currentLine(), wanted);
}
