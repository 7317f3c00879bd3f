#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

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

/// What Single is for values that were worked in singles at once. Of a sum, a difference, a product or a quotient of two
/// singles the bits are those of the operation in double and a rounding behind it: 53 bits are more than twice 24 and 2.
///
/// Fails     6 with a value that is infinite or no number
inline void FailUnlessFinite(std::span<const float> values) {
    // Plain, so that the compiler does several at once.
    int isAnyNot = 0;
    for (const float value : values)
        isAnyNot |= static_cast<int>(!(std::fabs(value) <= std::numeric_limits<float>::max()));
    if (isAnyNot != 0)
        Fail(FailureCode::kOverflow);
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
