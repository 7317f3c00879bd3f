#pragma once

#include <array>
#include <cstdint>

#include "store/analysis_store.h"

namespace halvern {

/// A curve of up to 2048 points, in singles.
using Curve = BoundedArray<float, Points>;

/// Points of every interpolated grid.
inline constexpr std::int32_t kMostGridPoints = 2000;

/// The values of a grid, rising.
using GridValues = std::array<float, kMostGridPoints>;

/// Carries a curve onto a uniform grid, linearly between its points and flat in front of its first one.
///
/// Given     X, Y     the curve, X rising; overwritten with the grid and the values on it
///           NIn      points of the curve, 1 .. 2048
///           Step     spacing of the grid
/// Result    NOut     points of the grid that the curve reaches, at most 2000
/// Rounding  grid: I times Step is a single. The slope is worked wide and stored as a single; the value on the grid is
///           worked in singles, every operation rounded
/// Fails     9 with NIn outside 1 .. 2048
void InterpolateToRadialGrid(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step);

/// The same onto a grid of s* in seconds, Step in Svedbergs: a grid value is 1E-13 times a single, rounded again.
void InterpolateToSGrid(Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut, float Step);

/// That grid, and the interpolation onto it for whoever has many curves.
GridValues SGrid(float Step);
void InterpolateTo(const GridValues& grid, Curve& X, Curve& Y, std::int16_t NIn, std::int16_t& NOut);

}  // namespace halvern
