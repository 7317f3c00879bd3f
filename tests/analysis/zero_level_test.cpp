#include "analysis/zero_level.h"

#include <gtest/gtest.h>

#include "analysis/small_run.h"
#include "analysis/time_derivative.h"
#include "plot/plot_window.h"
#include "shell/done_branches.h"
#include "store/menus.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using test::First;
using Values = std::vector<float>;
using Lines = std::vector<std::string>;

/// A data set whose dc/dt has been calculated.
struct ZeroLevel : ::testing::Test {
    test::TestDesktop desktop;
    const test::SmallRun run = test::MovingBoundary(4, 27);
    const test::LongHand w = test::WorkOut(run);

    ZeroLevel() {
        TieDoneBranches();
        test::Give(run);
        KeldIt_Click();
    }

    static void Done() { PlotitForm().Command1.Click(); }

    Values Less(float level) const {
        Values values;
        for (const float rate : w.raw)
            values.push_back(rate - level);
        return values;
    }

    void ExpectRates(const Values& expected) const {
        EXPECT_EQ(First(Store().AveRate, w.s.size()), expected);
        EXPECT_EQ(First(Store().RateWork, w.s.size()), expected);
        EXPECT_EQ(First(Store().AveRateRaw, w.s.size()), w.raw) << "never changed";
    }
};

TEST_F(ZeroLevel, IsAskedForOnThePlotOfTheAverage) {
    auto& S = Store();
    S.PickDataLimits = S.PickMeniscus = S.PickFringePoint = S.PickJitterPoint = S.PlotLnAxis = true;
    desktop.story.clear();
    const auto before = test::MenuStates();
    SetKeldZero_Click();
    EXPECT_EQ(test::RequestTextsNow(), (Lines{"Use <Ctrl>LMB to Set the Zero Level to be used", "for correcting dc/dt",
                                              "S (Svedbergs)", "<dc/dt>"}));
    EXPECT_EQ(test::FlagsUp(), (Lines{"PickZeroLevel", "PlotDialogOK", "PlotReady", "PlotitLoaded"}));
    EXPECT_EQ(S.Meniscus, 0.0F);
    EXPECT_EQ(S.SavedMeniscus, 6.0F);
    const Values x = test::AsSvedbergs(w.s);
    EXPECT_EQ(static_cast<std::size_t>(S.PlotCount), 2 * x.size());
    EXPECT_EQ(test::Request(), test::Joined(test::LineOf(x, w.raw, -121), test::SymbolsOf(x, w.raw, 1)));
    EXPECT_TRUE(PlotitForm().Command1.IsShown());
    EXPECT_TRUE(PlotitForm().IsShown());
    EXPECT_EQ(desktop.story, (Lines{"hide Plotit", "show Plotit"})) << "the loaded window is hidden meanwhile";
    EXPECT_TRUE(test::MenuChanges(before).empty());
}

TEST_F(ZeroLevel, LoadsThePlotWindowIfItIsNot) {
    PlotitForm().Unload();
    SetKeldZero_Click();
    EXPECT_TRUE(Store().PlotitLoaded);
    EXPECT_TRUE(PlotitForm().IsShown());
}

TEST_F(ZeroLevel, IsThePlaceOfAClickWithCtrl) {
    SetKeldZero_Click();
    PlotWindow& plot = PlotitForm();
    plot.Form_MouseUp(kLeftButton, kCtrl, 10.0F, 50.0F);
    // Half way up the box of 100 page units: the middle of the axis, to the rounding of three singles.
    const float middle = (plot.YAxisMin + plot.YAxisMax) / 2.0F;
    EXPECT_NEAR(Store().Meniscus, middle, 1E-6 * (plot.YAxisMax - plot.YAxisMin));
    const float level = Store().Meniscus;
    Done();
    EXPECT_EQ(Store().ZeroLevel, level);
    EXPECT_NE(level, 0.0F);
    ExpectRates(Less(level));
    EXPECT_EQ(Store().Meniscus, 6.0F);
}

TEST_F(ZeroLevel, IsSubtractedByDone) {
    SetKeldZero_Click();
    Store().Meniscus = 1.25E-4F;
    const auto before = test::MenuStates();
    Done();
    const auto& S = Store();
    EXPECT_TRUE(S.ZeroLevelSet);
    EXPECT_EQ(S.ZeroLevel, 1.25E-4F);
    EXPECT_EQ(S.Meniscus, 6.0F);
    ExpectRates(Less(1.25E-4F));
    EXPECT_EQ(test::MenuChanges(before), test::Only(before, {"BackToOrigKeld", "DoGofS"}, {"SetKeldZero"}));
    EXPECT_EQ(test::RequestTextsNow(), (Lines{" ", "Average <dc/dt> vs S", "S (Svedbergs)", "<dc/dt>"}));
    EXPECT_EQ(test::FlagsUp(), (Lines{"PlotDialogOK", "PlotReady", "PlotitLoaded"}));
    const Values x = test::AsSvedbergs(w.s), y = Less(1.25E-4F);
    EXPECT_EQ(test::Request(), test::Joined(test::LineOf(x, y, -121), test::SymbolsOf(x, y, 1)));
    EXPECT_TRUE(PlotitForm().IsShown());
    EXPECT_FALSE(PlotitForm().Command1.IsShown());
}

TEST_F(ZeroLevel, OfNoClickIsZeroAndOpensTheWay) {
    SetKeldZero_Click();
    Done();
    EXPECT_EQ(Store().ZeroLevel, 0.0F);
    EXPECT_TRUE(Store().ZeroLevelSet);
    ExpectRates(w.raw);
    EXPECT_TRUE(Menus().DoGofS.IsEnabled());
    EXPECT_EQ(Store().Meniscus, 6.0F);
}

TEST_F(ZeroLevel, RestoredGivesTheRawAverageBack) {
    SetKeldZero_Click();
    Store().Meniscus = 0.5F;
    Done();
    auto& M = Menus();
    for (MenuItem* item : {&M.ShowSAve, &M.DoPlotGS, &M.DoPlotGShat, &M.KeldOut, &M.KeldOutCorrected, &M.KeldOutGofS})
        item->Enable();
    const auto before = test::MenuStates();
    const auto plot = test::Request();
    BackToOrigKeld_Click();
    ExpectRates(w.raw);
    EXPECT_EQ(Store().ZeroLevel, 0.0F);
    EXPECT_FALSE(Store().ZeroLevelSet);
    EXPECT_EQ(test::MenuChanges(before), test::Only(before, {"SetKeldZero"},
                                                    {"BackToOrigKeld", "DoGofS", "ShowSAve", "DoPlotGS", "DoPlotGShat",
                                                     "KeldOut", "KeldOutCorrected"}));
    EXPECT_TRUE(M.KeldOutGofS.IsEnabled()) << "the file of the last g(s*) can still be written";
    EXPECT_EQ(test::Request(), plot) << "nothing is plotted anew";
}

TEST_F(ZeroLevel, NeverStacksOnALevel) {
    for (const float level : {1.0E-3F, -2.0E-3F, 0.125F}) {
        SetKeldZero_Click();
        Store().Meniscus = level;
        Done();
        ExpectRates(Less(level));
        EXPECT_FALSE(Menus().SetKeldZero.IsEnabled());
        BackToOrigKeld_Click();
        ExpectRates(w.raw);
        EXPECT_TRUE(Menus().SetKeldZero.IsEnabled());
    }
}

TEST_F(ZeroLevel, BoundsTheCorrectionByThePointsOfTheGrid) {
    const std::int32_t beyond = Store().SPoints + 1;
    Store().AveRate(beyond) = 3.0F;
    Store().RateWork(beyond) = 3.0F;
    SetKeldZero_Click();
    Store().Meniscus = 1.0F;
    Done();
    EXPECT_EQ(Store().AveRate(beyond), 3.0F);
    BackToOrigKeld_Click();
    EXPECT_EQ(Store().RateWork(beyond), 3.0F);
}

}  // namespace
}  // namespace halvern
