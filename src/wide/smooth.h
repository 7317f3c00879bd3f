#pragma once

#include <cstdint>

#include "store/analysis_store.h"

namespace halvern {

/// A curve over the scans, in singles.
using ScanCurve = BoundedArray<float, Scans>;

/// A running mean, run several times. The window shrinks towards both ends, so that the first point and the last stay.
///
/// Given     Values   overwritten with the smoothed curve
///           Count    points of it
///           Passes   how often
///           Window   points of the mean; an even number is raised by one, for the caller too
/// Rounding  the sum is a single that is carried along from point to point, and rounded at each step; so is each mean
/// Fails     9 with a window that reaches beyond 500 points
void SmoothData(ScanCurve& Values, std::int32_t Count, float Passes, std::int16_t& Window);

}  // namespace halvern
