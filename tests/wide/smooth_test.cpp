#include "wide/smooth.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "support/failure.h"

namespace halvern {
namespace {

ScanCurve CurveOf(const std::vector<float>& values) {
    ScanCurve curve;
    curve.Fill(0.0F);
    for (std::size_t i = 0; i < values.size(); ++i)
        curve(static_cast<std::int32_t>(i) + 1) = values[i];
    return curve;
}

std::vector<float> Smoothed(const std::vector<float>& values, float passes, std::int16_t window) {
    ScanCurve curve = CurveOf(values);
    SmoothData(curve, static_cast<std::int32_t>(values.size()), passes, window);
    std::vector<float> result;
    for (std::size_t i = 0; i < values.size(); ++i)
        result.push_back(curve(static_cast<std::int32_t>(i) + 1));
    return result;
}

/// The mean over the window, or over as many points to both sides as there are: worked in double, pass after pass.
std::vector<float> ByHand(std::vector<float> values, int passes, int window) {
    const int N = static_cast<int>(values.size());
    for (int pass = 0; pass < passes; ++pass) {
        std::vector<float> next(values.size());
        for (int i = 0; i < N; ++i) {
            const int reach = std::min({i, N - 1 - i, window / 2});
            double sum = 0.0;
            for (int k = i - reach; k <= i + reach; ++k)
                sum += values[static_cast<std::size_t>(k)];
            next[static_cast<std::size_t>(i)] = static_cast<float>(sum / (2 * reach + 1));
        }
        values = next;
    }
    return values;
}

TEST(SmoothData, IsARunningMeanWhoseWindowShrinksTowardsTheEnds) {
    EXPECT_EQ(Smoothed({0, 6, 12, 6, 0, 30, 0}, 1.0F, 5), (std::vector<float>{0, 6, 4.8F, 10.8F, 9.6F, 10, 0}));
}

TEST(SmoothData, KeepsTheFirstAndTheLastPoint) {
    const auto result = Smoothed({7, 1, 2, 3, 4, 5, 6, 7, 100}, 3.0F, 5);
    EXPECT_EQ(result.front(), 7.0F);
    EXPECT_EQ(result.back(), 100.0F);
}

TEST(SmoothData, HasNoEndsWithAWindowOfThree) {
    EXPECT_EQ(Smoothed({3, 0, 6, 0, 9}, 1.0F, 3), (std::vector<float>{3, 3, 2, 5, 9}));
}

TEST(SmoothData, RaisesAnEvenWindowForItsCallerToo) {
    ScanCurve curve = CurveOf({0, 6, 12, 6, 0, 30, 0});
    std::int16_t Window = 4;
    SmoothData(curve, 7, 1.0F, Window);
    EXPECT_EQ(Window, 5);
    EXPECT_EQ(curve(3), 4.8F);
}

TEST(SmoothData, RunsAsOftenAsItIsTold) {
    const std::vector<float> values = {1, 5, 2, 8, 3, 9, 4, 7};
    EXPECT_EQ(Smoothed(values, 0.0F, 3), values);
    EXPECT_EQ(Smoothed(values, 2.0F, 3), Smoothed(Smoothed(values, 1.0F, 3), 1.0F, 3));
}

TEST(SmoothData, AgreesWithMeansWorkedOneByOne) {
    std::mt19937 random(5);
    std::uniform_real_distribution<float> signal(-1.0F, 1.0F);
    for (const int window : {3, 5, 7, 11, 49}) {
        std::vector<float> values;
        for (int i = 0; i < 500; ++i)
            values.push_back(signal(random));
        const auto result = Smoothed(values, 3.0F, static_cast<std::int16_t>(window));
        const auto expected = ByHand(values, 3, window);
        // The sum is carried along in single precision, over 500 steps.
        for (std::size_t i = 0; i < values.size(); ++i)
            EXPECT_NEAR(result[i], expected[i], 2E-5) << window << " " << i;
    }
}

TEST(SmoothData, CarriesItsSumAlongInSinglePrecision) {
    // 1E8 leaves rounding in the sum after it has left the window: rebuilt, the last means would be 1.
    const auto result = Smoothed({1, 1, 1E8F, 1, 1, 1, 1, 1, 1}, 1.0F, 3);
    EXPECT_EQ(result[5], 1.0F / 3.0F);
    EXPECT_EQ(result[7], 1.0F / 3.0F) << "the last full window is carried along, too";
    EXPECT_EQ(result.back(), 1.0F);
}

// The windows at the end are built from the last point inwards: 1E8 + 1 + 1 is 1E8 there, and the mean a third of it.
TEST(SmoothData, BuildsItsEndsFromTheEdgesInwards) {
    const auto result = Smoothed({4, 4, 4, 4, 4, 4, 1, 1, 1E8F}, 1.0F, 7);
    EXPECT_EQ(result[7], static_cast<float>(1E8 / 3.0));
    EXPECT_EQ(result[6], static_cast<float>((1E8 + 8.0) / 5.0));
}

TEST(SmoothData, FailsWithAWindowBeyondItsArrays) {
    ScanCurve curve = CurveOf({1, 2, 3});
    std::int16_t Window = 501;
    EXPECT_FAILURE(9, (SmoothData(curve, 3, 1.0F, Window), 0));
}

}  // namespace
}  // namespace halvern
