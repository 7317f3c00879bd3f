#include "output/incremental_plot.h"

#include <string>

#include "store/analysis_store.h"
#include "store/format.h"
#include "store/single.h"
#include "store/typed_number.h"

namespace halvern {

namespace {

constexpr TypedLimits kIncrementLimits{0.0, 250.0, "The value for the file increment is invalid or out of range!"};

}  // namespace

IncrementalPlot::IncrementalPlot() : Form("IncrementalPlot", "Choose Plots", {3000, 3000, 4200, 2100}) {
    Add("Label1", Label1, {300, 180, 3600, 300});
    Add("Label2", Label2, {600, 630, 600, 300});
    Add("PlotIncr", PlotIncr, {1200, 570, 750, 375});
    Add("UpDown1", UpDown1, {1950, 570, 255, 375});
    Add("Label3", Label3, {2400, 630, 1500, 300});
    Add("PlotEmUpScottie", PlotEmUpScottie, {600, 1350, 1200, 420});
    Add("Nevermind", Nevermind, {2400, 1350, 1200, 420});
    SetCancelButton(Nevermind);
    PlotIncr.LostFocus = [this] { PlotIncr_LostFocus(); };
    PlotEmUpScottie.Click = [this] { PlotEmUpScottie_Click(); };
    Nevermind.Click = [this] { Nevermind_Click(); };
}

void IncrementalPlot::Form_Load() {
    auto& S = Store();
    S.PlotDialogCancelled = false;
    PlotIncr.SetText(std::to_string(S.PlotEveryNth));
    // Kept: the closing bracket of the design's text goes with the limit that takes its place.
    Label3.SetCaption(Concat({"[ 0 < N < ", Format(S.NumFiles / 2, "###")}));
    UpDown1.SetMaximum(S.NumFiles / 2);
    UpDown1.SetValue(S.PlotEveryNth);
}

void IncrementalPlot::PlotIncr_LostFocus() { TakeTypedNumber(PlotIncr, UpDown1, kIncrementLimits); }

void IncrementalPlot::PlotEmUpScottie_Click() {
    auto& S = Store();
    S.PlotEveryNth = ToInteger16(UpDown1.Value());
    S.PlotDialogOK = true;
    Unload();
}

void IncrementalPlot::Nevermind_Click() {
    auto& S = Store();
    S.PlotDialogOK = false;
    S.PlotDialogCancelled = true;
    Unload();
}

}  // namespace halvern
