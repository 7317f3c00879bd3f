// What the times, the order of stages and what stood in the store before do to an analysis. Each relation is tried on a
// thousand random data sets.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <numeric>
#include <string>
#include <vector>

#include "analysis/averages.h"
#include "analysis/g_of_s.h"
#include "analysis/time_derivative.h"
#include "analysis/zero_level.h"
#include "conditioning/jitter.h"
#include "conditioning/readd_fringes.h"
#include "relations/random_run.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "wide/radii_dialogs.h"
#include "wide/wide_distribution.h"

namespace halvern {
namespace {

using test::Analyse;
using test::AnalyseRates;
using test::Analysis;
using test::AnalysisInStore;
using test::Chances;
using test::FirstOf;
using test::kHalfStep;
using test::kRuns;
using test::MakeRun;
using test::RandomRun;
using test::SameBits;
using test::Times;
using test::Wishes;
using test::Worst;

struct OrderRelation : ::testing::Test {
    test::QuietDesktop desktop;
    AnalysisStore& S = Store();

    void Wide() {
        desktop.dialogs.push_back([](Form& form) { dynamic_cast<RadiiDialog&>(form).NeverMind2.Click(); });
        DoWideStraight_Click();
    }
};

TEST_F(OrderRelation, TwiceTheTimesIsHalfTheRatesAndHalfTheSWhereTheSpacingHasAHalf) {
    // Omega squared t and with it all times twice as large: the rates and s* of the points are halves, in all bits. The
    // grid of s* is too where DeltaS is, as it is for 2, 3 and 4 times a power of ten: the halves of 1.5 and 5 are no
    // spacings, and the one of 1 only where no smaller spacing does it. g^ and g(s*) then are twice as large, since they
    // are rates times a time over an s*; the limits of 0.1 and 0.05 Svedberg stand still, though, and they hold only if
    // the grid of neither begins in front of those.
    int halved = 0, withG = 0;
    for (std::uint64_t seed = 1; halved < static_cast<int>(kRuns); ++seed) {
        RandomRun run = MakeRun(seed, {.fastest = 5000.0});
        test::Give(run);
        const Analysis before = Analyse();
        run.omega2t = Times(2.0F, run.omega2t);
        test::Give(run);
        const Analysis after = Analyse();
        if (2.0F * after.deltaS != before.deltaS)
            continue;
        ++halved;
        Analysis expected = before;
        for (auto* values : {&expected.s, &expected.raw, &expected.average, &expected.sem})
            *values = Times(0.5F, *values);
        for (auto& pair : expected.pairs)
            pair = Times(0.5F, pair);
        ASSERT_TRUE(SameBits(after.s, expected.s)) << "seed " << seed;
        ASSERT_EQ(after.pairs, expected.pairs) << "seed " << seed;
        ASSERT_TRUE(SameBits(after.raw, expected.raw) && SameBits(after.sem, expected.sem)) << "seed " << seed;
        ASSERT_EQ(after.sedTime, 2.0F * before.sedTime) << "seed " << seed;
        if (after.s[0] <= 1E-14F)
            continue;
        ++withG;
        ASSERT_TRUE(SameBits(after.gHat, Times(2.0F, before.gHat))) << "seed " << seed;
        ASSERT_TRUE(SameBits(after.gStar, Times(2.0F, before.gStar))) << "seed " << seed;
        ASSERT_TRUE(SameBits(after.gStarSem, Times(2.0F, before.gStarSem))) << "seed " << seed;
        ASSERT_TRUE(SameBits(after.plateauRate, Times(0.5F, before.plateauRate))) << "seed " << seed;
    }
    EXPECT_GT(withG, static_cast<int>(kRuns / 20));
    std::cout << halved << " data sets with half the spacing, " << withG << " of them with no point below 0.1 S\n";
}

TEST_F(OrderRelation, StagesTakenAgainGiveTheSameBits) {
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        const RandomRun run = MakeRun(seed, {});
        Chances chances(seed + 1'000'000);
        const auto level = static_cast<float>(chances.Between(-1E-4, 1E-4));
        const auto pickLevel = [&] {
            SetKeldZero_Click();
            S.Meniscus = level;
            TakeZeroLevel();
        };
        const auto distribution = [&](float lower, float upper) {
            DoGofS_Click();
            S.DataLimitMin = lower;
            S.DataLimitMax = upper;
            TakeSLimits();
            return FirstOf(S.GStar, S.SPoints);
        };
        test::Give(run);
        CalculateRates();
        const Analysis rates = AnalysisInStore();
        CalculateRates();
        ASSERT_TRUE(SameBits(AnalysisInStore(), rates)) << "dc/dt again, seed " << seed;

        for (std::int32_t K = 1; K <= S.NumFiles; ++K)
            S.ScanMeniscus(K) = S.Meniscus = run.menisci[0];
        CalculateRates();
        ASSERT_TRUE(SameBits(AnalysisInStore(), rates)) << "the same meniscus, seed " << seed;

        pickLevel();
        const Analysis zeroed = AnalysisInStore();
        BackToOrigKeld_Click();
        ASSERT_TRUE(SameBits(AnalysisInStore(), rates)) << "the level restored, seed " << seed;
        pickLevel();
        ASSERT_TRUE(SameBits(AnalysisInStore(), zeroed)) << "the level again, seed " << seed;

        const float last = S.SStar(S.SPoints) * 1E13F;
        const auto g = distribution(0.0F, 2.0F * last);
        ASSERT_TRUE(SameBits(distribution(0.0F, 2.0F * last), g)) << "g(s*) again, seed " << seed;
        ASSERT_TRUE(SameBits(AnalysisInStore(), zeroed)) << "g(s*) leaves dc/dt, seed " << seed;
    }
}

TEST_F(OrderRelation, PointsWithinBothOfTwoRangesHaveTheSameBits) {
    // The distribution is worked out over the whole grid; a range is but what is shown of it.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        test::Give(MakeRun(seed, {}));
        Chances chances(seed + 1'000'000);
        CalculateRates();
        const double last = static_cast<double>(S.SStar(S.SPoints)) * 1E13;
        struct Range {
            std::int32_t first, last;
            std::vector<float> gHat, gStar, gStarSem;
        };
        const auto rangeOf = [&](double lower, double upper) {
            S.DataLimitMin = static_cast<float>(lower * last);
            S.DataLimitMax = static_cast<float>(upper * last);
            FindSRange();
            PairStatistics();
            CalculateDistributions();
            BlankOutsideLimits();
            return Range{S.SRangeFirst, S.SRangeLast, FirstOf(S.GHat, S.SPoints), FirstOf(S.GStar, S.SPoints),
                         FirstOf(S.GStarSem, S.SPoints)};
        };
        const Range a = rangeOf(chances.Between(0.05, 0.3), chances.Between(0.5, 0.9));
        const Range b = rangeOf(chances.Between(0.05, 0.3), chances.Between(0.5, 0.9));
        ASSERT_LT(std::max(a.first, b.first) + 2, std::min(a.last, b.last));
        for (std::int32_t I = std::max(a.first, b.first) + 1; I < std::min(a.last, b.last); ++I) {
            const auto i = static_cast<std::size_t>(I - 1);
            ASSERT_EQ(a.gHat[i], b.gHat[i]) << "seed " << seed;
            ASSERT_EQ(a.gStar[i], b.gStar[i]) << "seed " << seed;
            ASSERT_EQ(a.gStarSem[i], b.gStarSem[i]) << "seed " << seed;
        }
    }
}

TEST_F(OrderRelation, JitterTakenAndRemovedIsAsIfItHadNeverBeen) {
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        const RandomRun run = MakeRun(seed, {.optics = Wishes::kInterference, .fewestPoints = 60});
        test::Give(run);
        const Analysis before = Analyse();
        S.JitterRefRadius = run.radii[0][15];
        ApplyJitterCorrection();
        ASSERT_NE(AnalyseRates().pairs, before.pairs) << "seed " << seed;
        NoJitterCorrection_Click();
        ASSERT_EQ(FirstOf(S.JitterOffset, kMostScans), std::vector<float>(kMostScans)) << "seed " << seed;
        ASSERT_TRUE(SameBits(Analyse(), before)) << "seed " << seed;
    }
}

/// Curves without jumps: from point to point they change by less than 0.045 fringes, so that the prediction of a point is
/// off by less than a tenth. A whole fringe more or less is then off by more than the 0.9 that is taken for the curve's
/// own, and there is one way to add it back. The first three points, which keep their fractions, lie in one fringe.
void MakeContinuous(RandomRun& run, Chances& chances, double quantum) {
    for (auto& scan : run.signals) {
        double value = chances.Whole(-3, 3) + chances.Between(0.2, 0.8);
        double step = 0.0;
        for (float& signal : scan) {
            signal = quantum > 0.0 ? static_cast<float>(std::round(value / quantum) * quantum)
                                   : static_cast<float>(std::round(value * 1E6) / 1E6);
            step = std::clamp(step + chances.Between(-0.02, 0.02), -0.044, 0.044);
            value += step;
        }
    }
}

std::vector<std::vector<float>> ScansInStore(const RandomRun& run) {
    std::vector<std::vector<float>> scans;
    for (std::int32_t K = 1; K <= run.Scans(); ++K)
        scans.emplace_back(&Store().ScanData(1, 2, K), &Store().ScanData(1, 2, K) + run.PointsOf(K));
    return scans;
}

TEST_F(OrderRelation, FringesAddedAgainRestoreAContinuousCurveInAllBits) {
    // On multiples of 2^-16 whole fringes are taken and given exactly: what is left of a curve is the curve less the whole
    // fringes of its first point. Whole fringes that were lost anywhere beyond it make no difference, and neither does a
    // second time.
    constexpr double kQuantum = 0x1p-16;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, {.optics = Wishes::kInterference});
        Chances chances(seed + 1'000'000);
        MakeContinuous(run, chances, kQuantum);
        auto expected = run.signals;
        for (auto& scan : expected) {
            const float whole = std::floor(scan[0]);
            for (float& signal : scan)
                signal -= whole;
        }
        test::Give(run);
        ReAddFringes();
        ASSERT_EQ(ScansInStore(run), expected) << "seed " << seed;
        ReAddFringes();
        ASSERT_EQ(ScansInStore(run), expected) << "a second time, seed " << seed;
        for (auto& scan : run.signals)
            for (float& signal : scan)
                signal += static_cast<float>(chances.Whole(-20, 20));
        test::Give(run);
        ReAddFringes();
        ASSERT_EQ(ScansInStore(run), expected) << "with fringes lost, seed " << seed;
    }
}

TEST_F(OrderRelation, FringesAddedAgainASecondTimeChangeNothingOfDecimals) {
    // Six decimals below 8 fringes: their fractions are rounded when fringes are added, by less than the 1E-6 that they are
    // away from a whole fringe. So no fraction becomes a whole one, the second time goes the same way, and what was
    // rounded once stays.
    int rounded = 0;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, {.optics = Wishes::kInterference, .mostPoints = 120});
        Chances chances(seed + 1'000'000);
        MakeContinuous(run, chances, 0.0);
        test::Give(run);
        ReAddFringes();
        const auto once = ScansInStore(run);
        ReAddFringes();
        ASSERT_EQ(ScansInStore(run), once) << "seed " << seed;
        rounded += once != run.signals ? 1 : 0;
    }
    EXPECT_GT(rounded, static_cast<int>(kRuns * 9 / 10));
}

TEST_F(OrderRelation, TheWideDistributionLeavesTheRatesOfInterferenceScansInAllBits) {
    // Both fill the common grid anew from the scans.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        test::Give(MakeRun(seed, {.optics = Wishes::kInterference, .fewestPoints = 200, .wholeCell = true}));
        const Analysis before = Analyse();
        Wide();
        ASSERT_TRUE(SameBits(Analyse(), before)) << "seed " << seed;
    }
}

TEST_F(OrderRelation, TheWideDistributionLeavesTheRatesOfAbsorbanceScansThatEndTogetherInAllBits) {
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        test::Give(MakeRun(
            seed, {.optics = Wishes::kAbsorbance, .commonRadii = true, .fewestPoints = 200, .wholeCell = true}));
        const Analysis before = Analyse();
        Wide();
        ASSERT_TRUE(SameBits(Analyse(), before)) << "seed " << seed;
    }
}

TEST_F(OrderRelation, OfAbsorbanceScansThatEndEarlyTheWideDistributionShowsBeyondTheirEnd) {
    // The radial grid of dc/dt is as long as that of the last scan, and a scan that ends in front of it shows what stood in
    // GridSignal: nothing after a load, its values on the other grid after the wide distribution. So the last points of
    // dc/dt may differ, those that lie beyond the end of the shortest scan, and the point in front of that.
    int sets = 0;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        const RandomRun run = MakeRun(seed, {.optics = Wishes::kAbsorbance, .fewestPoints = 200, .wholeCell = true});
        test::Give(run);
        const Analysis before = AnalyseRates();
        Wide();
        const Analysis after = AnalyseRates();
        ASSERT_TRUE(SameBits(after.s, before.s)) << "seed " << seed;
        float end = run.radii[0].back();
        for (const auto& radii : run.radii)
            end = std::min(end, radii.back());
        const double omega = run.speeds[0] * 0.104719755;
        for (std::size_t p = 0; p < before.pairs.size(); ++p) {
            const auto K = static_cast<std::int32_t>(p) + 1;
            const double time = 2.0 / (1.0 / static_cast<double>(S.ScanTime(K)) +
                                       1.0 / static_cast<double>(S.ScanTime(K + S.ScanSkip)));
            const double sOfEnd = std::log((static_cast<double>(end) - 0.0021) / static_cast<double>(run.menisci[0])) /
                                  time / omega / omega;
            for (std::size_t i = 0; i < before.s.size() && static_cast<double>(before.s[i]) < sOfEnd; ++i)
                ASSERT_EQ(after.pairs[p][i], before.pairs[p][i]) << "seed " << seed << " point " << i;
        }
        sets += after.pairs != before.pairs ? 1 : 0;
    }
    EXPECT_GT(sets, static_cast<int>(kRuns / 10));
    std::cout << sets << " of " << kRuns << " data sets have such points\n";
}

TEST_F(OrderRelation, PairsInAnotherOrderAreTheSamePairs) {
    // The first scan chooses the spacing, the last pair the length, and the last scan the grid of absorbance data; in
    // between the pairs may come in any order. The average adds n of them up one by one: each partial sum, of up to
    // 1, 2, ... n times the largest rate, is off by u of itself, twice over, which leaves u (n + 1) of that rate, and the
    // quotient, twice, 2 u.
    Worst worst;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, {.fewestScans = 8});
        Chances chances(seed + 1'000'000);
        test::Give(run);
        const Analysis before = AnalyseRates();
        const std::size_t n = before.pairs.size();
        std::vector<std::size_t> order(n);
        std::iota(order.begin(), order.end(), std::size_t{0});
        for (std::size_t p = n - 2; p > 1; --p)
            std::swap(order[p], order[static_cast<std::size_t>(chances.Whole(1, static_cast<int>(p)))]);
        RandomRun moved = run;
        for (std::size_t p = 0; p < n; ++p)
            for (const std::size_t half : {std::size_t{0}, n}) {
                moved.omega2t[p + half] = run.omega2t[order[p] + half];
                moved.radii[p + half] = run.radii[order[p] + half];
                moved.signals[p + half] = run.signals[order[p] + half];
            }
        test::Give(moved);
        const Analysis after = AnalyseRates();
        ASSERT_TRUE(SameBits(after.s, before.s)) << "seed " << seed;
        float largest = 0.0F;
        for (std::size_t p = 0; p < n; ++p) {
            ASSERT_TRUE(SameBits(after.pairs[p], before.pairs[order[p]])) << "seed " << seed;
            for (const float rate : after.pairs[p])
                largest = std::max(largest, std::fabs(rate));
        }
        const double allowed = kHalfStep * static_cast<double>(largest) * (static_cast<double>(n) + 3.0);
        for (std::size_t i = 0; i < before.raw.size(); ++i)
            ASSERT_TRUE(worst.Take(std::fabs(static_cast<double>(after.raw[i]) - before.raw[i]), allowed))
                << "seed " << seed;
    }
    std::cout << "average: worst " << worst.Share() << " of what is allowed\n";
}

TEST_F(OrderRelation, ScansOfPairsExchangedGiveTheSameRatesInAllBits) {
    // Both differences of a pair, of signals and of times, change their sign alone. The first pair stays, because its
    // first scan chooses the spacing.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, {.commonRadii = true});
        test::Give(run);
        const Analysis before = AnalyseRates();
        const std::size_t n = before.pairs.size();
        for (std::size_t p = 1; p < n; ++p) {
            std::swap(run.omega2t[p], run.omega2t[p + n]);
            std::swap(run.signals[p], run.signals[p + n]);
        }
        test::Give(run);
        const Analysis after = AnalyseRates();
        ASSERT_TRUE(SameBits(after.s, before.s)) << "seed " << seed;
        ASSERT_EQ(after.pairs, before.pairs) << "seed " << seed;
        ASSERT_EQ(after.raw, before.raw) << "seed " << seed;
    }
}

}  // namespace
}  // namespace halvern
