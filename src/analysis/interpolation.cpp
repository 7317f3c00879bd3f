#include "analysis/interpolation.h"

#include "analysis/linear_interpolation.h"
#include "store/single.h"

namespace halvern {

namespace {

constexpr double kSvedberg = 1E-13;

/// The slope behind point J: differences and quotient are worked wide, and stored once.
float SlopeAt(const Curve& X, const Curve& Y, std::int32_t J) {
    const double rise = static_cast<double>(Y(J + 1)) - Y(J);
    const double run = static_cast<double>(X(J + 1)) - X(J);
    return Single(Quotient(rise, run));
}

}  // namespace

void InterpolateToRadialGrid(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step) {
    InterpolateLinearly(
        X, Y, NIn, NOut, [=](std::int32_t I) { return Single(static_cast<double>(I) * Step); },
        [&](std::int32_t J) { return SlopeAt(X, Y, J); });
}

void InterpolateToSGrid(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step) {
    InterpolateLinearly(
        X, Y, NIn, NOut, [=](std::int32_t I) { return Single(kSvedberg * Single(static_cast<double>(I) * Step)); },
        [&](std::int32_t J) { return SlopeAt(X, Y, J); });
}

}  // namespace halvern
