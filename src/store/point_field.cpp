#include "store/point_field.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace halvern {

namespace {

constexpr Pattern kRadius{"  0.0000"};
constexpr Pattern kSignal{"  0.0000E+00; -0.0000E+00"};
constexpr Pattern kPlot{"    0.0000E+00;   -0.0000E+00"};

// A single has 24 significant bits, and 10^k has 24 or fewer besides its factor 2^k for k up to 10: their product is exact
// in a double, and so is the half added to it. A tie is seen as one, and goes away from zero. What lies closer to a tie
// than the 15th digit, which Format rounds first, cannot arise within the ranges below.
constexpr float kLeastSize = 1E-5F, kBeyondSize = 1E5F;
constexpr float kLeastRadius = 1.0F, kBeyondRadius = 10.0F;

constexpr std::array<double, 10> kPowers = {1E0, 1E1, 1E2, 1E3, 1E4, 1E5, 1E6, 1E7, 1E8, 1E9};

/// "00" to "99", one behind the other.
constexpr auto kPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

void PutPair(char* out, std::uint32_t pair) { std::memcpy(out, &kPairs[2 * pair], 2); }

/// Five digits with a point behind the first.
char* PutMantissa(char* out, std::uint32_t digits) {
    const std::uint32_t fraction = digits % 10000;
    out[0] = static_cast<char>('0' + digits / 10000);
    out[1] = '.';
    PutPair(out + 2, fraction / 100);
    PutPair(out + 4, fraction % 100);
    return out + 6;
}

/// The decimal exponent of a positive number within the range of the fast way: the one that its binary exponent gives to
/// the power of two below it, or one more.
int ExponentOf(float value) {
    constexpr std::array<float, 11> kLeast = {1E-5F, 1E-4F, 1E-3F, 1E-2F, 1E-1F, 1E0F, 1E1F, 1E2F, 1E3F, 1E4F, 1E5F};
    const int binary = static_cast<int>(std::bit_cast<std::uint32_t>(value) >> 23) - 127;
    const int lower = (binary * 1233 + 6 * 4096) / 4096 - 6;  // 1233 / 4096 is the logarithm of 2
    return lower + (value >= kLeast[static_cast<std::size_t>(lower + 6)] ? 1 : 0);
}

bool CanBeFast(float value) {
    const float size = std::fabs(value);
    return (size >= kLeastSize && size < kBeyondSize) || (size == 0.0F && !std::signbit(value));
}

/// The whole number next to one that is not negative; of two the greater.
std::uint32_t HalvesUp(double value) {
    const double raised = value + 0.5;
    return static_cast<std::uint32_t>(raised);
}

/// A minus sign or a blank, five digits, and the exponent.
char* PutSigned(char* out, float value) {
    const float size = std::fabs(value);
    int exponent = size == 0.0F ? 0 : ExponentOf(size);
    std::uint32_t digits = HalvesUp(size * kPowers[static_cast<std::size_t>(4 - exponent)]);
    if (digits == 100000) {
        digits = 10000;
        ++exponent;
    }
    *out = value < 0.0F ? '-' : ' ';
    out = PutMantissa(out + 1, digits);
    out[0] = 'E';
    out[1] = exponent < 0 ? '-' : '+';
    PutPair(out + 2, static_cast<std::uint32_t>(std::abs(exponent)));
    return out + 4;
}

}  // namespace

char* RadiusField(char* out, float radius) noexcept {
    if (!(radius >= kLeastRadius && radius < kBeyondRadius))
        return FormatTo(out, radius, kRadius);
    const std::uint32_t digits = HalvesUp(static_cast<double>(radius) * 1E4);
    if (digits >= 100000)
        return FormatTo(out, radius, kRadius);
    out[0] = out[1] = ' ';
    return PutMantissa(out + 2, digits);
}

char* SignalField(char* out, float signal) noexcept {
    if (!CanBeFast(signal))
        return FormatTo(out, signal, kSignal);
    *out = ' ';
    return PutSigned(out + 1, signal);
}

char* PlotField(char* out, float value) noexcept {
    if (!CanBeFast(value))
        return FormatTo(out, value, kPlot);
    std::fill_n(out, 3, ' ');
    return PutSigned(out + 3, value);
}

}  // namespace halvern
