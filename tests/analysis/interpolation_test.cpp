#include "analysis/interpolation.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/failure.h"

namespace halvern {
namespace {

using Values = std::vector<float>;

struct Interpolation : ::testing::Test {
    Curve X, Y;
    std::int16_t NOut = -1;

    Interpolation() {
        X.Zero();
        Y.Zero();
    }

    void Give(const Values& x, const Values& y) {
        for (std::size_t i = 0; i < x.size(); ++i) {
            X(static_cast<std::int32_t>(i) + 1) = x[i];
            Y(static_cast<std::int32_t>(i) + 1) = y[i];
        }
    }

    Values Of(const Curve& curve) const {
        Values values;
        for (std::int32_t I = 1; I <= NOut; ++I)
            values.push_back(curve(I));
        return values;
    }
};

TEST_F(Interpolation, IsLinearBetweenThePointsAndFlatInFrontOfTheFirst) {
    Give({1.0F, 3.0F, 4.0F}, {10.0F, 30.0F, 20.0F});
    InterpolateToRadialGrid(X, Y, 3, NOut, 0.5F);
    // 0.5 lies in front of the first point, 1 on it; slopes 10 and -10; 4.5 is beyond the last point, 4 is not.
    EXPECT_EQ(Of(X), (Values{0.5F, 1.0F, 1.5F, 2.0F, 2.5F, 3.0F, 3.5F, 4.0F}));
    EXPECT_EQ(Of(Y), (Values{10.0F, 10.0F, 15.0F, 20.0F, 25.0F, 30.0F, 25.0F, 20.0F}));
}

TEST_F(Interpolation, LeavesWhatLiesBeyondTheLastGridPoint) {
    Give({1.0F, 2.0F, 77.0F}, {5.0F, 6.0F, 88.0F});
    InterpolateToRadialGrid(X, Y, 2, NOut, 1.0F);
    EXPECT_EQ(NOut, 2);
    EXPECT_EQ(X(3), 77.0F);
    EXPECT_EQ(Y(3), 88.0F);
}

TEST_F(Interpolation, OfACurveThatEndsInFrontOfTheGridHasNoPoint) {
    Give({0.1F, 0.2F}, {5.0F, 6.0F});
    InterpolateToRadialGrid(X, Y, 2, NOut, 1.0F);
    EXPECT_EQ(NOut, 0);
    EXPECT_EQ(X(1), 0.1F);
}

TEST_F(Interpolation, EndsAt2000Points) {
    Give({0.0F, 4000.0F}, {0.0F, 8000.0F});
    X(2001) = Y(2001) = -1.0F;
    InterpolateToRadialGrid(X, Y, 2, NOut, 1.0F);
    EXPECT_EQ(NOut, 2000);
    EXPECT_EQ(X(2000), 2000.0F);
    EXPECT_EQ(Y(2000), 4000.0F);
    EXPECT_EQ(X(2001), -1.0F);
    EXPECT_EQ(Y(2001), -1.0F);
}

TEST_F(Interpolation, TakesTheFirstIntervalOfACurveThatTurnsBack) {
    // 2 and 3 lie between the first two points already; 4 is beyond the last one, though not beyond the second.
    Give({1.0F, 5.0F, 2.0F, 3.0F}, {10.0F, 50.0F, 0.0F, 0.0F});
    InterpolateToRadialGrid(X, Y, 4, NOut, 1.0F);
    EXPECT_EQ(Of(Y), (Values{10.0F, 20.0F, 30.0F}));
}

TEST_F(Interpolation, RoundsTheSlopeToASingle) {
    // The slope is 1 / 3, as a single 11184811 / 2^25. At 1.25 that gives 13981013.75 / 2^25, and a single holds
    // 13981014; a third that is not rounded would give 13981013.33 and 13981013.
    Give({0.0F, 3.0F}, {0.0F, 1.0F});
    InterpolateToRadialGrid(X, Y, 2, NOut, 1.25F);
    EXPECT_EQ(Y(1), 13981014.0F * 0x1p-25F);
}

TEST_F(Interpolation, RoundsTheProductToASingleBeforeTheSum) {
    // Grid point and slope are both 1 + 2^-23. Their product 1 + 2^-22 + 2^-46 is the single 1 + 2^-22; with 3 that is
    // halfway between 4 and 4 + 2^-21, and goes to the even 4. The product as it is would go up.
    const float x = 1.0F + 0x1p-23F;
    Give({0.0F, 4.0F}, {3.0F, 7.0F + 0x1p-21F});
    InterpolateToRadialGrid(X, Y, 2, NOut, x);
    EXPECT_EQ(Y(1), 4.0F);
}

TEST_F(Interpolation, CountsTheRadialGridInSingles) {
    Give({0.0F, 5.0F}, {0.0F, 0.0F});
    InterpolateToRadialGrid(X, Y, 2, NOut, 0.001F);
    ASSERT_EQ(NOut, 2000);
    for (std::int32_t I = 1; I <= 2000; ++I)
        EXPECT_EQ(X(I), static_cast<float>(I) * 0.001F) << I;
}

TEST_F(Interpolation, CountsTheGridOfSInSinglesTwice) {
    Give({0.0F, 1E-10F}, {0.0F, 0.0F});
    InterpolateToSGrid(X, Y, 2, NOut, 0.03F);
    ASSERT_EQ(NOut, 2000);
    int differing = 0;
    for (std::int32_t I = 1; I <= 2000; ++I) {
        const float svedbergs = static_cast<float>(I) * 0.03F;
        EXPECT_EQ(X(I), static_cast<float>(1E-13 * static_cast<double>(svedbergs))) << I;
        differing += X(I) != static_cast<float>(1E-13 * (static_cast<double>(I) * 0.03F));
    }
    EXPECT_GT(differing, 0) << "rounding once would do as well: the test is blunt";
}

TEST_F(Interpolation, FailsWithACountOutsideTheCurve) {
    EXPECT_FAILURE(9, InterpolateToRadialGrid(X, Y, 0, NOut, 1.0F));
    EXPECT_FAILURE(9, InterpolateToRadialGrid(X, Y, 2049, NOut, 1.0F));
    X(2048) = 2.0F;  // the last place of a curve is as good as any
    InterpolateToRadialGrid(X, Y, 2048, NOut, 1.0F);
    EXPECT_EQ(NOut, 2);
}

TEST_F(Interpolation, OfACurveBehindTheWholeGridIsFlat) {
    Give({3000.0F, 4000.0F}, {5.0F, 6.0F});
    InterpolateToRadialGrid(X, Y, 2, NOut, 1.0F);
    EXPECT_EQ(NOut, 2000);
    EXPECT_EQ(X(1), 1.0F);
    EXPECT_EQ(Y(1), 5.0F);
    EXPECT_EQ(X(2000), 2000.0F);
    EXPECT_EQ(Y(2000), 5.0F);
    // No value of the grid lies behind a point, so that their number is never asked for.
    Give({3000.0F}, {7.0F});
    InterpolateToRadialGrid(X, Y, 0, NOut, 1.0F);
    EXPECT_EQ(NOut, 2000);
    EXPECT_EQ(Y(2000), 7.0F);
}

TEST_F(Interpolation, PassesOverPointsThatLieCloserThanTheGrid) {
    Give({1.0F, 1.25F, 1.5F, 1.75F, 2.25F, 3.0F}, {0.0F, 1.0F, 2.0F, 4.0F, 8.0F, 11.0F});
    InterpolateToRadialGrid(X, Y, 6, NOut, 1.0F);
    EXPECT_EQ(Of(X), (Values{1.0F, 2.0F, 3.0F}));
    EXPECT_EQ(Of(Y), (Values{0.0F, 6.0F, 11.0F})) << "half the way from 4 to 8, and the last point itself";
}

}  // namespace
}  // namespace halvern
