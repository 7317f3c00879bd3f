#include "output/scan_plots.h"

#include <cstdint>

#include "output/incremental_plot.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "store/single.h"

namespace halvern {

namespace {

/// Asks for every how many-th scan to plot, and begins a plain request.
///
/// Result    false if there is nothing to plot; after a cancel the plot window is hidden
bool BeginScanPlot() {
    auto& S = Store();
    S.PlotReady = false;
    IncrementalPlot dialog;
    dialog.Load();
    dialog.ShowModal();
    if (S.PlotDialogCancelled) {
        S.PlotDialogCancelled = false;
        PlotitForm().Hide();
        return false;
    }
    TakeNoPicks();
    if (!S.PlotDialogOK)
        return false;
    PlotitForm().Load();
    return true;
}

/// Calls `put(I, q)` for each scan plotted, q being its ordinal.
template <class Put>
void ForScansPlotted(Put put) {
    const auto& S = Store();
    for (std::int32_t I = 1; I <= S.NumFiles; I += S.PlotEveryNth)
        put(I, (I - 1) / S.PlotEveryNth + 1);
}

PlotPoint RawPoint(std::int32_t J, std::int32_t I) {
    const auto& S = Store();
    return {S.ScanData(J, 1, I), S.ScanData(J, 2, I)};
}

PlotPoint CorrectedPoint(std::int32_t J, std::int32_t I) {
    const auto& S = Store();
    return {S.ScanData(J, 1, I), Single(static_cast<double>(S.ScanData(J, 2, I)) - S.JitterOffset(I))};
}

void PutMarkers(RequestFiller& request) {
    ForScansPlotted([&](std::int32_t I, std::int32_t q) {
        request.Symbols(1, Store().ScanPoints(I), q, [I](std::int32_t J) { return CorrectedPoint(J, I); });
    });
}

}  // namespace

void PlotRaw_Click() {
    SetRequestTexts({" ", "Raw Data", "Radius (cm)", SignalTitle()});
    if (!BeginScanPlot())
        return;
    RequestFiller request;
    PutMarkers(request);
    ForScansPlotted([&](std::int32_t I, std::int32_t /*q*/) {
        request.Line(1, Store().ScanPoints(I), I, [I](std::int32_t J) { return RawPoint(J, I); });
    });
    ShowRequest(request);
}

void PlotCorrected_Click() {
    auto& S = Store();
    S.PlotHelp1 = " ";
    S.PlotHelp2 = "Data Corrected for IF Jitter";
    // Kept: without the fringe correction the title of the last plot stands.
    if (S.FringeCorrected) {
        S.PlotHelp2 += " and Integer Fringe Shift";
        S.PlotXTitle = "Radius (cm)";
    }
    S.PlotYTitle = SignalTitle();
    if (!BeginScanPlot())
        return;
    RequestFiller request;
    PutMarkers(request);
    ForScansPlotted([&](std::int32_t I, std::int32_t q) {
        request.Line(1, S.ScanPoints(I), q, [I](std::int32_t J) { return CorrectedPoint(J, I); });
    });
    ShowRequest(request);
}

void PlotInterp_Click() {
    auto& S = Store();
    SetRequestTexts({" ", "Interpolated Data (deltaX = 0.001 cm)", "Radius (cm)", SignalTitle()});
    if (!BeginScanPlot())
        return;
    constexpr std::int32_t kNoColour = 0;
    RequestFiller request;
    ForScansPlotted([&](std::int32_t I, std::int32_t /*q*/) {
        request.Line(1, S.GridPoints, kNoColour, [&](std::int32_t J) {
            return PlotPoint{S.GridRadius(J), S.GridSignal(J, I)};
        });
    });
    ShowRequest(request);
}

void SavePlots_Click() {
    auto& S = Store();
    constexpr std::int32_t kTrue = -1, kFalse = 0;
    const bool saved = S.SavePlotFiles != kFalse;
    Menus().SavePlots.SetCaption(saved ? "Discard Plot Files" : "Save Plot Files");
    S.SavePlotFiles = saved ? kFalse : kTrue;
}

}  // namespace halvern
