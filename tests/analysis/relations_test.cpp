#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "analysis/averages.h"
#include "analysis/g_of_s.h"
#include "analysis/small_run.h"
#include "analysis/time_derivative.h"
#include "support/test_desktop.h"

// What must hold between analyses of related data, whatever the data are.

namespace halvern {
namespace {

using test::First;
using Values = std::vector<float>;

struct Result {
    Values s, raw, gHat, gStar, gStarSem;
    std::vector<double> averages;
    double concentration;
};

struct Relations : ::testing::TestWithParam<std::uint32_t> {
    test::TestDesktop desktop;

    test::SmallRun Data() const {
        test::SmallRun run = test::MovingBoundary(6, 27, GetParam());
        run.omega2t = 2.5E9F;  // steps of 0.4 Svedberg
        return run;
    }

    static Result Analysed(const test::SmallRun& run) {
        auto& S = Store();
        test::Give(run);
        KeldIt_Click();
        S.DataLimitMin = 0.0F;
        S.DataLimitMax = 1E6F;
        TakeSLimits();
        const auto count = static_cast<std::size_t>(S.SPoints);
        Result result{First(S.SStar, count),
                      First(S.AveRateRaw, count),
                      First(S.GHat, count),
                      First(S.GStar, count),
                      First(S.GStarSem, count),
                      {},
                      0.0};
        BlankOutsideLimits();
        for (const auto& a : {AveragesOfInteracting(), AveragesOfNonInteracting()}) {
            for (const auto& average : {a.Sn, a.Sw, a.Sz, a.SzPlus1}) {
                result.averages.push_back(average.value);
                result.averages.push_back(average.error);
            }
            result.concentration = a.concentration;
        }
        return result;
    }
};

TEST_P(Relations, ASignalThatNeverChangesIsNotSeen) {
    test::SmallRun run = Data();
    const Result before = Analysed(run);
    for (auto& scan : run.signals)
        for (std::size_t i = 0; i < scan.size(); ++i)
            scan[i] += static_cast<float>(i * i % 17) / 37.0F;
    const Result after = Analysed(run);
    ASSERT_EQ(after.s, before.s);
    const float most = *std::max_element(before.gStar.begin(), before.gStar.end());
    // A fringe is rounded by 6E-8, and g(s*) at 0.5 Svedberg magnifies the rates of its peak tenfold.
    int seen = 0;
    for (std::size_t i = 0; i < before.s.size(); ++i)
        if (before.s[i] > 5E-14F) {
            EXPECT_LT(std::fabs(after.gStar[i] - before.gStar[i]), 1E-5F * most) << i;
            ++seen;
        }
    EXPECT_GT(seen, 20);
    EXPECT_NE(after.gStar, before.gStar) << "rounding is seen: the signal did change";
}

TEST_P(Relations, TwiceTheSignalIsTwiceTheDistribution) {
    test::SmallRun run = Data();
    const Result once = Analysed(run);
    for (auto& scan : run.signals)
        for (float& signal : scan)
            signal *= 2.0F;
    const Result twice = Analysed(run);
    // A power of two goes through every product, sum and root unrounded.
    const auto doubled = [](Values values) {
        for (float& value : values)
            value *= 2.0F;
        return values;
    };
    EXPECT_EQ(twice.s, once.s);
    EXPECT_EQ(twice.raw, doubled(once.raw));
    EXPECT_EQ(twice.gHat, doubled(once.gHat));
    EXPECT_EQ(twice.gStar, doubled(once.gStar));
    EXPECT_EQ(twice.gStarSem, doubled(once.gStarSem));
    EXPECT_EQ(twice.averages, once.averages);
    EXPECT_EQ(twice.concentration, 2.0 * once.concentration);
}

TEST_P(Relations, TheTwoDistributionsDifferByTheDilution) {
    const Result r = Analysed(Data());
    // Harmonic mean of 600, 900, ..., 2100 s. The exponent stays below 0.3; omega squared and the time are good to 6E-8
    // of it, the time after six sums of singles to a little more, and either distribution to 6E-8 of itself.
    double sum = 0.0;
    for (int k = 0; k < 6; ++k)
        sum += 1.0 / (600 + 300 * k);
    const double t = 6.0 / sum;
    const double omega2 = std::pow(40000.0 * 0.1047196, 2);
    int seen = 0;
    for (std::size_t i = 0; i < r.s.size(); ++i) {
        if (r.s[i] <= 5E-15F || r.gHat[i] == 0.0F)
            continue;
        const double expected = std::exp(2.0 * omega2 * r.s[i] * t);
        EXPECT_NEAR(static_cast<double>(r.gStar[i]) / r.gHat[i], expected, expected * 1E-6) << i;
        ++seen;
    }
    EXPECT_GT(seen, 20);
}

TEST_P(Relations, ScansInReversedHalvesGiveTheRateReversed) {
    // Exchanging the scans of every pair with their times leaves the quotient of two reversed differences.
    test::SmallRun run = Data();
    const Result forth = Analysed(run);
    for (std::size_t p = 0; p < 3; ++p) {
        std::swap(run.times[p], run.times[p + 3]);
        std::swap(run.signals[p], run.signals[p + 3]);
    }
    EXPECT_EQ(Analysed(run).raw, forth.raw);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Relations, ::testing::Values(1U, 42U, 20240229U));

}  // namespace
}  // namespace halvern
