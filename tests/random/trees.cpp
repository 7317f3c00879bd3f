#include "random/trees.h"

namespace halvern::random_user {

namespace {

constexpr bool on = true, off = false, shown = true, hidden = false;

constexpr ItemRow kMainTree[] = {
    {1, "FileDummy", "&File", on, shown},
    {2, "GetListNow", "&Get Files From Listfile", on, shown},
    {2, "MakeListNow", "&Create Listfile", on, shown},
    {2, "spacer0", "-", on, shown},
    {2, "AllDone", "&Exit", on, shown},
    {1, "DataDummy", "&dc/dt", on, shown},
    {2, "spacer101", "-", on, shown},
    {2, "DoReAddNow", "Re&Add Fringes (recommended)", off, shown},
    {2, "spacer102", "-", on, shown},
    {2, "dummy_men", "Get &Meniscus Position", off, shown},
    {3, "Get_MenFromScan", "Graphically (From 1st Scan)", on, shown},
    {3, "Set_MenManually", "Enter Meniscus Value", on, shown},
    {3, "Set_MultiMenManually", "Enter Meniscus at Each Speed", on, hidden},
    {2, "SetJitterLimits", "&Correct for Interference Jitter", off, shown},
    {2, "NoJitterCorrection", "&Remove Jitter Correction", on, hidden},
    {2, "DoIntShift", "Correct for &Integral Fringe Shift", off, shown},
    {2, "spacer1", "-", on, shown},
    {2, "KeldIt", "Calculate &dc/dt", off, shown},
    {2, "SetKeldZero", "&Set Zero Level for Average dc/dt", off, shown},
    {2, "BackToOrigKeld", "Restore Original Zero Level", off, shown},
    {2, "DoGofS", "Set Range and calculate g(s*)", off, shown},
    {2, "spacer2", "-", on, shown},
    {2, "ShowSAve", "Display Averages Over Distribution", off, shown},
    {2, "spacer03", "-", on, shown},
    {2, "UseWSSmoothing", "Smooth WS Distribution", off, shown},
    {2, "SetCSpan", "Set Smoothing Span", off, shown},
    {2, "DoWideStraight", "Calculate &Wide Straight Distribution", off, shown},
    {1, "PlotDummy0", "&Plots", on, shown},
    {2, "PlotDummy1", "Plot &Data", off, shown},
    {3, "PlotRaw", "&Raw Data", on, shown},
    {3, "PlotCorrected", "&Corrected for Jitter", off, shown},
    {3, "spacer01", "-", on, shown},
    {3, "PlotInterp", "&Interpolated Data (absorbance data only)", off, hidden},
    {3, "PlotRawkeld", "Raw &dc/dt data", off, shown},
    {3, "PlotAvekeld", "&Average dc/dt", off, shown},
    {3, "spacer02", "-", on, shown},
    {3, "DoPlotGShat", "g^(s*)", off, shown},
    {3, "DoPlotGS", "g(s*)", off, shown},
    {3, "spacer4", "-", on, shown},
    {3, "PlotWideD", "Plot Wide Distribution", off, shown},
    {4, "PlotSvsG", "s* vs g(s*)", on, shown},
    {4, "PlotLnS", "Ln(s*) vs [s* x g(s*)]", on, shown},
    {4, "PlotIntegralWD", "Integral of {[s*xg(s*)] vs Ln(s*)}", on, shown},
    {2, "SavePlots", "&Save Plot Files", off, hidden},
    {1, "OutputMenu", "&Output", off, shown},
    {2, "AllDataOut", "&All Data", on, shown},
    {3, "RawDataOut", "&Raw Data", on, shown},
    {3, "CorrectedDataOut", "&Corrected Data", off, shown},
    {2, "KeldOut", "&dc/dt", off, shown},
    {3, "KeldOutCorrected", "<&dc/dt> (zeroed) vs s", on, shown},
    {3, "KeldOutGofS", "&g(s*) and g^(s*) vs s*", on, shown},
    {2, "WDOut", "&Wide Distribution", off, shown},
    {3, "SaveSvsG", "g(s*) vs s*", on, shown},
    {3, "SaveLnSvsSG", "[s* x g(s*)] vs Ln(s*)", on, shown},
    {3, "DoIntegralWD", "Integral of [s*xg(s*)] vn Ln(s*)", on, shown},
    {1, "PrintDummy1", "P&rint", on, shown},
    {2, "Prn2Array(0)", "-", on, hidden},
    {2, "Prn2Array(1)", "Replay", on, shown},  // the one printer of a replay
    {2, "PrintDummy3", "-", on, shown},
    {2, "PrintFitting", "&All Text", on, shown},
    {2, "PrnSelect", "&Selected Text", on, shown},
    {2, "PrintDummy4", "-", on, shown},
    {2, "CopySelect", "&Copy Selected to Clipboard", on, shown},
    {1, "PrintDummy2", "&Select Printer", on, hidden},
};

constexpr ItemRow kPlotTree[] = {
    {1, "Zoomout", "&ZoomOut", off, shown},
    {1, "ShowEm", "&Hide (X,Y)", on, shown},
    {1, "dummy1", "&Printer", on, shown},
    {2, "PrnArray(1)", "Replay", on, shown},
    {2, "Dummy0", "-", on, shown},
    {2, "PrnPlot", "Print", on, shown},
    {1, "PlotStyle", "S&tyle", on, shown},
    {2, "Nolines", "Omit Lines", on, shown},
    {2, "NoSymbols", "Omit Symbols", on, shown},
    {2, "LargePoints", "Large Symbols", on, shown},
    {2, "UseFilled", "Filled Symbols", on, shown},
    {2, "Col_Sym", "Cycle Symbols 1st", off, hidden},
    {1, "Copyit", "&Copy", on, shown},
    {2, "ClipPrn", "To Clipboard", on, shown},
    {2, "SaveBMP", "To File (Bitmap)", on, shown},
    {1, "SavePlotNow", "S&avePlot", on, shown},
    {1, "ShowIt", "Show &Legend", on, hidden},
    {1, "SetJitterLimits", "Done", on, hidden},
};

}  // namespace

std::span<const ItemRow> MainTree() { return kMainTree; }

std::span<const ItemRow> PlotTree() { return kPlotTree; }

}  // namespace halvern::random_user
