// What dc/dt and g(s*) make of data sets whose signals are related: a signal that never changes, a constant to each scan,
// whole fringes, the signal twice. Each relation is tried on a thousand random data sets.
//
// Where it holds in all bits, that is because every operation on the way is exact, and the test says why. Where it can't,
// the bound counts the roundings, each half a step of a single at most: u = 2^-24 of the value rounded. M is the largest
// signal, DT the time between the scans of a pair. A change of 42 u M / DT, say, leaves 18 bits of the largest rate that
// there can be.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <vector>

#include "analysis/averages.h"
#include "conditioning/fringe_shift.h"
#include "conditioning/jitter.h"
#include "relations/random_run.h"
#include "store/analysis_store.h"
#include "store/common_grid.h"
#include "ui/form.h"

namespace halvern {
namespace {

using test::Analyse;
using test::AnalyseRates;
using test::Analysis;
using test::Chances;
using test::kHalfStep;
using test::kRuns;
using test::MakeRun;
using test::RandomRun;
using test::SameBits;
using test::Times;
using test::Wishes;
using test::Worst;

struct SignalRelation : ::testing::Test {
    test::QuietDesktop desktop;
};

/// Small enough that sums and differences of a few of them are singles as they stand.
constexpr double kQuantum = 0x1p-16;
constexpr double kMostFringes = 8.0;

float Quantised(double value) { return static_cast<float>(std::round(value / kQuantum) * kQuantum); }

/// The largest signal of the scans and of the grid in the store.
double LargestInStore() {
    const auto& S = Store();
    float largest = 0.0F;
    for (std::int32_t K = 1; K <= S.NumFiles; ++K) {
        for (std::int32_t I = 1; I <= S.ScanPoints(K); ++I)
            largest = std::max(largest, std::fabs(S.ScanData(I, 2, K)));
        for (std::int32_t I = 1; I <= S.GridPoints; ++I)
            largest = std::max(largest, std::fabs(S.GridSignal(I, K)));
    }
    return static_cast<double>(largest);
}

double SecondsOfPair(std::size_t pair) {
    const auto& S = Store();
    const auto P = static_cast<std::int32_t>(pair) + 1;
    return static_cast<double>(S.ScanTime(P + S.ScanSkip)) - static_cast<double>(S.ScanTime(P));
}

/// Holds two analyses with the same s* against each other.
///
/// Given     roundings   of a rate of one pair, in u M / DT
///           largest     M
/// Result    whether no pair and no average is further off. The average adds the pairs up one by one: n partial sums of
///           up to 1, 2, ... n times the largest rate, rate = `rateOfM` M / DT, divided by n, and one quotient, in both
///           analyses
bool AreClose(const Analysis& a, const Analysis& b, double roundings, double largest, double rateOfM, Worst& worst) {
    bool close = SameBits(a.s, b.s) && a.pairs.size() == b.pairs.size();
    const auto n = static_cast<double>(a.pairs.size());
    double ofMean = 0.0, shortest = SecondsOfPair(0);
    for (std::size_t p = 0; close && p < a.pairs.size(); ++p) {
        const double allowed = roundings * kHalfStep * largest / SecondsOfPair(p);
        for (std::size_t i = 0; i < a.s.size(); ++i)
            close = worst.Take(std::fabs(static_cast<double>(a.pairs[p][i]) - b.pairs[p][i]), allowed) && close;
        ofMean += allowed / n;
        shortest = std::min(shortest, SecondsOfPair(p));
    }
    ofMean += kHalfStep * rateOfM * largest / shortest * (n + 3.0);
    for (std::size_t i = 0; close && i < a.raw.size(); ++i)
        close = std::fabs(static_cast<double>(a.raw[i]) - b.raw[i]) <= ofMean;
    return close;
}

void Tell(const char* what, const Worst& worst, double roundings) {
    std::cout << what << ": worst " << worst.Share() * roundings << " of " << roundings << " u M / DT, "
              << 24.0 - std::log2(std::max(worst.Share() * roundings, 1.0)) << " bits\n";
}

/// A pattern that belongs to the cell: a slope, and what differs from point to point.
void AddPattern(RandomRun& run, Chances& chances, double quantum) {
    const double slope = chances.Between(-0.5, 0.5);
    std::vector<double> pattern;
    for (const float radius : run.radii[0])
        pattern.push_back(slope * (static_cast<double>(radius) - 6.5) + chances.Between(-0.3, 0.3));
    for (auto& scan : run.signals)
        for (std::size_t i = 0; i < scan.size(); ++i)
            scan[i] += quantum > 0.0 ? Quantised(pattern[i]) : static_cast<float>(pattern[i]);
}

TEST_F(SignalRelation, APatternThatNeverChangesLeavesAllBitsOfInterferenceDataThatAddUpExactly) {
    // Signals and pattern are multiples of 2^-16 below 8: signal plus pattern has at most 20 bits, and so has the
    // difference of two scans, in which the pattern is gone.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, {.optics = Wishes::kInterference, .quantum = kQuantum});
        Chances chances(seed + 1'000'000);
        test::Give(run);
        const Analysis before = Analyse();
        AddPattern(run, chances, kQuantum);
        ASSERT_LT(run.LargestSignal(), kMostFringes);
        test::Give(run);
        ASSERT_TRUE(SameBits(Analyse(), before)) << "seed " << seed;
    }
}

TEST_F(SignalRelation, APatternThatNeverChangesLeavesEighteenBitsOfInterferenceRates) {
    // Of a pair: the sum of signal and pattern and the offset's difference, before and after, in two scans, 3 u M each;
    // their difference, up to 2 M, twice; the quotient by DT, twice: 6 + 4 + 4. Between two points of the curve the error
    // is no larger; the slope, the way from the point and their product are off by u of the rise each, which is up to
    // 4 M / DT, and the sum by u of 2 M / DT, all of it twice: 24 + 4.
    constexpr double kRoundings = 42.0;
    Worst worst;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, {.optics = Wishes::kInterference});
        Chances chances(seed + 1'000'000);
        test::Give(run);
        const Analysis before = AnalyseRates();
        const double largestBefore = LargestInStore();
        AddPattern(run, chances, 0.0);
        test::Give(run);
        const Analysis after = AnalyseRates();
        const double largest = std::max(largestBefore, LargestInStore());
        ASSERT_TRUE(AreClose(before, after, kRoundings, largest, 2.0, worst)) << "seed " << seed;
    }
    Tell("pattern, interference", worst, kRoundings);
}

TEST_F(SignalRelation, APatternThatNeverChangesLeavesSeventeenBitsOfAbsorbanceRates) {
    // Scans with common radii meet the pattern at the same places, and the interpolation is linear: it takes the same
    // part of the pattern into all of them. Each scan is interpolated onto the radial grid: slope, way and product of a
    // rise up to 2 M, and the sum, 7 u M, before and after, and the sum of signal and pattern, 1: 30 in two scans; then
    // as with interference data: 30 + 4 + 4 + 24 + 4. With radii of their own the scans would see different places of
    // the pattern: for them the relation does not hold to any number of bits.
    constexpr double kRoundings = 66.0;
    Worst worst;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, {.optics = Wishes::kAbsorbance, .commonRadii = true});
        Chances chances(seed + 1'000'000);
        test::Give(run);
        const Analysis before = AnalyseRates();
        const double largestBefore = LargestInStore();
        AddPattern(run, chances, 0.0);
        test::Give(run);
        const Analysis after = AnalyseRates();
        const double largest = std::max(largestBefore, LargestInStore());
        ASSERT_TRUE(AreClose(before, after, kRoundings, largest, 2.0, worst)) << "seed " << seed;
    }
    Tell("pattern, absorbance", worst, kRoundings);
}

/// The centre of the jitter window. Its 21 points are the sixth to the 26th.
constexpr std::size_t kJitterPoint = 16;

void CorrectJitter(const RandomRun& run) {
    Store().JitterRefRadius = run.radii[0][kJitterPoint - 1];
    ApplyJitterCorrection();
    ASSERT_EQ(Store().JitterPoint(run.Scans()), std::int16_t{kJitterPoint});
}

constexpr Wishes kForJitter{.optics = Wishes::kInterference, .fewestPoints = 60};

TEST_F(SignalRelation, AConstantOfEachScanGoesWithTheJitterInAllBitsWhereTheWindowIsBlank) {
    // Where the window holds the constant alone, a multiple of 2^-16 up to 4, 21 of them add up exactly, in 18 bits and 5
    // more; their mean is the constant, and what is subtracted is what was added.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        Wishes wishes = kForJitter;
        wishes.quantum = kQuantum;
        RandomRun run = MakeRun(seed, wishes);
        Chances chances(seed + 1'000'000);
        for (auto& scan : run.signals)
            std::fill_n(scan.begin(), kJitterPoint + 10, 0.0F);
        test::Give(run);
        CorrectJitter(run);
        const Analysis before = Analyse();
        std::vector<float> constants;
        for (auto& scan : run.signals) {
            constants.push_back(Quantised(chances.Between(-4.0, 4.0)));
            for (float& signal : scan)
                signal += constants.back();
        }
        test::Give(run);
        CorrectJitter(run);
        ASSERT_EQ(test::FirstOf(Store().JitterOffset, run.Scans()), constants) << "seed " << seed;
        ASSERT_TRUE(SameBits(Analyse(), before)) << "seed " << seed;
    }
}

TEST_F(SignalRelation, AConstantOfEachScanGoesWithTheJitterToSixteenBits) {
    // An offset: 20 sums of up to 2, 3, ... 21 M, over 21, and the quotient, 12 u M; the scans before and after, 24; the
    // sum of signal and constant, at the point and in the mean, 2; the difference, up to 2 M, twice, 4: 30 for a scan. A
    // pair: 60, its difference of up to 4 M, 8, the quotient, 8; between points a rise of up to 8 M / DT, 48, and 8.
    constexpr double kRoundings = 132.0;
    Worst worst;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, kForJitter);
        Chances chances(seed + 1'000'000);
        test::Give(run);
        CorrectJitter(run);
        const Analysis before = AnalyseRates();
        const double largestBefore = LargestInStore();
        for (auto& scan : run.signals) {
            const auto constant = static_cast<float>(chances.Between(-4.0, 4.0));
            for (float& signal : scan)
                signal += constant;
        }
        test::Give(run);
        CorrectJitter(run);
        const Analysis after = AnalyseRates();
        const double largest = std::max(largestBefore, LargestInStore());
        ASSERT_TRUE(AreClose(before, after, kRoundings, largest, 4.0, worst)) << "seed " << seed;
    }
    Tell("jitter", worst, kRoundings);
}

TEST_F(SignalRelation, WholeFringesOfScansAreTakenAwayInAllBits) {
    // Whole fringes and multiples of 2^-16 add up exactly. The last scan is the anchor and has none. Below the boundary
    // the scans differ by their noise, far less than half a fringe: there is one way back alone.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        Wishes wishes = kForJitter;
        wishes.quantum = kQuantum;
        RandomRun run = MakeRun(seed, wishes);
        Chances chances(seed + 1'000'000);
        test::Give(run);
        const Analysis before = Analyse();
        std::vector<float> fringes;
        for (std::size_t k = 0; k + 1 < run.signals.size(); ++k) {
            fringes.push_back(static_cast<float>(chances.Whole(-9, 9)));
            for (float& signal : run.signals[k])
                signal += fringes.back();
        }
        test::Give(run);
        Store().GridPoints = TakeGridOfFirstScan();
        Store().FringeRefRadius = run.radii[0][5];
        desktop.dialogs.push_back([](Form& form) { form.Unload(); });
        CorrectIntegerFringes();
        ASSERT_EQ(test::FirstOf(Store().JitterOffset, run.Scans() - 1), fringes) << "seed " << seed;
        ASSERT_TRUE(SameBits(Analyse(), before)) << "seed " << seed;
    }
}

TEST_F(SignalRelation, TwiceTheSignalIsTwiceTheDistributionInAllBits) {
    // A power of two goes through every sum, product, quotient and root unrounded; nothing comes near the ends of the
    // singles' range.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, {});
        const float level = static_cast<float>(Chances(seed + 1'000'000).Between(-1E-4, 1E-4));
        test::Give(run);
        const Analysis once = Analyse(level);
        BlankOutsideLimits();
        const double Co = AveragesOfNonInteracting().concentration, Cp = AveragesOfInteracting().concentration;
        const double Sw = AveragesOfNonInteracting().Sw.value, Sz = AveragesOfInteracting().Sz.value;
        for (auto& scan : run.signals)
            scan = Times(2.0F, scan);
        test::Give(run);
        const Analysis twice = Analyse(2.0F * level);
        BlankOutsideLimits();
        Analysis doubled = once;
        for (auto* values : {&doubled.raw, &doubled.average, &doubled.sem, &doubled.gHat, &doubled.gStar,
                             &doubled.gStarSem, &doubled.plateauRate})
            *values = Times(2.0F, *values);
        for (auto& pair : doubled.pairs)
            pair = Times(2.0F, pair);
        ASSERT_TRUE(SameBits(twice, doubled)) << "seed " << seed;
        ASSERT_EQ(AveragesOfNonInteracting().concentration, 2.0 * Co) << "seed " << seed;
        ASSERT_EQ(AveragesOfInteracting().concentration, 2.0 * Cp) << "seed " << seed;
        ASSERT_EQ(AveragesOfNonInteracting().Sw.value, Sw) << "seed " << seed;
        ASSERT_EQ(AveragesOfInteracting().Sz.value, Sz) << "seed " << seed;
    }
}

}  // namespace
}  // namespace halvern
