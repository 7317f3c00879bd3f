#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "render/raster.h"

namespace halvern {

/// A part of a row, in pixels from the middle of a shape.
struct StampSpan {
    std::int32_t y;
    std::int32_t x1;
    std::int32_t x2;
};

/// A circle made ready for being put down many times: its outline, what the outline encloses, and both together.
///
/// The disc has the pixels that a circle of the radius, in the middle of its pen, reaches with its middle: in each of
/// the eight directions the half way between two pixels decides. The outline is what lies within the pen's width of the
/// disc's edge, counted along rows and columns.
struct Stamp {
    std::int32_t reach = 0;  ///< pixels from the middle to the edge, 0 for a single pixel
    std::vector<StampSpan> outline;
    std::vector<StampSpan> inside;
    std::vector<StampSpan> disc;
    /// Puts a small disc down whole, given the word of its middle and the words in a row; null for a larger one.
    void (*putWhole)(std::uint32_t* middle, std::ptrdiff_t stride, std::uint32_t bits) = nullptr;
};

/// Circles up to this reach have a stamp.
inline constexpr std::int32_t kFarthestStampReach = 512;

/// Given     radius      of the middle of the pen, pixels, 0 or more
///           penWidth    1 or more
Stamp MakeCircle(std::int32_t radius, std::int32_t penWidth);

/// Puts one of the three down, its middle on a pixel. Nothing outside the raster is touched.
void PutSpans(const Raster& raster, const std::vector<StampSpan>& spans, PixelPoint middle, Ink ink);

/// Whether all of a stamp falls into the raster.
inline bool FallsInside(const Raster& raster, const Stamp& stamp, PixelPoint middle) {
    const auto isWithin = [reach = stamp.reach](std::int32_t place, std::int32_t size) {
        const std::int32_t places = size > 2 * reach ? size - 2 * reach : 0;
        return static_cast<std::uint32_t>(place - reach) < static_cast<std::uint32_t>(places);
    };
    return isWithin(middle.x, raster.width) && isWithin(middle.y, raster.height);
}

/// The whole disc in one colour.
inline void PutDisc(const Raster& raster, const Stamp& stamp, PixelPoint middle, std::uint32_t bits) {
    if (stamp.putWhole != nullptr && FallsInside(raster, stamp, middle))
        stamp.putWhole(raster.Row(middle.y) + middle.x, raster.stride, bits);
    else
        PutSpans(raster, stamp.disc, middle, {bits, false});
}

}  // namespace halvern
