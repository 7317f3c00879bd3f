#include "analysis/rate_plots.h"

#include <gtest/gtest.h>

#include "analysis/small_run.h"
#include "plot/plot_window.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Values = std::vector<float>;
using Lines = std::vector<std::string>;

/// Three points of two pairs, and their average less a level of 0.5.
struct RatePlots : ::testing::Test {
    test::TestDesktop desktop;
    const Values s = {1E-13F, 2E-13F, 3E-13F};

    RatePlots() {
        auto& S = Store();
        S.SPoints = 3;
        S.ScanSkip = 2;
        for (std::int32_t I = 1; I <= 3; ++I) {
            const auto value = static_cast<float>(I);
            S.SStar(I) = s[static_cast<std::size_t>(I - 1)];
            S.RatePairs(I, 1) = value;
            S.RatePairs(I, 2) = 10.0F * value;
            S.AveRateRaw(I) = 5.5F * value;
            S.AveRate(I) = 5.5F * value - 0.5F;
        }
        S.PickDataLimits = S.PickMeniscus = S.PickJitterPoint = S.PlotLnAxis = true;
        S.PlotCount = 77;
    }
};

TEST_F(RatePlots, OfTheAverageAreABlackLineUnderItsSymbols) {
    const auto before = test::MenuStates();
    PlotAvekeld_Click();
    EXPECT_EQ(test::RequestTextsNow(), (Lines{" ", "Average <dc/dt> vs S", "S (Svedbergs)", "<dc/dt>"}));
    EXPECT_EQ(test::FlagsUp(), (Lines{"PlotDialogOK", "PlotReady", "PlotitLoaded"}));
    const Values x = test::AsSvedbergs(s), y = {5.0F, 10.5F, 16.0F};
    EXPECT_EQ(Store().PlotCount, 6);
    EXPECT_EQ(test::Request(), test::Joined(test::LineOf(x, y, -121), test::SymbolsOf(x, y, 1)));
    EXPECT_EQ(Store().PlotYMin, 5.0F);
    EXPECT_EQ(Store().PlotYMax, 16.0F);
    EXPECT_TRUE(PlotitForm().IsShown());
    EXPECT_TRUE(test::MenuChanges(before).empty());
}

TEST_F(RatePlots, OfThePairsHaveAColourForEach) {
    const auto before = test::MenuStates();
    PlotRawkeld_Click();
    EXPECT_EQ(test::RequestTextsNow(), (Lines{" ", "Raw <dc/dt> vs S", "S (Svedbergs)", "<dc/dt>"}));
    EXPECT_EQ(test::FlagsUp(), (Lines{"PlotDialogOK", "PlotReady", "PlotitLoaded"}));
    const Values x = test::AsSvedbergs(s), first = {1.0F, 2.0F, 3.0F}, second = {10.0F, 20.0F, 30.0F};
    EXPECT_EQ(Store().PlotCount, 12);
    EXPECT_EQ(test::Request(), test::Joined(test::Joined(test::SymbolsOf(x, first, 1), test::SymbolsOf(x, second, 2)),
                                            test::Joined(test::LineOf(x, first, -121), test::LineOf(x, second, -185))));
    EXPECT_TRUE(test::MenuChanges(before).empty());
}

TEST_F(RatePlots, OfNoPointAreNotReady) {
    Store().SPoints = 0;
    PlotAvekeld_Click();
    EXPECT_EQ(Store().PlotCount, 0);
    EXPECT_FALSE(Store().PlotReady);
    PlotRawkeld_Click();
    EXPECT_FALSE(Store().PlotReady);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(RatePlots, OfOnePointAreReadyByLineAndSymbol) {
    Store().SPoints = 1;
    PlotAvekeld_Click();
    EXPECT_EQ(Store().PlotCount, 2);
    EXPECT_TRUE(Store().PlotReady);
}

TEST_F(RatePlots, LeaveAZoom) {
    PlotitForm().Load();
    PlotitForm().Menu.Zoomout.Enable();
    PlotAvekeld_Click();
    EXPECT_FALSE(PlotitForm().Menu.Zoomout.IsEnabled());
}

TEST_F(RatePlots, CloseAnOpenPickOfSLimitsByNoMeans) {
    Store().PickSLimits = Store().PickZeroLevel = true;
    PlotAvekeld_Click();
    EXPECT_TRUE(Store().PickSLimits);
    EXPECT_TRUE(Store().PickZeroLevel);
}

}  // namespace
}  // namespace halvern
