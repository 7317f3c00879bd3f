#include <gtest/gtest.h>

#include <cstdio>

#include "analysis/g_of_s.h"
#include "analysis/small_run.h"
#include "analysis/time_derivative.h"
#include "analysis/zero_level.h"
#include "support/test_desktop.h"

// The bits of a whole analysis, the same in every build. The long-hand calculation says that they are right, the
// constants that they have not moved with it.

namespace halvern {
namespace {

using test::First;

std::string Text(std::uint64_t digest) {
    char text[17];
    std::snprintf(text, sizeof text, "%016llX", static_cast<unsigned long long>(digest));
    return text;
}

struct DigestTest : ::testing::Test {
    test::TestDesktop desktop;

    /// Runs the stages; the level is a binary fraction near the noise of dc/dt.
    static void ExpectDigests(const test::SmallRun& run, const std::vector<std::string>& expected) {
        constexpr float kLevel = 0x1p-16F;
        const auto w = test::WorkOut(run, kLevel);
        const auto scans = static_cast<std::int32_t>(run.times.size());
        std::vector<std::string> stages, longHand;
        auto& S = Store();

        test::Give(run);
        KeldIt_Click();
        ASSERT_EQ(static_cast<std::size_t>(S.GridPoints), w.gridRadius.size());
        ASSERT_EQ(static_cast<std::size_t>(S.SPoints), w.s.size());
        std::uint64_t signal = test::Digest(First(S.GridRadius, w.gridRadius.size()));
        std::uint64_t signalByHand = test::Digest(w.gridRadius);
        for (std::int32_t K = 1; K <= scans; ++K) {
            signal = test::Digest(test::GridSignalOf(K, w.gridRadius.size()), signal);
            auto byHand = w.gridSignal[static_cast<std::size_t>(K - 1)];
            byHand.resize(w.gridRadius.size());
            signalByHand = test::Digest(byHand, signalByHand);
        }
        stages.push_back("grid " + Text(signal));
        longHand.push_back("grid " + Text(signalByHand));

        std::uint64_t rates = test::Digest(First(S.SStar, w.s.size()));
        std::uint64_t ratesByHand = test::Digest(w.s);
        for (std::size_t p = 0; p < w.pairs.size(); ++p) {
            rates = test::Digest(test::RatesOfPair(static_cast<std::int32_t>(p) + 1, w.pairs[p].size()), rates);
            ratesByHand = test::Digest(w.pairs[p], ratesByHand);
        }
        stages.push_back("rates " + Text(test::Digest(First(S.AveRateRaw, w.s.size()), rates)));
        longHand.push_back("rates " + Text(test::Digest(w.raw, ratesByHand)));

        SetKeldZero_Click();
        S.Meniscus = kLevel;
        TakeZeroLevel();
        stages.push_back("zeroed " + Text(test::Digest(First(S.AveRate, w.s.size()))));
        longHand.push_back("zeroed " + Text(test::Digest(w.average)));

        DoGofS_Click();
        TakeSLimits();
        const auto all = [](const std::vector<std::vector<float>>& arrays) {
            std::uint64_t digest = test::Digest({});
            for (const auto& array : arrays)
                digest = test::Digest(array, digest);
            return Text(digest);
        };
        const auto count = w.s.size();
        stages.push_back("g(s*) " + all({First(S.RateSem, count), First(S.GHat, count), First(S.GStar, count),
                                         First(S.GStarSem, count), First(S.PlateauRate, count)}));
        longHand.push_back("g(s*) " + all({w.sem, w.gHat, w.gStar, w.gStarSem, w.plateauRate}));

        EXPECT_EQ(stages, longHand);
        EXPECT_EQ(stages, expected);
    }
};

TEST_F(DigestTest, OfAnInterferenceAnalysis) {
    test::SmallRun run = test::MovingBoundary(6, 27, 7);
    run.offsets = {0.5F, -0.25F, 0.125F, 0.0F, 0.375F, -0.75F};
    run.omega2t = 2.5E9F;
    ExpectDigests(
        run, {"grid 6EFDFF1641A7802C", "rates 55E87025BCD045EB", "zeroed B154CC088FA0950B", "g(s*) 7B36599FB2E90C95"});
}

TEST_F(DigestTest, OfAnAbsorbanceAnalysis) {
    test::SmallRun run = test::MovingBoundary(5, 27, 11);
    run.interference = false;
    run.speed = 50000;
    run.omega2t = 2.5E10F;
    ExpectDigests(
        run, {"grid 5D3FF5A6D663A8CE", "rates E476C29F662837CC", "zeroed 4D2F6CF80C422EDA", "g(s*) 73C8231B6B4D9629"});
}

}  // namespace
}  // namespace halvern
