#pragma once

#include <cmath>

/// Sizes of the window and the pages are worked out in twips, as the layout rules give them.
inline constexpr double kTwipsPerPixel = 15.0;

inline int twipsToPixels(double twips)
{
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

inline double pixelsToTwips(int pixels)
{
    return pixels * kTwipsPerPixel;
}
