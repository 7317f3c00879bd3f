#include "store/common_grid.h"

#include <gtest/gtest.h>

#include "store/analysis_store.h"
#include "support/failure.h"

namespace halvern {
namespace {

/// Two scans of three points.
struct CommonGrid : ::testing::Test {
    AnalysisStore& S = Store();

    CommonGrid() {
        S.NumFiles = 2;
        for (std::int32_t K = 1; K <= 2; ++K) {
            S.ScanPoints(K) = 3;
            for (std::int32_t I = 1; I <= 3; ++I) {
                S.ScanData(I, 1, K) = 6.0F + 0.125F * static_cast<float>(I) + 0.5F * static_cast<float>(K);
                S.ScanData(I, 2, K) = static_cast<float>(10 * K + I);
            }
        }
        S.JitterOffset(1) = 0.0F;
        S.JitterOffset(2) = 0.25F;
    }
};

TEST_F(CommonGrid, HasTheRadiiOfTheFirstScanAndAllSignalsLessTheirOffsets) {
    EXPECT_EQ(TakeGridOfFirstScan(), 3);
    for (std::int32_t I = 1; I <= 3; ++I) {
        EXPECT_EQ(S.GridRadius(I), 6.5F + 0.125F * static_cast<float>(I));
        EXPECT_EQ(S.GridSignal(I, 1), static_cast<float>(10 + I));
        EXPECT_EQ(S.GridSignal(I, 2), static_cast<float>(20 + I) - 0.25F);
    }
}

TEST_F(CommonGrid, FailsWithADifferenceAboveTheRange) {
    S.ScanData(3, 2, 2) = 3E38F;
    S.JitterOffset(2) = -3E38F;
    EXPECT_FAILURE(6, TakeGridOfFirstScan());
}

}  // namespace
}  // namespace halvern
