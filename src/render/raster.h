#pragma once

#include <cstddef>
#include <cstdint>

#include "ui/canvas.h"

namespace halvern {

/// The rows of a picture in memory, one 32-bit word a pixel, from the top left.
struct Raster {
    std::uint32_t* pixels = nullptr;
    std::ptrdiff_t stride = 0;  ///< words from one row to the next
    std::int32_t width = 0;
    std::int32_t height = 0;

    std::uint32_t* Row(std::int32_t y) const { return pixels + y * stride; }
    bool Has(PixelPoint p) const {
        return static_cast<std::uint32_t>(p.x) < static_cast<std::uint32_t>(width) &&
               static_cast<std::uint32_t>(p.y) < static_cast<std::uint32_t>(height);
    }
};

inline bool AreTheSame(PixelPoint a, PixelPoint b) { return a.x == b.x && a.y == b.y; }

/// Whether two pixels touch, by a side or a corner, or are the same.
inline bool AreNeighbours(PixelPoint a, PixelPoint b) {
    return static_cast<std::uint32_t>(a.x - b.x + 1) <= 2 && static_cast<std::uint32_t>(a.y - b.y + 1) <= 2;
}

/// The word of a pixel of a colour.
inline std::uint32_t PixelBits(Colour colour) { return 0xFF000000 | static_cast<std::uint32_t>(colour); }

/// What a pixel becomes: these bits, or what it was with these bits turned over.
struct Ink {
    std::uint32_t bits = 0;
    bool exclusiveOr = false;
};

/// Fills the part of a row from x1 to x2, both included. Nothing outside the raster is touched.
void FillSpan(const Raster& raster, std::int32_t x1, std::int32_t x2, std::int32_t y, Ink ink);

/// Draws a line one pixel wide, both ends included, each of its pixels once.
///
/// Given     from, to   within kFarthestPixel of the raster's origin
/// Note      along the longer side there is one pixel a step; the step across is rounded to the nearest pixel, a half
///           towards the end. What lies outside is cut off, and the rest is where it would be without the cut
void DrawThinLine(const Raster& raster, PixelPoint from, PixelPoint to, Ink ink);

/// Places further off can't be told apart on any screen, and sums of them stay in the range of the integers.
inline constexpr std::int32_t kFarthestPixel = 1'000'000;

}  // namespace halvern
