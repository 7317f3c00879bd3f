#pragma once

#include "ui/menu.h"

namespace halvern {

/// The items of the main window's menu, by the design's names.
struct MainMenu {
    MenuItem FileDummy, GetListNow, MakeListNow, spacer0, AllDone;

    MenuItem DataDummy, spacer101, DoReAddNow, spacer102, dummy_men, Get_MenFromScan, Set_MenManually,
        Set_MultiMenManually, SetJitterLimits, NoJitterCorrection, DoIntShift, spacer1, KeldIt, SetKeldZero,
        BackToOrigKeld, DoGofS, spacer2, ShowSAve, spacer03, UseWSSmoothing, SetCSpan, DoWideStraight;

    MenuItem PlotDummy0, PlotDummy1, PlotRaw, PlotCorrected, spacer01, PlotInterp, PlotRawkeld, PlotAvekeld, spacer02,
        DoPlotGShat, DoPlotGS, spacer4, PlotWideD, PlotSvsG, PlotLnS, PlotIntegralWD, SavePlots;

    MenuItem OutputMenu, AllDataOut, RawDataOut, CorrectedDataOut, KeldOut, KeldOutCorrected, KeldOutGofS, WDOut,
        SaveSvsG, SaveLnSvsSG, DoIntegralWD;

    MenuItem PrintDummy1, Prn2Array0, PrintDummy3, PrintFitting, PrnSelect, PrintDummy4, CopySelect, PrintDummy2;

    PrinterItems Prn2Array;  ///< elements 1 and up; element 0 is the separator Prn2Array0
};

/// The main window's items as they stand. Their states are the order of the analysis: no variable records a stage, and what
/// changes them is the table of menu_gates.cpp.
MainMenu& Menus();

/// The same items as the bar that the main window shows.
MenuBar& MainMenuBar();

}  // namespace halvern
