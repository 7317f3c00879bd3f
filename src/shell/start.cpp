#include "shell/start.h"

#include <string>

#include "shell/main_window.h"
#include "shell/splash.h"
#include "shell/version.h"
#include "store/analysis_store.h"
#include "store/files.h"
#include "store/report.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr int kSplashMilliseconds = 1750;

void SetDefaults() {
    auto& S = Store();
    S.ShowXYDefault = true;
    for (Boolean* flag : {&S.PlotitLoaded, &S.PlotLegendLoaded, &S.IsInterference, &S.PickFringePoint,
                          &S.FringeCorrected, &S.JitterCorrected, &S.PickZeroLevel, &S.ZeroLevelSet, &S.PickSLimits,
                          &S.SLimitsSet, &S.PlotLnAxis, &S.SmoothDialogShown})
        *flag = false;
    S.FoundFiles = 0;
    S.Meniscus = kDefaultMeniscus;
    S.ZeroLevel = 0.0F;
    S.NumSpeeds = 0;
    for (std::int32_t I = 1; I <= kMostScans; ++I)
        S.ScanMeniscus(I) = kDefaultMeniscus;
    S.PlotEveryNth = 1;
    S.ProgramName = "Halvern V0.99";
}

void RefuseSecondInstance() {
    if (!TheDesktop().AnotherInstanceRuns())
        return;
    MsgBox("Cannot Run Multiple Copies of Program!", kExclamation, "Previous Instance");
    EndProgram();
}

/// The system may hand the name over with the zero byte that closes it, or two.
std::string GetDefaultPrinter() {
    std::string name = TheDesktop().SystemDefaultPrinter();
    for (int i = 0; i < 2; ++i)
        if (name.ends_with('\0'))
            name.pop_back();
    return name;
}

void PassThroughEvents(int times) {
    for (int i = 0; i < times; ++i)
        DoEvents();
}

void ShowSplash() {
    Splash splash;
    splash.Show();
    PassThroughEvents(100);
    TheDesktop().Sleep(kSplashMilliseconds);
    splash.Unload();
    PassThroughEvents(10);
}

}  // namespace

void Main() {
    auto& S = Store();
    SetDefaults();
    RefuseSecondInstance();
    S.RevisionText = RevisionNumbers();
    S.PickDataLimits = true;
    S.SavePlotFiles = -1;
    ShowSplash();
    // Not before the splash: a print system that is slow to answer has its time to do so.
    if (!TheDesktop().PrinterNames().empty())
        S.DefaultPrinterName = GetDefaultPrinter();
    MainForm().Load();
    S.ProgramDir = CurrentFolder();
    AddLine(Concat({" ", S.ProgramName}));
    AddLine(Concat({" Current Revision V", S.RevisionText}));
    MainForm().Show();
}

}  // namespace halvern
