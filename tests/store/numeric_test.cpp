#include "store/numeric.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/failure.h"

namespace halvern {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(Ln, IsTheNaturalLogarithm) {
    EXPECT_EQ(Ln(1.0), 0.0);
    EXPECT_DOUBLE_EQ(Ln(2.718281828459045), 1.0);
    EXPECT_DOUBLE_EQ(Ln(1024.0), 10.0 * 0.6931471805599453);
    EXPECT_DOUBLE_EQ(Ln(1.2), 0.1823215567939546);
}

TEST(Ln, FailsWithoutAPositiveNumber) {
    for (const double value : {0.0, -0.0, -1.0, -kInfinite, kNaN})
        EXPECT_FAILURE(5, Ln(value));
    EXPECT_LT(Ln(std::numeric_limits<double>::denorm_min()), -744.0);
}

TEST(SquareRoot, IsTheRoundedRoot) {
    EXPECT_EQ(SquareRoot(0.0), 0.0);
    EXPECT_EQ(SquareRoot(6.25), 2.5);
    EXPECT_EQ(SquareRoot(2.0), 1.4142135623730951);
}

TEST(SquareRoot, FailsWithANegativeNumber) {
    for (const double value : {-std::numeric_limits<double>::denorm_min(), -4.0, kNaN})
        EXPECT_FAILURE(5, SquareRoot(value));
}

TEST(Exp, IsAPowerOfE) {
    EXPECT_EQ(Exp(0.0), 1.0);
    EXPECT_DOUBLE_EQ(Exp(1.0), 2.718281828459045);
    EXPECT_DOUBLE_EQ(Exp(-1.0), 1.0 / 2.718281828459045);
    EXPECT_EQ(Exp(-1000.0), 0.0) << "below the range of a double";
}

TEST(Exp, FailsAboveTheRangeOfADouble) {
    // The largest double, 1.7977E308, is e to the 709.7827.
    EXPECT_GT(Exp(709.78), 1.79E308);
    EXPECT_FAILURE(6, Exp(709.79));
    EXPECT_FAILURE(6, Exp(kInfinite));
}

}  // namespace
}  // namespace halvern
