#pragma once

#include <array>
#include <cstdint>

#include "analysis/interpolation.h"
#include "store/single.h"

namespace halvern {

/// Linear interpolation of a curve onto a grid; what the grids of the program have in common.
///
/// Given     X, Y      the curve, X rising; overwritten with the grid and the values on it
///           NIn       points of the curve, 1 .. 2048
///           GridAt    GridAt(I) is grid value I, single
///           SlopeAt   SlopeAt(J) is the slope from point J to the next, single
/// Result    NOut      points of the grid that the curve reaches, at most 2000. In front of the curve's first point the
///                     values are that point's
/// Rounding  a value on the grid is worked in singles, every operation rounded
/// Fails     9 with NIn outside 1 .. 2048
template <class Grid, class Slope>
void InterpolateLinearly(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, Grid GridAt, Slope SlopeAt) {
    std::array<float, kMostGridPoints> grid;
    std::array<float, kMostGridPoints> out;
    std::int32_t J = 1;
    // Moves J up to the interval that holds a grid value.
    const auto findInterval = [&](float value) {
        for (; J <= NIn; ++J)
            if (X(J) < value && value <= X(J + 1))
                return true;
        return false;
    };
    const auto valueAt = [&](float value) {
        const float slope = SlopeAt(J);
        const float beyond = Single(static_cast<double>(value) - X(J));
        const float rise = Single(static_cast<double>(beyond) * slope);
        return Single(static_cast<double>(rise) + Y(J));
    };
    std::int32_t I = 1;
    for (; I <= kMostGridPoints; ++I) {
        const auto place = static_cast<std::size_t>(I - 1);
        const float value = grid[place] = GridAt(I);
        if (value <= X(1))
            out[place] = Y(1);
        else if (value > X(NIn) || !findInterval(value))
            break;
        else
            out[place] = valueAt(value);
    }
    NOut = static_cast<std::int16_t>(I - 1);
    for (std::int32_t K = 1; K <= NOut; ++K) {
        X(K) = grid[static_cast<std::size_t>(K - 1)];
        Y(K) = out[static_cast<std::size_t>(K - 1)];
    }
}

}  // namespace halvern
