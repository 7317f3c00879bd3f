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

/// What eight characters of a layout have to be: a '0' stands for any digit, a '?' for one from blank to slash, a sign say,
/// the rest for itself.
struct Layout {
    std::uint64_t bytes = 0;
    std::uint64_t reach = 0;  // what takes a byte that is too large, once `bytes` are off, above its lower half

    consteval explicit Layout(const char (&text)[9]) {
        for (unsigned i = 0; i < 8; ++i) {
            const std::uint64_t byte = text[i] == '?' ? ' ' : static_cast<unsigned char>(text[i]);
            const std::uint64_t least = text[i] == '0' ? 10 : text[i] == '?' ? 16 : 1;
            bytes |= byte << (8 * i);
            reach |= (16 - least) << (8 * i);
        }
    }

    /// The characters with those of the layout taken off: a digit is its value then.
    std::uint64_t Without(std::uint64_t characters) const { return characters ^ bytes; }

    /// Has a bit of kMisfits set if what Without has given is not of the layout.
    std::uint64_t Misfit(std::uint64_t rest) const { return (rest + reach) | rest; }
};

inline constexpr std::uint64_t kMisfits = 0xF0F0F0F0F0F0F0F0;

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

/// The characters of a signal's signs, those of the layout's '?' taken off.
inline constexpr unsigned kBlank = ' ' - ' ', kPlus = '+' - ' ', kMinus = '-' - ' ';

/// Whether a signal of these signs is one: a blank or a minus in front, a sign in front of the exponent.
inline bool AreSigns(unsigned sign, unsigned exponentSign) {
    constexpr unsigned kInFront = 1U << kBlank | 1U << kMinus, kOfExponent = 1U << kPlus | 1U << kMinus;
    return ((kInFront >> sign) & (kOfExponent >> exponentSign) & 1) != 0;
}

/// The signal of six digits with five of them behind the point, and an exponent.
///
/// Result    false where the signs are none, or the power of ten is out of bounds
inline bool MakeSignal(unsigned sign, std::uint32_t digits, unsigned exponentSign, unsigned exponent, float& signal) {
    constexpr int kDecimals = 5;
    constexpr int kBetweenSigns = (kPlus + kMinus) / 2;
    if (!AreSigns(sign, exponentSign))
        return false;
    const int power = (kBetweenSigns - static_cast<int>(exponentSign)) * static_cast<int>(exponent) - kDecimals;
    if (power > kLargestPower || power < -kLargestPower)
        return false;
    // Noise has either sign: a choice between them would be guessed wrong half the time. Of the two, a minus is odd.
    const std::uint32_t signBit = (sign & 1U) << 31;
    signal = std::bit_cast<float>(std::bit_cast<std::uint32_t>(Scaled(digits, power)) | signBit);
    return true;
}

inline unsigned Digit(std::uint64_t rest, unsigned place) { return static_cast<unsigned>(rest >> (8 * place)) & 0xF; }

/// The first 24 characters of a line, those of its layout taken off.
struct Columns {
    std::uint64_t first, second, third;

    /// Result    false if they do not have the layout
    bool Read(const char* at, const Layout& a, const Layout& b, const Layout& c) {
        first = a.Without(Load(at));
        second = b.Without(Load(at + 8));
        third = c.Without(Load(at + 16));
        return ((a.Misfit(first) | b.Misfit(second) | c.Misfit(third)) & kMisfits) == 0;
    }

    /// "   d.dddd", of either optics.
    float Radius() const { return Scaled(Digit(first, 3) * 10000 + FourDigits(first >> 40 | second << 24), -4); }
};

/// "   d.dddd   -d.dddddE-dd", the 24 characters of the interferometer.
inline bool ReadInterference(const char* at, ScanPoint& point) {
    constexpr Layout kFirst{"   0.000"}, kSecond{"0   ?0.0"}, kThird{"0000E?00"};
    Columns line;
    if (!line.Read(at, kFirst, kSecond, kThird))
        return false;
    point.radius = line.Radius();
    const std::uint32_t digits =
        Digit(line.second, 5) * 100000 + Digit(line.second, 7) * 10000 + FourDigits(line.third);
    const unsigned exponent = Digit(line.third, 6) * 10 + Digit(line.third, 7);
    return MakeSignal(Digit(line.second, 4), digits, Digit(line.third, 5), exponent, point.signal);
}

/// "   d.dddd -d.dddddE-dddd ", the first 25 characters of the absorbance optics.
inline bool ReadAbsorbance(const char* at, ScanPoint& point) {
    constexpr Layout kFirst{"   0.000"}, kSecond{"0 ?0.000"}, kThird{"00E?0000"};
    Columns line;
    if (!line.Read(at, kFirst, kSecond, kThird) || at[24] != ' ')
        return false;
    point.radius = line.Radius();
    const std::uint32_t digits =
        Digit(line.second, 3) * 100000 + FourDigits(line.second >> 40 | line.third << 24) * 10 + Digit(line.third, 1);
    return MakeSignal(Digit(line.second, 2), digits, Digit(line.third, 3), FourDigits(line.third >> 32), point.signal);
}

}  // namespace plain_point

/// Reads a point's line as an interferometer or an absorbance optics writes it: the radius with four decimals in columns
/// 4 to 10, behind blanks, the signal with five that ends in column 24; its exponent has two digits or, with a column behind
/// it, four.
///
///        5.9007   -5.09242E-03
///        5.9110  4.57670E-0002   5.91012E-0003
///
/// Given     ahead    the line, its end, LF or CR LF, and what stands behind it
/// Result    bytes of the line with its end; 0, without a word about the line, for any other layout: the point is nothing
///           then
/// Note      the numbers are those of Val, to the bit. A scan file has two thousand such lines
inline std::size_t ReadPlainPoint(std::string_view ahead, ScanPoint& point) {
    constexpr std::size_t kSignalEnd = 24;
    if (ahead.size() <= kSignalEnd)
        return 0;
    const char* const at = ahead.data();
    const char behind = at[kSignalEnd];
    if (behind == '\n' || (behind == '\r' && ahead.size() > kSignalEnd + 1 && at[kSignalEnd + 1] == '\n'))
        return plain_point::ReadInterference(at, point) ? kSignalEnd + (behind == '\n' ? 1 : 2) : 0;
    if (!plain_point::ReadAbsorbance(at, point))
        return 0;
    const std::size_t end = ahead.find('\n', kSignalEnd);
    return end == std::string_view::npos ? 0 : end + 1;
}

}  // namespace halvern
