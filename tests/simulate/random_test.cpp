#include "simulate/random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace halvern::simulate {
namespace {

// The series of two triples, worked out with the published recurrence of the 64-bit Mersenne twister (T. Nishimura, ACM
// Trans. Model. Comput. Simul. 10 (2000) 348) in exact integers, in units of 2^-53: no compiler may change them, or the
// same seed would no longer give the same files.
TEST(Random, IsTheSameSeriesEverywhere) {
    Random readings(1, Chance::kReadings, 0);
    for (const double expected : {2000346256364556.0, 1611881361531938.0, 6126227177519968.0})
        EXPECT_EQ(readings.Uniform(), expected * 0x1p-53);
    Random jumps(7, Chance::kJumpsWithin, 499);
    for (const double expected : {463847843579478.0, 5389751970491584.0, 4319843931192335.0})
        EXPECT_EQ(jumps.Uniform(), expected * 0x1p-53);
}

TEST(Random, MakesANormalNumberOfTwoUniformOnes) {
    Random uniform(3, Chance::kJitter, 5), normal(3, Chance::kJitter, 5);
    const double radius = std::sqrt(-2.0 * std::log(1.0 - uniform.Uniform()));
    EXPECT_DOUBLE_EQ(normal.Normal(), radius * std::cos(6.283185307179586 * uniform.Uniform()));
}

TEST(Random, DiffersBySeedByChanceAndByScan) {
    const double first = Random(1, Chance::kRadii, 1).Uniform();
    EXPECT_NE(first, Random(2, Chance::kRadii, 1).Uniform());
    EXPECT_NE(first, Random(1, Chance::kReadings, 1).Uniform());
    EXPECT_NE(first, Random(1, Chance::kRadii, 2).Uniform());
}

// The bounds are four standard deviations of each figure for so many numbers.
TEST(Random, IsDistributedAsItSays) {
    constexpr int kCount = 100000;
    const double root = std::sqrt(static_cast<double>(kCount));
    Random random(11, Chance::kReadings, 1);
    double sum = 0.0, squares = 0.0, fourths = 0.0, uniform = 0.0, signs = 0.0;
    for (int i = 0; i < kCount; ++i) {
        const double x = random.Normal();
        sum += x;
        squares += x * x;
        fourths += x * x * x * x;
        uniform += random.Uniform();
        signs += random.Sign();
    }
    EXPECT_NEAR(sum / kCount, 0.0, 4.0 / root);
    EXPECT_NEAR(squares / kCount, 1.0, 4.0 * std::sqrt(2.0) / root);
    EXPECT_NEAR(fourths / kCount, 3.0, 4.0 * std::sqrt(96.0) / root);
    EXPECT_NEAR(uniform / kCount, 0.5, 4.0 / std::sqrt(12.0) / root);
    EXPECT_NEAR(signs / kCount, 0.0, 4.0 / root);
}

}  // namespace
}  // namespace halvern::simulate
