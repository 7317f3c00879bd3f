#include "intake/reset_menus.h"

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menu_gates.h"

namespace halvern {

namespace {

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
    Pass(Gate::kDataSetWiped);

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

    S.SmoothWindow = kDefaultSmoothWindow;
}

}  // namespace halvern
