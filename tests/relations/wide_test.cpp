// What the wide distribution makes of data sets that are related, of one or several rotor speeds. Each relation is tried
// on a thousand random data sets.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <vector>

#include "relations/random_run.h"
#include "store/analysis_store.h"
#include "wide/integral.h"
#include "wide/radii_dialogs.h"
#include "wide/wide_distribution.h"

namespace halvern {
namespace {

using test::Chances;
using test::kHalfStep;
using test::kRuns;
using test::MakeRun;
using test::RandomRun;
using test::SameBits;
using test::Times;
using test::Wishes;
using test::Worst;

constexpr Wishes kForWide{.fewestPoints = 200, .mostSpeeds = 3, .wholeCell = true};

/// The distribution of one radius, its points 1 to the number of scans.
struct AtRadius {
    std::int32_t K = 0;
    std::vector<float> g, s, integral, lnS;
    bool operator==(const AtRadius&) const = default;
};
using Wide = std::vector<AtRadius>;

bool AllSameBits(const Wide& a, const Wide& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const AtRadius& x, const AtRadius& y) {
        return x.K == y.K && SameBits(x.g, y.g) && SameBits(x.s, y.s) && SameBits(x.integral, y.integral) &&
               SameBits(x.lnS, y.lnS);
    });
}

struct WideRelation : ::testing::Test {
    test::QuietDesktop desktop;
    AnalysisStore& S = Store();

    void AnswerDialog(std::vector<std::size_t> ticked) {
        desktop.dialogs.push_back([ticked](Form& form) {
            auto& dialog = dynamic_cast<RadiiDialog&>(form);
            for (const std::size_t box : ticked)
                dialog.UseRadii.at(box).SetValue(1);
            dialog.PlotEmUp.Click();
        });
    }
    Wide Calculate() {
        AnswerDialog({});
        DoWideStraight_Click();
        IntegrateWideDistribution(IntegralAxis::kPoints);
        Wide wide;
        const auto points = [&](const auto& at) {
            std::vector<float> values;
            for (std::int32_t J = 1; J <= S.NumFiles; ++J)
                values.push_back(at(J));
            return values;
        };
        for (std::int32_t K = 1; K <= kWideRadii; ++K)
            if (S.WDRadiusValid(K))
                wide.push_back({K, points([&](std::int32_t J) { return S.WDGofS(J, K); }),
                                points([&](std::int32_t J) { return J == 1 ? 0.0F : S.WDSValue(J, K); }),
                                points([&](std::int32_t J) { return J == 1 ? 0.0F : S.WDIntegral(J, K, 1); }),
                                points([&](std::int32_t J) { return J == 1 ? 0.0F : S.WDIntegral(J, K, 2); })});
        return wide;
    }
};

TEST_F(WideRelation, TwiceTheSignalIsTwiceTheDistributionInAllBits) {
    // A power of two goes through every operation unrounded, those of the smoothing too.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, kForWide);
        const bool smoothed = seed % 2 == 0 && run.Scans() > 10;
        test::Give(run);
        S.UseSmoothing = smoothed;
        Wide once = Calculate();
        ASSERT_GT(once.size(), 8U);
        for (auto& scan : run.signals)
            scan = Times(2.0F, scan);
        test::Give(run);
        S.UseSmoothing = smoothed;
        const Wide twice = Calculate();
        for (AtRadius& radius : once) {
            radius.g = Times(2.0F, radius.g);
            radius.integral = Times(2.0F, radius.integral);
        }
        ASSERT_TRUE(AllSameBits(twice, once)) << "seed " << seed;
    }
}

TEST_F(WideRelation, TwiceTheTimesIsHalfTheSAndTwiceTheDistributionInAllBits) {
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, kForWide);
        test::Give(run);
        const Wide before = Calculate();
        run.omega2t = Times(2.0F, run.omega2t);
        test::Give(run);
        const Wide after = Calculate();
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t r = 0; r < after.size(); ++r) {
            ASSERT_TRUE(SameBits(after[r].s, Times(0.5F, before[r].s))) << "seed " << seed;
            ASSERT_TRUE(SameBits(after[r].g, Times(2.0F, before[r].g))) << "seed " << seed;
        }
    }
}

TEST_F(WideRelation, RotorSpeedsMakeNoDifference) {
    // A scan enters by its omega squared t.
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, kForWide);
        test::Give(run);
        const Wide before = Calculate();
        Chances chances(seed + 1'000'000);
        for (std::int32_t& speed : run.speeds)
            speed = 500 * chances.Whole(6, 120);
        test::Give(run);
        ASSERT_TRUE(AllSameBits(Calculate(), before)) << "seed " << seed;
    }
}

TEST_F(WideRelation, AConstantOfAllScansLeavesAllBitsOfSignalsThatAverageExactly) {
    // Signals are multiples of 11 x 2^-16 below 8: eleven of them add up in 24 bits, and an eleventh of that is a multiple
    // of 2^-16, so that the mean is exact; the constant, such a multiple itself, is gone from the differences.
    constexpr double kQuantum = 11.0 * 0x1p-16;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        Wishes wishes = kForWide;
        wishes.optics = Wishes::kInterference;
        wishes.quantum = kQuantum;
        RandomRun run = MakeRun(seed, wishes);
        test::Give(run);
        const Wide before = Calculate();
        Chances chances(seed + 1'000'000);
        const auto constant = static_cast<float>(std::round(chances.Between(-3.0, 3.0) / kQuantum) * kQuantum);
        for (auto& scan : run.signals)
            for (float& signal : scan)
                signal += constant;
        ASSERT_LT(run.LargestSignal(), 8.0F);
        test::Give(run);
        ASSERT_TRUE(AllSameBits(Calculate(), before)) << "seed " << seed;
    }
}

/// What the scans in the store say at one radius, the last scan first.
struct Course {
    std::vector<double> signal, s, omega2t;
};

Course CourseAt(const AtRadius& radius) {
    const auto& S = Store();
    std::int32_t Idx = 1;
    while (S.GridRadius(Idx) < S.WDRadius(radius.K))
        ++Idx;
    Course course;
    for (std::int32_t K = S.NumFiles; K >= 1; --K) {
        double sum = 0.0;
        for (std::int32_t I = Idx - 6; I <= Idx + 4; ++I)
            sum += static_cast<double>(S.GridSignal(I, K));
        course.signal.push_back(sum / 11.0);
        const double ratio = static_cast<double>(S.GridRadius(Idx)) / static_cast<double>(S.ScanMeniscus(K));
        course.s.push_back(std::log(ratio) / static_cast<double>(S.ScanW2t(K)));
        course.omega2t.push_back(static_cast<double>(S.ScanW2t(K)));
    }
    return course;
}

/// How far g(s*) may be off at one radius, per Svedberg, by J - 1, where the mean signals are off by `ofMean` each.
///
/// The derivative is off by that in two scans, over the way between their s*. The three passes of the dilution are linear:
/// what is off runs through them as g does, and what each store rounds, 2 u of it at most, joins it. Here both are taken
/// as if all of g had one sign, which is the worst that can be.
std::vector<double> AllowedAt(const AtRadius& radius, double ofMean) {
    const Course course = CourseAt(radius);
    const std::size_t n = radius.g.size();
    std::vector<double> s(n), size(n), off(n);
    for (std::size_t j = 1; j < n; ++j) {
        const double width = std::fabs(course.s[j] - course.s[j - 1]);
        s[j] = (course.s[j] + course.s[j - 1]) / 2.0;
        size[j] = std::fabs(course.signal[j] - course.signal[j - 1]) / width;
        off[j] = 2.0 * ofMean / width + 4.0 * kHalfStep * size[j];
    }
    const std::vector<double> size0 = size, off0 = off;
    for (int pass = 1; pass <= 3; ++pass) {
        double integral = 0.0, offOfIntegral = 0.0;
        for (std::size_t j = 1; j < n; ++j) {
            const double width = std::fabs(s[j] - s[j - 1]);
            integral += width * s[j] * size[j];
            offOfIntegral += width * s[j] * off[j] + 2.0 * kHalfStep * integral;
            const double dilution = 2.0 * course.omega2t[j] / s[j];
            size[j] = size0[j] + dilution * integral;
            off[j] = off0[j] + dilution * offOfIntegral + 2.0 * kHalfStep * size[j];
        }
    }
    for (std::size_t j = 1; j < n; ++j)
        off[j] = 1E-13 * (off[j] + 2.0 * kHalfStep * size[j]);
    return off;
}

TEST_F(WideRelation, AConstantOfAllScansLeavesWhatTheMeansOfElevenPointsAreGoodFor) {
    // A mean: ten sums of up to 2, 3, ... 11 M, over 11, and the quotient, 7 u M, before and after; the sum of signal and
    // constant, 1: 15 u M. Absorbance scans are interpolated besides: a slope of three roundings, way and product, all of
    // a rise of up to 2 M, and the sum, 11 u M, before and after. The derivative magnifies that where s* of two scans
    // are close: AllowedAt.
    Worst worst;
    double sum = 0.0;
    std::int32_t points = 0;
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        RandomRun run = MakeRun(seed, kForWide);
        test::Give(run);
        const Wide before = Calculate();
        double largest = static_cast<double>(run.LargestSignal());
        Chances chances(seed + 1'000'000);
        const auto constant = static_cast<float>(chances.Between(-2.0, 2.0));
        for (auto& scan : run.signals)
            for (float& signal : scan)
                signal += constant;
        largest = std::max(largest, static_cast<double>(run.LargestSignal()));
        test::Give(run);
        const Wide after = Calculate();
        const double ofMean = (run.interference ? 15.0 : 37.0) * kHalfStep * largest;
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t r = 0; r < after.size(); ++r) {
            const auto allowed = AllowedAt(after[r], ofMean);
            ASSERT_TRUE(SameBits(after[r].s, before[r].s)) << "seed " << seed;
            for (std::size_t j = 1; j < allowed.size(); ++j) {
                const double off = std::fabs(static_cast<double>(after[r].g[j]) - static_cast<double>(before[r].g[j]));
                ASSERT_TRUE(worst.Take(off, allowed[j])) << "seed " << seed << " radius " << r << " point " << j;
                sum += off / allowed[j];
                ++points;
            }
        }
    }
    std::cout << "constant: worst " << worst.Share() << " of what is allowed, mean " << sum / points << '\n';
}

TEST_F(WideRelation, RadiiTickedInAnotherOrderGiveTheSamePlot) {
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        test::Give(MakeRun(seed, kForWide));
        Calculate();
        Chances chances(seed + 1'000'000);
        std::vector<std::size_t> ticks;
        for (std::size_t box = 0; box < 11; ++box)
            if (chances.Likely(0.5))
                ticks.push_back(box);
        const auto plotted = [&] {
            AnswerDialog(ticks);
            PlotSvsG_Click();
            std::vector<float> points = test::FirstOf(S.PlotX, S.PlotCount);
            const auto y = test::FirstOf(S.PlotY, S.PlotCount);
            points.insert(points.end(), y.begin(), y.end());
            for (std::int32_t P = 1; P <= S.PlotCount; ++P)
                points.push_back(S.PlotSym(P));
            return points;
        };
        const auto before = plotted();
        for (std::size_t i = ticks.size(); i > 1; --i)
            std::swap(ticks[i - 1], ticks[static_cast<std::size_t>(chances.Whole(0, static_cast<int>(i) - 1))]);
        ASSERT_TRUE(SameBits(plotted(), before)) << "seed " << seed;
        ASSERT_GT(before.size(), 0U);
    }
}

TEST_F(WideRelation, SmoothedAndNotAgainIsAsBefore) {
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        Wishes wishes = kForWide;
        wishes.fewestScans = 10;
        test::Give(MakeRun(seed, wishes));
        const Wide before = Calculate();
        S.UseSmoothing = true;
        ASSERT_FALSE(AllSameBits(Calculate(), before)) << "seed " << seed;
        S.UseSmoothing = false;
        ASSERT_TRUE(AllSameBits(Calculate(), before)) << "seed " << seed;
    }
}

}  // namespace
}  // namespace halvern
