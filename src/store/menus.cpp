#include "store/menus.h"

#include <iterator>

namespace halvern {

namespace {

using M = MainMenu;

constexpr MenuRow<MainMenu> kMainMenu[] = {
    {1, &M::FileDummy, "FileDummy", "&File", kOn, kShown},
    {2, &M::GetListNow, "GetListNow", "&Get Files From Listfile", kOn, kShown},
    {2, &M::MakeListNow, "MakeListNow", "&Create Listfile", kOn, kShown},
    {2, &M::spacer0, "spacer0", "-", kOn, kShown},
    {2, &M::AllDone, "AllDone", "&Exit", kOn, kShown},
    {1, &M::DataDummy, "DataDummy", "&dc/dt", kOn, kShown},
    {2, &M::spacer101, "spacer101", "-", kOn, kShown},
    {2, &M::DoReAddNow, "DoReAddNow", "Re&Add Fringes (recommended)", kOff, kShown},
    {2, &M::spacer102, "spacer102", "-", kOn, kShown},
    {2, &M::dummy_men, "dummy_men", "Get &Meniscus Position", kOff, kShown},
    {3, &M::Get_MenFromScan, "Get_MenFromScan", "Graphically (From 1st Scan)", kOn, kShown},
    {3, &M::Set_MenManually, "Set_MenManually", "Enter Meniscus Value", kOn, kShown},
    {3, &M::Set_MultiMenManually, "Set_MultiMenManually", "Enter Meniscus at Each Speed", kOn, kHidden},
    {2, &M::SetJitterLimits, "SetJitterLimits", "&Correct for Interference Jitter", kOff, kShown},
    {2, &M::NoJitterCorrection, "NoJitterCorrection", "&Remove Jitter Correction", kOn, kHidden},
    {2, &M::DoIntShift, "DoIntShift", "Correct for &Integral Fringe Shift", kOff, kShown},
    {2, &M::spacer1, "spacer1", "-", kOn, kShown},
    {2, &M::KeldIt, "KeldIt", "Calculate &dc/dt", kOff, kShown},
    {2, &M::SetKeldZero, "SetKeldZero", "&Set Zero Level for Average dc/dt", kOff, kShown},
    {2, &M::BackToOrigKeld, "BackToOrigKeld", "Restore Original Zero Level", kOff, kShown},
    {2, &M::DoGofS, "DoGofS", "Set Range and calculate g(s*)", kOff, kShown},
    {2, &M::spacer2, "spacer2", "-", kOn, kShown},
    {2, &M::ShowSAve, "ShowSAve", "Display Averages Over Distribution", kOff, kShown},
    {2, &M::spacer03, "spacer03", "-", kOn, kShown},
    {2, &M::UseWSSmoothing, "UseWSSmoothing", "Smooth WS Distribution", kOff, kShown},
    {2, &M::SetCSpan, "SetCSpan", "Set Smoothing Span", kOff, kShown},
    {2, &M::DoWideStraight, "DoWideStraight", "Calculate &Wide Straight Distribution", kOff, kShown},
    {1, &M::PlotDummy0, "PlotDummy0", "&Plots", kOn, kShown},
    {2, &M::PlotDummy1, "PlotDummy1", "Plot &Data", kOff, kShown},
    {3, &M::PlotRaw, "PlotRaw", "&Raw Data", kOn, kShown},
    {3, &M::PlotCorrected, "PlotCorrected", "&Corrected for Jitter", kOff, kShown},
    {3, &M::spacer01, "spacer01", "-", kOn, kShown},
    {3, &M::PlotInterp, "PlotInterp", "&Interpolated Data (absorbance data only)", kOff, kHidden},
    {3, &M::PlotRawkeld, "PlotRawkeld", "Raw &dc/dt data", kOff, kShown},
    {3, &M::PlotAvekeld, "PlotAvekeld", "&Average dc/dt", kOff, kShown},
    {3, &M::spacer02, "spacer02", "-", kOn, kShown},
    {3, &M::DoPlotGShat, "DoPlotGShat", "g^(s*)", kOff, kShown},
    {3, &M::DoPlotGS, "DoPlotGS", "g(s*)", kOff, kShown},
    {3, &M::spacer4, "spacer4", "-", kOn, kShown},
    {3, &M::PlotWideD, "PlotWideD", "Plot Wide Distribution", kOff, kShown},
    {4, &M::PlotSvsG, "PlotSvsG", "s* vs g(s*)", kOn, kShown},
    {4, &M::PlotLnS, "PlotLnS", "Ln(s*) vs [s* x g(s*)]", kOn, kShown},
    {4, &M::PlotIntegralWD, "PlotIntegralWD", "Integral of {[s*xg(s*)] vs Ln(s*)}", kOn, kShown},
    {2, &M::SavePlots, "SavePlots", "&Save Plot Files", kOff, kHidden},
    {1, &M::OutputMenu, "OutputMenu", "&Output", kOff, kShown},
    {2, &M::AllDataOut, "AllDataOut", "&All Data", kOn, kShown},
    {3, &M::RawDataOut, "RawDataOut", "&Raw Data", kOn, kShown},
    {3, &M::CorrectedDataOut, "CorrectedDataOut", "&Corrected Data", kOff, kShown},
    {2, &M::KeldOut, "KeldOut", "&dc/dt", kOff, kShown},
    {3, &M::KeldOutCorrected, "KeldOutCorrected", "<&dc/dt> (zeroed) vs s", kOn, kShown},
    {3, &M::KeldOutGofS, "KeldOutGofS", "&g(s*) and g^(s*) vs s*", kOn, kShown},
    {2, &M::WDOut, "WDOut", "&Wide Distribution", kOff, kShown},
    {3, &M::SaveSvsG, "SaveSvsG", "g(s*) vs s*", kOn, kShown},
    {3, &M::SaveLnSvsSG, "SaveLnSvsSG", "[s* x g(s*)] vs Ln(s*)", kOn, kShown},
    {3, &M::DoIntegralWD, "DoIntegralWD", "Integral of [s*xg(s*)] vn Ln(s*)", kOn, kShown},
    {1, &M::PrintDummy1, "PrintDummy1", "P&rint", kOn, kShown},
    {2, &M::Prn2Array0, "Prn2Array(0)", "-", kOn, kHidden},
    {2, &M::PrintDummy3, "PrintDummy3", "-", kOn, kShown},
    {2, &M::PrintFitting, "PrintFitting", "&All Text", kOn, kShown},
    {2, &M::PrnSelect, "PrnSelect", "&Selected Text", kOn, kShown},
    {2, &M::PrintDummy4, "PrintDummy4", "-", kOn, kShown},
    {2, &M::CopySelect, "CopySelect", "&Copy Selected to Clipboard", kOn, kShown, "Ctrl+C"},
    {1, &M::PrintDummy2, "PrintDummy2", "&Select Printer", kOn, kHidden},
};
static_assert(NamesDiffer(kMainMenu));
static_assert(LevelsStepByOne(kMainMenu));

constexpr std::size_t kItemsInStruct = (sizeof(MainMenu) - sizeof(PrinterItems)) / sizeof(MenuItem);
static_assert(std::size(kMainMenu) == kItemsInStruct, "every item has its row");

struct MainMenuAndBar {
    MainMenu items;
    MenuBar bar;
    MainMenuAndBar() { BuildMenu(bar, items, kMainMenu); }
};

MainMenuAndBar& Both() {
    static MainMenuAndBar both;
    return both;
}

}  // namespace

MainMenu& Menus() { return Both().items; }

MenuBar& MainMenuBar() { return Both().bar; }

}  // namespace halvern
