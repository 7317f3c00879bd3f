#include "analysis/interpolation.h"

#include <array>

#include "store/single.h"

namespace halvern {

namespace {

constexpr double kSvedberg = 1E-13;

float RadialGrid(std::int32_t I, float Step) { return Single(static_cast<double>(I) * Step); }

float SGrid(std::int32_t I, float Step) { return Single(kSvedberg * Single(static_cast<double>(I) * Step)); }

float SlopeAt(const Curve& X, const Curve& Y, std::int32_t J) {
    const double rise = static_cast<double>(Y(J + 1)) - Y(J);
    const double run = static_cast<double>(X(J + 1)) - X(J);
    return Single(Quotient(rise, run));
}

float ValueAt(const Curve& X, const Curve& Y, std::int32_t J, float grid) {
    const float Slope = SlopeAt(X, Y, J);
    const float beyond = Single(static_cast<double>(grid) - X(J));
    const float rise = Single(static_cast<double>(beyond) * Slope);
    return Single(static_cast<double>(rise) + Y(J));
}

/// Moves J up to the interval that holds a grid value. False if there is none.
bool FindInterval(const Curve& X, std::int16_t NIn, float grid, std::int32_t& J) {
    for (; J <= NIn; ++J)
        if (X(J) < grid && grid <= X(J + 1))
            return true;
    return false;
}

template <class GridValue>
void Interpolate(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step, GridValue GridAt) {
    std::array<float, kMostGridPoints> Grid;
    std::array<float, kMostGridPoints> Out;
    std::int32_t J = 1;
    std::int32_t I = 1;
    for (; I <= kMostGridPoints; ++I) {
        const auto place = static_cast<std::size_t>(I - 1);
        const float grid = Grid[place] = GridAt(I, Step);
        if (grid <= X(1))
            Out[place] = Y(1);
        else if (grid > X(NIn) || !FindInterval(X, NIn, grid, J))
            break;
        else
            Out[place] = ValueAt(X, Y, J, grid);
    }
    NOut = static_cast<std::int16_t>(I - 1);
    for (std::int32_t K = 1; K <= NOut; ++K) {
        X(K) = Grid[static_cast<std::size_t>(K - 1)];
        Y(K) = Out[static_cast<std::size_t>(K - 1)];
    }
}

}  // namespace

void InterpolateToRadialGrid(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step) {
    Interpolate(X, Y, NIn, NOut, Step, RadialGrid);
}

void InterpolateToSGrid(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step) {
    Interpolate(X, Y, NIn, NOut, Step, SGrid);
}

}  // namespace halvern
