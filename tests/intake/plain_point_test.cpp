#include "intake/plain_point.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <random>
#include <string>

#include "store/val.h"

namespace halvern {
namespace {

float ValOf(const std::string& line, std::size_t column, std::size_t length) {
    return line.size() < column ? 0.0F : static_cast<float>(Val(std::string_view(line).substr(column - 1, length)));
}

bool SameBits(float a, float b) { return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b); }

/// A line is either left to the general way, or gives what that gives and is taken with its end.
::testing::AssertionResult IsAsVal(const std::string& line, const std::string& end, bool& isPlain) {
    // What is read of a line lies within it and its end: behind them there is nothing.
    const std::string text = line + end;
    const std::unique_ptr<char[]> copy(new char[text.size()]);
    std::copy(text.begin(), text.end(), copy.get());
    ScanPoint point{};
    const std::size_t taken = ReadPlainPoint({copy.get(), text.size()}, point);
    isPlain = taken != 0;
    if (!isPlain)
        return ::testing::AssertionSuccess();
    const float radius = ValOf(line, 4, 7), signal = ValOf(line, 11, 15);
    if (SameBits(point.radius, radius) && SameBits(point.signal, signal) && taken == text.size())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << '"' << line << "\": " << point.radius << " for " << radius << ", "
                                         << point.signal << " for " << signal << ", " << taken << " bytes";
}

struct Line {
    const char* text;
    bool isPlain;
};

TEST(PlainPoint, IsReadFromTheLayoutsOfTheInstruments) {
    const Line lines[] = {
        {"   5.9007   -5.09242E-03", true},
        {"   5.9007    5.09242E-03", true},
        {"   5.9007    5.09242E+03 ", false},
        {"   5.9007   5.09242E+03", false},
        {"   5.9110  4.57670E-0002   5.91012E-0003", true},
        {"   5.9110 -4.57670E-0002   5.91012E-0003", true},
        {"   5.9110    0.00000E+00", true},
        {"   5.9110   -0.00000E+00", true},
        {"   5.9110    1.00000E+22", true},
        {"   5.9110    1.00000E+38", false},
        {"   5.9110    1.00000E-38", false},
        {"   5.911     1.00000E-03", false},
        {"   5.9110    1.0000E-03", false},
        {"   5.9110    1.00000E-3", false},
        {"   5.9110    1.00000D-03", false},
        {"   5.9110    1.00000E 03", false},
        {"   5.9110   +1.00000E-03", false},
        {"   5.9110  1.000001E-03", false},
        {"  15.9110    1.00000E-03", false},
        {"1  5.9110    1.00000E-03", false},
        {"   5.9110    1.00000E-03\r ", false},
        {"   5.91101   1.00000E-03", false},
        {"   5,9110    1.00000E-03", false},
        {"   5.9:10    1.00000E-03", false},
        {"   5.9110    1.0/000E-03", false},
        {"   5.9110    1.00000E-0:", false},
        {"   5.9110", false},
        {"", false},
    };
    for (const auto& line : lines)
        for (const char* end : {"\n", "\r\n"}) {
            bool isPlain = false;
            EXPECT_TRUE(IsAsVal(line.text, end, isPlain));
            EXPECT_EQ(isPlain, line.isPlain) << line.text;
        }
}

TEST(PlainPoint, IsLeftAloneWhereItsLineHasNoEndYet) {
    for (const std::string line : {"   5.9007   -5.09242E-03", "   5.9110  4.57670E-0002   5.91012E-0003"})
        for (const char* behind : {"", "\r"}) {
            bool isPlain = true;
            EXPECT_TRUE(IsAsVal(line, behind, isPlain));
            EXPECT_FALSE(isPlain) << line;
        }
}

TEST(PlainPoint, LeavesTheNextLineWhereItIs) {
    ScanPoint point{};
    EXPECT_EQ(ReadPlainPoint("   5.9007   -5.09242E-03\n   5.9014   -2.11609E-02\n", point), 25U);
    EXPECT_EQ(ReadPlainPoint("   5.9110  4.57670E-0002   5.91012E-0003\r\n\n", point), 42U);
}

TEST(PlainPoint, ScalesEveryNumberOfSixDigitsAsAQuotientDoes) {
    double power = 1.0;
    for (int exponent = 0; exponent <= plain_point::kLargestPower; ++exponent, power *= 10.0) {
        std::uint32_t differing = 0;
        for (std::uint32_t digits = 0; digits < 1000000; ++digits)
            differing += plain_point::Scaled(digits, -exponent) != static_cast<float>(digits / power) ? 1U : 0U;
        EXPECT_EQ(differing, 0U) << exponent;
    }
}

TEST(PlainPoint, HasTheBitsOfValOnAMillionLines) {
    std::mt19937 random(20261121);
    std::uniform_real_distribution<double> radius(0.0, 9.99994), digits(-9.999994, 9.999994);
    std::uniform_int_distribution<int> exponent(-29, 27);
    char line[80];
    int plain = 0;
    for (int i = 0; i < 1000000; ++i) {
        if (i % 2 == 0)
            std::snprintf(line, sizeof line, "%9.4f%11.5fE%+03d", radius(random), digits(random), exponent(random));
        else
            std::snprintf(line, sizeof line, "%9.4f%9.5fE%+05d   5.91012E-0003", radius(random), digits(random),
                          exponent(random));
        bool isPlain = false;
        ASSERT_TRUE(IsAsVal(line, "\n", isPlain));
        plain += isPlain ? 1 : 0;
    }
    EXPECT_GT(plain, 750000);
}

TEST(PlainPoint, HasTheBitsOfValOnLinesWithAnyCharacterAnywhere) {
    std::mt19937 random(19280417);
    const std::string some = "0123456789.+-EeDd \t\r:/,x\xFF";
    for (const std::string line : {"   5.9007   -5.09242E-03", "   5.9110  4.57670E-0002   5.91012E-0003"})
        for (int i = 0; i < 300000; ++i) {
            std::string other = line;
            for (int changes = 0; changes <= i % 3; ++changes)
                other[random() % other.size()] = some[random() % some.size()];
            if (i % 7 == 0)
                other.resize(random() % (other.size() + 1));
            bool isPlain = false;
            ASSERT_TRUE(IsAsVal(other, i % 2 == 0 ? "\n" : "\r\n", isPlain));
        }
}

}  // namespace
}  // namespace halvern
