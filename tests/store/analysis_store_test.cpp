#include "store/analysis_store.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "support/failure.h"

namespace halvern {
namespace {

// The widths of the members: the results depend on them.
template <class T, class Member>
constexpr bool kIs = std::is_same_v<T, std::remove_cvref_t<Member>>;

#define EXPECT_SINGLE(member) static_assert(kIs<float, decltype(AnalysisStore::member)>)
#define EXPECT_16_BIT(member) static_assert(kIs<std::int16_t, decltype(AnalysisStore::member)>)
#define EXPECT_32_BIT(member) static_assert(kIs<std::int32_t, decltype(AnalysisStore::member)>)
#define EXPECT_BOOLEAN(member) static_assert(kIs<Boolean, decltype(AnalysisStore::member)>)

EXPECT_16_BIT(FileNum);
EXPECT_32_BIT(NumFiles);
EXPECT_32_BIT(FoundFiles);
EXPECT_BOOLEAN(IsInterference);
EXPECT_16_BIT(NumSpeeds);
EXPECT_BOOLEAN(MultipleSpeeds);
EXPECT_SINGLE(Meniscus);
EXPECT_SINGLE(SavedMeniscus);
EXPECT_16_BIT(SpeedIndex);
EXPECT_SINGLE(JitterRefRadius);
EXPECT_BOOLEAN(JitterCorrected);
EXPECT_SINGLE(FringeRefRadius);
EXPECT_BOOLEAN(FringeCorrected);
EXPECT_SINGLE(MaxFirstRadius);
EXPECT_SINGLE(MinLastRadius);
EXPECT_16_BIT(GridPoints);
EXPECT_16_BIT(FirstGridPoint);
EXPECT_16_BIT(ScanSkip);
EXPECT_SINGLE(SedTime);
EXPECT_SINGLE(DeltaS);
EXPECT_16_BIT(SPoints);
EXPECT_16_BIT(SGridPoints);
EXPECT_SINGLE(ZeroLevel);
EXPECT_BOOLEAN(ZeroLevelSet);
EXPECT_16_BIT(SRangeFirst);
EXPECT_16_BIT(SRangeLast);
EXPECT_BOOLEAN(SLimitsSet);
EXPECT_BOOLEAN(UseSmoothing);
EXPECT_16_BIT(SmoothWindow);
EXPECT_BOOLEAN(SmoothDialogShown);
EXPECT_32_BIT(PlotCount);
EXPECT_SINGLE(PlotXMin);
EXPECT_SINGLE(PlotYMax);
EXPECT_BOOLEAN(PlotReady);
EXPECT_BOOLEAN(PlotLnAxis);
EXPECT_SINGLE(DataLimitMin);
EXPECT_SINGLE(DataLimitMax);
EXPECT_16_BIT(PlotEveryNth);
EXPECT_BOOLEAN(PlotDialogOK);
EXPECT_BOOLEAN(PlotDialogCancelled);
EXPECT_BOOLEAN(PlotitLoaded);
EXPECT_BOOLEAN(PlotLegendLoaded);
EXPECT_32_BIT(SavePlotFiles);
static_assert(kIs<FixedText<16>, decltype(AnalysisStore::ProgramName)>);
static_assert(kIs<FixedText<10>, decltype(AnalysisStore::RevisionText)>);
static_assert(kIs<FixedText<127>, decltype(AnalysisStore::LineBuf)>);
static_assert(kIs<BoundedArray<std::int16_t, Scans>, decltype(AnalysisStore::ScanPoints)>);
static_assert(kIs<BoundedArray<std::int32_t, Scans>, decltype(AnalysisStore::ScanSpeed)>);
static_assert(kIs<BoundedArray<std::int16_t, Scans>, decltype(AnalysisStore::SpeedFirstScan)>);
static_assert(kIs<BoundedArray<std::int16_t, Scans>, decltype(AnalysisStore::ScanSpeedIndex)>);
static_assert(kIs<BoundedArray<std::int16_t, Scans>, decltype(AnalysisStore::JitterPoint)>);
static_assert(kIs<BoundedArray<std::int16_t, PlotPoints>, decltype(AnalysisStore::PlotSym)>);
static_assert(kIs<BoundedArray<std::int32_t, Bounds<0, 20>>, decltype(AnalysisStore::PlotColor)>);

TEST(AnalysisStore, HasItsBooleansAsZeroAndMinusOne) {
    EXPECT_EQ(Boolean(true).Number(), -1);
    EXPECT_EQ(Boolean(false).Number(), 0);
    EXPECT_EQ(Boolean().Number(), 0);
}

/// Both ends can be written to, one beyond each fails.
template <class Array>
void ExpectBounds(const char* name, Array& array, std::int32_t first, std::int32_t last) {
    SCOPED_TRACE(name);
    static_cast<void>(array(first));
    static_cast<void>(array(last));
    EXPECT_FAILURE(9, array(first - 1));
    EXPECT_FAILURE(9, array(last + 1));
}

#define EXPECT_BOUNDS(member, first, last) ExpectBounds(#member, Store().member, first, last)

TEST(AnalysisStore, HasListsOfScansFrom1To500) {
    EXPECT_BOUNDS(FileNames, 0, 500);
    EXPECT_BOUNDS(ScanPoints, 1, 500);
    EXPECT_BOUNDS(ScanSpeed, 1, 500);
    EXPECT_BOUNDS(ScanW2t, 1, 500);
    EXPECT_BOUNDS(ScanTime, 1, 500);
    EXPECT_BOUNDS(SpeedFirstScan, 1, 500);
    EXPECT_BOUNDS(ScanSpeedIndex, 1, 500);
    EXPECT_BOUNDS(ScanMeniscus, 1, 500);
    EXPECT_BOUNDS(JitterPoint, 1, 500);
    EXPECT_BOUNDS(JitterOffset, 1, 500);
}

TEST(AnalysisStore, HasCurvesOf2048Points) {
    EXPECT_BOUNDS(GridRadius, 1, 2048);
    EXPECT_BOUNDS(SStar, 1, 2048);
    EXPECT_BOUNDS(RateWork, 1, 2048);
    EXPECT_BOUNDS(AveRateRaw, 1, 2048);
    EXPECT_BOUNDS(AveRate, 1, 2048);
    EXPECT_BOUNDS(RateSem, 1, 2048);
    EXPECT_BOUNDS(PlateauRate, 1, 2048);
    EXPECT_BOUNDS(GStar, 1, 2048);
    EXPECT_BOUNDS(GHat, 1, 2048);
    EXPECT_BOUNDS(GStarSem, 1, 2048);
}

TEST(AnalysisStore, HasRoomForThePlotsAndTheWideDistribution) {
    EXPECT_BOUNDS(PlotX, 1, 2050000);
    EXPECT_BOUNDS(PlotY, 1, 2050000);
    EXPECT_BOUNDS(PlotSym, 1, 2050000);
    EXPECT_BOUNDS(PlotColor, 0, 20);
    EXPECT_BOUNDS(WDRadius, 1, 50);
    EXPECT_BOUNDS(WDRadiusValid, 1, 50);
}

TEST(AnalysisStore, HasTablesWithBoundsInEveryDirection) {
    auto& S = Store();
    for (const std::int32_t row : {1, 2}) {
        S.ScanData(1, row, 1) = 1.0F;
        S.ScanData(2048, row, 500) = 1.0F;
    }
    EXPECT_FAILURE(9, S.ScanData(2049, 1, 1));
    EXPECT_FAILURE(9, S.ScanData(0, 1, 1));
    EXPECT_FAILURE(9, S.ScanData(1, 0, 1));
    EXPECT_FAILURE(9, S.ScanData(1, 3, 1));
    EXPECT_FAILURE(9, S.ScanData(1, 1, 0));
    EXPECT_FAILURE(9, S.ScanData(1, 1, 501));

    S.GridSignal(2048, 500) = 1.0F;
    EXPECT_FAILURE(9, S.GridSignal(2049, 500));
    EXPECT_FAILURE(9, S.GridSignal(2048, 501));
    S.RatePairs(2048, 250) = 1.0F;
    EXPECT_FAILURE(9, S.RatePairs(2049, 250));
    EXPECT_FAILURE(9, S.RatePairs(2048, 251));
    S.WDGofS(500, 23) = 1.0F;
    EXPECT_FAILURE(9, S.WDGofS(501, 23));
    EXPECT_FAILURE(9, S.WDGofS(500, 24));
    S.WDSValue(500, 23) = 1.0F;
    EXPECT_FAILURE(9, S.WDSValue(500, 24));
    S.WDIntegral(500, 50, 2) = 1.0F;
    EXPECT_FAILURE(9, S.WDIntegral(501, 50, 2));
    EXPECT_FAILURE(9, S.WDIntegral(500, 51, 2));
    EXPECT_FAILURE(9, S.WDIntegral(500, 50, 3));
}

TEST(AnalysisStore, IsZeroAndBlankAtStart) {
    const auto& S = Store();
    for (const float value : S.ScanData.Elements())
        ASSERT_EQ(value, 0.0F);
    for (const float value : S.PlotX.Elements())
        ASSERT_EQ(value, 0.0F);
    EXPECT_EQ(S.LineBuf.View(), std::string(127, ' '));
    EXPECT_EQ(S.FileNames(0).Name(), "");
    EXPECT_EQ(S.FileNames(500).Name(), "");
    EXPECT_EQ(S.NumFiles, 0);
    EXPECT_EQ(S.PlotHelp1, "");
}

}  // namespace
}  // namespace halvern
