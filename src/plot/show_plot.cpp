#include "plot/show_plot.h"

#include "plot/plot_window.h"

namespace halvern {

void ShowPlot(bool Modal) {
    auto& S = Store();
    PlotWindow& plot = PlotitForm();
    FindDataLimits(S.PlotX, S.PlotY, S.PlotCount);
    plot.Menu.Zoomout.Disable();
    plot.Form_Resize();
    if (Modal) {
        plot.Hide();
        plot.ShowModal();
    } else {
        plot.Show();
    }
}

void ShowRequest(const RequestFiller& request) {
    request.Finish();
    Store().PlotLnAxis = false;
    ShowPlot(false);
}

namespace {

void Widen(float value, float& least, float& most) {
    if (value > most)
        most = value;
    if (value < least)
        least = value;
}

}  // namespace

void FindDataLimits(const PlotCurve& X, const PlotCurve& Y, std::int32_t Count) {
    auto& S = Store();
    S.PlotXMin = S.PlotXMax = X(1);
    S.PlotYMin = S.PlotYMax = Y(1);
    for (std::int32_t i = 1; i <= Count; ++i) {
        Widen(X(i), S.PlotXMin, S.PlotXMax);
        Widen(Y(i), S.PlotYMin, S.PlotYMax);
    }
}

}  // namespace halvern
