#include "render/raster.h"

#include <algorithm>
#include <cstdlib>

namespace halvern {

namespace {

/// One side of a line: where it starts, which way it goes, how far, and what the raster has of it.
struct Side {
    std::int32_t start, step;
    std::int64_t length;
    std::int64_t first, last;  ///< steps from the start that are inside the raster

    Side(std::int32_t from, std::int32_t to, std::int32_t size)
        : start(from),
          step(to < from ? -1 : 1),
          length(std::abs(static_cast<std::int64_t>(to) - from)),
          first(std::max<std::int64_t>(
              step > 0 ? -static_cast<std::int64_t>(from) : static_cast<std::int64_t>(from) - size + 1, 0)),
          last(std::min(step > 0 ? static_cast<std::int64_t>(size) - 1 - from : from, length)) {}
};

std::int64_t RoundedUp(std::int64_t dividend, std::int64_t divisor) { return (dividend + divisor - 1) / divisor; }

/// The steps along the longer side whose pixels are inside the raster.
///
/// After i steps along, the line has gone floor((2 i b + a) / 2a) across, a and b being the lengths along and across.
struct Steps {
    std::int64_t first, last;

    Steps(const Side& along, const Side& across) : first(along.first), last(along.last) {
        const std::int64_t a = along.length, b = across.length;
        if (across.first > across.last) {
            last = first - 1;
        } else if (b != 0) {
            if (across.first > 0)
                first = std::max(first, RoundedUp(2 * a * across.first - a, 2 * b));
            if (across.last < b)
                last = std::min(last, RoundedUp(2 * a * (across.last + 1) - a, 2 * b) - 1);
        }
    }
};

template <class Put>
void Walk(const Raster& raster, PixelPoint from, PixelPoint to, Put put) {
    const Side x(from.x, to.x, raster.width), y(from.y, to.y, raster.height);
    const bool flat = x.length >= y.length;
    const Side& along = flat ? x : y;
    const Side& across = flat ? y : x;
    const Steps steps(along, across);
    if (steps.first > steps.last)
        return;
    const std::int64_t a = 2 * along.length, b = 2 * across.length;
    const std::int64_t sum = steps.first * b + along.length;
    const std::int64_t gone = a == 0 ? 0 : sum / a;
    std::int64_t rest = a == 0 ? 0 : sum % a;

    const std::ptrdiff_t alongStep = (flat ? 1 : raster.stride) * along.step;
    const std::ptrdiff_t acrossStep = (flat ? raster.stride : 1) * across.step;
    const std::int64_t alongPlace = along.start + along.step * steps.first;
    const std::int64_t acrossPlace = across.start + across.step * gone;
    std::uint32_t* pixel =
        raster.pixels + alongPlace * (flat ? 1 : raster.stride) + acrossPlace * (flat ? raster.stride : 1);
    for (std::int64_t left = steps.last - steps.first;; --left) {
        put(*pixel);
        if (left == 0)
            return;
        pixel += alongStep;
        rest += b;
        if (rest >= a) {
            rest -= a;
            pixel += acrossStep;
        }
    }
}

}  // namespace

void FillSpan(const Raster& raster, std::int32_t x1, std::int32_t x2, std::int32_t y, Ink ink) {
    x1 = std::max(x1, 0);
    x2 = std::min(x2, raster.width - 1);
    if (y < 0 || y >= raster.height || x1 > x2)
        return;
    std::uint32_t* const row = raster.Row(y);
    if (ink.exclusiveOr)
        std::for_each(row + x1, row + x2 + 1, [&](std::uint32_t& pixel) { pixel ^= ink.bits; });
    else
        std::fill(row + x1, row + x2 + 1, ink.bits);
}

void DrawThinLine(const Raster& raster, PixelPoint from, PixelPoint to, Ink ink) {
    if (ink.exclusiveOr)
        Walk(raster, from, to, [&](std::uint32_t& pixel) { pixel ^= ink.bits; });
    else
        Walk(raster, from, to, [&](std::uint32_t& pixel) { pixel = ink.bits; });
}

}  // namespace halvern
