#include "conditioning/readd_fringes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct ReAddFringesTest : ::testing::Test {
    test::TestDesktop desktop;
    AnalysisStore& S = Store();

    void Scan(std::int32_t K, const std::vector<float>& signal) {
        S.NumFiles = std::max(S.NumFiles, K);
        S.ScanPoints(K) = static_cast<std::int16_t>(signal.size());
        for (std::size_t I = 0; I < signal.size(); ++I)
            S.ScanData(static_cast<std::int32_t>(I) + 1, 2, K) = signal[I];
    }
    std::vector<float> Result(std::int32_t K) const {
        std::vector<float> signal;
        for (std::int32_t I = 1; I <= S.ScanPoints(K); ++I)
            signal.push_back(S.ScanData(I, 2, K));
        return signal;
    }
};

TEST_F(ReAddFringesTest, KeepsTheFractionsOfAShortScan) {
    Scan(1, {3.25F, -0.25F, -2.0F});
    ReAddFringes();
    EXPECT_EQ(Result(1), (std::vector<float>{0.25F, 0.75F, 0.0F}));
}

TEST_F(ReAddFringesTest, RebuildsARisingCurveThatWasCutIntoFringes) {
    std::vector<float> curve, fractions;
    for (int I = 0; I < 60; ++I) {
        curve.push_back(0.25F * static_cast<float>(I));
        fractions.push_back(curve.back() - std::floor(curve.back()));
    }
    Scan(1, fractions);
    ReAddFringes();
    EXPECT_EQ(Result(1), curve);
}

TEST_F(ReAddFringesTest, TakesWholeFringesOffAFallingCurve) {
    std::vector<float> curve, jumped;
    for (int I = 0; I < 20; ++I) {
        curve.push_back(0.5F - 0.25F * static_cast<float>(I));
        jumped.push_back(curve.back() + (I >= 7 ? 4.0F : 0.0F));
    }
    // The first fractions are 0.5, 0.25, 0: they are the curve itself there.
    Scan(1, jumped);
    ReAddFringes();
    EXPECT_EQ(Result(1), curve);
}

TEST_F(ReAddFringesTest, LeavesStepsOfUpToNineTenthsOfAFringe) {
    // Predicted from three equal points is that value; 0.875 above it is no jump, and carries nothing on.
    Scan(1, {0.0F, 0.0F, 0.0F, 0.875F});
    ReAddFringes();
    EXPECT_EQ(Result(1).back(), 0.875F);
    Scan(1, {0.0F, 0.0F, 0.0F, 0.9F});
    ReAddFringes();
    EXPECT_EQ(Result(1).back(), 0.9F) << "the limit itself is no jump";
    // 0.9375 is one.
    Scan(1, {0.0F, 0.0F, 0.0F, 0.9375F});
    ReAddFringes();
    EXPECT_EQ(Result(1).back(), -0.0625F);
}

TEST_F(ReAddFringesTest, PredictsFromTheThreePointsBefore) {
    // 4/3 * 0.75 + 1/3 * 0.375 - 2/3 * 0 = 1.125: a fraction of 0.125 needs one fringe.
    Scan(1, {0.0F, 0.375F, 0.75F, 0.125F});
    ReAddFringes();
    EXPECT_EQ(Result(1).back(), 1.125F);
}

// A curve that bends upwards needs more fringes at each point than at the one before. The rule is worked here anew, in
// plain words; the point that needs exactly 30 keeps them, and the points behind it start without them.
TEST_F(ReAddFringesTest, DoesNotHandOnThirtyFringes) {
    std::vector<float> curve, W;
    for (int I = 0; I < 700; ++I) {
        curve.push_back(0.0234375F * static_cast<float>(I * I));  // 3/128: a tenth of a fringe above the prediction
        W.push_back(curve.back() - std::floor(curve.back()));
    }
    Scan(1, W);
    int shift = 0;
    std::size_t thirty = 0, beyond = 0;
    for (std::size_t I = 3; I < W.size(); ++I) {
        W[I] += static_cast<float>(shift);
        const auto predicted =
            static_cast<float>(W[I - 1] * 4.0 / 3.0 + W[I - 2] / 3.0 - static_cast<double>(W[I - 3] + W[I - 3]) / 3.0);
        int net = 0;
        while (std::fabs(W[I] - predicted) > 0.9F && std::abs(net) <= 30) {
            const int step = W[I] < predicted ? 1 : -1;
            W[I] += static_cast<float>(step);
            net += step;
        }
        if (std::abs(net) == 30 && thirty == 0)
            thirty = I;
        if (std::abs(net) == 31 && beyond == 0)
            beyond = I;
        shift += std::abs(net) == 30 ? 0 : net;
    }
    ASSERT_GT(thirty, 3U);
    ASSERT_GT(beyond, thirty);
    ReAddFringes();
    EXPECT_EQ(Result(1), W);
    EXPECT_EQ(Result(1)[thirty], curve[thirty]) << "the point itself keeps its fringes";
    EXPECT_NE(Result(1)[thirty + 1], curve[thirty + 1]);
}

TEST_F(ReAddFringesTest, TreatsEachScanByItself) {
    Scan(1, {0.0F, 0.0F, 0.0F, 0.9375F, 0.9375F});
    Scan(2, {0.5F, 0.5F, 0.5F, 0.5F});
    ReAddFringes();
    EXPECT_EQ(Result(2), (std::vector<float>{0.5F, 0.5F, 0.5F, 0.5F}));
}

TEST_F(ReAddFringesTest, ShowsTheHourglassAndTicksItsItem) {
    Scan(1, {0.0F});
    DoReAddNow_Click();
    EXPECT_EQ(desktop.pointers, (std::vector<int>{kPointerHourglass, kPointerNormal}));
    EXPECT_TRUE(Menus().DoReAddNow.IsTicked());
}

TEST_F(ReAddFringesTest, CanBeRepeated) {
    std::vector<float> curve;
    for (int I = 0; I < 60; ++I)
        curve.push_back(0.25F * static_cast<float>(I));
    Scan(1, curve);
    ReAddFringes();
    ReAddFringes();
    EXPECT_EQ(Result(1), curve);
}

}  // namespace
}  // namespace halvern
