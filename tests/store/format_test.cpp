#include "store/format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

namespace halvern {
namespace {

template <class Number>
std::string Text(Number value, const Pattern& pattern) {
    return std::string(Format(value, pattern).View());
}

// Every pattern of the program, each with a positive number, a negative one, one whose first digit left out is a five
// with nothing behind it, and with 0, 1E-300 and 1234567890123456789, which has the digits 123456789012346 and then
// zeros.
struct Sample {
    double value;
    std::string_view text;
};
struct PatternCase {
    Pattern pattern;
    Sample positive, negative, tie;
    std::string_view zero, tiny, huge;
};
constexpr double kTiny = 1e-300;
constexpr double kHuge = 1234567890123456789.0;

// clang-format off
constexpr PatternCase kCounts[] = {
    {"0.", {7, "7."}, {-7, "-7."}, {2.5, "3."}, "0.", "0.", "1234567890123460000."},
    {"00.", {99, "99."}, {-9, "-09."}, {0.5, "01."}, "00.", "00.", "1234567890123460000."},
    {"000", {2, "002"}, {-2, "-002"}, {99.5, "100"}, "000", "000", "1234567890123460000"},
    {"0000", {55, "0055"}, {-55, "-0055"}, {54.5, "0055"}, "0000", "0000", "1234567890123460000"},
    {"00000", {23, "00023"}, {-7, "-00007"}, {23.5, "00024"}, "00000", "00000", "1234567890123460000"},
    {"  000", {3, "  003"}, {-3, "-  003"}, {2.5, "  003"}, "  000", "  000", "  1234567890123460000"},
    {"##", {12, "12"}, {-4, "-4"}, {1.5, "2"}, "", "", "1234567890123460000"},
    {"## ", {15, "15 "}, {-15, "-15 "}, {14.5, "15 "}, " ", " ", "1234567890123460000 "},
    {"###", {128, "128"}, {-58, "-58"}, {99.5, "100"}, "", "", "1234567890123460000"},
    {"### ", {5, "5 "}, {-5, "-5 "}, {4.5, "5 "}, " ", " ", "1234567890123460000 "},
    {"#####", {42000, "42000"}, {-42000, "-42000"}, {2.5, "3"}, "", "", "1234567890123460000"},
    {"######", {1500, "1500"}, {-1500, "-1500"}, {0.5, "1"}, "", "", "1234567890123460000"},
    {"#######", {2050000, "2050000"}, {-12, "-12"}, {1234566.5, "1234567"}, "", "", "1234567890123460000"},
    {"##0", {45, "45"}, {-45, "-45"}, {1.5, "2"}, "0", "0", "1234567890123460000"},
    {"##000", {42000, "42000"}, {-7, "-007"}, {99.5, "100"}, "000", "000", "1234567890123460000"},
    {"###;0;0", {43, "43"}, {-43, "43"}, {42.5, "43"}, "0", "", "1234567890123460000"},
    {"   #####;  -#####", {2, "   2"}, {-58, "  -58"}, {1.5, "   2"}, "   ", "   ", "   1234567890123460000"},
    {"_I###.LST", {1, "_I1.LST"}, {-1, "-_I1.LST"}, {1.5, "_I2.LST"}, "_I.LST", "_I.LST", "_I1234567890123460000.LST"},
    {" ### valid data files were found.", {43, " 43 valid data files were found."},
     {-1, "- 1 valid data files were found."}, {0.5, " 1 valid data files were found."},
     "  valid data files were found.", "  valid data files were found.",
     " 1234567890123460000 valid data files were found."},
    {"A Total of ### files were found.", {200, "A Total of 200 files were found."},
     {-200, "-A Total of 200 files were found."}, {199.5, "A Total of 200 files were found."},
     "A Total of  files were found.", "A Total of  files were found.",
     "A Total of 1234567890123460000 files were found."},
};

constexpr PatternCase kDecimals[] = {
    {"0.0", {6.4, "6.4"}, {-6.5, "-6.5"}, {0.25, "0.3"}, "0.0", "0.0", "1234567890123460000.0"},
    {"0.00", {6.4, "6.40"}, {-6.5, "-6.50"}, {0.125, "0.13"}, "0.00", "0.00", "1234567890123460000.00"},
    {"0.000", {120, "120.000"}, {-2.4, "-2.400"}, {0.0005, "0.001"}, "0.000", "0.000", "1234567890123460000.000"},
    {"0.0####", {6.1, "6.1"}, {-6.05, "-6.05"}, {6.000005, "6.00001"}, "0.0", "0.0", "1234567890123460000.0"},
    {"#0.0###", {0.1, "0.1"}, {-12.345, "-12.345"}, {0.00015, "0.0002"}, "0.0", "0.0", "1234567890123460000.0"},
    {"##0.000", {0.063, "0.063"}, {-123.4, "-123.400"}, {0.0005, "0.001"}, "0.000", "0.000", "1234567890123460000.000"},
    {" ##0.000", {1.25, " 1.250"}, {-0.016, "- 0.016"}, {0.0625, " 0.063"}, " 0.000", " 0.000",
     " 1234567890123460000.000"},
    {"###0.000", {4.2, "4.200"}, {-0.016, "-0.016"}, {4.4115, "4.412"}, "0.000", "0.000", "1234567890123460000.000"},
    {"  0.0000", {5.8125, "  5.8125"}, {-5.8, "-  5.8000"}, {6.00005, "  6.0001"}, "  0.0000", "  0.0000",
     "  1234567890123460000.0000"},
    {"#####.#", {4321.5, "4321.5"}, {-12, "-12."}, {0.25, ".3"}, ".", ".", "1234567890123460000."},
    {"#.####", {5.9, "5.9"}, {-5.91234, "-5.9123"}, {6.00005, "6.0001"}, ".", ".", "1234567890123460000."},
    {"#.#####", {5.98765, "5.98765"}, {-5.5, "-5.5"}, {0.000015, ".00002"}, ".", ".", "1234567890123460000."},
    {"#.######", {5.912, "5.912"}, {-5.9123456, "-5.912346"}, {0.0000005, ".000001"}, ".", ".", "1234567890123460000."},
    {"#.00000##", {6, "6.00000"}, {-6.1234567, "-6.1234567"}, {5.91234565, "5.9123457"}, ".00000", ".00000",
     "1234567890123460000.00000"},
};

constexpr PatternCase kExponents[] = {
    {"0.00E+00", {1, "1.00E+00"}, {-5e-13, "-5.00E-13"}, {2.675, "2.68E+00"}, "0.00E+00", "1.00E-300", "1.23E+18"},
    {"0.000E+00", {150, "1.500E+02"}, {-0.25, "-2.500E-01"}, {1.0005e-5, "1.001E-05"}, "0.000E+00", "1.000E-300",
     "1.235E+18"},
    {"0.0000E+00", {6.5, "6.5000E+00"}, {-0.25, "-2.5000E-01"}, {1.00005, "1.0001E+00"}, "0.0000E+00", "1.0000E-300",
     "1.2346E+18"},
    {"    0.0000E+00", {0.00321, "    3.2100E-03"}, {-1, "-    1.0000E+00"}, {9.99995, "    1.0000E+01"},
     "    0.0000E+00", "    1.0000E-300", "    1.2346E+18"},
    {"+0.00E+00;-0.00E+00", {12000, "+1.20E+04"}, {-3000, "-3.00E+03"}, {1.125, "+1.13E+00"}, "+0.00E+00",
     "+1.00E-300", "+1.23E+18"},
    {"  0.000E+00; -0.000E+00", {1.234e-13, "  1.234E-13"}, {-1.234, " -1.234E+00"}, {1.2345, "  1.235E+00"},
     "  0.000E+00", "  1.000E-300", "  1.235E+18"},
    {"  0.0000E+00; -0.0000E+00", {3.14159, "  3.1416E+00"}, {-0.001, " -1.0000E-03"}, {3.14155, "  3.1416E+00"},
     "  0.0000E+00", "  1.0000E-300", "  1.2346E+18"},
    {"    0.0000E+00;   -0.0000E+00", {1.5, "    1.5000E+00"}, {-0.25, "   -2.5000E-01"}, {12.3455, "    1.2346E+01"},
     "    0.0000E+00", "    1.0000E-300", "    1.2346E+18"},
};
// clang-format on

template <class Cases>
void ExpectTexts(const Cases& cases) {
    for (const PatternCase& row : cases) {
        SCOPED_TRACE(row.pattern.Text());
        for (const Sample& sample : {row.positive, row.negative, row.tie, Sample{0.0, row.zero},
                                     Sample{kTiny, row.tiny}, Sample{kHuge, row.huge}})
            EXPECT_EQ(Text(sample.value, row.pattern), sample.text) << sample.value;
        EXPECT_EQ(Text(-0.0, row.pattern), row.zero) << "-0 is no negative number";
    }
}

TEST(Format, WritesCounts) { ExpectTexts(kCounts); }
TEST(Format, WritesDecimals) { ExpectTexts(kDecimals); }
TEST(Format, WritesExponents) { ExpectTexts(kExponents); }

TEST(Format, MakesTheTextsThatTheProgramIsKnownFor) {
    EXPECT_EQ(Text(0, "0.") + Text(99, "00.") + Text(55, "0000"), "0.99.0055");
    EXPECT_EQ("C1_" + Text(23, "#####") + "-" + Text(222, "#####") + Text(1, "_I###.LST"), "C1_23-222_I1.LST");
    EXPECT_EQ("C1_" + Text(0, "#####") + "-", "C1_-");
    EXPECT_EQ(" * Current Smoothing Window is " + Text(5, "### ") + "out of " + Text(45, "### ") + "points",
              " * Current Smoothing Window is 5 out of 45 points");
    EXPECT_EQ("[ 2 < span < " + Text(45 / 10, "##") + "] (odd)", "[ 2 < span < 4] (odd)");
    EXPECT_EQ("[ 2 < span < " + Text(9 / 10, "##") + "] (odd)", "[ 2 < span < ] (odd)");
    EXPECT_EQ("[ 0 < N < " + Text(40 / 2, "###"), "[ 0 < N < 20");
    EXPECT_EQ(" g(s*)@" + Text(6.4F, "0.00"), " g(s*)@6.40");
    constexpr Pattern kColumn{"    0.0000E+00;   -0.0000E+00"};
    EXPECT_EQ("  " + Text(1.5F, kColumn) + Text(-0.25F, kColumn) + "    0.0000E+00" + Text(2, "   #####;  -#####"),
              "      1.5000E+00   -2.5000E-01    0.0000E+00   2");
    EXPECT_EQ(Text(-3000.0F, "+0.00E+00;-0.00E+00").substr(6), "+03");
    EXPECT_EQ(Text(0.06F, "+0.00E+00;-0.00E+00").substr(6), "-02");
}

TEST(Format, RoundsAHalfAwayFromZero) {
    EXPECT_EQ(Text(2.5, "0"), "3");
    EXPECT_EQ(Text(-2.5, "0"), "-3");
    EXPECT_EQ(Text(3.5, "0"), "4");
    EXPECT_EQ(Text(0.5, "#"), "1");
    EXPECT_EQ(Text(0.49999, "#"), "");
    EXPECT_EQ(Text(-0.0005, "0.000"), "-0.001");
    EXPECT_EQ(Text(-1.125, "+0.00E+00;-0.00E+00"), "-1.13E+00");
}

TEST(Format, LooksForTheHalfOnFifteenSignificantDigits) {
    EXPECT_EQ(Text(1.005, "0.00"), "1.01");          // the double is 1.00499999999999989...
    EXPECT_EQ(Text(0.285, "0.00"), "0.29");          // 0.284999999999999975...
    EXPECT_EQ(Text(0.49999999999999994, "0"), "1");  // 0.500000000000000 to 15 digits
    EXPECT_EQ(Text(2.4999999999999, "0"), "2");      // 14 digits: it stays below the half
    EXPECT_EQ(Text(1.0 / 3.0, "0.00000000000000000000"), "0.33333333333333300000");
    EXPECT_EQ(Text(0.1, "0.00000000000000000000E+00"), "1.00000000000000000000E-01");
    EXPECT_EQ(Text(1e15 + 5, "0"), "1000000000000000");  // 100000000000000|5: to the even digit, as 15 digits are all
    EXPECT_EQ(Text(1e15 + 15, "0"), "1000000000000020");
}

TEST(Format, CarriesIntoTheNextDigitAndTheNextPowerOfTen) {
    EXPECT_EQ(Text(9.9996, "0.000"), "10.000");
    EXPECT_EQ(Text(0.9996, "#.###"), "1.");
    EXPECT_EQ(Text(9.99996, "0.0000E+00"), "1.0000E+01");
    EXPECT_EQ(Text(0.999996, "0.0000E+00"), "1.0000E+00");
    EXPECT_EQ(Text(9.99994, "0.0000E+00"), "9.9999E+00");
    EXPECT_EQ(Text(9.9999e99, "0.00E+00"), "1.00E+100");
    EXPECT_EQ(Text(9.9999e-100, "0.00E+00"), "1.00E-99");
    EXPECT_EQ(Text(999999999999999.96, "0"), "1000000000000000");
    EXPECT_EQ(Text(0.00099999999999999998, "0.000E+00"), "1.000E-03");
}

TEST(Format, KeepsTheMinusSignOfWhatRoundsToZero) {
    EXPECT_EQ(Text(-0.0004, "0.000"), "-0.000");
    EXPECT_EQ(Text(-1e-300, " ##0.000"), "- 0.000");
    EXPECT_EQ(Text(-0.3, "   #####;  -#####"), "  -");
    EXPECT_EQ(Text(-0.3, "#####"), "-");
    EXPECT_EQ(Text(-0.0, "0.000"), "0.000");
}

TEST(Format, TakesTheSectionForTheSignOfTheNumber) {
    EXPECT_EQ(Text(5, "+0;-0;zero"), "+5");
    EXPECT_EQ(Text(-5, "+0;-0;zero"), "-5");
    EXPECT_EQ(Text(0, "+0;-0;zer#"), "zer");
    EXPECT_EQ(Text(0.2, "+0;-0;none"), "+0");  // not exactly zero
    EXPECT_EQ(Text(0, "+0;-0"), "+0");
    EXPECT_EQ(Text(-5, "<0>;;none"), "-<5>");
    EXPECT_EQ(Text(0, "<0>;;none"), "none");
    EXPECT_EQ(Text(0, "<0>;(0);"), "<0>");
    EXPECT_EQ(Text(-5, "<0>;;"), "-<5>");
    EXPECT_EQ(Text(-5, "0.0;0.00E+00"), "5.00E+00");
}

TEST(Format, KeepsLiteralsAtTheirPlaceAmongTheDigits) {
    EXPECT_EQ(Text(123456, "000-000"), "123-456");
    EXPECT_EQ(Text(12345678, "000-000"), "12345-678");
    EXPECT_EQ(Text(7, "000-000"), "000-007");
    EXPECT_EQ(Text(7, "###-##0"), "-7");
    EXPECT_EQ(Text(1234, "#-##-#"), "1-23-4");
    EXPECT_EQ(Text(1.25, "0.0-0"), "1.2-5");
    EXPECT_EQ(Text(1.2, "0.#-#"), "1.2-");
    EXPECT_EQ(Text(1.2, "0.0 cm. or 0"), "1.2 cm. or 0");
    EXPECT_EQ(Text(1.234e-13, "0.00E+00 s"), "1.23E-13 s");
    EXPECT_EQ(Text(-1.5, "(0.0)"), "-(1.5)");
    EXPECT_EQ(Text(5, "0E+"), "5E+");
    EXPECT_EQ(Text(5, "0 EEL"), "5 EEL");
    EXPECT_EQ(Text(5, "cm."), "cm.");
}

TEST(Format, ShowsDigitsWithoutAPlaceInFrontOfTheFirstPlace) {
    EXPECT_EQ(Text(12345.6, "#0.0"), "12345.6");
    EXPECT_EQ(Text(12345.6, "n=#0.0"), "n=12345.6");
    EXPECT_EQ(Text(12.5, ".00"), "12.50");
    EXPECT_EQ(Text(12.5, "n=.00"), "n=12.50");
    EXPECT_EQ(Text(0.5, ".00"), ".50");
}

TEST(Format, ShowsANumberSignNextToZerosAlways) {
    EXPECT_EQ(Text(5, "0#"), "05");
    EXPECT_EQ(Text(1.5, "0.#0"), "1.50");
}

TEST(Format, ShowsThePointWithNoDigitsBesideIt) {
    EXPECT_EQ(Text(5, "#.####"), "5.");
    EXPECT_EQ(Text(0, "#.####"), ".");
    EXPECT_EQ(Text(0.5, "#.####"), ".5");
    EXPECT_EQ(Text(0.04, "#.####"), ".04");
    EXPECT_EQ(Text(0.00004, "#.####"), ".");
}

TEST(Format, HasAsManyDigitsInFrontOfThePointAsPlacesBeforeAnExponent) {
    EXPECT_EQ(Text(123456, "##0.0E+0"), "123.5E+3");
    EXPECT_EQ(Text(0.0123456, "##0.0E+0"), "123.5E-4");
    EXPECT_EQ(Text(0.000999999, "##0.0E+0"), "100.0E-5");
    EXPECT_EQ(Text(15, "0E+00"), "2E+01");
    EXPECT_EQ(Text(1.5, ".00E+00"), ".15E+01");
    EXPECT_EQ(Text(1.5, "0.###E+00"), "1.5E+00");
}

TEST(Format, WritesTheExponentWithItsSignAndAllItsDigits) {
    EXPECT_EQ(Text(1, "0.0E+0"), "1.0E+0");
    EXPECT_EQ(Text(1, "0.0E+000"), "1.0E+000");
    EXPECT_EQ(Text(1e12, "0.0E+0"), "1.0E+12");
    EXPECT_EQ(Text(1e-300, "0.000E+00"), "1.000E-300");
    EXPECT_EQ(Text(150, "0.0E-00"), "1.5E02");
    EXPECT_EQ(Text(0.015, "0.0E-00"), "1.5E-02");
    EXPECT_EQ(Text(0, "0.0E+00"), "0.0E+00");
}

TEST(Format, WidensSinglesAndTakesIntegers) {
    EXPECT_EQ(Text(0.1F, "0.000000000000000"), "0.100000001490116");
    EXPECT_EQ(Text(0.1F, "0.00000000000000E+00"), "1.00000001490116E-01");
    EXPECT_EQ(Text(std::int16_t{-32768}, "0"), "-32768");
    EXPECT_EQ(Text(std::numeric_limits<std::int32_t>::min(), "0"), "-2147483648");
    EXPECT_EQ(Text(std::numeric_limits<std::int32_t>::max(), "0"), "2147483647");
}

TEST(Format, HasRoomForTheLargestAndTheSmallestDouble) {
    constexpr double kLargest = std::numeric_limits<double>::max();  // 1.79769313486232E308
    const std::string digits = "179769313486232" + std::string(294, '0');
    EXPECT_EQ(Text(kLargest, "0.000"), digits + ".000");
    EXPECT_EQ(Text(-kLargest, " ##0.000"), "- " + digits + ".000");
    EXPECT_EQ(Text(kLargest, "0.000E+00"), "1.798E+308");
    const std::string longest = "." + std::string(Pattern::kMaxLength - 1, '0');
    EXPECT_EQ(Text(-kLargest, Pattern{longest}), "-" + digits + longest);
    EXPECT_EQ(Text(std::numeric_limits<double>::denorm_min(), "0.0000E+00"), "4.9407E-324");
    EXPECT_EQ(Text(std::numeric_limits<double>::denorm_min(), "#.#"), ".");
}

TEST(Format, NamesWhatIsNoNumber) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Text(kInfinity, "  0.000"), "INF");
    EXPECT_EQ(Text(-kInfinity, "0.000E+00"), "-INF");
    EXPECT_EQ(Text(std::numeric_limits<double>::quiet_NaN(), "###"), "NAN");
}

TEST(FormatTo, WritesOneNumberBehindTheOther) {
    constexpr Pattern kRadius{"  0.0000"};
    char line[2 * kFormatRoom];
    char* end = FormatTo(line, 5.9, kRadius);
    end = FormatTo(end, 7.25, kRadius);
    EXPECT_EQ(std::string_view(line, static_cast<std::size_t>(end - line)), "  5.9000  7.2500");
    static_assert(std::is_convertible_v<Formatted, std::string_view>);
}

TEST(Pattern, RefusesWhatHasNoMeaning) {
    const auto refused = [](std::string_view text) {
        EXPECT_THROW(Pattern{text}, std::invalid_argument) << '"' << text << '"';
    };
    refused("");
    refused(";-0");
    refused("0;0;0;0");
    refused("E+00");
    refused("cm E+00");
    refused("0.0E+00#");
    refused("0.0E+00 0");
    refused("0E+00E+00");
    refused(std::string(Pattern::kMaxLength + 1, '0'));
    refused("0E+00E-0");
    refused("0-0-0-0-0-0-0-0-0-0-0-0-0-0-0-0");
}

TEST(Pattern, HasAnExponentOnlyWhereASignAndAZeroFollowTheE) {
    const auto shown = [](double value, std::string_view pattern) {
        return std::string(Format(value, Pattern{pattern}));
    };
    EXPECT_EQ(shown(2.0, "0E"), "2E");
    EXPECT_EQ(shown(2.0, "0E+"), "2E+");
    EXPECT_EQ(shown(2.0, "0 E+x"), "2 E+x");
    EXPECT_EQ(shown(2.0, "0 Exx"), "2 Exx");
    EXPECT_EQ(shown(2.0, "0 E-x"), "2 E-x");
    EXPECT_EQ(shown(0.02, "0E-0"), "2E-2");
    EXPECT_EQ(shown(20.0, "0E-0"), "2E1");
    EXPECT_EQ(shown(20.0, "0E+0 S"), "2E+1 S");
}

// The number in the decimal form of 15 digits, d.ddddddddddddddE+dd, as the library finds it, and the pattern for it.
std::string DecimalForm(double value) {
    char text[40];
    std::string form(text, std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 14).ptr);
    form[form.find('e')] = 'E';
    return form;
}
constexpr Pattern kDecimalForm{"0.00000000000000E+00"};

// A number of any size, of the size that data have, a single, or one whose digits end in a five.
double RandomNumber(std::mt19937_64& engine, int kind) {
    const auto bits = engine();
    const double fraction = static_cast<double>(bits >> 11) * 0x1p-53;
    const double scaled = fraction * std::pow(10.0, static_cast<double>(bits % 32) - 14.0);
    switch (kind % 4) {
        case 0: {
            const double any = std::bit_cast<double>(bits & 0x7FFFFFFFFFFFFFFF);
            return std::isfinite(any) ? any : 1.0;
        }
        case 1:
            return scaled;
        case 2:
            return static_cast<double>(static_cast<float>(scaled));
        default:
            return static_cast<double>(bits % 2'000'000) / 32.0;
    }
}

TEST(Format, StartsFromTheDecimalFormOfFifteenDigits) {
    std::mt19937_64 engine(15);
    for (int i = 0; i < 1'000'000; ++i) {
        const double value = RandomNumber(engine, i);
        ASSERT_EQ(Format(value, kDecimalForm).View(), DecimalForm(value));
    }
}

TEST(Format, FindsTheDecimalExponentAtEveryPowerOfTwoAndTen) {
    const auto expect = [](double power) {
        double value = power;
        for (int steps = 0; steps < 8; ++steps)
            value = std::nextafter(value, 0.0);
        for (int steps = 0; steps < 16; ++steps) {
            EXPECT_EQ(Format(value, kDecimalForm).View(), DecimalForm(value));
            value = std::nextafter(value, 1.0e308);
        }
    };
    for (int exponent = -1060; exponent <= 1022; ++exponent)
        expect(std::ldexp(1.0, exponent));
    for (int exponent = -320; exponent <= 307; ++exponent)
        expect(std::pow(10.0, exponent));
}

// The decimal form rounded to four decimals by hand: one digit more is looked at, and a carry runs to the left.
std::string FourDecimals(double value) {
    const std::string form = DecimalForm(value);
    const int exponent = std::stoi(form.substr(form.find('E') + 1));
    std::string digits = form.substr(0, 1) + form.substr(2, 14);  // the point stands behind exponent + 1 of them
    digits.insert(0, std::string(static_cast<std::size_t>(std::max(0, -exponent) + 1), '0'));
    const std::size_t point = static_cast<std::size_t>(std::max(0, exponent)) + 2;
    digits.resize(std::max(digits.size(), point + 5), '0');
    const bool up = digits[point + 4] >= '5';
    digits.resize(point + 4);
    for (std::size_t i = digits.size(); up && i > 0; --i) {
        if (digits[i - 1] != '9') {
            ++digits[i - 1];
            break;
        }
        digits[i - 1] = '0';
    }
    digits.insert(point, 1, '.');
    return digits.substr(std::min(digits.find_first_not_of('0'), point - 1));
}

TEST(Format, RoundsTheDecimalFormAsOneDoesByHand) {
    constexpr Pattern kPattern{"0.0000"};
    EXPECT_EQ(FourDecimals(9.99995), "10.0000");
    EXPECT_EQ(FourDecimals(0.00125), "0.0013");
    std::mt19937_64 engine(4);
    for (int i = 0; i < 200'000; ++i) {
        const double value = RandomNumber(engine, i);
        ASSERT_EQ(Format(value, kPattern).View(), FourDecimals(value)) << DecimalForm(value);
    }
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

TEST(Format, DoesNotLookAtTheLocale) {
    const DecimalCommas commas;
    std::ostringstream stream;
    stream << 1234.5;
    ASSERT_EQ(stream.str(), "1.234,5");  // the locale is in force
    ExpectTexts(kCounts);
    ExpectTexts(kDecimals);
    ExpectTexts(kExponents);
    EXPECT_EQ(Text(1234567.5, "0.000"), "1234567.500");
}

}  // namespace
}  // namespace halvern
