#include "store/val.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <string_view>

namespace halvern {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
constexpr double kSmallestNormal = std::numeric_limits<double>::min();
constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

struct ValCase {
    std::string_view text;
    double value;
};

template <class Cases>
void ExpectValues(const Cases& cases) {
    for (const ValCase& row : cases) {
        EXPECT_EQ(Bits(Val(row.text)), Bits(row.value)) << '"' << row.text << "\" is " << Val(row.text);
        EXPECT_EQ(Bits(ValGeneral(row.text)), Bits(row.value)) << '"' << row.text << "\" the long way";
    }
}

TEST(Val, ReadsTheFieldsOfAScanFile) {
    constexpr ValCase kCases[] = {
        {" 5.9110", 5.911},
        {"5.91400", 5.914},
        {"  4.57670E-0002", 0.045767},
        {"   -8.56960E-01", -0.85696},
        {" 50000", 50000.0},
        {"7.1280E10 ", 7.128e10},
        {"-.5", -0.5},
        {"    0.00000E+00", 0.0},
        {"6.0000\r", 6.0},
        {"  8.43849E-01\r", 0.843849},
        {"+1.25", 1.25},
        {"200", 200.0},
        {"       ", 0.0},
    };
    ExpectValues(kCases);
}

TEST(Val, StopsAtTheFirstCharacterThatCannotGoOnWithTheNumber) {
    constexpr ValCase kCases[] = {
        {" -1.5x", -1.5}, {"1.5x", 1.5},   {"5 6", 5.0},     {"1.2.3", 1.2}, {"1-2", 1.0},
        {"5,8", 5.0},     {"12rpm", 12.0}, {"1E5.5", 1e5},   {"5\t", 5.0},   {"0x10", 0.0},
        {"7.", 7.0},      {"7.E1", 70.0},  {"1e2e3", 100.0}, {"5-", 5.0},
    };
    ExpectValues(kCases);
}

TEST(Val, EndsWithItsText) {
    const std::string_view longer("12.5E34");
    EXPECT_EQ(Val(longer.substr(0, 6)), 12.5E3);
    EXPECT_EQ(ValGeneral(longer.substr(0, 6)), 12.5E3);
    EXPECT_EQ(ValGeneral(longer.substr(0, 3)), 12.0);
    EXPECT_EQ(ValGeneral(longer.substr(0, 1)), 1.0);
    EXPECT_EQ(ValGeneral(longer.substr(0, 0)), 0.0);
}

TEST(Val, IsZeroWhereNoNumberStarts) {
    constexpr ValCase kCases[] = {
        {"", 0.0},    {" ", 0.0},   {"rpm", 0.0}, {".", 0.0},    {"-", 0.0},   {"+", 0.0},
        {"-.", 0.0},  {".E5", 0.0}, {"E5", 0.0},  {"--5", 0.0},  {"- 5", 0.0}, {"\t5", 0.0},
        {"\r5", 0.0}, {"inf", 0.0}, {"nan", 0.0}, {"-inf", 0.0}, {",5", 0.0},
    };
    ExpectValues(kCases);
}

TEST(Val, TakesAnExponentOfEitherLetterAndWithOrWithoutSign) {
    constexpr ValCase kCases[] = {
        {"1D3", 1000.0}, {"1d3", 1000.0}, {"1E3", 1000.0},  {"1e3", 1000.0},       {"1D+3", 1000.0},
        {"25D-1", 2.5},  {"25e-1", 2.5},  {"+.5e-1", 0.05}, {"1E0000000003", 1e3}, {"1E-0000000003", 1e-3},
    };
    ExpectValues(kCases);
}

TEST(Val, LeavesALetterWithoutDigitsBehindItOut) {
    constexpr ValCase kCases[] = {
        {"1E", 1.0}, {"1E+", 1.0},   {"1E-", 1.0},   {"1Ex", 1.0},
        {"1D", 1.0}, {"1E +3", 1.0}, {"1E+ 3", 1.0}, {"1EE3", 1.0},
    };
    ExpectValues(kCases);
}

TEST(Val, KeepsTheSignOfZero) {
    constexpr ValCase kCases[] = {{"-0", -0.0}, {"-0.000E+05", -0.0}, {"+0", 0.0}, {"0E999", 0.0}, {"-0E-999", -0.0}};
    ExpectValues(kCases);
}

TEST(Val, IsInfinityAboveTheRangeOfDoubleAndZeroBelowIt) {
    constexpr ValCase kCases[] = {
        {"1E999", kInfinity},
        {"-1E999", -kInfinity},
        {"1E309", kInfinity},
        {"1E-999", 0.0},
        {"-1E-999", -0.0},
        {"1E99999999999999999999999", kInfinity},
        {"1E18446744073709551617", kInfinity},  // 2^64 + 1
        {"1E-18446744073709551617", 0.0},
        {"1E-9223372036854775808", 0.0},  // the size of the exponent is 2^63
        {"1E-99999999999999999999999", 0.0},
        {"0E99999999999999999999999", 0.0},
        // The largest double is 1.79769313486231570...E308; from 1.79769313486231580793...E308 on a number is nearer to
        // what would be the next one.
        {"1.7976931348623157E308", kLargest},
        {"1.7976931348623158E308", kLargest},
        {"1.7976931348623159E308", kInfinity},
    };
    ExpectValues(kCases);
}

TEST(Val, ReadsNumbersThatAreNoLongerNormal) {
    constexpr ValCase kCases[] = {
        {"4.9E-324", kSmallest},
        {"2.5E-324", kSmallest},  // half of the smallest is 2.47E-324
        {"2.4E-324", 0.0},
        {"9.9E-325", 0.0},
        {"1.5E-323", 3 * kSmallest},
        {"2.2250738585072014E-308", kSmallestNormal},
        // The middle between the smallest normal one and its lower neighbour is 2.225073858507201136...E-308.
        {"2.2250738585072012E-308", kSmallestNormal},
        {"2.2250738585072011E-308", kSmallestNormal - kSmallest},
    };
    ExpectValues(kCases);
}

TEST(Val, RoundsToTheNearestDoubleAndAHalfToEven) {
    // 1 + 2^-53, the middle between 1 and the next double, has 53 decimals.
    const std::string middle = "1.00000000000000011102230246251565404236316680908203125";
    const ValCase cases[] = {
        {"9007199254740993", 9007199254740992.0},  // 2^53 + 1
        {"9007199254740995", 9007199254740996.0},  // 2^53 + 3
        {"9007199254740993.1", 9007199254740994.0}, {"0.1", 0.1}, {"1E23", 1e23}, {middle, 1.0},
    };
    ExpectValues(cases);
    const std::string above = middle + "1";
    const std::string aboveByFar = middle + std::string(2000, '0') + "1";
    const std::string equal = middle + std::string(2000, '0');
    const ValCase longCases[] = {{above, 1.0 + kEpsilon}, {aboveByFar, 1.0 + kEpsilon}, {equal, 1.0}};
    ExpectValues(longCases);
}

TEST(Val, ReadsAnyNumberOfDigits) {
    const std::string zeros(400, '0');
    const std::string nines(400, '9');
    const std::string power = "1" + zeros + "E-400";      // 10^400 / 10^400
    const std::string fraction = "0." + zeros + "5E401";  // 5 x 10^-401 x 10^401
    const std::string leading = zeros + "12.5";
    const std::string long1000 = std::string(1000, '1') + "E-999";  // 1.111...
    const std::string long1000D = "-" + std::string(1000, '1') + "D-999";
    const ValCase cases[] = {
        {"12345678901234567890", 12345678901234567890.0},
        {"0.12345678901234567890", 0.12345678901234567890},
        {"18446744073709551616", 18446744073709551616.0},  // 2^64
        {"18446744073709551615", 18446744073709551616.0},
        {"100000000000000000000000000000E-29", 1.0},
        {power, 1.0},
        {fraction, 5.0},
        {leading, 12.5},
        {nines, kInfinity},
        {long1000, 1.0 + 1.0 / 9.0},  // the double next to 10/9; a thousand ones differ from it by 1E-1000
        {long1000D, -(1.0 + 1.0 / 9.0)},
    };
    EXPECT_EQ(1.0 + 1.0 / 9.0, 10.0 / 9.0);
    ExpectValues(cases);
}

TEST(IsNumeric, MeansThatTheWholeTextIsOneNumber) {
    for (const std::string_view text :
         {" 5.8 ", "5.8", "6", "-1.5", "+.5e-1", "1D3", "7.", " 200", "   1E+05   ", "1E999", "00012"})
        EXPECT_TRUE(IsNumeric(text)) << '"' << text << '"';
    for (const std::string_view text : {"",    " ",   "1E",  "1E+", "5,8",   "5 6",  "5.8cm", "abc", ".",   "-",
                                        "- 5", "\t5", "5\t", "5\r", "1.2.3", "0x10", "inf",   "nan", "--1", "5-"})
        EXPECT_FALSE(IsNumeric(text)) << '"' << text << '"';
}

// The random texts are the same in every run.
class RandomTexts {
  public:
    int Below(int bound) { return static_cast<int>(engine_() % static_cast<unsigned>(bound)); }
    char OneOf(std::string_view characters) {
        return characters[static_cast<std::size_t>(Below(static_cast<int>(characters.size())))];
    }

    // A well-formed number of up to 24 digits.
    std::string Number(std::string_view letters) {
        std::string text(static_cast<std::size_t>(Below(3)), ' ');
        if (Below(2) == 0)
            text += OneOf("+-");
        const int whole = Below(Below(4) == 0 ? 20 : 4);
        const int decimals = Below(Below(4) == 0 ? 20 : 7) + (whole == 0 ? 1 : 0);
        AppendDigits(text, whole);
        if (decimals > 0) {
            text += '.';
            AppendDigits(text, decimals);
        }
        if (Below(2) == 0)
            AppendExponent(text, letters);
        text.append(static_cast<std::size_t>(Below(2)), ' ');
        return text;
    }

    std::string AnyText() {
        std::string text;
        for (int count = Below(13); count > 0; --count)
            text += OneOf("  +--..0012345678999EeDd\tx,\r");
        return text;
    }

  private:
    void AppendDigits(std::string& text, int count) {
        for (; count > 0; --count)
            text += OneOf("0123456789");
    }
    void AppendExponent(std::string& text, std::string_view letters) {
        text += OneOf(letters);
        if (Below(3) != 0)
            text += OneOf("+-");
        AppendDigits(text, 1 + Below(Below(8) == 0 ? 4 : 2));
    }

    std::mt19937 engine_{20};
};

TEST(Val, GivesTheSameBitsTheShortWayAndTheLongWay) {
    RandomTexts texts;
    for (int i = 0; i < 1'500'000; ++i) {
        const std::string text = texts.Number("EeDd");
        ASSERT_EQ(Bits(Val(text)), Bits(ValGeneral(text))) << '"' << text << '"';
    }
}

TEST(Val, AgreesWithTheLibraryOfCWhereTheLetterIsE) {
    RandomTexts texts;
    for (int i = 0; i < 300'000; ++i) {
        const std::string text = texts.Number("Ee");
        ASSERT_EQ(Bits(Val(text)), Bits(std::strtod(text.c_str(), nullptr))) << '"' << text << '"';
    }
}

bool AreDigits(std::string_view text) { return text.find_first_not_of("0123456789") == std::string_view::npos; }

std::string_view WithoutSign(std::string_view text) {
    return text.substr(!text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0);
}

// Whether a text without blanks is a number, by its parts: what stands in front of the letter, and what behind it.
bool IsWholeNumber(std::string_view text) {
    const std::size_t letter = text.find_first_of("EeDd");
    if (letter != std::string_view::npos) {
        const std::string_view exponent = WithoutSign(text.substr(letter + 1));
        if (exponent.empty() || !AreDigits(exponent))
            return false;
    }
    std::string digits(WithoutSign(text.substr(0, letter)));
    if (const std::size_t point = digits.find('.'); point != std::string::npos)
        digits.erase(point, 1);
    return !digits.empty() && AreDigits(digits);
}

TEST(Val, IsTheLongestNumberThatATextStartsWith) {
    RandomTexts texts;
    int numeric = 0;
    for (int i = 0; i < 200'000; ++i) {
        const std::string text = texts.AnyText();
        std::string number = text.substr(std::min(text.find_first_not_of(' '), text.size()));
        const std::string trimmed = number.substr(0, number.find_last_not_of(' ') + 1);
        while (!number.empty() && !IsWholeNumber(number))
            number.pop_back();
        std::replace(number.begin(), number.end(), 'D', 'E');
        std::replace(number.begin(), number.end(), 'd', 'E');
        const double value = std::strtod(number.c_str(), nullptr);
        ASSERT_EQ(Bits(Val(text)), Bits(value)) << '"' << text << '"';
        ASSERT_EQ(Bits(ValGeneral(text)), Bits(value)) << '"' << text << '"';
        ASSERT_EQ(IsNumeric(text), IsWholeNumber(trimmed)) << '"' << text << '"';
        numeric += IsWholeNumber(trimmed) ? 1 : 0;
    }
    EXPECT_GT(numeric, 5000);
}

// While it lives, the program runs where a comma separates the decimals.
class DecimalCommas {
  public:
    DecimalCommas() : before_(std::locale::global(std::locale(std::locale::classic(), new Comma))) {
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr) {  // the system need not have it
            EXPECT_STREQ(std::localeconv()->decimal_point, ",");
        }
    }
    ~DecimalCommas() {
        std::locale::global(before_);
        std::setlocale(LC_ALL, "C");
    }
    DecimalCommas(const DecimalCommas&) = delete;
    DecimalCommas& operator=(const DecimalCommas&) = delete;

  private:
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale before_;
};

TEST(Val, DoesNotLookAtTheLocale) {
    const DecimalCommas commas;
    std::ostringstream stream;
    stream << 1234.5;
    ASSERT_EQ(stream.str(), "1.234,5");  // the locale is in force
    const std::string digits = "0.12345678901234567890123";
    const ValCase cases[] = {{"1.5", 1.5},         {"1,5", 1.0},       {"-8.56960E-01", -0.85696},
                             {"1.5E300", 1.5e300}, {"1.234,5", 1.234}, {digits, 0.12345678901234567890123}};
    ExpectValues(cases);
    EXPECT_TRUE(IsNumeric("5.8"));
    EXPECT_FALSE(IsNumeric("5,8"));
}

}  // namespace
}  // namespace halvern
