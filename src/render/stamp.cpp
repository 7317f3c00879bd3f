#include "render/stamp.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace halvern {

namespace {

/// Half the width of a row of a disc, rows counted from the middle: the row has pixels from minus that to that.
///
/// Of the two distances of a pixel from the middle the longer, a, decides: half a pixel less of it has to be inside the
/// circle, (a - 1/2)^2 + b^2 < r^2 - in whole numbers without the quarter.
constexpr std::int32_t HalfRow(std::int64_t radius, std::int64_t y) {
    for (std::int64_t x = radius; x > 0; --x) {
        const std::int64_t a = x > y ? x : y;
        const std::int64_t b = x > y ? y : x;
        if (a * a - a + b * b < radius * radius)
            return static_cast<std::int32_t>(x);
    }
    return 0;
}

std::vector<std::int32_t> HalfRows(std::int32_t radius) {
    std::vector<std::int32_t> rows;
    for (std::int32_t y = 0; y <= radius; ++y)
        rows.push_back(HalfRow(radius, y));
    return rows;
}

/// A row of a disc whose radius is known beforehand: the compiler writes its pixels out.
template <std::int32_t kRadius, std::int32_t kY>
inline void PutRow(std::uint32_t* middle, std::ptrdiff_t stride, std::uint32_t bits) {
    constexpr std::int32_t kHalf = HalfRow(kRadius, kY < 0 ? -kY : kY);
    std::uint32_t* const row = middle + kY * stride;
    for (std::int32_t x = -kHalf; x <= kHalf; ++x)
        row[x] = bits;
}

template <std::int32_t kRadius, std::int32_t... kRows>
inline void PutRows(std::uint32_t* middle, std::ptrdiff_t stride, std::uint32_t bits,
                    std::integer_sequence<std::int32_t, kRows...> /*rows*/) {
    (PutRow<kRadius, kRows - kRadius>(middle, stride, bits), ...);
}

template <std::int32_t kRadius>
void PutReadyDisc(std::uint32_t* middle, std::ptrdiff_t stride, std::uint32_t bits) {
    PutRows<kRadius>(middle, stride, bits, std::make_integer_sequence<std::int32_t, 2 * kRadius + 1>());
}

/// The discs of plain and large symbols in windows of up to four megapixels.
constexpr decltype(Stamp::putWhole) kReadyDiscs[] = {PutReadyDisc<0>, PutReadyDisc<1>, PutReadyDisc<2>,
                                                     PutReadyDisc<3>, PutReadyDisc<4>, PutReadyDisc<5>};

/// The rows of what is left of a disc when its edge is taken away once: a pixel stays if its four neighbours are there.
std::vector<std::int32_t> WithoutEdge(const std::vector<std::int32_t>& rows) {
    std::vector<std::int32_t> left;
    for (std::size_t y = 0; y + 1 < rows.size(); ++y)
        left.push_back(std::min(rows[y] - 1, rows[y + 1]));
    while (!left.empty() && left.back() < 0)
        left.pop_back();
    return left;
}

}  // namespace

Stamp MakeCircle(std::int32_t radius, std::int32_t penWidth) {
    const std::vector<std::int32_t> disc = HalfRows(radius + (penWidth - 1) / 2);
    std::vector<std::int32_t> inside = disc;
    for (std::int32_t i = 0; i < penWidth && !inside.empty(); ++i)
        inside = WithoutEdge(inside);

    Stamp stamp;
    stamp.reach = static_cast<std::int32_t>(disc.size()) - 1;
    if (disc.size() <= std::size(kReadyDiscs))
        stamp.putWhole = kReadyDiscs[stamp.reach];
    for (std::int32_t y = -stamp.reach; y <= stamp.reach; ++y) {
        const auto row = static_cast<std::size_t>(std::abs(y));
        const std::int32_t x = disc[row];
        stamp.disc.push_back({y, -x, x});
        if (row >= inside.size()) {
            stamp.outline.push_back({y, -x, x});
            continue;
        }
        const std::int32_t hole = inside[row];
        stamp.inside.push_back({y, -hole, hole});
        stamp.outline.push_back({y, -x, -hole - 1});
        stamp.outline.push_back({y, hole + 1, x});
    }
    return stamp;
}

void PutSpans(const Raster& raster, const std::vector<StampSpan>& spans, PixelPoint middle, Ink ink) {
    for (const auto& span : spans)
        FillSpan(raster, middle.x + span.x1, middle.x + span.x2, middle.y + span.y, ink);
}

}  // namespace halvern
