#include "conditioning/jitter.h"

#include "conditioning/interference_run.h"
#include "store/menu_gates.h"
#include "support/failure.h"

namespace halvern {
namespace {

struct Jitter : test::InterferenceRun {
    /// A ramp with an offset for each scan.
    static float Ramp(std::int32_t I, std::int32_t K) {
        return 0.5F * static_cast<float>(I) + 0.125F * static_cast<float>(K);
    }
    void CorrectAt(std::int32_t point) {
        M.SetJitterLimits.Click();
        Pick(RadiusOf(point));
        Done();
    }
};

TEST_F(Jitter, IsPickedOnTheFirstHalvesOfThreeScans) {
    Signals(Ramp);
    S.Meniscus = 6.0F;
    S.ScanMeniscus(2) = 5.925F;
    M.SetJitterLimits.Click();
    EXPECT_EQ(S.PlotHelp1, "Use <Ctrl>LMB to Set the Point to be used to correct");
    EXPECT_EQ(S.PlotHelp2, "for Interference Jitter");
    EXPECT_EQ(S.PlotXTitle, "Radius (cm)");
    EXPECT_EQ(S.PlotYTitle, "Fringes");
    EXPECT_TRUE(S.PickJitterPoint && S.PickMeniscus && S.PlotReady);
    EXPECT_FALSE(S.PickDataLimits || S.PlotLnAxis);
    EXPECT_EQ(S.SavedMeniscus, 6.0F);
    EXPECT_EQ(S.Meniscus, 5.905F);
    EXPECT_TRUE(plot.Command1.IsShown() && plot.TestIt.IsShown() && plot.IsShown());

    // 61 points: half of them is 30. Scan 1, 5 \ 2 = 2, and 5; a pass of lines and a pass of symbols each.
    ASSERT_EQ(S.PlotCount, 2 * 3 * 30);
    const std::int32_t scans[] = {1, 2, 5};
    const int lineCodes[] = {-121, -57 - 128, -57 - 320};
    for (std::int32_t n = 0; n < 3; ++n) {
        const std::int32_t K = scans[n];
        for (std::int32_t I = 1; I <= 30; ++I) {
            const std::int32_t line = 60 * n + I, symbol = line + 30;
            EXPECT_EQ(S.PlotSym(line), I == 1 ? -58 : lineCodes[n]);
            EXPECT_EQ(S.PlotSym(symbol), K);
            const auto moved = static_cast<float>(static_cast<double>(S.ScanData(I, 1, K)) - 5.925F + 5.905F);
            EXPECT_EQ(S.PlotX(line), K == 2 ? moved : S.ScanData(I, 1, K));
            EXPECT_EQ(S.PlotX(symbol), S.PlotX(line));
            EXPECT_EQ(S.PlotY(line), Ramp(I, K));
        }
    }
}

TEST_F(Jitter, IsThePlainMeanOf21Points) {
    Signals([](std::int32_t I, std::int32_t K) { return static_cast<float>(I * I) + static_cast<float>(K); });
    CorrectAt(25);
    for (std::int32_t K = 1; K <= kScans; ++K) {
        EXPECT_EQ(S.JitterPoint(K), 25);
        float sum = 0.0F;
        for (std::int32_t J = 15; J <= 35; ++J)
            sum += S.ScanData(J, 2, K);
        EXPECT_EQ(S.JitterOffset(K), static_cast<float>(sum / 21.0));
    }
    EXPECT_EQ(S.ScanData(25, 2, 1), 626.0F) << "the scans themselves stay";
}

TEST_F(Jitter, IsAppliedByDone) {
    Signals(Ramp);
    CorrectAt(20);
    EXPECT_TRUE(S.JitterCorrected);
    EXPECT_FALSE(S.PickJitterPoint || S.PickMeniscus);
    EXPECT_NEAR(S.JitterRefRadius, RadiusOf(20), 0.0005);
    EXPECT_EQ(S.Meniscus, 5.905F) << "the meniscus is back; the radius lives on as the reference";
    EXPECT_EQ(S.ScanMeniscus(1), 5.905F);
    EXPECT_FALSE(plot.TestIt.IsShown() || plot.Command1.IsShown() || plot.IsShown());
    EXPECT_TRUE(M.NoJitterCorrection.IsShown() && M.PlotCorrected.IsEnabled() && M.CorrectedDataOut.IsEnabled());
    EXPECT_FALSE(M.SetJitterLimits.IsShown());
    for (std::int32_t K = 1; K <= kScans; ++K)
        EXPECT_EQ(S.JitterOffset(K), Ramp(20, K));
}

TEST_F(Jitter, IsPreviewedForThreeScansWhileThePickStaysOpen) {
    Signals(Ramp);
    M.SetJitterLimits.Click();
    Pick(RadiusOf(20));
    plot.TestIt.Click();
    for (std::int32_t K = 1; K <= kScans; ++K)
        EXPECT_EQ(S.JitterOffset(K), K == 3 || K == 4 ? 0.0F : Ramp(20, K));
    EXPECT_EQ(S.PlotCount, 180);
    EXPECT_EQ(S.PlotY(1), Ramp(1, 1) - Ramp(20, 1));
    EXPECT_EQ(S.PlotY(180), Ramp(30, 5) - Ramp(20, 5));
    EXPECT_LE(plot.YAxisMin, Ramp(1, 1) - Ramp(20, 1)) << "the axes are those of the preview";
    EXPECT_TRUE(S.PickJitterPoint && S.PickMeniscus);
    EXPECT_TRUE(plot.TestIt.IsShown() && plot.Command1.IsShown() && plot.IsShown());
    EXPECT_EQ(S.PlotHelp2, "for Interference Jitter");
    EXPECT_FALSE(S.JitterCorrected);

    Pick(RadiusOf(30));
    plot.TestIt.Click();
    EXPECT_EQ(S.JitterOffset(1), Ramp(30, 1));
}

TEST_F(Jitter, FollowsTheMeniscusInThePreviewAlone) {
    Signals(Ramp);
    S.ScanMeniscus(5) = 5.910F;
    M.SetJitterLimits.Click();
    Pick(RadiusOf(20));
    plot.TestIt.Click();
    EXPECT_EQ(S.JitterPoint(1), 20);
    EXPECT_EQ(S.JitterPoint(5), 25);
    EXPECT_EQ(S.JitterOffset(5), Ramp(25, 5));
    Done();
    EXPECT_EQ(S.JitterPoint(5), 20);
    EXPECT_EQ(S.JitterOffset(5), Ramp(20, 5));
}

TEST_F(Jitter, CountsWhatTheStoreHoldsBehindAScan) {
    Signals([](std::int32_t, std::int32_t) { return 2.0F; });
    CorrectAt(61);
    // Ten of the 21 points lie behind the scan's last one, and are 0.
    EXPECT_EQ(S.JitterOffset(1), static_cast<float>(22.0 / 21.0));
}

TEST_F(Jitter, FailsTooCloseToTheStartOfAScan) {
    S.JitterRefRadius = static_cast<float>(RadiusOf(11));
    EXPECT_NO_THROW(ApplyJitterCorrection());
    S.JitterRefRadius = static_cast<float>(RadiusOf(10));
    EXPECT_FAILURE(9, (ApplyJitterCorrection(), 0));
}

TEST_F(Jitter, FailsWhereNoPointReachesTheRadius) {
    S.JitterRefRadius = 7.0F;
    EXPECT_FAILURE(9, (ApplyJitterCorrection(), 0));
    S.Meniscus = 7.0F;
    EXPECT_FAILURE(9, (TestIt_Click(), 0));
}

TEST_F(Jitter, FailsOfASingleScan) {
    S.NumFiles = 1;
    EXPECT_FAILURE(9, (SetJitterLimits_Click(), 0));
}

TEST_F(Jitter, IsRemovedWithAllThatDependsOnIt) {
    Signals(Ramp);
    CorrectAt(20);
    S.FringeCorrected = true;
    Pass(Gate::kIntegralFringesCorrected);
    MenuItem* const closed[] = {&M.BackToOrigKeld, &M.SetKeldZero,   &M.ShowSAve,         &M.DoGofS,
                                &M.PlotAvekeld,    &M.PlotRawkeld,   &M.DoPlotGS,         &M.DoPlotGShat,
                                &M.KeldOut,        &M.PlotCorrected, &M.CorrectedDataOut, &M.KeldOutCorrected};
    for (MenuItem* item : closed)
        item->Enable();
    M.KeldOutGofS.Enable();
    M.DoIntShift.Disable();
    M.NoJitterCorrection.Click();
    EXPECT_FALSE(S.JitterCorrected || S.FringeCorrected);
    for (const MenuItem* item : closed)
        EXPECT_FALSE(item->IsEnabled()) << item->Name();
    EXPECT_TRUE(M.KeldOutGofS.IsEnabled()) << "it is out of reach under its parent";
    EXPECT_TRUE(M.DoIntShift.IsEnabled() && M.SetJitterLimits.IsShown());
    EXPECT_FALSE(M.NoJitterCorrection.IsShown());
    EXPECT_EQ(M.NoJitterCorrection.Caption(), "&Remove Jitter Correction");
    EXPECT_EQ(M.PlotCorrected.Caption(), "&Corrected for Jitter");
    for (std::int32_t K = 1; K <= kMostScans; ++K)
        EXPECT_EQ(S.JitterOffset(K), 0.0F);
}

TEST_F(Jitter, OnceRemovedLeavesGOfSToBeReachedByANewZeroLevel) {
    Signals(Ramp);
    CorrectAt(20);
    const auto comeToTheRange = [&] {
        M.KeldIt.Click();
        EXPECT_FALSE(M.DoGofS.IsEnabled());
        M.SetKeldZero.Click();
        Done();
        EXPECT_TRUE(M.DoGofS.IsEnabled());
    };
    comeToTheRange();
    M.NoJitterCorrection.Click();
    EXPECT_FALSE(M.DoGofS.IsEnabled() || M.SetKeldZero.IsEnabled());
    comeToTheRange();
}

TEST_F(Jitter, StartsASecondVisitAtTheMeniscus) {
    Signals(Ramp);
    CorrectAt(20);
    M.NoJitterCorrection.Click();
    M.SetJitterLimits.Click();
    EXPECT_EQ(S.Meniscus, 5.905F);
    // With a correction standing the item can't be reached, but the marker would start at the reference.
    Pick(RadiusOf(20));
    Done();
    SetJitterLimits_Click();
    EXPECT_NE(S.Meniscus, 5.905F);
    EXPECT_EQ(S.Meniscus, S.JitterRefRadius);
}

TEST_F(Jitter, LeavesThePreviewedOffsetsWithoutDone) {
    Signals(Ramp);
    M.SetJitterLimits.Click();
    Pick(RadiusOf(20));
    plot.TestIt.Click();
    M.PlotDummy1.Enable();
    session.desktop.dialogs.push_back([](Form& form) { form.Unload(); });
    S.PlotDialogOK = true;
    M.PlotRaw.Click();
    EXPECT_FALSE(S.PickJitterPoint);
    for (const std::int32_t K : {1, 2, 5})
        EXPECT_EQ(S.JitterOffset(K), Ramp(20, K));
    EXPECT_FALSE(S.JitterCorrected);
}

TEST_F(Jitter, KeepsTheAxisOfLnSInItsPreview) {
    Signals(Ramp);
    M.SetJitterLimits.Click();
    Pick(RadiusOf(20));
    S.PlotLnAxis = true;  // a plot of the wide distribution has been called meanwhile
    plot.TestIt.Click();
    EXPECT_TRUE(S.PlotLnAxis);
}

}  // namespace
}  // namespace halvern
