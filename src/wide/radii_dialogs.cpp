#include "wide/radii_dialogs.h"

#include <string>

#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/format.h"
#include "store/single.h"
#include "wide/integral.h"

namespace halvern {

namespace {

PlotPoint PointOfG(std::int32_t J, std::int32_t K) { return {Store().WDSValue(J, K), Store().WDGofS(J, K)}; }

PlotPoint PointOfLn(std::int32_t J, std::int32_t K) { return {Single(LnOfS(J, K)), STimesG(J, K)}; }

PlotPoint PointOfIntegral(std::int32_t J, std::int32_t K) {
    return {Store().WDIntegral(J, K, 2), Store().WDIntegral(J, K, 1)};
}

void IntegrateAtPoints() { IntegrateWideDistribution(IntegralAxis::kPoints); }

/// The request of the radii chosen: symbols first, then lines.
class WideRequest {
  public:
    explicit WideRequest(const WidePlot& plot) : plot_(plot) {}

    void Symbols(std::int32_t K) {
        const auto& S = Store();
        for (std::int32_t J = 2; J <= S.NumFiles; ++J)
            Put(J, K, S.ScanSpeedIndex(S.NumFiles - J + 2));
        count_ = ToInteger16(count_ + S.NumFiles - 1.0);
    }

    // Kept: the line to a point takes the speed run of the point before it.
    void Line(std::int32_t K) {
        const auto& S = Store();
        Put(2, K, kPenUp);
        for (std::int32_t J = 3; J <= S.NumFiles; ++J)
            Put(J, K, LineCode(S.ScanSpeedIndex(S.NumFiles - J + 3)));
        count_ = ToInteger16(count_ + S.NumFiles - 1.0);
    }

    std::int32_t Count() const { return count_; }

  private:
    void Put(std::int32_t J, std::int32_t K, std::int16_t code) {
        auto& S = Store();
        const std::int32_t P = count_ + J - 1;
        const PlotPoint point = plot_.pointAt(J, K);
        S.PlotX(P) = point.x;
        S.PlotY(P) = point.y;
        S.PlotSym(P) = code;
    }

    const WidePlot& plot_;
    std::int32_t count_ = 0;
};

/// After a cancelled dialog. Result: whether it was one.
bool TookCancel() {
    auto& S = Store();
    if (!S.PlotDialogCancelled)
        return false;
    S.PlotDialogCancelled = false;
    S.PlotLnAxis = false;
    PlotitForm().Hide();
    return true;
}

}  // namespace

const WidePlot kPlotRadii{"PlotRadii",   PointOfG,         nullptr, "Plotting Wide Distribution at Selected Radii",
                          "g(s*) vs s*", "s* (Svedbergs)", "g(s*)"};
const WidePlot kPlotLogWD{
    "PlotLogWD", PointOfLn,   nullptr, "Plotting Wide Distribution at Selected Radii", "[s* x g(s*)] vs Ln(s*)",
    "Ln(s*)",    "s* x g(s*)"};
const WidePlot kPlotIntegral{"PlotIntegral",
                             PointOfIntegral,
                             IntegrateAtPoints,
                             "Plotting Integral of W.D. at Selected Radii",
                             "Integral of {[s* x g(s*)] vs Ln(s*)}",
                             "Ln(s*)",
                             "Integral{s* x g(s*)}"};

RadiiDialog::RadiiDialog(const WidePlot& plot)
    : Form(plot.form, "Radii To Plot", {3000, 1500, 6600, 6000}), plot_(plot) {
    Add("Label1", Label1, {300, 150, 6000, 600});
    Add("Frame1", Frame1, {1950, 750, 2700, 4350});
    for (std::size_t i = 0; i < UseRadii.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i);
        UseRadii[i].SetCaption("Check1");
        Add("UseRadii(" + std::to_string(i) + ")", UseRadii[i], {2700, 1050 + 360 * row, 1500, 330});
    }
    Add("PlotEmUp", PlotEmUp, {1650, 5340, 1200, 420});
    Add("NeverMind2", NeverMind2, {3750, 5340, 1200, 420});
    SetCancelButton(NeverMind2);
    PlotEmUp.Click = [this] { PlotEmUp_Click(); };
    NeverMind2.Click = [this] { NeverMind2_Click(); };
}

void RadiiDialog::Form_Load() {
    auto& S = Store();
    constexpr std::int32_t kMiddle = 6;
    S.PlotDialogCancelled = false;
    for (std::int32_t K = 1; K <= kWideRadii; ++K) {
        CheckBox& box = UseRadii[static_cast<std::size_t>(K - 1)];
        box.SetCaption(std::string(Format(S.WDRadius(K), "0.0####")));
        box.SetValue(0);
        if (!S.WDRadiusValid(K))
            box.Disable();
    }
    if (S.WDRadiusValid(kMiddle))
        UseRadii[kMiddle - 1].SetValue(1);
}

bool RadiiDialog::IsChosen(std::int32_t K) const {
    return UseRadii[static_cast<std::size_t>(K - 1)].Value() == 1 && Store().WDRadiusValid(K);
}

void RadiiDialog::PlotEmUp_Click() {
    auto& S = Store();
    if (plot_.prepare != nullptr)
        plot_.prepare();
    WideRequest request(plot_);
    for (std::int32_t K = 1; K <= kWideRadii; ++K)
        if (IsChosen(K))
            request.Symbols(K);
    for (std::int32_t K = 1; K <= kWideRadii; ++K)
        if (IsChosen(K))
            request.Line(K);
    SetRequestTexts({plot_.help1, plot_.help2, plot_.xTitle, plot_.yTitle});
    TakeNoPicks();
    S.PlotCount = request.Count();
    S.PlotDialogOK = true;
    Unload();
}

void RadiiDialog::NeverMind2_Click() {
    auto& S = Store();
    S.PlotDialogCancelled = true;
    S.PlotDialogOK = false;
    Unload();
}

void ShowRadiiDialog(const WidePlot& plot) {
    RadiiDialog dialog(plot);
    dialog.Load();
    dialog.ShowModal();
}

void FinishLnPlot() {
    auto& S = Store();
    if (TookCancel())
        return;
    if (S.PlotCount > 1) {
        S.PlotReady = true;
        S.PlotLnAxis = true;
    }
    ShowPlot(false);
}

// Kept: the three commands differ in when they raise which flag.
void PlotSvsG_Click() {
    auto& S = Store();
    ShowRadiiDialog(kPlotRadii);
    if (TookCancel())
        return;
    if (S.PlotCount > 1)
        S.PlotReady = true;
    S.PlotLnAxis = false;
    ShowPlot(false);
}

void PlotLnS_Click() {
    ShowRadiiDialog(kPlotLogWD);
    FinishLnPlot();
}

void PlotIntegralWD_Click() {
    auto& S = Store();
    ShowRadiiDialog(kPlotIntegral);
    if (TookCancel())
        return;
    if (S.PlotCount > 1)
        S.PlotReady = true;
    S.PlotLnAxis = true;
    ShowPlot(false);
}

}  // namespace halvern
