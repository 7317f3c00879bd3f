#include "plot/axis_scale.h"

#include <gtest/gtest.h>

#include <cmath>

#include "store/analysis_store.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct ScaleCase {
    float min, max, scaleMin, scaleMax;
    std::int32_t intervals;
};

// Worked step by step with every operation rounded to single.
constexpr ScaleCase kScales[] = {
    // Step 10 gives 12 intervals; doubled to 20 it gives 120 / 20 + 0.5 = 6.5, which rounds to 6.
    {0.0F, 100.0F, 0.0F, 120.0F, 6},
    // Step 0.1 doubled twice, with a tick at 0.
    {-1.0F, 1.0F, -1.2F, 1.2F, 6},
    // Identical values of 5, widened: steps of 2, and 10 / 2 + 0.5 = 5.5 rounds to 6.
    {2.5F, 10.0F, 2.0F, 12.0F, 6},
    // An upper limit of zero gets no margin either.
    {-100.0F, 0.0F, -120.0F, 0.0F, 6},
    // As singles 5.8 and 7.2 lie a little less than seven steps apart.
    {6.0F, 7.0F, 5.8F, 7.2F, 7},
    {0.0F, 0.055F, 0.0F, 0.06F, 6},
};

TEST(NiceScale, FindsRoundLimits) {
    for (const auto& c : kScales) {
        float ScaleMin = 0.0F, ScaleMax = 0.0F;
        std::int32_t Intervals = 0;
        NiceScale(c.min, c.max, ScaleMin, ScaleMax, Intervals);
        EXPECT_FLOAT_EQ(ScaleMin, c.scaleMin) << c.min << " to " << c.max;
        EXPECT_FLOAT_EQ(ScaleMax, c.scaleMax) << c.min << " to " << c.max;
        EXPECT_EQ(Intervals, c.intervals) << c.min << " to " << c.max;
    }
}

TEST(NiceScale, FailsWithARangeThatIsNoRange) {
    float ScaleMin = 0.0F, ScaleMax = 0.0F;
    std::int32_t Intervals = 0;
    EXPECT_FAILURE(5, NiceScale(1.0F, 1.0F, ScaleMin, ScaleMax, Intervals));
}

TEST(AxisExponent, IsThatOfTheSmallerEnd) {
    struct Case {
        float a, b;
        const char* text;
    };
    constexpr Case kCases[] = {
        {0.0F, 0.06F, "-02"},      {0.5F, 1000.0F, "+00"}, {-3000.0F, 12000.0F, "+03"},
        {200.0F, 12000.0F, "+02"}, {0.0F, 0.0F, "+00"},    {-0.04F, 0.0F, "-02"},
        {12.5F, 99.0F, "+00"},     {9.999F, 20.0F, "+00"}, {1E-13F, 2E-13F, "-13"},
    };
    for (const auto& c : kCases) {
        std::string text;
        AxisExponent(c.a, c.b, text);
        EXPECT_EQ(text, c.text) << c.a << " to " << c.b;
    }
}

TEST(NiceScale, EndsOrFailsForRangesOfAFewNeighbouringSingles) {
    // As after zooming in on one point again and again: steps below the resolution of a single lead nowhere.
    for (float Min : {6.86219978F, 1.01242995F, 6757.999F, 1.0E-13F}) {
        float Max = Min;
        for (int apart = 1; apart <= 64; ++apart) {
            Max = std::nextafter(Max, 2.0F * Max);
            float ScaleMin = 0.0F, ScaleMax = 0.0F;
            std::int32_t Intervals = 0;
            try {
                NiceScale(Min, Max, ScaleMin, ScaleMax, Intervals);
                EXPECT_NEAR(ScaleMin, Min, 128.0F * (std::nextafter(Min, 2.0F * Min) - Min));
                EXPECT_GE(ScaleMax, ScaleMin);
            } catch (const RuntimeFailure& failure) {
                EXPECT_EQ(failure.Number(), 6) << "the steps became too small to divide by";
            }
        }
    }
}

struct Axes : ::testing::Test {
    test::TestDesktop desktop;
};

TEST_F(Axes, LeaveAPowerOfTenOutOfTheLabels) {
    Store().PlotXMin = 0.0F;
    Store().PlotXMax = 0.055F;
    const Axis x = WorkOutXAxis();
    EXPECT_EQ(x.Suffix, "  (10^-02)");
    EXPECT_EQ(x.Pow, 0.01F);
    Store().PlotYMin = 0.0F;
    Store().PlotYMax = 0.055F;
    EXPECT_EQ(WorkOutYAxis().Suffix, " (10^-02)") << "with one blank less";
    Store().PlotXMax = 50.0F;
    EXPECT_EQ(WorkOutXAxis().Suffix, "");
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Axes, OfIdenticalValuesAreWidenedWithOneWarning) {
    auto& S = Store();
    S.PlotXMin = S.PlotXMax = 5.0F;
    WorkOutXAxis();
    EXPECT_EQ(S.PlotXMin, 2.5F);
    EXPECT_EQ(S.PlotXMax, 10.0F);
    WorkOutXAxis();
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "WARNING:  All X values are identical.");
    EXPECT_EQ(desktop.messages[0].title, "Data Error");
    EXPECT_EQ(desktop.messages[0].style, 48);
    S.PlotYMin = S.PlotYMax = -5.0F;
    WorkOutYAxis();
    EXPECT_EQ(S.PlotYMin, -10.0F);
    EXPECT_EQ(S.PlotYMax, -2.5F);
    EXPECT_EQ(desktop.messages[1].text, "WARNING:  All Y values are identical.");
}

TEST_F(Axes, OfZeroAloneWarnAtEachPaint) {
    auto& S = Store();
    S.PlotYMin = S.PlotYMax = 0.0F;
    for (std::size_t paint = 1; paint <= 2; ++paint) {
        const Axis y = WorkOutYAxis();
        EXPECT_EQ(y.Min, -2.0F);
        EXPECT_EQ(y.Max, 2.0F);
        EXPECT_EQ(y.Labels, 5);
        EXPECT_EQ(y.Step, 1.0F);
        EXPECT_EQ(desktop.messages.size(), paint);
    }
    EXPECT_EQ(S.PlotYMax, 0.0F);
}

}  // namespace
}  // namespace halvern
