#include "analysis/time_derivative.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "analysis/small_run.h"
#include "analysis/zero_level.h"
#include "intake/data_set_load.h"
#include "plot/plot_window.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/data_files.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using test::First;
using test::Give;
using test::SmallRun;
using Values = std::vector<float>;
using Lines = std::vector<std::string>;

struct DcDt : ::testing::Test {
    test::TestDesktop desktop;
};

/// Radii 5.9, 6.0, ... cm, signal of scan K at point I: 10 x I less 2 x K; times 100, 200, 300, ... seconds.
///
/// Neighbours fall by 2 fringes in 100 seconds, so that dc/dt is 0.02 everywhere, whatever the pairs.
SmallRun EvenFall(std::int32_t scans) {
    SmallRun run;
    for (std::int32_t k = 1; k <= scans; ++k) {
        run.times.push_back(100.0F * static_cast<float>(k));
        run.radii.emplace_back();
        run.signals.emplace_back();
        for (int i = 1; i <= 14; ++i) {
            run.radii.back().push_back(static_cast<float>(58 + i) / 10.0F);
            run.signals.back().push_back(10.0F * static_cast<float>(i) - 2.0F * static_cast<float>(k));
        }
    }
    return run;
}

/// Signal of scan K: its square, at every point; times 100, 200, ... seconds.
SmallRun Squares(std::int32_t scans) {
    SmallRun run = EvenFall(scans);
    for (std::size_t k = 0; k < run.signals.size(); ++k)
        for (float& signal : run.signals[k])
            signal = static_cast<float>((k + 1) * (k + 1));
    return run;
}

// --- The common radial grid

TEST_F(DcDt, OfInterferenceTakesTheRadiiOfTheFirstScanForAll) {
    SmallRun run = EvenFall(4);
    run.offsets = {0.5F, 1.5F, -2.5F, 0.0F};
    for (float& radius : run.radii[1])
        radius += 1.0F;
    Give(run);
    KeldIt_Click();
    const auto& S = Store();
    EXPECT_EQ(S.GridPoints, 14);
    EXPECT_EQ(First(S.GridRadius, 14), run.radii[0]);
    EXPECT_EQ(S.GridSignal(3, 1), 30.0F - 2.0F - 0.5F);
    EXPECT_EQ(S.GridSignal(3, 2), 30.0F - 4.0F - 1.5F);
    EXPECT_EQ(S.GridSignal(14, 3), 140.0F - 6.0F + 2.5F);
    EXPECT_EQ(S.GridSignal(14, 4), 140.0F - 8.0F);
}

TEST_F(DcDt, OfInterferenceTakesWhatAShorterScanHoldsBeyondItsEnd) {
    const SmallRun run = EvenFall(4);
    Give(run);
    auto& S = Store();
    S.ScanPoints(3) = 10;
    S.ScanData(13, 2, 3) = 77.0F;
    S.JitterOffset(3) = 7.0F;
    KeldIt_Click();
    EXPECT_EQ(S.GridPoints, 14);
    EXPECT_EQ(S.GridSignal(13, 3), 70.0F);
}

TEST_F(DcDt, OfAbsorbanceIsInterpolatedFromTheMeniscusOn) {
    SmallRun run;
    run.interference = false;
    run.times = {100.0F, 200.0F, 300.0F, 400.0F};
    // From 4 thousandths beyond the meniscus to 8, 8, 8 and 6 thousandths: the last scan ends the grid for all.
    run.radii = {{6.004F, 6.008F}, {6.004F, 6.008F}, {6.004F, 6.008F}, {6.004F, 6.0065F}};
    run.signals = {{1.0F, 5.0F}, {2.0F, 6.0F}, {1.0F, 5.0F}, {3.0F, 3.0F}};
    run.offsets = {100.0F, 100.0F, 100.0F, 100.0F};
    Give(run);
    KeldIt_Click();
    const auto& S = Store();
    EXPECT_EQ(S.GridPoints, 6);
    Values radii;
    for (int i = 1; i <= 6; ++i)
        radii.push_back(6.0F + static_cast<float>(i) * 0.001F);
    EXPECT_EQ(First(S.GridRadius, 6), radii);
    // Flat in front of the first radius; behind it one unit of signal a thousandth. Radii near 6 are singles 4.8E-7
    // apart, 5E-4 of a grid step.
    const Values kExpected = {1.0F, 1.0F, 1.0F, 1.0F, 2.0F, 3.0F};
    for (std::int32_t I = 1; I <= 6; ++I)
        EXPECT_NEAR(S.GridSignal(I, 1), kExpected[static_cast<std::size_t>(I - 1)], 1E-3) << I;
    EXPECT_EQ(S.GridSignal(1, 1), 1.0F) << "the start is flat, and no jitter offset is taken off";
    EXPECT_EQ(S.GridSignal(6, 4), 3.0F);
    EXPECT_NEAR(S.GridSignal(7, 1), 4.0F, 1E-3) << "the longer scans had more points";
}

TEST_F(DcDt, OfAbsorbanceIsTheLongHandOne) {
    SmallRun run = test::MovingBoundary(5, 14);
    run.interference = false;
    Give(run);
    KeldIt_Click();
    const auto w = test::WorkOut(run);
    const auto& S = Store();
    ASSERT_EQ(static_cast<std::size_t>(S.GridPoints), w.gridRadius.size());
    EXPECT_EQ(First(S.GridRadius, w.gridRadius.size()), w.gridRadius);
    for (std::int32_t K = 1; K <= 5; ++K)
        EXPECT_EQ(test::GridSignalOf(K, w.gridRadius.size()), w.gridSignal[static_cast<std::size_t>(K - 1)]) << K;
    ASSERT_EQ(static_cast<std::size_t>(S.SPoints), w.s.size());
    EXPECT_EQ(First(S.AveRateRaw, w.s.size()), w.raw);
}

// --- The spacing of the s* grid

TEST_F(DcDt, FindsTheFirstGridPointAtOrBeyondTheMeniscus) {
    SmallRun run = EvenFall(4);
    run.meniscus = run.radii[0][2];  // 6.1 cm exactly, the third point
    Give(run);
    KeldIt_Click();
    EXPECT_EQ(Store().FirstGridPoint, 3);
    Store().Meniscus = std::nextafter(run.radii[0][2], 7.0F);
    KeldIt_Click();
    EXPECT_EQ(Store().FirstGridPoint, 4);
    Store().Meniscus = run.radii[0].back();
    KeldIt_Click();
    EXPECT_EQ(Store().FirstGridPoint, 14) << "the last one";
}

TEST_F(DcDt, WithoutAGridPointBeyondTheMeniscusKeepsTheFormerOne) {
    SmallRun run = EvenFall(4);
    run.meniscus = 8.0F;
    Give(run);
    EXPECT_FAILURE(9, KeldIt_Click());
    Store().FirstGridPoint = 5;
    KeldIt_Click();
    EXPECT_EQ(Store().FirstGridPoint, 5);
}

/// A data set in which 7.2 cm has this s* at the first scan, in seconds.
SmallRun Reaching(double s) {
    SmallRun run = EvenFall(4);
    run.omega2t = static_cast<float>(std::log(7.2 / 6.0) / s);
    return run;
}

TEST_F(DcDt, SpacesTheGridSoThat2000StepsReach72Centimetres) {
    // 1.0E-10 s needs 2000 steps of 0.5 Svedberg. Omega squared t is a single, 7E-8 of it apart from the next one, and
    // 0.1 as a single is 1.5E-8 too large: one step to either side of the exact value tells.
    SmallRun run = Reaching(1.0E-10);
    run.omega2t = std::nextafter(run.omega2t, 1E30F);
    Give(run);
    KeldIt_Click();
    EXPECT_EQ(Store().DeltaS, 0.5F);
    EXPECT_EQ(test::ReportLines()[3], " DeltaS has been set to 0.5");
    Store().ScanW2t(1) = std::nextafter(std::nextafter(run.omega2t, 0.0F), 0.0F);
    Store().ScanW2t(1) = std::nextafter(Store().ScanW2t(1), 0.0F);
    KeldIt_Click();
    EXPECT_EQ(Store().DeltaS, 1.0F);
}

TEST_F(DcDt, TakesTheSmallestSpacingOfItsTable) {
    const float kBases[] = {0.0001F, 0.001F, 0.01F, 0.1F, 1.0F, 10.0F, 100.0F, 1000.0F, 10000.0F, 100000.0F};
    const double kSteps[] = {1.0, 1.5, 2.0, 3.0, 4.0, 5.0};
    double former = 0.0;
    for (const float base : kBases)
        for (const double step : kSteps) {
            const double spacing = base * step;
            Give(Reaching(spacing * 2E-10 * 0.999));
            KeldIt_Click();
            EXPECT_EQ(Store().DeltaS, static_cast<float>(spacing));
            Give(Reaching(former * 2E-10 * 1.001 + 1E-20));
            KeldIt_Click();
            EXPECT_EQ(Store().DeltaS, static_cast<float>(spacing)) << "just beyond the one before";
            former = spacing;
        }
}

TEST_F(DcDt, SpacesTheGridBy500000AtMost) {
    Give(Reaching(1.0));
    KeldIt_Click();
    EXPECT_EQ(Store().DeltaS, 500000.0F);
    EXPECT_EQ(Store().SPoints, 0) << "the curves end in front of the first grid point";
    EXPECT_EQ(Store().PlotCount, 0);
    EXPECT_FALSE(Store().PlotReady);
}

// --- The pairs

struct PairsCase {
    std::int32_t scans;
    std::int16_t skip;
    Values rates;
};

TEST_F(DcDt, PairsTheFirstHalfWithTheSecond) {
    // Signal K squared at every point, 100 s from scan to scan: pair (1, 3) rises by 8 in 200 s, (2, 4) by 12; with
    // three pairs (1, 4) rises by 15 in 300 s, (2, 5) by 21, (3, 6) by 27. A last odd scan is left out.
    const PairsCase kCases[] = {
        {4, 2, {-8.0F / 200.0F, -12.0F / 200.0F}},
        {5, 2, {-8.0F / 200.0F, -12.0F / 200.0F}},
        {6, 3, {-15.0F / 300.0F, -21.0F / 300.0F, -27.0F / 300.0F}},
        {7, 3, {-15.0F / 300.0F, -21.0F / 300.0F, -27.0F / 300.0F}},
        {2, 1, {-3.0F / 100.0F}},
    };
    for (const auto& c : kCases) {
        Store().RatePairs.Zero();
        Give(Squares(c.scans));
        KeldIt_Click();
        const auto& S = Store();
        EXPECT_EQ(S.ScanSkip, c.skip);
        ASSERT_GT(S.SPoints, 2);
        float sum = 0.0F;
        for (std::size_t p = 0; p < c.rates.size(); ++p) {
            const auto P = static_cast<std::int32_t>(p) + 1;
            EXPECT_EQ(S.RatePairs(1, P), c.rates[p]) << c.scans << " scans, pair " << P;
            EXPECT_EQ(S.RatePairs(S.SPoints, P), c.rates[p]) << c.scans << " scans, pair " << P;
            sum = sum + c.rates[p];
        }
        EXPECT_EQ(S.RatePairs(1, c.skip + 1), 0.0F) << "no further pair";
        EXPECT_EQ(S.AveRateRaw(2), sum / static_cast<float>(c.skip));
    }
}

TEST_F(DcDt, IsPositiveWhereTheSignalFalls) {
    Give(EvenFall(4));
    KeldIt_Click();
    // 4 fringes in 200 s
    EXPECT_EQ(Store().RatePairs(1, 1), 4.0F / 200.0F);
    EXPECT_EQ(Store().AveRate(1), 4.0F / 200.0F);
}

TEST_F(DcDt, IsTheLongHandOne) {
    for (const std::int32_t scans : {2, 4, 5, 6}) {
        const SmallRun run = test::MovingBoundary(scans, 27);
        const auto w = test::WorkOut(run);
        Give(run);
        KeldIt_Click();
        const auto& S = Store();
        EXPECT_EQ(S.DeltaS, w.deltaS);
        EXPECT_EQ(S.SedTime, w.lastPairTime);
        ASSERT_EQ(static_cast<std::size_t>(S.SPoints), w.s.size());
        EXPECT_EQ(S.SGridPoints, S.SPoints);
        EXPECT_EQ(First(S.SStar, w.s.size()), w.s);
        for (std::size_t p = 0; p < w.pairs.size(); ++p)
            EXPECT_EQ(test::RatesOfPair(static_cast<std::int32_t>(p) + 1, w.pairs[p].size()), w.pairs[p]);
        EXPECT_EQ(First(S.AveRateRaw, w.s.size()), w.raw);
        EXPECT_EQ(First(S.AveRate, w.s.size()), w.raw);
        EXPECT_EQ(First(S.RateWork, w.s.size()), w.raw);
    }
}

TEST_F(DcDt, TurnsRevolutionsIntoRadiansByItsOwnConstant) {
    const SmallRun run = test::MovingBoundary(4, 27);
    Give(run);
    KeldIt_Click();
    const std::size_t points = test::WorkOut(run).s.size();
    EXPECT_EQ(First(Store().AveRateRaw, points), test::WorkOut(run, 0.0F, 0.104719755).raw);
    // 0.1047196 puts every s* 3E-6 further out, which the values between two radii show.
    Values other = test::WorkOut(run, 0.0F, 0.1047196).raw;
    other.resize(points);
    EXPECT_NE(First(Store().AveRateRaw, points), other);
}

TEST_F(DcDt, TakesTheScanTimesAsTheReadingOfTheFilesMakesThem) {
    const test::DataFolder folder;
    test::ScanFile scan;
    scan.type = 'P';
    scan.speed = 40000;
    desktop.choices.push_back(test::WriteDataSet(folder, 4, scan));
    GetListNow_Click();
    // 1.00E10 and 1.02E10 are the omega squared t of scans 1 and 3. (40000 x 0.1047196) squared is 17545911.4; the
    // constant of dc/dt would give 17545963.3 and a time of 570 s 1.7E-3 s shorter, where singles lie 6E-5 apart.
    const double omega = 40000.0 * 0.1047196;
    EXPECT_EQ(Store().ScanTime(1), static_cast<float>(1.00E10 / (omega * omega)));
    EXPECT_EQ(Store().ScanTime(3), static_cast<float>(static_cast<double>(1.02E10F) / (omega * omega)));
    EXPECT_NE(Store().ScanTime(1), static_cast<float>(1.00E10 / (40000.0 * 0.104719755 * 40000.0 * 0.104719755)));
}

TEST_F(DcDt, IsAsLongAsItsShortestCurve) {
    const SmallRun run = test::MovingBoundary(6, 27);
    const auto w = test::WorkOut(run);
    Give(run);
    KeldIt_Click();
    // The last point within 7.25 cm has s* = ln(radius / 6) / (omega squared x harmonic mean time), and the grid goes
    // on as long as it is not passed: by harmonic means of 600 and 1500 s, 900 and 1800 s, 1200 and 2100 s.
    const double kTimes[] = {2.0 / (1.0 / 600 + 1.0 / 1500), 2.0 / (1.0 / 900 + 1.0 / 1800),
                             2.0 / (1.0 / 1200 + 1.0 / 2100)};
    const double omega = 40000.0 * 0.104719755;
    // 5.95 + 0.05 x 26 = 7.25 is beyond 7.2; so is none before it, since 7.2 as a single is not above itself.
    const double last = std::log(7.25 / 6.0);
    for (std::size_t p = 0; p < 3; ++p) {
        const auto points = static_cast<std::size_t>(last / kTimes[p] / (omega * omega) / (w.deltaS * 1E-13));
        EXPECT_EQ(w.pairs[p].size(), points) << p;
        EXPECT_NE(Store().RatePairs(static_cast<std::int32_t>(points), static_cast<std::int32_t>(p) + 1), 0.0F);
    }
    EXPECT_EQ(static_cast<std::size_t>(Store().SPoints), w.pairs[2].size());
    EXPECT_EQ(Store().AveRateRaw(Store().SPoints + 1), 0.0F) << "the longer curves go into no average";
}

TEST_F(DcDt, EndsWithThePointThatCrosses72Centimetres) {
    SmallRun run = EvenFall(4);
    run.times = {1000.0F, 2000.0F, 3000.0F, 4000.0F};
    const auto reach = [&](const Values& radii) {
        for (std::size_t k = 0; k < 4; ++k) {
            run.radii[k] = radii;
            run.signals[k].assign(radii.size(), 0.0F);
        }
        run.omega2t = static_cast<float>(std::log(1.2) / 1.99E-11);  // steps of 0.1 Svedberg
        Give(run);
        KeldIt_Click();
        EXPECT_EQ(Store().DeltaS, 0.1F);
        return Store().SPoints;
    };
    const auto steps = [](double radius) {
        const double time = 2.0 / (1.0 / 2000 + 1.0 / 4000);
        const double omega2 = std::pow(40000.0 * 0.104719755, 2);
        return static_cast<std::int16_t>(std::log(radius / 6.0) / time / omega2 / 1E-14);
    };
    EXPECT_EQ(reach({5.9F, 6.5F, 7.1F}), steps(7.1F));
    EXPECT_EQ(reach({5.9F, 6.5F, 7.2F}), steps(7.2F)) << "7.2 cm itself is used";
    EXPECT_EQ(reach({5.9F, 6.5F, 7.2F, 7.25F, 7.3F}), steps(7.25F)) << "7.2 cm does not cross itself";
    EXPECT_EQ(reach({5.9F, 6.5F, std::nextafter(7.2F, 8.0F), 7.25F, 7.3F}), steps(7.2F)) << "the one above it does";
    EXPECT_LT(steps(7.1F), steps(7.2F));
    EXPECT_LT(steps(7.2F), steps(7.25F));
    EXPECT_LT(steps(7.25F), steps(7.3F));
}

TEST_F(DcDt, IsFlatInFrontOfTheFirstRadius) {
    SmallRun run = EvenFall(4);
    for (std::size_t k = 0; k < 4; ++k)
        for (std::size_t i = 0; i < 14; ++i) {
            run.radii[k][i] += 0.2F;  // 6.1 cm on: s* of the first point is 16 Svedbergs at 200 and 400 s
            run.signals[k][i] = i == 0 ? -static_cast<float>(k) : 0.0F;
        }
    run.omega2t = static_cast<float>(std::log(1.2) / 1.99E-9);  // steps of 10 Svedbergs
    run.times = {100.0F, 100.0F, 300.0F, 300.0F};
    Give(run);
    KeldIt_Click();
    ASSERT_EQ(Store().DeltaS, 10.0F);
    // ln(6.1 / 6) / 150 s / 1.7546E7 = 62.8 Svedbergs: six grid points take the first point's 2 fringes in 200 s.
    for (std::int32_t I = 1; I <= 6; ++I)
        EXPECT_EQ(Store().AveRateRaw(I), 2.0F / 200.0F) << I;
    EXPECT_LT(Store().AveRateRaw(7), 2.0F / 200.0F);
}

TEST_F(DcDt, UsesRadiiInsideTheMeniscusAsTheLeftEndOfTheFirstInterval) {
    SmallRun run = EvenFall(4);
    run.meniscus = 6.05F;
    for (std::size_t k = 0; k < 4; ++k)
        for (std::size_t i = 0; i < 14; ++i)
            run.signals[k][i] = i <= 1 ? 0.0F : -static_cast<float>(k);
    run.omega2t = static_cast<float>(std::log(7.2 / 6.1) / 1.99E-10);  // steps of 1 Svedberg
    run.times = {100.0F, 100.0F, 300.0F, 300.0F};
    Give(run);
    KeldIt_Click();
    ASSERT_EQ(Store().DeltaS, 1.0F);
    EXPECT_EQ(Store().FirstGridPoint, 3) << "6.1 cm";
    // Between 6.0 cm at s* = s0 below 0 and 6.1 cm at s1, dc/dt rises from 0 to 2 / 200; at 1 Svedberg it has come
    // (1 - s0) / (s1 - s0) of the way. Singles of s* and dc/dt hold 6E-8.
    const double per = 1.0 / 150.0 / std::pow(40000.0 * 0.104719755, 2) * 1E13;
    const double s0 = std::log(6.0 / 6.05F) * per, s1 = std::log(static_cast<double>(6.1F) / 6.05F) * per;
    ASSERT_LT(s0, 0.0);
    EXPECT_NEAR(Store().AveRateRaw(1), 0.01 * (1.0 - s0) / (s1 - s0), 0.01 * 1E-6);
}

TEST_F(DcDt, TakesSpeedAndOmegaSquaredTOfTheFirstScanAlone) {
    const SmallRun run = test::MovingBoundary(4, 27);
    const auto w = test::WorkOut(run);
    Give(run);
    for (std::int32_t K = 2; K <= 4; ++K) {
        Store().ScanSpeed(K) = 3000;
        Store().ScanW2t(K) = 1E6F;
    }
    KeldIt_Click();
    EXPECT_EQ(Store().DeltaS, w.deltaS);
    EXPECT_EQ(First(Store().AveRateRaw, w.s.size()), w.raw);
}

// --- Report, menus, plot

TEST_F(DcDt, ReportsTheSpacingAndTheLargestMass) {
    SmallRun run = EvenFall(5);
    // (4000 s x 40000) / (2000 s x 1000 rpm) = 80, squared 6400: the fifth scan takes no part.
    run.times = {1000.0F, 1500.0F, 2000.0F, 3000.0F, 9000.0F};
    run.speed = 1000;
    run.omega2t = static_cast<float>(std::log(1.2) / 1.99E-10);
    Give(run);
    AddLine("before");
    KeldIt_Click();
    EXPECT_EQ(test::ReportLines(), (Lines{"before", " ", " * Calculating dc/dt *", " ", " DeltaS has been set to 1.0",
                                          " ", " The approximate highest molecular mass present that will not",
                                          " show significant peak broadening is 6400 kDa"}));
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(DcDt, FormatsTheSpacing) {
    struct Case {
        double spacing;
        const char* text;
    };
    for (const auto& c : {Case{0.0003, "0.0003"}, Case{0.02, "0.02"}, Case{0.4, "0.4"}, Case{1.5, "1.5"},
                          Case{30.0, "30.0"}, Case{500000.0, "500000.0"}}) {
        Give(Reaching(c.spacing * 2E-10 * 0.999));
        const std::size_t before = OutFileBox().ListCount();
        KeldIt_Click();
        EXPECT_EQ(OutFileBox().Line(before + 3), std::string(" DeltaS has been set to ") + c.text);
    }
}

TEST_F(DcDt, LetsTheReportRepaintTwiceAtEachStep) {
    for (int line = 1; line <= 10; ++line)
        AddLine("line");
    Give(EvenFall(4));
    Lines seen;
    desktop.atPass = [&] {
        seen.push_back(
            std::to_string(OutFileBox().ListCount()) + " lines from " + std::to_string(OutFileBox().TopIndex()) +
            (desktop.pointer == kPointerHourglass ? ", busy" : "") + (Menus().SetKeldZero.IsEnabled() ? ", open" : ""));
    };
    KeldIt_Click();
    EXPECT_EQ(seen, (Lines{"14 lines from 0, busy", "14 lines from 5, busy", "17 lines from 5, open",
                           "17 lines from 10, open"}));
    EXPECT_EQ(desktop.pointers, (std::vector<int>{kPointerHourglass, kPointerNormal}));
}

TEST_F(DcDt, OpensTheZeroLevelAndTwoPlots) {
    Give(EvenFall(4));
    const auto before = test::MenuStates();
    KeldIt_Click();
    EXPECT_EQ(test::MenuChanges(before), test::Only(before, {"PlotAvekeld", "PlotRawkeld", "SetKeldZero"}));
}

TEST_F(DcDt, PlotsTheCurvesOfAllPairs) {
    const SmallRun run = test::MovingBoundary(4, 27);
    const auto w = test::WorkOut(run);
    Give(run);
    auto& S = Store();
    S.PickDataLimits = S.PickMeniscus = S.PickJitterPoint = S.PlotLnAxis = true;
    KeldIt_Click();
    EXPECT_EQ(test::RequestTextsNow(), (Lines{" ", "Raw <dc/dt> vs S", "S (Svedbergs)", "<dc/dt>"}));
    EXPECT_EQ(test::FlagsUp(), (Lines{"PlotDialogOK", "PlotReady", "PlotitLoaded"}));
    const Values x = test::AsSvedbergs(w.s);
    Values first = w.pairs[0];
    first.resize(x.size());  // the last pair's curve is the shortest
    const auto& second = w.pairs[1];
    EXPECT_EQ(S.PlotCount, 4 * S.SPoints);
    EXPECT_EQ(test::Request(),
              test::Joined(test::Joined(test::SymbolsOf(x, first, 1), test::SymbolsOf(x, second, 2)),
                           test::Joined(test::LineOf(x, first, -57 - 64), test::LineOf(x, second, -57 - 128))));
    EXPECT_TRUE(PlotitForm().IsShown());
    EXPECT_FALSE(PlotitForm().Command1.IsShown());
    EXPECT_EQ(S.PlotXMin, x.front());
    EXPECT_EQ(S.PlotXMax, x.back());
}

TEST_F(DcDt, LeavesOtherPicksOpen) {
    Give(EvenFall(4));
    Store().PickSLimits = Store().PickZeroLevel = Store().PickFringePoint = true;
    KeldIt_Click();
    EXPECT_EQ(test::FlagsUp(),
              (Lines{"PickFringePoint", "PickSLimits", "PickZeroLevel", "PlotDialogOK", "PlotReady", "PlotitLoaded"}));
}

TEST_F(DcDt, CalculatedAgainStartsFromTheScansAndKeepsTheLevel) {
    const SmallRun run = test::MovingBoundary(4, 27);
    const auto w = test::WorkOut(run);
    Give(run);
    KeldIt_Click();
    SetKeldZero_Click();
    Store().Meniscus = 0.25F;
    TakeZeroLevel();
    ASSERT_NE(First(Store().AveRate, w.s.size()), w.raw);
    KeldIt_Click();
    EXPECT_EQ(First(Store().AveRate, w.s.size()), w.raw);
    EXPECT_EQ(First(Store().RateWork, w.s.size()), w.raw);
    EXPECT_EQ(Store().ZeroLevel, 0.25F);
    EXPECT_TRUE(Store().ZeroLevelSet);
}

// --- Failures: there is no exit of the command's own

/// The command ends in this failure and opens nothing.
void ExpectFailure(int number, const SmallRun& run) {
    Give(run);
    const auto before = test::MenuStates();
    EXPECT_FAILURE(number, KeldIt_Click());
    EXPECT_TRUE(test::MenuChanges(before).empty());
    EXPECT_EQ(Store().PlotCount, 0);
}

TEST_F(DcDt, FailsWithOneScan) {
    // No pair, no curve, and no time of scan 0 for the mass; by then the items are on.
    Give(EvenFall(1));
    const auto before = test::MenuStates();
    EXPECT_FAILURE(9, KeldIt_Click());
    EXPECT_EQ(Store().ScanSkip, 0);
    EXPECT_EQ(test::MenuChanges(before), test::Only(before, {"PlotAvekeld", "PlotRawkeld", "SetKeldZero"}));
    EXPECT_EQ(Store().PlotCount, 0);
}

TEST_F(DcDt, FailsWithOneScanAfterALargerSet) {
    Store().SPoints = 3;
    ExpectFailure(11, EvenFall(1));  // the average of no pairs
}

TEST_F(DcDt, FailsWithTwoScansOfOneTime) {
    SmallRun run = EvenFall(4);
    run.times[2] = run.times[0];
    ExpectFailure(11, run);
}

TEST_F(DcDt, FailsWithATimeOfZero) {
    SmallRun early = EvenFall(4);
    early.times[0] = 0.0F;
    ExpectFailure(11, early);
    SmallRun late = EvenFall(4);
    late.times[2] = 0.0F;
    ExpectFailure(5, late);  // the logarithm of 0
}

TEST_F(DcDt, FailsWithTimesOfOppositeSign) {
    SmallRun run = EvenFall(4);
    run.times[2] = -300.0F;
    ExpectFailure(5, run);
}

TEST_F(DcDt, FailsWithAMeniscusOrASpeedOfZero) {
    SmallRun meniscus = EvenFall(4);
    meniscus.meniscus = 0.0F;
    ExpectFailure(11, meniscus);
    SmallRun speed = EvenFall(4);
    speed.speed = 0;
    ExpectFailure(11, speed);
    SmallRun omega2t = EvenFall(4);
    omega2t.omega2t = 0.0F;
    ExpectFailure(11, omega2t);
}

TEST_F(DcDt, FailsWithARadiusThatHasNoLogarithm) {
    SmallRun run = EvenFall(4);
    run.radii[0][0] = -1.0F;
    ExpectFailure(5, run);
}

TEST_F(DcDt, FailsWithASignalAboveTheRange) {
    SmallRun run = EvenFall(4);
    run.signals[0][4] = 3E38F;
    run.signals[2][4] = -3E38F;
    ExpectFailure(6, run);
}

TEST_F(DcDt, FailsWithARateAboveTheRangeInFrontOfTheMeniscusToo) {
    SmallRun run = EvenFall(4);
    run.signals[0][0] = 3E38F;
    run.signals[2][0] = -3E38F;
    ExpectFailure(6, run);
}

TEST_F(DcDt, FailsWithAnSStarAboveTheRange) {
    SmallRun run = EvenFall(4);
    run.speed = 1;
    for (std::size_t k = 0; k < 4; ++k) {
        run.times[k] = 1E-38F * static_cast<float>(k + 1);  // s* of 7.2 cm: some 1E39 s
        run.signals[k].assign(run.signals[k].size(), 0.0F);
    }
    ExpectFailure(6, run);
}

TEST_F(DcDt, FailsWithTooManyPointsOfAScan) {
    Give(EvenFall(4));
    Store().ScanPoints(1) = 2049;
    EXPECT_FAILURE(9, KeldIt_Click());
}

}  // namespace
}  // namespace halvern
