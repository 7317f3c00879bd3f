#pragma once

#include <QRect>

#include <cmath>

#include "ui/control.h"

namespace halvern {

/// Pixels are logical ones here: on a screen of high resolution the toolkit makes several real ones of each.
inline int Pixels(std::int32_t twips) {
    return static_cast<int>(std::lround(static_cast<double>(twips) / kTwipsPerPixel));
}

inline std::int32_t Twips(int pixels) { return pixels * kTwipsPerPixel; }

/// A place in pixels. Left and top are those of the place alone, without where the screen or the window begins.
inline QRect Pixels(const Place& place) {
    return {Pixels(place.left), Pixels(place.top), Pixels(place.width), Pixels(place.height)};
}

}  // namespace halvern
