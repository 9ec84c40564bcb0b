#pragma once

#include <QFont>
#include <QString>

#include <cmath>

/// How large things are: forms and controls, and what is written on them.

/// Sizes of forms and controls are laid out in twips: 1440 to the inch, 15 to a pixel of a screen
/// of 96 dots per inch, which is what Qt's device-independent pixel is.
inline constexpr int twipsPerPixel = 15;

inline int pixelsFromTwips(double twips)
{
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

inline int twipsFromPixels(int pixels)
{
    return pixels * twipsPerPixel;
}

/// Family of the fixed-width font that text is edited in: the desktop's own choice, or the first
/// good one that is installed.
QString fixedWidthFamily();

/// Size in points that text is edited in.
int defaultPoints();

/// The font of both, for text that is shown as it was written.
QFont fixedWidthFont();

/// @p font, or a smaller one in which the longest word of @p text is not wider than @p room pixels.
/// What would be too small to be read is not made any smaller.
QFont fittingFont(const QFont &font, const QString &text, int room);
