#include "analysis/g_of_s.h"

#include <gtest/gtest.h>

#include <cmath>

#include "analysis/small_run.h"
#include "analysis/time_derivative.h"
#include "analysis/zero_level.h"
#include "plot/plot_window.h"
#include "shell/done_branches.h"
#include "store/menus.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using test::First;
using Values = std::vector<float>;
using Lines = std::vector<std::string>;

/// A grid of s* in whole Svedbergs, with nothing on it yet.
struct OnAGrid : ::testing::Test {
    test::TestDesktop desktop;

    void GiveGrid(std::int16_t points, float step = 1E-13F) {
        Store().SPoints = points;
        for (std::int32_t I = 1; I <= points; ++I)
            Store().SStar(I) = static_cast<float>(I) * step;
    }
};

// --- From limits to indices

struct SRange : OnAGrid {
    SRange() { GiveGrid(10); }

    void Find(float lower, float upper) {
        Store().DataLimitMin = lower;
        Store().DataLimitMax = upper;
        FindSRange();
    }
    static void Expect(std::int16_t first, std::int16_t last) {
        EXPECT_EQ(Store().SRangeFirst, first);
        EXPECT_EQ(Store().SRangeLast, last);
    }
};

TEST_F(SRange, TakesTheFirstPointsAtOrBeyondTheLimits) {
    Find(2.5F, 6.5F);
    Expect(3, 7);
    EXPECT_TRUE(Store().SLimitsSet);
    Store().SStar(3) = 3E-13F;
    Find(3.0F, 7.5F);  // 3 x 1E-13 as a single is the third point itself
    Expect(3, 8);
}

TEST_F(SRange, MayBeginAtTheLastPoint) {
    Find(9.5F, 9.8F);
    Expect(10, 10);
}

TEST_F(SRange, OfTheOfferedLimitsIsTheWholeGrid) {
    Find(static_cast<float>(Store().SStar(1) * 1E13), static_cast<float>(Store().SStar(10) * 1E13));
    Expect(1, 10);
}

TEST_F(SRange, OfALowerLimitBeyondTheGridBeginsAtItsFirstPoint) {
    Find(50.0F, 60.0F);
    Expect(1, 10);
    Find(50.0F, 4.5F);
    Expect(1, 5);  // the search for the upper limit starts there
}

TEST_F(SRange, OfAnUpperLimitBelowTheLowerOneIsAPoint) {
    Find(5.5F, 2.0F);
    Expect(6, 6);
}

// --- Statistics of the pairs

TEST_F(OnAGrid, TheErrorOfTheMeanIsThatOfThePairs) {
    GiveGrid(3);
    auto& S = Store();
    S.ScanSkip = 3;
    const float kRates[3][3] = {{1.0F, 2.0F, 6.0F}, {4.0F, 4.0F, 4.0F}, {-1.0F, 0.0F, 1.0F}};
    for (std::int32_t I = 1; I <= 3; ++I)
        for (std::int32_t P = 1; P <= 3; ++P)
            S.RatePairs(I, P) = kRates[I - 1][P - 1];
    for (std::int32_t K = 1; K <= 6; ++K)
        S.ScanTime(K) = 100.0F;
    S.ScanTime(7) = 1E9F;
    PairStatistics();
    // 1 + 4 + 36 - 81 / 3 = 14, halved 7, by three pairs 7 / 3; none; 2 / 2 = 1, by three pairs 1 / 3.
    EXPECT_EQ(S.RateSem(1), static_cast<float>(std::sqrt(7.0 / 3.0)));
    EXPECT_EQ(S.RateSem(2), 0.0F);
    EXPECT_EQ(S.RateSem(3), static_cast<float>(std::sqrt(1.0 / 3.0)));
    EXPECT_NEAR(S.SedTime, 100.0, 100.0 * 6E-7) << "six sums of singles";
}

TEST_F(OnAGrid, TheTimeIsTheHarmonicMeanOfAllScansInUse) {
    auto& S = Store();
    S.ScanSkip = 2;
    const float kTimes[] = {128.0F, 256.0F, 512.0F, 1024.0F, 1E9F};
    for (std::int32_t K = 1; K <= 5; ++K)
        S.ScanTime(K) = kTimes[K - 1];
    PairStatistics();
    // 1 / 128 + 1 / 256 + 1 / 512 + 1 / 1024 = 15 / 1024, every sum exact; 4 x 1024 / 15. The fifth scan is in no pair.
    EXPECT_EQ(S.SedTime, static_cast<float>(4096.0 / 15.0));
}

TEST_F(OnAGrid, ASinglePairHasNoError) {
    GiveGrid(3);
    Store().ScanSkip = 1;
    EXPECT_FAILURE(11, PairStatistics());
}

TEST_F(OnAGrid, AScanWithoutTimeHasNoHarmonicMean) {
    Store().ScanSkip = 2;
    EXPECT_FAILURE(11, PairStatistics());
}

TEST_F(OnAGrid, IdenticalPairsCanHaveAnErrorWithoutARoot) {
    // In doubles the 21 squares of this rate sum up to a little less than the square of its sum, divided by 21.
    const float rate = 0x1.A0E7AEp-6F;
    double sum = 0.0, squares = 0.0;
    for (int p = 1; p <= 21; ++p) {
        sum += rate;
        squares += static_cast<double>(rate) * rate;
    }
    ASSERT_LT(squares - sum * sum / 21.0, 0.0);
    GiveGrid(1);
    Store().ScanSkip = 21;
    for (std::int32_t P = 1; P <= 21; ++P)
        Store().RatePairs(1, P) = rate;
    EXPECT_FAILURE(5, PairStatistics());
}

// --- The distributions

/// Four points, 0.05, 0.1, 0.2 and 5 Svedbergs, and a rate of 1E-3 on them.
struct AtTheLowEnd : OnAGrid {
    AtTheLowEnd() {
        auto& S = Store();
        const float kS[] = {5E-15F, 1E-14F, 2E-14F, 5E-13F};
        S.SPoints = 4;
        S.ScanSpeed(1) = 40000;
        S.SedTime = 1000.0F;
        for (std::int32_t I = 1; I <= 4; ++I) {
            S.SStar(I) = kS[I - 1];
            S.AveRate(I) = 1E-3F;
            S.RateSem(I) = 2E-5F;
        }
    }

    /// g^(s*) before the plateau is taken off.
    static float Uncorrected(std::int32_t I) {
        return static_cast<float>(1000.0 * Store().AveRate(I) / static_cast<double>(Store().SStar(I)));
    }
};

TEST_F(AtTheLowEnd, GStarIsExactlyZeroUpToATwentiethOfASvedberg) {
    CalculateDistributions();
    EXPECT_EQ(Store().GStar(1), 0.0F);
    EXPECT_NE(Store().GHat(1), 0.0F);
    Store().SStar(1) = std::nextafter(5E-15F, 1.0F);
    CalculateDistributions();
    EXPECT_GT(Store().GStar(1), 0.0F);
}

TEST_F(AtTheLowEnd, GHatIsCorrectedAboveATenthOfASvedbergOnly) {
    CalculateDistributions();
    const auto& S = Store();
    EXPECT_EQ(S.GHat(1), Uncorrected(1));
    EXPECT_EQ(S.GHat(2), Uncorrected(2));
    EXPECT_LT(S.GHat(3), Uncorrected(3));
    EXPECT_LT(S.GHat(4), Uncorrected(4));
    Store().SStar(2) = std::nextafter(1E-14F, 1.0F);
    CalculateDistributions();
    EXPECT_LT(S.GHat(2), Uncorrected(2));
}

TEST_F(AtTheLowEnd, TheCorrectedRateIsCorrectedEverywhere) {
    CalculateDistributions();
    for (std::int32_t I = 1; I <= 4; ++I)
        EXPECT_LT(Store().PlateauRate(I), 1E-3F) << I;
    // The first term: (s2 - s1) x s1 / 2 x g^ = 5E-15 x 1E-3 x 1000 / 2, times 2 omega squared = 3.509E7.
    EXPECT_NEAR(1E-3 - Store().PlateauRate(1), 5E-15 * 0.5 * 3.50918E7, 1E-10) << "to the last place of 1E-3 as single";
}

TEST_F(AtTheLowEnd, TheErrorShrinksByTheDilution) {
    CalculateDistributions();
    // t / s* x error x exp(-2 omega squared s* t), in signal per Svedberg; singles hold 6E-8.
    const double omega2 = std::pow(40000.0 * 0.1047196, 2);
    for (std::int32_t I = 1; I <= 4; ++I) {
        const double s = Store().SStar(I);
        const double plain = 1000.0 / s * 2E-5F * 1E-13;
        EXPECT_NEAR(Store().GStarSem(I), plain * std::exp(-2.0 * omega2 * s * 1000.0), plain * 1.3E-7) << I;
        EXPECT_LT(Store().GStarSem(I), plain) << I;
    }
}

TEST_F(AtTheLowEnd, ThePlateauIsTakenOffInThreePasses) {
    CalculateDistributions();
    // Long-hand for the last point, in doubles throughout: three singles of 6E-8 each come in at every pass.
    const double s[] = {5E-15F, 1E-14F, 2E-14F, 5E-13F};
    const double w2 = std::pow(40000.0 * 0.1047196, 2);
    const double rate = 1E-3F;
    double g[4];
    for (int i = 0; i < 4; ++i)
        g[i] = 1000.0 * rate / s[i];
    double p4 = 0.0;
    for (int pass = 1; pass <= 3; ++pass) {
        const double p1 = (s[1] - s[0]) * s[0] * 0.5 * g[0];
        const double p2 = (s[1] - s[0]) * g[1] * s[1] + p1;
        const double p3 = (s[2] - s[1]) * g[2] * s[2] + p2;
        p4 = s[3] * 0.5 * g[3] * (s[3] - s[2]) + p3;
        g[2] = 1000.0 / s[2] * (rate - 2.0 * w2 * p3);
        g[3] = 1000.0 / s[3] * (rate - 2.0 * w2 * p4);
    }
    const auto& S = Store();
    EXPECT_NEAR(S.GHat(3), g[2], g[2] * 3E-7);
    EXPECT_NEAR(S.GHat(4), g[3], g[3] * 3E-7);
    EXPECT_NEAR(S.PlateauRate(4), rate - 2.0 * w2 * p4, rate * 3E-7);
}

TEST_F(AtTheLowEnd, FailWithAnSOfZero) {
    Store().SStar(2) = 0.0F;
    EXPECT_FAILURE(11, CalculateDistributions());
}

TEST_F(AtTheLowEnd, FailWithAnExponentialAboveTheRange) {
    // 2 x 1.7546E7 x 1E-9 s x 1E6 s = 35091, and exp(709.8) is the end of doubles.
    Store().SStar(4) = 1E-9F;
    Store().SedTime = 1E6F;
    EXPECT_FAILURE(6, CalculateDistributions());
}

TEST_F(AtTheLowEnd, FailWithADistributionAboveTheRange) {
    Store().AveRate(1) = 1E30F;  // 1000 x 1E30 / 5E-15 = 2E47
    EXPECT_FAILURE(6, CalculateDistributions());
}

TEST_F(AtTheLowEnd, FailWithASinglePointWhoseIntervalHasNoLeftEnd) {
    Store().SPoints = 1;
    EXPECT_FAILURE(9, CalculateDistributions());
}

// --- The commands, on a data set whose dc/dt has been calculated

struct GOfS : ::testing::Test {
    test::TestDesktop desktop;
    const test::SmallRun run = test::MovingBoundary(6, 27);
    const test::LongHand w = test::WorkOut(run);
    const std::size_t points = w.s.size();

    GOfS() {
        TieDoneBranches();
        test::Give(run);
        KeldIt_Click();
        PickLevel(0.0F);
    }

    static void Done() { PlotitForm().Command1.Click(); }

    static void PickLevel(float level) {
        SetKeldZero_Click();
        Store().Meniscus = level;
        Done();
    }

    /// The points strictly between two indices of the grid.
    static Values Between(const Values& values, std::size_t first, std::size_t last) {
        return {values.begin() + static_cast<std::ptrdiff_t>(first),
                values.begin() + static_cast<std::ptrdiff_t>(last - 1)};
    }

    void ExpectDistributions(const test::LongHand& expected) const {
        const auto& S = Store();
        EXPECT_EQ(S.SedTime, expected.time);
        EXPECT_EQ(First(S.AveRate, points), expected.average);
        EXPECT_EQ(First(S.RateSem, points), expected.sem);
        EXPECT_EQ(First(S.GHat, points), expected.gHat);
        EXPECT_EQ(First(S.GStar, points), expected.gStar);
        EXPECT_EQ(First(S.GStarSem, points), expected.gStarSem);
        EXPECT_EQ(First(S.PlateauRate, points), expected.plateauRate);
    }
};

TEST_F(GOfS, AsksForLimitsOnThePlotOfTheAverage) {
    auto& S = Store();
    S.PickJitterPoint = S.PickMeniscus = S.PickZeroLevel = S.PlotLnAxis = true;
    const auto before = test::MenuStates();
    DoGofS_Click();
    EXPECT_EQ(test::RequestTextsNow(), (Lines{"Use <Ctrl>LMB and <Ctrl>RMB to set upper & lower limits",
                                              "for calculating g(s*)", "S (Svedbergs)", "<dc/dt>"}));
    EXPECT_EQ(test::FlagsUp(), (Lines{"PickDataLimits", "PickSLimits", "PlotDialogOK", "PlotReady", "PlotitLoaded"}));
    const Values x = test::AsSvedbergs(w.s);
    EXPECT_EQ(test::Request(), test::Joined(test::LineOf(x, w.raw, -121), test::SymbolsOf(x, w.raw, 1)));
    EXPECT_EQ(S.DataLimitMin, x.front());
    EXPECT_EQ(S.DataLimitMax, x.back());
    EXPECT_TRUE(PlotitForm().IsShown());
    EXPECT_TRUE(PlotitForm().Command1.IsShown());
    EXPECT_FALSE(S.SLimitsSet);
    EXPECT_TRUE(test::MenuChanges(before).empty());
}

TEST_F(GOfS, LoadsThePlotWindowIfItIsNot) {
    PlotitForm().Unload();
    DoGofS_Click();
    EXPECT_TRUE(Store().PlotitLoaded);
    EXPECT_TRUE(PlotitForm().IsShown());
}

TEST_F(GOfS, FailsWithoutAGrid) {
    Store().SPoints = 0;
    EXPECT_FAILURE(9, DoGofS_Click());
}

TEST_F(GOfS, OfTheOfferedLimitsIsTheLongHandOne) {
    Menus().KeldOutCorrected.Disable();  // as a restored level leaves it
    Menus().KeldOutGofS.Disable();
    DoGofS_Click();
    const auto before = test::MenuStates();
    Done();
    EXPECT_FALSE(Store().PickSLimits);
    EXPECT_TRUE(Store().SLimitsSet);
    EXPECT_EQ(Store().SRangeFirst, 1);
    EXPECT_EQ(static_cast<std::size_t>(Store().SRangeLast), points);
    ExpectDistributions(w);
    EXPECT_EQ(test::MenuChanges(before), test::Only(before, {"DoPlotGS", "DoPlotGShat", "ShowSAve", "KeldOut",
                                                             "KeldOutCorrected", "KeldOutGofS"}));
    EXPECT_FALSE(PlotitForm().Command1.IsShown());
}

TEST_F(GOfS, OfALevelIsTheLongHandOne) {
    BackToOrigKeld_Click();
    PickLevel(-1.0E-5F);
    DoGofS_Click();
    Done();
    ExpectDistributions(test::WorkOut(run, -1.0E-5F));
}

TEST_F(GOfS, TurnsRevolutionsIntoRadiansByItsOwnConstant) {
    DoGofS_Click();
    Done();
    // The constant of dc/dt makes omega squared 3E-6 larger; exp(2 omega squared s* t) and the plateau part show it.
    const auto other = test::WorkOut(run, 0.0F, 0.104719755, 0.104719755);
    EXPECT_EQ(First(Store().GStar, points), w.gStar);
    EXPECT_NE(First(Store().GStar, points), other.gStar);
    EXPECT_NE(First(Store().GStarSem, points), other.gStarSem);
}

TEST_F(GOfS, TurnsRevolutionsIntoRadiansByItsOwnConstantInThePlateauToo) {
    DoGofS_Click();
    Done();
    const auto other = test::WorkOut(run, 0.0F, 0.104719755, 0.104719755);
    EXPECT_EQ(First(Store().PlateauRate, points), w.plateauRate);
    EXPECT_NE(First(Store().PlateauRate, points), other.plateauRate);
    EXPECT_NE(First(Store().GHat, points), other.gHat);
}

TEST_F(GOfS, PlotsGHatBetweenTheLimits) {
    DoGofS_Click();
    Store().DataLimitMin = Store().PlotX(3);
    Store().DataLimitMax = Store().PlotX(8);
    Done();
    EXPECT_EQ(Store().SRangeFirst, 3);
    EXPECT_EQ(Store().SRangeLast, 8);
    EXPECT_EQ(test::RequestTextsNow(), (Lines{"<g^(s*)> vs S", "(un-normalized uncorrected distribution)",
                                              "S (Svedbergs)", "<g^(s*)> [fringes/Svedberg]"}));
    EXPECT_EQ(test::FlagsUp(), (Lines{"PlotDialogOK", "PlotReady", "PlotitLoaded"}));
    Values y;
    for (const float g : Between(w.gHat, 3, 8))
        y.push_back(static_cast<float>(g * 1E-13));
    const Values x = test::AsSvedbergs(Between(w.s, 3, 8));
    ASSERT_EQ(x.size(), 4U) << "points 4 to 7";
    EXPECT_EQ(Store().PlotCount, 8);
    EXPECT_EQ(test::Request(), test::Joined(test::LineOf(x, y, -121), test::SymbolsOf(x, y, 1)));
}

TEST_F(GOfS, PlotsGStarBetweenTheLimitsWithErrorLines) {
    DoGofS_Click();
    Done();
    auto& S = Store();
    S.SRangeFirst = 3;
    S.SRangeLast = 8;
    S.PickDataLimits = S.PickMeniscus = S.PickJitterPoint = S.PickSLimits = S.PlotLnAxis = true;
    const auto before = test::MenuStates();
    PlotGS();
    EXPECT_EQ(test::RequestTextsNow(), (Lines{"<g(s*)> vs S", " ", "S (Svedbergs)", "<g(s*)> [fringes/Svedberg]"}));
    EXPECT_EQ(test::FlagsUp(), (Lines{"PlotDialogOK", "PlotReady", "PlotitLoaded"}));
    Values upper, lower, curve;
    const Values g = Between(w.gStar, 3, 8), e = Between(w.gStarSem, 3, 8);
    for (std::size_t i = 0; i < g.size(); ++i) {
        upper.push_back(static_cast<float>(g[i] * 1E-13 + e[i]));
        lower.push_back(static_cast<float>(g[i] * 1E-13 - e[i]));
        curve.push_back(static_cast<float>(g[i] * 1E-13));
    }
    const Values x = test::AsSvedbergs(Between(w.s, 3, 8));
    EXPECT_EQ(S.PlotCount, 16);
    EXPECT_EQ(test::Request(), test::Joined(test::Joined(test::LineOf(x, upper, -185), test::LineOf(x, lower, -185)),
                                            test::Joined(test::LineOf(x, curve, -121), test::SymbolsOf(x, curve, 1))));
    EXPECT_TRUE(test::MenuChanges(before).empty());
}

TEST_F(GOfS, OfAbsorbanceIsPerSvedbergInItsOwnUnits) {
    DoGofS_Click();
    Done();
    Store().IsInterference = false;
    PlotGS();
    EXPECT_EQ(Store().PlotYTitle, "<g(s*)> [A.U./Svedberg]");
    PlotGShat();
    EXPECT_EQ(Store().PlotYTitle, "<g^(s*)> [A.U./Svedberg]");
}

TEST_F(GOfS, WithNoPointBetweenTheLimitsPlotsNothing) {
    DoGofS_Click();
    Done();
    Store().SRangeFirst = 4;
    Store().SRangeLast = 5;
    PlotGS();
    EXPECT_EQ(Store().PlotCount, 0);
    EXPECT_FALSE(Store().PlotReady);
    PlotGShat();
    EXPECT_EQ(Store().PlotCount, 0);
    EXPECT_FALSE(Store().PlotReady);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(GOfS, OffersTheLimitsLastPickedAndRebuildsTheAverage) {
    DoGofS_Click();
    Store().DataLimitMin = 2.0F;
    Store().DataLimitMax = 9.0F;
    Done();
    Store().ZeroLevel = 0.25F;
    Store().AveRate(2) = 77.0F;
    DoGofS_Click();
    EXPECT_EQ(Store().DataLimitMin, 2.0F);
    EXPECT_EQ(Store().DataLimitMax, 9.0F);
    Values rebuilt;
    for (const float rate : w.raw)
        rebuilt.push_back(rate - 0.25F);
    EXPECT_EQ(First(Store().AveRate, points), rebuilt);
    EXPECT_EQ(Store().PlotY(2), rebuilt[1]);
}

TEST_F(GOfS, KeepsTheAverageAtTheFirstVisit) {
    Store().ZeroLevel = 0.25F;  // as a level that stood when dc/dt was calculated anew
    DoGofS_Click();
    EXPECT_EQ(First(Store().AveRate, points), w.raw);
}

TEST_F(GOfS, AfterARestoredLevelStartsFromTheRawAverage) {
    DoGofS_Click();
    Done();
    BackToOrigKeld_Click();
    PickLevel(0.5F);
    BackToOrigKeld_Click();
    DoGofS_Click();
    EXPECT_EQ(First(Store().AveRate, points), w.raw);
    Done();
    ExpectDistributions(w);
}

TEST_F(GOfS, KeepsItsLimitsThroughANewDcDt) {
    DoGofS_Click();
    Store().DataLimitMin = 2.0F;
    Done();
    KeldIt_Click();
    EXPECT_TRUE(Store().SLimitsSet);
    DoGofS_Click();
    EXPECT_EQ(Store().DataLimitMin, 2.0F);
}

TEST_F(GOfS, IsOpenBeforeItIsCalculatedAndFails) {
    // Two scans are one pair, and the menus are opened before its statistics fail.
    test::Give(test::MovingBoundary(2, 27));
    Menus().DoPlotGS.Disable();
    KeldIt_Click();
    DoGofS_Click();
    EXPECT_FAILURE(11, Done());
    EXPECT_TRUE(Menus().DoPlotGS.IsEnabled());
    EXPECT_TRUE(Store().SLimitsSet);
}

TEST_F(GOfS, MovesItsLimitsByTheMouseAndRefusesThatTheyCross) {
    DoGofS_Click();
    PlotWindow& plot = PlotitForm();
    const double width = plot.XAxisMax - plot.XAxisMin;
    plot.Form_MouseUp(kRightButton, kCtrl, 60.0F, 50.0F);
    plot.Form_MouseUp(kLeftButton, kCtrl, 20.0F, 50.0F);
    // 20 and 60 of the 100 page units of the box, to the rounding of three singles
    EXPECT_NEAR(Store().DataLimitMin, plot.XAxisMin + 0.2 * width, 1E-6 * width);
    EXPECT_NEAR(Store().DataLimitMax, plot.XAxisMin + 0.6 * width, 1E-6 * width);
    const float lower = Store().DataLimitMin;
    plot.Form_MouseUp(kLeftButton, kCtrl, 70.0F, 50.0F);
    EXPECT_EQ(Store().DataLimitMin, lower);
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "Error Setting Data Limits! This would remove all data.");
}

}  // namespace
}  // namespace halvern
