#include "intake/reset_menus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct Reset : ::testing::Test {
    test::TestDesktop desktop;

    /// Every item enabled, shown and ticked, as no analysis leaves them.
    Reset() {
        for (const auto& entry : MainMenuBar().Entries()) {
            entry.item->Enable();
            entry.item->Show();
            entry.item->Tick();
        }
    }
};

std::string State(const MenuItem& item) {
    return std::string(item.IsEnabled() ? "on " : "off ") + (item.IsShown() ? "shown " : "hidden ") +
           (item.IsTicked() ? "ticked" : "unticked");
}

TEST_F(Reset, TakesTheItemsBack) {
    ResetMenus();
    std::map<std::string, std::string> states;
    for (const auto& entry : MainMenuBar().Entries())
        states[entry.item->Name()] = State(*entry.item);

    const char* const kDisabled[] = {
        "BackToOrigKeld", "SetKeldZero", "DoGofS",           "ShowSAve",       "DoPlotGS",       "DoPlotGShat",
        "dummy_men",      "DoIntShift",  "KeldIt",           "SetCSpan",       "DoWideStraight", "PlotDummy1",
        "PlotCorrected",  "PlotRawkeld", "PlotAvekeld",      "PlotWideD",      "OutputMenu",     "CorrectedDataOut",
        "WDOut",          "KeldOut",     "KeldOutCorrected", "SetJitterLimits"};
    std::map<std::string, std::string> expected;
    for (const auto& [name, state] : states)
        expected[name] = "on shown ticked";
    for (const char* name : kDisabled)
        expected[name] = "off shown ticked";
    expected["DoReAddNow"] = "off shown unticked";
    expected["UseWSSmoothing"] = "off shown unticked";
    expected["Set_MultiMenManually"] = "on hidden ticked";
    expected["NoJitterCorrection"] = "on hidden ticked";
    EXPECT_EQ(states, expected);
}

TEST_F(Reset, ShowsTheMeniscusItemsOfASingleSpeed) {
    Menus().Get_MenFromScan.Disable();
    Menus().Get_MenFromScan.Hide();
    Menus().Set_MenManually.Disable();
    Menus().Set_MenManually.Hide();
    Menus().SetJitterLimits.Hide();
    Menus().NoJitterCorrection.Disable();
    ResetMenus();
    EXPECT_EQ(State(Menus().Get_MenFromScan), "on shown ticked");
    EXPECT_EQ(State(Menus().Set_MenManually), "on shown ticked");
    EXPECT_EQ(State(Menus().SetJitterLimits), "off shown ticked");
    EXPECT_EQ(State(Menus().NoJitterCorrection), "on hidden ticked");
}

TEST_F(Reset, SetsTwoCaptionsBackAndLeavesTwo) {
    auto& M = Menus();
    M.NoJitterCorrection.SetCaption("&Remove Jitter and Integer Fringe Correction");
    M.PlotCorrected.SetCaption("&Corrected for Jitter and Interger Fringe Shift");
    M.GetListNow.SetCaption("Restart With Another Set");
    M.Get_MenFromScan.SetCaption("Graphically (From 1st Scan at each speed)");
    ResetMenus();
    EXPECT_EQ(M.NoJitterCorrection.Caption(), "&Remove Jitter Correction");
    EXPECT_EQ(M.PlotCorrected.Caption(), "&Corrected for Jitter");
    EXPECT_EQ(M.GetListNow.Caption(), "Restart With Another Set");
    EXPECT_EQ(M.Get_MenFromScan.Caption(), "Graphically (From 1st Scan at each speed)");
}

TEST_F(Reset, LeavesDoReAddNowHidden) {
    Menus().DoReAddNow.Hide();
    ResetMenus();
    EXPECT_FALSE(Menus().DoReAddNow.IsShown());
}

TEST_F(Reset, LoadsThePlotWindowToHideItsTestButton) {
    PlotitForm().TestIt.Show();
    ResetMenus();
    EXPECT_TRUE(PlotitForm().IsLoaded());
    EXPECT_FALSE(PlotitForm().TestIt.IsShown());
}

template <class Array>
void Fill(Array& array) {
    std::fill(array.Elements().begin(), array.Elements().end(),
              typename std::remove_reference_t<decltype(array.Elements()[0])>(1));
}

template <class Array>
bool IsAll(const Array& array, double value) {
    return std::all_of(array.Elements().begin(), array.Elements().end(),
                       [&](auto element) { return static_cast<double>(element) == value; });
}

TEST_F(Reset, WipesTheScansAndTheCurves) {
    auto& S = Store();
    Fill(S.ScanData);
    Fill(S.GridSignal);
    Fill(S.RatePairs);
    for (auto* list : {&S.ScanW2t, &S.ScanTime, &S.JitterOffset, &S.ScanMeniscus})
        Fill(*list);
    for (auto* list : {&S.ScanPoints, &S.SpeedFirstScan, &S.JitterPoint, &S.ScanSpeedIndex})
        Fill(*list);
    Fill(S.ScanSpeed);
    for (auto* curve : {&S.GridRadius, &S.AveRate, &S.SStar, &S.RateWork, &S.PlateauRate, &S.GHat, &S.GStar,
                        &S.AveRateRaw, &S.RateSem, &S.GStarSem})
        Fill(*curve);
    ResetMenus();

    EXPECT_TRUE(IsAll(S.ScanData, 0));
    EXPECT_TRUE(IsAll(S.GridSignal, 0));
    EXPECT_TRUE(IsAll(S.RatePairs, 0));
    for (auto* list : {&S.ScanW2t, &S.ScanTime, &S.JitterOffset})
        EXPECT_TRUE(IsAll(*list, 0));
    EXPECT_TRUE(IsAll(S.ScanMeniscus, 6.0));
    for (auto* list : {&S.ScanPoints, &S.SpeedFirstScan, &S.JitterPoint})
        EXPECT_TRUE(IsAll(*list, 0));
    EXPECT_TRUE(IsAll(S.ScanSpeedIndex, 1)) << "it is kept";
    EXPECT_TRUE(IsAll(S.ScanSpeed, 0));
    for (auto* curve : {&S.GridRadius, &S.AveRate, &S.SStar, &S.RateWork, &S.PlateauRate, &S.GHat, &S.GStar,
                        &S.AveRateRaw, &S.RateSem, &S.GStarSem})
        EXPECT_TRUE(IsAll(*curve, 0));
}

TEST_F(Reset, ForgetsTheNamesButTheFirstAndKeepsTheCount) {
    auto& S = Store();
    S.FileNames(0) = "first";
    S.FileNames(1) = "second";
    S.FileNames(500) = "last";
    S.NumFiles = 45;
    S.NumSpeeds = 1;
    S.ScanPoints(1) = 280;
    ResetMenus();
    EXPECT_EQ(S.NumSpeeds, 0);
    EXPECT_EQ(S.ScanPoints(1), 0);
    EXPECT_EQ(S.FileNames(0).Name(), "first");
    EXPECT_EQ(S.FileNames(1).Name(), "");
    EXPECT_EQ(S.FileNames(500).Name(), "");
    EXPECT_EQ(S.NumFiles, 45);
}

TEST_F(Reset, SetsTheFlagsAndTheSingleValues) {
    auto& S = Store();
    S.PlotEveryNth = 3;
    S.FoundFiles = 7;
    S.Meniscus = 5.9F;
    S.ZeroLevel = 0.1F;
    S.SmoothWindow = 9;
    S.ShowXYDefault = false;
    Boolean* const flags[] = {&S.MultipleSpeeds,  &S.IsInterference, &S.JitterCorrected,   &S.PickFringePoint,
                              &S.FringeCorrected, &S.PickZeroLevel,  &S.ZeroLevelSet,      &S.PickSLimits,
                              &S.SLimitsSet,      &S.PlotLnAxis,     &S.SmoothDialogShown, &S.UseSmoothing};
    for (Boolean* flag : flags)
        *flag = true;
    ResetMenus();
    EXPECT_EQ(S.PlotEveryNth, 1);
    EXPECT_EQ(S.FoundFiles, 0);
    EXPECT_EQ(S.Meniscus, 6.0F);
    EXPECT_EQ(S.ZeroLevel, 0.0F);
    EXPECT_EQ(S.SmoothWindow, 3);
    EXPECT_TRUE(S.ShowXYDefault);
    for (const Boolean* flag : flags)
        EXPECT_FALSE(*flag);
}

TEST_F(Reset, KeepsWhatNoStepWipes) {
    auto& S = Store();
    AddLine("a line of the report");
    S.SavedMeniscus = 5.9F;
    S.JitterRefRadius = 6.1F;
    S.FringeRefRadius = 7.0F;
    S.GridPoints = 10;
    S.SPoints = 20;
    S.ScanSkip = 8;
    S.SedTime = 100.0F;
    S.DeltaS = 0.03F;
    S.WDRadius(1) = 6.0F;
    S.WDRadiusValid(1) = true;
    S.WDGofS(1, 1) = 1.0F;
    S.PickDataLimits = true;
    S.DataLimitMin = 1.0F;
    S.PlotCount = 5;
    S.PlotReady = true;
    ResetMenus();
    EXPECT_EQ(test::ReportLines(), std::vector<std::string>{"a line of the report"});
    EXPECT_EQ(S.SavedMeniscus, 5.9F);
    EXPECT_EQ(S.JitterRefRadius, 6.1F);
    EXPECT_EQ(S.FringeRefRadius, 7.0F);
    EXPECT_EQ(S.GridPoints, 10);
    EXPECT_EQ(S.SPoints, 20);
    EXPECT_EQ(S.ScanSkip, 8);
    EXPECT_EQ(S.SedTime, 100.0F);
    EXPECT_EQ(S.DeltaS, 0.03F);
    EXPECT_EQ(S.WDRadius(1), 6.0F);
    EXPECT_TRUE(S.WDRadiusValid(1));
    EXPECT_EQ(S.WDGofS(1, 1), 1.0F);
    EXPECT_TRUE(S.PickDataLimits);
    EXPECT_EQ(S.DataLimitMin, 1.0F);
    EXPECT_EQ(S.PlotCount, 5);
    EXPECT_TRUE(S.PlotReady);
}

}  // namespace
}  // namespace halvern
