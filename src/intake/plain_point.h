#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace halvern {

/// The numbers of a scan's point.
struct ScanPoint {
    float radius;  ///< cm
    float signal;
};

namespace plain_point {

/// Eight characters as the bytes of a number, the first one lowest.
inline std::uint64_t Load(const char* at) {
    std::uint64_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
}

/// Whether the bytes that `digits` marks with 0xFF are at most 9, and those that `others` marks are 0.
inline bool AreDigits(std::uint64_t bytes, std::uint64_t digits, std::uint64_t others) {
    constexpr std::uint64_t kHighHalves = 0xF0F0F0F0F0F0F0F0, kSixes = 0x0606060606060606;
    const std::uint64_t marked = bytes & digits;
    return (((marked + (kSixes & digits)) | marked) & kHighHalves) == 0 && (bytes & others) == 0;
}

/// The number of four digits, one a byte, the first one lowest; what stands above them does not count.
inline std::uint32_t FourDigits(std::uint64_t digits) {
    const std::uint64_t pairs = (digits * 10 + (digits >> 8)) & 0x00FF00FF;
    return static_cast<std::uint32_t>((pairs * 100 + (pairs >> 16)) & 0xFFFF);
}

inline constexpr int kLargestPower = 22;

/// Powers of ten from -22 to 22, of which those from 0 on are exact.
inline constexpr std::array<double, 2 * kLargestPower + 1> kPowers = {
    1E-22, 1E-21, 1E-20, 1E-19, 1E-18, 1E-17, 1E-16, 1E-15, 1E-14, 1E-13, 1E-12, 1E-11, 1E-10, 1E-9, 1E-8,
    1E-7,  1E-6,  1E-5,  1E-4,  1E-3,  1E-2,  1E-1,  1E0,   1E1,   1E2,   1E3,   1E4,   1E5,   1E6,  1E7,
    1E8,   1E9,   1E10,  1E11,  1E12,  1E13,  1E14,  1E15,  1E16,  1E17,  1E18,  1E19,  1E20,  1E21, 1E22};

/// Digits, six at most, times a power of ten from -22 to 22, as a single.
///
/// A quotient by a power of ten has one rounding less than the product, but takes three times as long. In single they are
/// the same for each of the 45 million numbers.
inline float Scaled(std::uint32_t digits, int exponent) {
    const double product =
        static_cast<std::int32_t>(digits) * kPowers[static_cast<std::size_t>(exponent + kLargestPower)];
    return static_cast<float>(product);
}

/// Reads "d.dddd " at the columns of the radius.
inline bool ReadRadius(const char* at, float& radius) {
    const std::uint64_t bytes = Load(at) ^ 0x0020303030302E30;
    if (!AreDigits(bytes, 0x0000FFFFFFFF00FF, 0x00FF00000000FF00))
        return false;
    const std::uint32_t digits = static_cast<std::uint32_t>(bytes & 0xF) * 10000 + FourDigits(bytes >> 16);
    radius = Scaled(digits, -4);
    return true;
}

/// Reads the two digits of an exponent, with its sign before them.
inline bool ReadExponent(char sign, const char* digits, int& exponent) {
    const auto tens = static_cast<unsigned>(digits[0] - '0'), ones = static_cast<unsigned>(digits[1] - '0');
    if ((sign != '-' && sign != '+') || tens > 9 || ones > 9)
        return false;
    const int size = static_cast<int>(10 * tens + ones);
    exponent = (',' - sign) * size;  // the comma stands between plus and minus
    return true;
}

/// Reads "d.dddddE" and an exponent of two digits, or of four of which the first two are zeros, behind a blank or a minus
/// sign.
template <int kExponentDigits>
inline bool ReadSignal(const char* at, float& signal) {
    constexpr int kDecimals = 5;
    constexpr int kPadding = kExponentDigits - 2;
    const char sign = at[-1];
    const std::uint64_t bytes = Load(at) ^ 0x4530303030302E30;
    if (!AreDigits(bytes, 0x00FFFFFFFFFF00FF, 0xFF0000000000FF00) || (sign != ' ' && sign != '-'))
        return false;
    for (int i = 0; i < kPadding; ++i)
        if (at[9 + i] != '0')
            return false;
    int exponent = 0;
    if (!ReadExponent(at[8], at + 9 + kPadding, exponent))
        return false;
    exponent -= kDecimals;
    if (exponent > kLargestPower || exponent < -kLargestPower)
        return false;
    const auto digits =
        static_cast<std::uint32_t>((bytes & 0xF) * 100000 + FourDigits(bytes >> 16) * 10 + (bytes >> 48));
    // Noise has either sign: a choice between them would be guessed wrong half the time.
    const std::uint32_t signBit = sign == '-' ? 0x80000000 : 0;
    signal = std::bit_cast<float>(std::bit_cast<std::uint32_t>(Scaled(digits, exponent)) | signBit);
    return true;
}

}  // namespace plain_point

/// Reads a point's line as an interferometer or an absorbance optics writes it: the radius with four decimals in columns
/// 4 to 10, the signal with five that ends in column 24; its exponent has two digits or, with a column behind it, four.
///
///        5.9007   -5.09242E-03
///        5.9110  4.57670E-0002   5.91012E-0003
///
/// Result    false, without a word about the line, for any other layout
/// Note      the numbers are those of Val, to the bit. A scan file has two thousand such lines
inline bool ReadPlainPoint(std::string_view line, ScanPoint& point) {
    constexpr std::size_t kInterference = 24, kAbsorbance = 25;
    const char* const at = line.data();
    if (line.size() == kInterference)
        return at[10] == ' ' && at[11] == ' ' && plain_point::ReadRadius(at + 3, point.radius) &&
               plain_point::ReadSignal<2>(at + 13, point.signal);
    return line.size() >= kAbsorbance && at[24] == ' ' && plain_point::ReadRadius(at + 3, point.radius) &&
           plain_point::ReadSignal<4>(at + 11, point.signal);
}

}  // namespace halvern
