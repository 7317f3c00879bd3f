#include "store/val.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace halvern {

namespace {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsSign(char c) { return c == '+' || c == '-'; }
constexpr bool IsExponentLetter(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }

const char* PastBlanks(const char* at, const char* end) {
    while (at != end && *at == ' ')
        ++at;
    return at;
}

const char* PastDigits(const char* at, const char* end) {
    while (at != end && IsDigit(*at))
        ++at;
    return at;
}

// An exponent beyond this gives infinity or zero with any text of digits that fits into memory; one digit more can
// follow it without overflow.
constexpr std::int64_t kExponentBound = 100'000'000'000'000'000;

struct Exponent {
    std::int64_t value = 0;
    const char* end = nullptr;  // behind the last digit; where the reading began if there is no exponent
};

// Reads an exponent that may start at `at`.
Exponent ReadExponent(const char* at, const char* end) {
    if (at == end || !IsExponentLetter(*at))
        return {0, at};
    const char* digit = at + 1;
    const bool negative = digit != end && *digit == '-';
    if (digit != end && IsSign(*digit))
        ++digit;
    if (digit == end || !IsDigit(*digit))
        return {0, at};
    std::int64_t value = 0;
    for (; digit != end && IsDigit(*digit); ++digit)
        if (value < kExponentBound)
            value = 10 * value + (*digit - '0');
    return {negative ? -value : value, digit};
}

// Where the parts of a number lie in its text.
struct NumberParts {
    bool found = false;
    bool negative = false;
    const char* whole = nullptr;     // first digit, or the point
    const char* wholeEnd = nullptr;  // the point, or the end of the digits
    const char* fraction = nullptr;  // behind the point
    const char* fractionEnd = nullptr;
    std::int64_t exponent = 0;
    const char* end = nullptr;  // first character that does not belong to the number
};

NumberParts FindNumber(std::string_view text) {
    const char* const end = text.data() + text.size();
    NumberParts parts;
    const char* at = PastBlanks(text.data(), end);
    if (at != end && IsSign(*at))
        parts.negative = *at++ == '-';
    parts.whole = at;
    parts.wholeEnd = PastDigits(at, end);
    const bool hasPoint = parts.wholeEnd != end && *parts.wholeEnd == '.';
    parts.fraction = hasPoint ? parts.wholeEnd + 1 : parts.wholeEnd;
    parts.fractionEnd = hasPoint ? PastDigits(parts.fraction, end) : parts.wholeEnd;
    parts.found = parts.wholeEnd != parts.whole || parts.fractionEnd != parts.fraction;
    const Exponent exponent = ReadExponent(parts.fractionEnd, end);
    parts.exponent = exponent.value;
    parts.end = exponent.end;
    return parts;
}

// The significant digits of a number, as an integer times a power of ten.
//
// The exact value of a double, or of the middle between two, has at most 768 digits. What stands behind that many can
// only decide whether a number lies on a middle or above it, and one digit that is not zero does this for all of them.
class Digits {
  public:
    void Take(const char* from, const char* to) {
        for (; from != to; ++from) {
            if (count_ == 0 && *from == '0')
                continue;
            if (count_ < kKept)
                digits_[count_++] = *from;
            else
                Drop(*from);
        }
    }
    bool AreZero() const { return count_ == 0; }
    std::int64_t Count() const { return static_cast<std::int64_t>(count_); }
    std::int64_t Dropped() const { return dropped_; }

    // The number digits times 10^exponent; the exponent has to lie within that of an int.
    double Times10To(std::int64_t exponent) {
        char* end = digits_.data() + count_;
        if (droppedOne_) {
            *end++ = '1';
            --exponent;
        }
        *end++ = 'E';
        end = std::to_chars(end, digits_.data() + digits_.size(), exponent).ptr;
        double value = 0.0;
        std::from_chars(digits_.data(), end, value, std::chars_format::general);
        return value;
    }

  private:
    static constexpr std::size_t kKept = 800;
    static constexpr std::size_t kRoomForExponent = 24;

    void Drop(char digit) {
        ++dropped_;
        droppedOne_ = droppedOne_ || digit != '0';
    }

    std::size_t count_ = 0;
    std::int64_t dropped_ = 0;
    bool droppedOne_ = false;  // a digit other than zero is among the dropped
    std::array<char, kKept + kRoomForExponent> digits_;
};

// The value of a number without its sign.
double Magnitude(const NumberParts& parts) {
    Digits digits;
    digits.Take(parts.whole, parts.wholeEnd);
    digits.Take(parts.fraction, parts.fractionEnd);
    if (digits.AreZero())
        return 0.0;
    const std::int64_t exponent = parts.exponent - (parts.fractionEnd - parts.fraction) + digits.Dropped();
    const std::int64_t point = exponent + digits.Count();  // the value is 0.ddd times 10^point
    if (point > std::numeric_limits<double>::max_exponent10 + 1)
        return std::numeric_limits<double>::infinity();
    if (point < std::numeric_limits<double>::min_exponent10 - std::numeric_limits<double>::max_digits10)
        return 0.0;
    // Within these bounds a conversion can still leave the range, at either end.
    const double value = digits.Times10To(exponent);
    return value == 0.0 && point > 0 ? std::numeric_limits<double>::infinity() : value;
}

// Powers of ten that a double holds without rounding.
constexpr std::array<double, 23> kExactPowers = {1E0,  1E1,  1E2,  1E3,  1E4,  1E5,  1E6,  1E7,  1E8,  1E9,  1E10, 1E11,
                                                 1E12, 1E13, 1E14, 1E15, 1E16, 1E17, 1E18, 1E19, 1E20, 1E21, 1E22};
constexpr std::uint64_t kLargestExactInteger = std::uint64_t{1} << 53;
constexpr std::ptrdiff_t kDigitsOfUint64 = 19;
constexpr std::ptrdiff_t kDigitsOfPlainExponent = 9;

// The digits from `at` on, appended to a decimal integer; leaves `at` behind them. More than 19 wrap around.
inline void AppendDigits(const char*& at, const char* end, std::uint64_t& integer) {
    for (; at != end; ++at) {
        const auto digit = static_cast<unsigned char>(*at - '0');
        if (digit > 9)
            return;
        integer = 10 * integer + digit;
    }
}

// An exponent of up to nine digits, from behind its letter on; it is 0 with none. Returns false with more.
inline bool ReadPlainExponent(const char* at, const char* end, std::int64_t& exponent) {
    const bool negative = at != end && *at == '-';
    if (at != end && IsSign(*at))
        ++at;
    std::uint64_t value = 0;
    const char* const first = at;
    AppendDigits(at, end, value);
    if (at - first > kDigitsOfPlainExponent)
        return false;
    const auto size = static_cast<std::int64_t>(value);
    exponent = negative ? -size : size;
    return true;
}

// The short way: an integer of at most 53 bits and a power of ten that is exact, so that the one multiplication or
// division is the one rounding. Returns false, without a word about the text, where it does not hold.
inline bool ValOfPlainField(std::string_view text, double& value) {
    const char* const end = text.data() + text.size();
    const char* at = PastBlanks(text.data(), end);
    const bool negative = at != end && *at == '-';
    if (at != end && IsSign(*at))
        ++at;
    std::uint64_t integer = 0;
    const char* const first = at;
    AppendDigits(at, end, integer);
    std::ptrdiff_t count = at - first;
    std::int64_t exponent = 0;
    if (at != end && *at == '.') {
        const char* const fraction = ++at;
        AppendDigits(at, end, integer);
        exponent = fraction - at;
        count -= exponent;
    }
    if (count == 0 || count > kDigitsOfUint64 || integer > kLargestExactInteger)
        return false;
    if (std::int64_t written = 0; at != end && IsExponentLetter(*at)) {
        if (!ReadPlainExponent(at + 1, end, written))
            return false;
        exponent += written;
    }
    constexpr auto kLargestPower = static_cast<std::int64_t>(kExactPowers.size()) - 1;
    if (exponent > kLargestPower || exponent < -kLargestPower)
        return false;
    const auto exact = static_cast<double>(static_cast<std::int64_t>(integer));
    const double magnitude = exponent < 0 ? exact / kExactPowers[static_cast<std::size_t>(-exponent)]
                                          : exact * kExactPowers[static_cast<std::size_t>(exponent)];
    value = negative ? -magnitude : magnitude;
    return true;
}

}  // namespace

double Val(std::string_view text) noexcept {
    double value = 0.0;
    return ValOfPlainField(text, value) ? value : ValGeneral(text);
}

double ValGeneral(std::string_view text) noexcept {
    const NumberParts parts = FindNumber(text);
    if (!parts.found)
        return 0.0;
    const double magnitude = Magnitude(parts);
    return parts.negative ? -magnitude : magnitude;
}

bool IsNumeric(std::string_view text) noexcept {
    const NumberParts parts = FindNumber(text);
    const char* const end = text.data() + text.size();
    return parts.found && PastBlanks(parts.end, end) == end;
}

}  // namespace halvern
