#include "analysis/interpolation.h"

#include <cstddef>
#include <span>

#include "analysis/linear_interpolation.h"
#include "store/single.h"
#include "store/svedberg.h"

namespace halvern {

namespace {

template <class Grid>
GridValues ValuesOf(Grid gridAt) {
    GridValues values;
    for (std::int32_t I = 1; I <= kMostGridPoints; ++I)
        values[static_cast<std::size_t>(I - 1)] = gridAt(I);
    return values;
}

}  // namespace

GridValues SGrid(float Step) {
    return ValuesOf([=](std::int32_t I) { return Single(kSvedberg * Single(static_cast<double>(I) * Step)); });
}

/// Of a slope, differences and quotient are worked wide and stored once. Its points differ, and what is too steep for a
/// single shows in the values.
void InterpolateTo(const GridValues& grid, Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut) {
    const std::span<const float> x = X.Elements(), y = Y.Elements();
    InterpolateLinearly(X, Y, NIn, NOut, grid, [=](std::int32_t J) {
        const auto j = static_cast<std::size_t>(J - 1);
        const double rise = static_cast<double>(y[j + 1]) - y[j];
        const double run = static_cast<double>(x[j + 1]) - x[j];
        return static_cast<float>(rise / run);
    });
}

void InterpolateToRadialGrid(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step) {
    const auto gridAt = [=](std::int32_t I) { return Single(static_cast<double>(I) * Step); };
    InterpolateTo(ValuesOf(gridAt), X, Y, NIn, NOut);
}

void InterpolateToSGrid(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step) {
    InterpolateTo(SGrid(Step), X, Y, NIn, NOut);
}

}  // namespace halvern
