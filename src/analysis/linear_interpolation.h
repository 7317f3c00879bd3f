#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "analysis/interpolation.h"
#include "store/failure.h"
#include "store/single.h"

namespace halvern {

/// Linear interpolation of a curve onto a grid; what the grids of the program have in common.
///
/// Given     X, Y      the curve, X rising; overwritten with the grid and the values on it
///           NIn       points of the curve, 1 .. 2048
///           grid      rising
///           SlopeAt   SlopeAt(J) is the slope from point J to the next, which lies beyond it, single
/// Result    NOut      points of the grid that the curve reaches, at most 2000. In front of the curve's first point the
///                     values are that point's
/// Rounding  a value on the grid is worked in singles, every operation rounded
/// Fails     9 with NIn outside 1 .. 2048, 6 with a value beyond the singles
template <class Slope>
void InterpolateLinearly(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, const GridValues& grid,
                         Slope SlopeAt) {
    std::array<float, kMostGridPoints> out;
    const std::span<const float> x = X.Elements(), y = Y.Elements();
    // Grid values are counted from 0, and so are the points of the curve. Neither goes back.
    const auto countUpTo = [&](float value) {
        return static_cast<std::size_t>(std::upper_bound(grid.begin(), grid.end(), value) - grid.begin());
    };
    std::size_t i = countUpTo(x[0]);
    std::fill_n(out.begin(), i, y[0]);
    if (i < grid.size() && (NIn < 1 || NIn > static_cast<std::int32_t>(x.size())))
        Fail(FailureCode::kSubscriptOutOfRange);
    const auto count = static_cast<std::size_t>(std::max<std::int16_t>(NIn, 1));
    const std::size_t end = countUpTo(x[count - 1]);
    // The next value of the grid lies beyond point j, and all of them at or before the last point: j stays in front of it.
    const auto isBehind = [&](std::size_t j) { return grid[i] <= x[j + 1]; };
    for (std::size_t j = 0; i < end; ++j) {
        if (!isBehind(j))
            continue;
        const float slope = SlopeAt(static_cast<std::int32_t>(j + 1));
        do {
            const float rise = (grid[i] - x[j]) * slope;
            out[i] = rise + y[j];
            ++i;
        } while (i < end && isBehind(j));
    }
    FailUnlessFinite(std::span(out).first(i));
    NOut = static_cast<std::int16_t>(i);
    std::copy_n(grid.begin(), i, X.Elements().begin());
    std::copy_n(out.begin(), i, Y.Elements().begin());
}

}  // namespace halvern
