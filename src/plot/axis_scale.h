#pragma once

#include <cstdint>
#include <string>

namespace halvern {

/// A scale of round limits around a range, with 5 to some 10 intervals.
///
/// Given     Min, Max     data range, Min less than Max
/// Result    ScaleMin, ScaleMax   multiples of the step, as singles; Min and Max lie between them. A limit never crosses
///                                zero for the sake of a margin
///           Intervals    steps between the two
/// Rounding  every operation is rounded to single; only the logarithm is taken in double, and stored as a single
/// Note      with a step below the resolution of a single at Min, ScaleMin may lie a bit above Min
/// Fails     5, 6 or 11 with a range that is too small for a single
void NiceScale(float Min, float Max, float& ScaleMin, float& ScaleMax, std::int32_t& Intervals);

/// The power of ten that the labels of an axis from A to B leave out: that of the end of smaller magnitude, a zero end
/// aside.
///
/// Result    ExpText   sign and two digits, "+03"; "+00" in place of "+01" and "-01", so that 12.5 stays 12.500
void AxisExponent(float A, float B, std::string& ExpText);

/// What the paint handler needs of one axis.
struct Axis {
    float Min = 0.0F, Max = 0.0F;  ///< data values at the ends of the box
    std::int16_t Labels = 0;       ///< intervals + 1
    float Step = 0.0F;             ///< data units of an interval
    float Pow = 1.0F;              ///< the power of ten that the labels leave out
    std::string Suffix;            ///< what follows the axis title, empty for a power of 1
};

/// Works out the x axis from `PlotXMin` and `PlotXMax`. If these are equal, they are widened and the user is warned; a
/// range of zero at zero stays as it is, so that every paint warns again.
Axis WorkOutXAxis();

/// The same for y.
Axis WorkOutYAxis();

}  // namespace halvern
