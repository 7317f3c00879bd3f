#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "store/failure.h"

namespace halvern {

/// Wider than double, where a calculation asks for it between two stores.
using Extended = long double;

/// Rounds a value to 32 bits, to the nearest, a half to even: what storing it as a single does.
///
/// Fails     6 with a value above the range of a single, infinity and NaN included
template <class Wide>
inline float Single(Wide value) {
    const auto stored = static_cast<float>(value);
    if (!std::isfinite(stored))
        Fail(FailureCode::kOverflow);
    return stored;
}

/// A quotient carried at the width of the wider operand.
///
/// Fails     11 with a divisor of zero, whatever the dividend
template <class A, class B>
inline auto Quotient(A dividend, B divisor) {
    if (divisor == B{0})
        Fail(FailureCode::kDivisionByZero);
    return dividend / divisor;
}

/// Rounds to the nearest integer, a half to the even neighbour.
///
/// Fails     6 outside -32768 .. 32767 after rounding, and with NaN
std::int16_t ToInteger16(double value);

/// The same for 32 bits: -2147483648 .. 2147483647.
std::int32_t ToInteger32(double value);

}  // namespace halvern
