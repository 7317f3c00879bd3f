#pragma once

namespace halvern {

/// The natural logarithm, in double.
///
/// Fails     5 with zero or a negative number
double Ln(double value);

/// The square root, in double.
///
/// Fails     5 with a negative number
double SquareRoot(double value);

/// e to a power, in double.
///
/// Fails     6 above the range of a double
double Exp(double value);

}  // namespace halvern
