#include "store/format.h"

#include <bit>
#include <charconv>
#include <cmath>

namespace halvern {

namespace {

using Piece = Pattern::Piece;
using Section = Pattern::Section;

__extension__ using Wide = unsigned __int128;

constexpr int kSignificant = 15;  // digits that a double is good for, whatever its value

constexpr std::array<std::uint64_t, kSignificant + 1> PowersOfTen() {
    std::array<std::uint64_t, kSignificant + 1> powers{};
    std::uint64_t power = 1;
    for (auto& entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}

// Powers of five as far as 64 bits hold them.
constexpr std::array<std::uint64_t, 28> PowersOfFive() {
    std::array<std::uint64_t, 28> powers{};
    std::uint64_t power = 1;
    for (auto& entry : powers) {
        entry = power;
        power *= 5;
    }
    return powers;
}

constexpr auto kTenTo = PowersOfTen();
constexpr auto kFiveTo = PowersOfFive();

constexpr std::uint64_t TenTo(int exponent) { return kTenTo[static_cast<std::size_t>(exponent)]; }

// A magnitude as 15 significant digits: digits times 10^(exponent - 14), digits from 10^14 on, or 0 for zero.
struct Decimal {
    std::uint64_t digits = 0;
    int exponent = 0;
};

// Any magnitude but zero.
Decimal DecimalByLibrary(double magnitude) {
    std::array<char, 32> text;
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                          std::chars_format::scientific, kSignificant - 1)
                                .ptr;
    Decimal decimal;  // d.dddddddddddddde+dd
    decimal.digits = static_cast<std::uint64_t>(text[0] - '0');
    const char* at = text.data() + 2;
    for (; *at != 'e'; ++at)
        decimal.digits = 10 * decimal.digits + static_cast<std::uint64_t>(*at - '0');
    at += at[1] == '+' ? 2 : 1;
    std::from_chars(at, end, decimal.exponent);
    return decimal;
}

// The quotient rounded to the nearest, a half to even, of a value and 2^bits.
std::uint64_t ShiftedRounding(Wide value, int bits) {
    const auto quotient = static_cast<std::uint64_t>(value >> bits);
    const Wide rest = value - (Wide{quotient} << bits);
    const Wide half = Wide{1} << (bits - 1);
    const bool up = rest > half || (rest == half && (quotient & 1) != 0);
    return quotient + (up ? 1 : 0);
}

// A magnitude is m * 2^e with an m of 53 bits, so that m * 5^k * 2^(e + k) is its product with 10^k: exact in 128 bits
// for k up to 27, and rounded once by the shift. This serves 1E-13 to 1E15; others go the library's way.
Decimal ToDecimal(double magnitude) {
    if (magnitude == 0.0)
        return {};
    constexpr int kFractionBits = 52;
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const int log2 = static_cast<int>(bits >> kFractionBits) - 1023;
    const std::uint64_t m = (bits & ((std::uint64_t{1} << kFractionBits) - 1)) | (std::uint64_t{1} << kFractionBits);
    // The decimal exponent from the binary one, 78913 / 2^18 being the logarithm of 2: right, or one too small.
    int exponent = (log2 * 78913) >> 18;
    for (;; ++exponent) {
        const int k = kSignificant - 1 - exponent;
        if (k < 0 || k >= static_cast<int>(kFiveTo.size()))
            return DecimalByLibrary(magnitude);
        const Wide product = Wide{m} * kFiveTo[static_cast<std::size_t>(k)];
        const int shift = kFractionBits - log2 - k;
        if (static_cast<std::uint64_t>(product >> shift) >= TenTo(kSignificant))
            continue;
        const std::uint64_t digits = ShiftedRounding(product, shift);
        return digits == TenTo(kSignificant) ? Decimal{TenTo(kSignificant - 1), exponent + 1}
                                             : Decimal{digits, exponent};
    }
}

// Takes `count` digits off the end, rounding a half up.
// Kept: a value is rounded twice, to 15 digits and then here. Rounded at once, 1.005 in "0.00" would be 1.00, since the
// double lies a little below its decimal form.
std::uint64_t WithoutLast(std::uint64_t digits, int count) {
    if (count > kSignificant)
        return 0;
    return (digits + TenTo(count) / 2) / TenTo(count);
}

char* Copy(const char* from, const char* to, char* out) {
    while (from != to)
        *out++ = *from++;
    return out;
}

// The digits of a number as its pattern rounds them, in front of the point and behind it, with all zeros that the
// pattern shows in any case.
class ShownDigits {
  public:
    // The integer `digits` times 10^zeros, of which the pattern's decimals stand behind the point.
    ShownDigits(std::uint64_t digits, int zeros, const Section& section) : begin_(digits_ + kRoom), end_(begin_) {
        for (; zeros > 0; --zeros)
            *--begin_ = '0';
        for (; digits != 0; digits /= 10)
            *--begin_ = static_cast<char>('0' + digits % 10);
        while (end_ - begin_ < section.wholeShown + section.decimals)
            *--begin_ = '0';
        point_ = end_ - section.decimals;
        while (end_ > point_ + section.decimalsShown && end_[-1] == '0')
            --end_;
    }

    // Those that belong to the `count` places from place `from` on; the first place takes those in front of it too.
    char* WriteWhole(int from, int count, int places, char* out) const {
        const auto whole = static_cast<int>(point_ - begin_);
        const int first = from == 0 ? 0 : std::max(0, whole - (places - from));
        const int last = std::max(0, whole - (places - from - count));
        return Copy(begin_ + first, begin_ + last, out);
    }
    char* WriteFraction(int from, int count, char* out) const {
        const auto decimals = static_cast<int>(end_ - point_);
        return Copy(point_ + std::min(from, decimals), point_ + std::min(from + count, decimals), out);
    }

  private:
    static constexpr std::size_t kRoom = kFormatRoom;

    char digits_[kRoom];
    char* begin_;
    const char* end_;
    const char* point_;
};

char* WriteExponent(int exponent, const Section& section, char* out) {
    *out++ = 'E';
    if (exponent < 0)
        *out++ = '-';
    else if (section.plusInExponent)
        *out++ = '+';
    std::array<char, 8> digits;
    int count = 0;
    for (int rest = std::abs(exponent); rest != 0; rest /= 10)
        digits[static_cast<std::size_t>(count++)] = static_cast<char>('0' + rest % 10);
    for (int zeros = section.exponentDigits - count; zeros > 0; --zeros)
        *out++ = '0';
    while (count > 0)
        *out++ = digits[static_cast<std::size_t>(--count)];
    return out;
}

char* WritePieces(const Pattern& pattern, const Section& section, const ShownDigits& digits, int exponent, char* out) {
    for (int i = section.firstPiece; i < section.endPiece; ++i) {
        const Piece& piece = pattern.Pieces()[i];
        const char* const literal = pattern.Text().data() + piece.from;
        switch (piece.kind) {
            case Piece::Kind::kLiteral:
                out = Copy(literal, literal + piece.count, out);
                break;
            case Piece::Kind::kWhole:
                out = digits.WriteWhole(piece.from, piece.count, section.wholePlaces, out);
                break;
            case Piece::Kind::kFraction:
                out = digits.WriteFraction(piece.from, piece.count, out);
                break;
            case Piece::Kind::kExponent:
                out = WriteExponent(exponent, section, out);
                break;
        }
    }
    return out;
}

char* WriteFixed(Decimal value, const Pattern& pattern, const Section& section, char* out) {
    const int surplus = kSignificant - 1 - value.exponent - section.decimals;  // digits too many, or zeros to come
    const std::uint64_t digits = surplus > 0 ? WithoutLast(value.digits, surplus) : value.digits;
    return WritePieces(pattern, section, {digits, std::max(0, -surplus), section}, 0, out);
}

char* WriteScientific(Decimal value, const Pattern& pattern, const Section& section, char* out) {
    const int shown = section.wholePlaces + section.decimals;
    const int surplus = kSignificant - shown;
    if (value.digits == 0)
        return WritePieces(pattern, section, {0, 0, section}, 0, out);
    if (surplus <= 0)
        return WritePieces(pattern, section, {value.digits, -surplus, section},
                           value.exponent + 1 - section.wholePlaces, out);
    std::uint64_t digits = WithoutLast(value.digits, surplus);
    if (digits == TenTo(shown)) {
        digits /= 10;
        ++value.exponent;
    }
    return WritePieces(pattern, section, {digits, 0, section}, value.exponent + 1 - section.wholePlaces, out);
}

char* WriteNotFinite(double value, char* out) {
    if (value < 0.0)
        *out++ = '-';
    const std::string_view text = std::isnan(value) ? "NAN" : "INF";
    return Copy(text.data(), text.data() + text.size(), out);
}

}  // namespace

char* FormatTo(char* out, double value, const Pattern& pattern) noexcept {
    if (!std::isfinite(value))
        return WriteNotFinite(value, out);
    const Section& section = pattern.SectionFor(value);
    // Kept: the sign goes in front of the literals, so that -0.016 in " ##0.000" is "- 0.016".
    if (section.minusInFront)
        *out++ = '-';
    const Decimal decimal = ToDecimal(std::fabs(value));
    return section.exponentDigits != 0 ? WriteScientific(decimal, pattern, section, out)
                                       : WriteFixed(decimal, pattern, section, out);
}

}  // namespace halvern
