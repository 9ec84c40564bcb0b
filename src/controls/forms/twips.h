#pragma once

#include <cmath>

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
