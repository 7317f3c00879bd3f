#include "intake/reset_menus.h"

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"

namespace halvern {

namespace {

void TakeItemsBack() {
    auto& M = Menus();
    for (MenuItem* item :
         {&M.BackToOrigKeld, &M.SetKeldZero, &M.DoGofS, &M.ShowSAve, &M.DoPlotGS, &M.DoPlotGShat, &M.DoReAddNow})
        item->Disable();
    M.DoReAddNow.Untick();
    M.dummy_men.Disable();

    M.Get_MenFromScan.Enable();
    M.Get_MenFromScan.Show();
    M.Set_MenManually.Show();
    M.Set_MenManually.Enable();
    M.Set_MultiMenManually.Hide();

    M.NoJitterCorrection.Hide();
    M.SetJitterLimits.Show();
    M.SetJitterLimits.Disable();
    M.NoJitterCorrection.Enable();

    for (MenuItem* item : {&M.DoIntShift, &M.KeldIt, &M.UseWSSmoothing, &M.SetCSpan, &M.DoWideStraight, &M.PlotDummy1,
                           &M.PlotCorrected, &M.PlotRawkeld, &M.PlotAvekeld, &M.PlotWideD, &M.OutputMenu,
                           &M.CorrectedDataOut, &M.WDOut, &M.KeldOut, &M.KeldOutCorrected})
        item->Disable();

    NameCorrections(Corrections::kJitter);
}

void WipeScans() {
    auto& S = Store();
    for (std::int32_t I = 1; I <= kMostScans; ++I) {
        S.ScanMeniscus(I) = S.Meniscus;
        S.FileNames(I) = " ";
    }
    S.ScanSpeed.Zero();
    S.SpeedFirstScan.Zero();
    S.ScanW2t.Zero();
    S.ScanPoints.Zero();
    S.JitterPoint.Zero();
    S.ScanTime.Zero();
    S.JitterOffset.Zero();
}

void WipeCurves() {
    auto& S = Store();
    S.GridRadius.Zero();
    S.AveRate.Zero();
    S.SStar.Zero();
    S.RateWork.Zero();
    S.PlateauRate.Zero();
    S.GHat.Zero();
    S.GStar.Zero();
    S.AveRateRaw.Zero();
    S.RateSem.Zero();
    S.GStarSem.Zero();

    S.RatePairs.Zero();
    S.ScanData.Zero();
    S.GridSignal.Zero();
}

void ClearFlags() {
    auto& S = Store();
    S.MultipleSpeeds = false;
    S.ShowXYDefault = true;
    S.IsInterference = false;
    for (Boolean* flag : {&S.JitterCorrected, &S.PickFringePoint, &S.FringeCorrected, &S.PickZeroLevel, &S.ZeroLevelSet,
                          &S.PickSLimits, &S.SLimitsSet, &S.PlotLnAxis, &S.SmoothDialogShown, &S.UseSmoothing})
        *flag = false;
}

}  // namespace

void ResetMenus() {
    auto& S = Store();
    TakeItemsBack();

    PlotitForm().Load();
    PlotitForm().TestIt.Hide();

    S.PlotEveryNth = 1;
    S.FoundFiles = 0;
    S.Meniscus = kDefaultMeniscus;
    S.ZeroLevel = 0.0F;
    S.NumSpeeds = 0;

    WipeScans();
    WipeCurves();
    ClearFlags();

    Menus().UseWSSmoothing.Untick();
    S.SmoothWindow = kDefaultSmoothWindow;
}

}  // namespace halvern
