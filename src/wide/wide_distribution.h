#pragma once

#include <cstdint>

#include "analysis/interpolation.h"
#include "store/analysis_store.h"
#include "wide/smooth.h"

namespace halvern {

/// The radii of the wide distribution, from 6.0 to 7.0 cm.
inline constexpr std::int32_t kWideRadii = 11;

/// "Calculate Wide Straight Distribution": g(s*) at eleven radii from the course of the signal in time, over all rotor
/// speeds; then the dialog that chooses which of them to plot.
///
/// Reads     ScanData, ScanPoints, ScanW2t, ScanMeniscus, NumFiles; JitterOffset of interference data
/// Writes    GridRadius, GridSignal, MaxFirstRadius, MinLastRadius; GridPoints of other data
///           WDRadius(K), WDRadiusValid(K)   K = 1 .. 11
///           WDGofS(J, K)    per Svedberg, J = 1 .. NumFiles; J runs against the scans, and point 1 is a placeholder
///           WDSValue(J, K)  Svedbergs
/// Fails     11 with two neighbouring scans of equal s*, or a scan whose omega squared t is 0; 9 with a radius among the
///           first points of the grid
void DoWideStraight_Click();

/// Carries a scan onto the grid of the wide distribution: 5.8 cm and so many steps.
///
/// Rounding  every operation is rounded to single, but that 5.8 is a double
/// Else as InterpolateToRadialGrid
void InterpolateToGrid(Curve& Radii, Curve& Values, std::int16_t PointsIn, std::int16_t& PointsOut, float Step);

/// g(s*) at one radius. Each scan has its own s* there, Ln(radius / meniscus) / omega squared t, and g(s*) is the change
/// of the signal with it, corrected for radial dilution in three steps of a fixed-point iteration.
///
/// Given     Radii, Signal   the common grid, cm, of PointCount points, and the scans on it, ScanCount of them
///           Radius          cm; becomes the first radius of the grid at or beyond it
/// Reads     ScanMeniscus, ScanW2t
/// Result    SValues         Svedbergs, midway between neighbouring scans, J = 2 .. ScanCount
///           GValues         per Svedberg, J = 1 .. ScanCount
/// Fails     9 where no point of the grid lies at or beyond the radius, or the first that does is one of its first six;
///           11 with a meniscus or an omega squared t of 0 and with two neighbouring scans of equal s*; 5 with a meniscus
///           below 0; 6 where a value leaves the range of a single
/// Rounding  derivative and dilution are worked in extended precision, each store a single
/// Note      the eleven points averaged lie one point to the side of the meniscus
void WideAtRadius(const BoundedArray<float, Points>& Radii, const BoundedArray<float, Points, Scans>& Signal,
                  std::int16_t ScanCount, std::int16_t PointCount, float& Radius, ScanCurve& SValues,
                  ScanCurve& GValues);

}  // namespace halvern
