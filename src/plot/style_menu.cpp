#include "plot/legend.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"

namespace halvern {

namespace {

constexpr float kSmallSymbols = 0.5F, kLargeSymbols = 1.0F;

}  // namespace

void PlotWindow::RepaintIfReady() {
    if (Store().PlotReady)
        Form_Paint();
}

void PlotWindow::RepaintWithLegend() {
    RepaintIfReady();
    if (Store().PlotLegendLoaded)
        PlotLegendForm().Form_Paint();
}

/// Lines and symbols can never be left out together: each item locks the other.
void PlotWindow::ToggleOmission(Boolean& omit, MenuItem& item, MenuItem& other) {
    omit = !item.IsTicked();
    if (omit) {
        item.Tick();
        other.Disable();
    } else {
        item.Untick();
        other.Enable();
    }
    RepaintIfReady();
}

void PlotWindow::Nolines_Click() { ToggleOmission(Store().OmitLines, Menu.Nolines, Menu.NoSymbols); }

void PlotWindow::NoSymbols_Click() { ToggleOmission(Store().OmitSymbols, Menu.NoSymbols, Menu.Nolines); }

/// `LargeSymbols` is true while symbols are small: the item then offers the large ones.
void PlotWindow::LargePoints_Click() {
    auto& S = Store();
    S.LargeSymbols = !S.LargeSymbols;
    Menu.LargePoints.SetCaption(S.LargeSymbols ? "Large Symbols" : "Small Symbols");
    SymbolScale_ = S.LargeSymbols ? kSmallSymbols : kLargeSymbols;
    RepaintWithLegend();
}

void PlotWindow::UseFilled_Click() {
    auto& S = Store();
    S.FilledSymbols = !S.FilledSymbols;
    S.FilledSymbols ? Menu.UseFilled.Tick() : Menu.UseFilled.Untick();
    RepaintWithLegend();
}

void PlotWindow::Col_Sym_Click() {
    auto& S = Store();
    S.CycleSymbolsFirst = !S.CycleSymbolsFirst;
    Menu.Col_Sym.SetCaption(S.CycleSymbolsFirst ? "Cycle Symbols 1st" : "Cycle Colors 1st");
    RepaintWithLegend();
}

void PlotWindow::ShowEm_Click() {
    ShowXY_ = !ShowXY_;
    ShowXY_ ? XYCoords.Show() : XYCoords.Hide();
    Menu.ShowEm.SetCaption(ShowXY_ ? "&Hide (X,Y)" : "&Show (X,Y)");
}

/// The legend can be had once at a time.
void PlotWindow::ShowIt_Click() {
    PlotLegendForm().Load();
    PlotLegendForm().Show();
    Menu.ShowIt.Disable();
}

}  // namespace halvern
