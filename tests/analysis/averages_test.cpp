#include "analysis/averages.h"

#include <gtest/gtest.h>

#include <cmath>

#include "store/analysis_store.h"
#include "support/failure.h"

namespace halvern {
namespace {

using FiveLines = std::array<std::string, 5>;

/// s* as singles: they and the distributions hold 6E-8, and the fourth power of s* shows it four times.
constexpr double kRounding = 1E-6;

/// Points of 1 to 5 Svedbergs; 2, 3 and 4 lie between the limits.
struct Averages : ::testing::Test {
    Averages() {
        auto& S = Store();
        S.SPoints = 5;
        S.SRangeFirst = 1;
        S.SRangeLast = 5;
        S.DeltaS = 0.5F;
        const float kHat[] = {9.0F, 1.0F, 2.0F, 1.0F, 9.0F};
        for (std::int32_t I = 1; I <= 5; ++I) {
            S.SStar(I) = static_cast<float>(I) * 1E-13F;
            S.GHat(I) = kHat[I - 1] * 1E13F;
            S.GStar(I) = 2.0F * kHat[I - 1] * 1E13F;
            S.GStarSem(I) = 0.5F;
        }
    }
};

void ExpectAverage(const Average& average, double value, double squaredError) {
    EXPECT_NEAR(average.value, value, value * kRounding);
    EXPECT_NEAR(average.error, std::sqrt(squaredError), std::sqrt(squaredError) * kRounding);
}

TEST_F(Averages, AreTheQuotientsOfNeighbouringMoments) {
    // g of 1, 2, 1 at 2, 3, 4: the moments are 1/2 + 2/3 + 1/4 = 17/12, 4, 12, 38, 126. With an error of 1/2 each, the
    // sums of squared errors are (1/4 + 1/9 + 1/16) / 4 = 61/576, 3/4, 29/4, 353/4 (16 + 81 + 256 = 353) and
    // (64 + 729 + 4096) / 4 = 4889/4.
    const auto a = AveragesOfInteracting();
    ExpectAverage(a.Sn, 48.0 / 17.0, std::pow(4.0 * 144.0 / 289.0, 2) * 61.0 / 576.0 + std::pow(12.0 / 17.0, 2) * 0.75);
    ExpectAverage(a.Sw, 3.0, std::pow(12.0 / 16.0, 2) * 0.75 + 7.25 / 16.0);
    ExpectAverage(a.Sz, 38.0 / 12.0, std::pow(38.0 / 144.0, 2) * 7.25 + 353.0 / 4.0 / 144.0);
    ExpectAverage(a.SzPlus1, 126.0 / 38.0, std::pow(126.0 / 1444.0, 2) * 353.0 / 4.0 + 4889.0 / 4.0 / 1444.0);
    EXPECT_NEAR(a.concentration, 0.5 * 4.0, 2.0 * kRounding);
}

TEST_F(Averages, OfTheTwoCasesDifferInTheDistributionAlone) {
    // Twice the distribution: the same averages, half the error, twice the area.
    const auto interacting = AveragesOfInteracting();
    const auto non = AveragesOfNonInteracting();
    EXPECT_NEAR(non.Sw.value, 3.0, 3.0 * kRounding);
    EXPECT_NEAR(non.Sw.error, interacting.Sw.error / 2.0, kRounding);
    EXPECT_NEAR(non.SzPlus1.error, interacting.SzPlus1.error / 2.0, kRounding);
    EXPECT_NEAR(non.concentration, 4.0, 4.0 * kRounding);
}

TEST_F(Averages, WeighTheErrorsByTheirPoints) {
    // All error at 4 Svedbergs: its square 1/4 goes into the sums with 1/16, 1, 16, 256 and 4096.
    Store().GStarSem(2) = Store().GStarSem(3) = 0.0F;
    const auto a = AveragesOfInteracting();
    ExpectAverage(a.Sn, 48.0 / 17.0, std::pow(4.0 * 144.0 / 289.0, 2) / 64.0 + std::pow(12.0 / 17.0, 2) / 4.0);
    ExpectAverage(a.Sw, 3.0, std::pow(12.0 / 16.0, 2) / 4.0 + 4.0 / 16.0);
    ExpectAverage(a.Sz, 38.0 / 12.0, std::pow(38.0 / 144.0, 2) * 4.0 + 64.0 / 144.0);
    ExpectAverage(a.SzPlus1, 126.0 / 38.0, std::pow(126.0 / 1444.0, 2) * 64.0 + 1024.0 / 1444.0);
}

TEST_F(Averages, LeaveOutThePointsAtTheLimits) {
    Store().SRangeFirst = 2;
    // 3 and 4 Svedbergs with 2 and 1: 10 / 3
    EXPECT_NEAR(AveragesOfInteracting().Sw.value, 10.0 / 3.0, 4.0 * kRounding);
    Store().SRangeLast = 4;
    EXPECT_NEAR(AveragesOfInteracting().Sw.value, 3.0, 3.0 * kRounding) << "one point alone";
    EXPECT_NEAR(AveragesOfInteracting().Sn.value, 3.0, 3.0 * kRounding);
}

TEST_F(Averages, EndWithTheGrid) {
    // A new dc/dt can be shorter than the limits picked before it.
    Store().SPoints = 3;
    EXPECT_NEAR(AveragesOfInteracting().Sw.value, 8.0 / 3.0, 3.0 * kRounding) << "2 and 3 Svedbergs with 1 and 2";
    EXPECT_NEAR(AveragesOfInteracting().concentration, 1.5, 1.5 * kRounding);
}

TEST_F(Averages, FailWithNoPointBetweenTheLimits) {
    Store().SRangeFirst = 3;
    Store().SRangeLast = 4;
    EXPECT_FAILURE(11, AveragesOfInteracting());
    EXPECT_FAILURE(11, AveragesOfNonInteracting());
}

TEST_F(Averages, FailWithAnSOfZero) {
    Store().SStar(3) = 0.0F;
    EXPECT_FAILURE(11, AveragesOfInteracting());
}

TEST_F(Averages, FailWithoutADistribution) {
    for (std::int32_t I = 2; I <= 4; ++I)
        Store().GHat(I) = 0.0F;
    EXPECT_FAILURE(11, AveragesOfInteracting());
}

TEST_F(Averages, AreToldInFiveLines) {
    const DistributionAverages a = {.Sn = {1.2345, 0.0004},
                                    .Sw = {12345.6789, 0.25},
                                    .Sz = {-1.5, 12.3456},
                                    .SzPlus1 = {0.0, 0.0},
                                    .concentration = 1.25};
    EXPECT_EQ(AverageLinesOfInteracting(a),
              (FiveLines{"   Sn   =  1.235 +/-  0.000 Svedbergs", "   Sw   =  12345.679 +/-  0.250 Svedbergs",
                         "   Sz   =  -1.500 +/-  12.346 Svedbergs", "   Sz+1 =  0.000 +/-  0.000 Svedbergs",
                         "   Cp   =   1.250  ( plateau concentration )"}));
    EXPECT_EQ(AverageLinesOfNonInteracting(a)[1], "   Sw   =  12345.679 +/-  0.250 Svedbergs");
    EXPECT_EQ(AverageLinesOfNonInteracting(a)[4], "   Co   =   1.250  ( loading concentration )");
}

TEST_F(Averages, TellANegativeConcentrationWithItsSignInFront) {
    DistributionAverages a{};
    a.concentration = -0.016;
    EXPECT_EQ(AverageLinesOfInteracting(a)[4], "   Cp   =  - 0.016  ( plateau concentration )");
}

TEST_F(Averages, BlankThePointsAtTheLimitsAndOutside) {
    auto& S = Store();
    S.SRangeFirst = 2;
    S.SRangeLast = 4;
    S.GHat(6) = 7.0F;
    BlankOutsideLimits();
    for (std::int32_t I : {1, 2, 4, 5}) {
        EXPECT_EQ(S.GHat(I), 0.0F) << I;
        EXPECT_EQ(S.GStar(I), 0.0F) << I;
        EXPECT_EQ(S.GStarSem(I), 0.0F) << I;
    }
    EXPECT_EQ(S.GHat(3), 2E13F);
    EXPECT_EQ(S.GStar(3), 4E13F);
    EXPECT_EQ(S.GStarSem(3), 0.5F);
    EXPECT_EQ(S.GHat(6), 7.0F) << "beyond the grid";
}

}  // namespace
}  // namespace halvern
