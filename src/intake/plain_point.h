#pragma once

#include <array>
#include <cmath>
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

/// Powers of ten that a double holds without rounding.
inline constexpr std::array<double, 23> kPowers = {1E0,  1E1,  1E2,  1E3,  1E4,  1E5,  1E6,  1E7,
                                                   1E8,  1E9,  1E10, 1E11, 1E12, 1E13, 1E14, 1E15,
                                                   1E16, 1E17, 1E18, 1E19, 1E20, 1E21, 1E22};

inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Reads "d.dddd " at the columns of the radius.
inline bool ReadRadius(const char* at, float& radius) {
    const std::uint64_t bytes = Load(at) ^ 0x0020303030302E30;
    if (!AreDigits(bytes, 0x0000FFFFFFFF00FF, 0x00FF00000000FF00))
        return false;
    const std::uint32_t digits = static_cast<std::uint32_t>(bytes & 0xF) * 10000 + FourDigits(bytes >> 16);
    radius = static_cast<float>(digits / 1E4);
    return true;
}

/// Reads the exponent's sign and its two digits, or four of which the first two are zeros, up to `end` or a blank.
inline bool ReadExponent(const char* at, const char* end, int& exponent) {
    if (*at != '-' && *at != '+')
        return false;
    const char* digits = at + 1;
    if (end - digits >= 4 && digits[0] == '0' && digits[1] == '0' && digits[2] != ' ')
        digits += 2;
    if (!IsDigit(digits[0]) || !IsDigit(digits[1]) || (digits + 2 != end && digits[2] != ' '))
        return false;
    const int size = (digits[0] - '0') * 10 + (digits[1] - '0');
    const int sign = ',' - *at;  // it stands between '+' and '-'
    exponent = sign * size;
    return true;
}

inline constexpr std::ptrdiff_t kShortestSignal = 11;

/// Where the digits of a signal start. Mostly it ends with its field, and need not be searched for.
inline const char* FirstDigitOfSignal(const char* at, const char* end) {
    const char* const first = end - kShortestSignal;
    const char* blanks = at;
    while (blanks < first - 1 && *blanks == ' ')
        ++blanks;
    if (blanks == first - 1 && (*blanks == ' ' || *blanks == '-'))
        return first;
    return blanks + (*blanks == '-' ? 1 : 0);
}

/// Reads "d.dddddE" and an exponent, behind a blank or a minus sign with nothing but blanks before it.
inline bool ReadSignal(const char* field, const char* end, float& signal) {
    constexpr int kDecimals = 5, kLargestPower = static_cast<int>(kPowers.size()) - 1;
    const char* const at = FirstDigitOfSignal(field, end);
    if (at == field || end - at < kShortestSignal)
        return false;
    const bool negative = at[-1] == '-';
    const std::uint64_t bytes = Load(at) ^ 0x4530303030302E30;
    if (!AreDigits(bytes, 0x00FFFFFFFFFF00FF, 0xFF0000000000FF00))
        return false;
    int exponent = 0;
    if (!ReadExponent(at + 8, end, exponent))
        return false;
    exponent -= kDecimals;
    if (exponent > kLargestPower || exponent < -kLargestPower)
        return false;
    const double digits =
        static_cast<std::int32_t>((bytes & 0xF) * 100000 + FourDigits(bytes >> 16) * 10 + (bytes >> 48));
    const double size = exponent < 0 ? digits / kPowers[static_cast<std::size_t>(-exponent)]
                                     : digits * kPowers[static_cast<std::size_t>(exponent)];
    signal = static_cast<float>(std::copysign(size, negative ? -1.0 : 1.0));
    return true;
}

}  // namespace plain_point

/// Reads a point's line as instruments write it, "   5.9007   -5.09242E-03": the radius with four decimals in columns 4
/// to 10, the signal with five in columns 11 to 25.
///
/// Result    false, without a word about the line, for any other layout
/// Note      the numbers are those of Val, to the bit: an integer of at most six digits and a power of ten that a double
///           holds exactly make one rounding, and the single the second one. A scan file has two thousand such lines
inline bool ReadPlainPoint(std::string_view line, ScanPoint& point) {
    constexpr std::size_t kRadius = 3, kSignal = 10, kSignalEnd = 25, kShortest = 21;
    if (line.size() < kShortest)
        return false;
    const char* const end = line.data() + (line.size() < kSignalEnd ? line.size() : kSignalEnd);
    return plain_point::ReadRadius(line.data() + kRadius, point.radius) &&
           plain_point::ReadSignal(line.data() + kSignal, end, point.signal);
}

}  // namespace halvern
