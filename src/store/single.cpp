#include "store/single.h"

namespace halvern {

namespace {

// Half to even without regard to the processor's rounding mode.
double RoundHalfToEven(double value) {
    const double below = std::floor(value);
    const double part = value - below;
    if (part != 0.5)
        return part < 0.5 ? below : below + 1.0;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

template <class Integer>
Integer ToInteger(double value) {
    const double rounded = RoundHalfToEven(value);
    const bool fits = rounded >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
                      rounded <= static_cast<double>(std::numeric_limits<Integer>::max());
    if (!fits)
        Fail(FailureCode::kOverflow);
    return static_cast<Integer>(rounded);
}

}  // namespace

std::int16_t ToInteger16(double value) { return ToInteger<std::int16_t>(value); }

std::int32_t ToInteger32(double value) { return ToInteger<std::int32_t>(value); }

}  // namespace halvern
