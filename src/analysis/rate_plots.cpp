#include "analysis/rate_plots.h"

#include "analysis/time_derivative.h"
#include "plot/plot_request.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"

namespace halvern {

void ShowAverageRate() {
    auto& S = Store();
    const auto pointAt = [&](std::int32_t I) { return PlotPoint{Svedbergs(S.SStar(I)), S.AveRate(I)}; };
    RequestFiller request;
    request.Line(1, S.SPoints, kBlack, pointAt);
    request.Symbols(1, S.SPoints, kBlack, pointAt);
    ShowRequest(request);
}

void PlotAvekeld_Click() {
    SetRequestTexts({" ", "Average <dc/dt> vs S", "S (Svedbergs)", "<dc/dt>"});
    BeginPlainRequest();
    Store().PlotDialogOK = true;
    ShowAverageRate();
}

void PlotRawkeld_Click() {
    SetRequestTexts({" ", "Raw <dc/dt> vs S", "S (Svedbergs)", "<dc/dt>"});
    PlotRawRate();
}

}  // namespace halvern
