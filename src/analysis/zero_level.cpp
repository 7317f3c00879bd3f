#include "analysis/zero_level.h"

#include "analysis/rate_plots.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menu_gates.h"
#include "store/single.h"

namespace halvern {

void SetKeldZero_Click() {
    auto& S = Store();
    SetRequestTexts(
        {"Use <Ctrl>LMB to Set the Zero Level to be used", "for correcting dc/dt", "S (Svedbergs)", "<dc/dt>"});
    S.PlotReady = false;
    for (Boolean* flag : {&S.PickDataLimits, &S.PickMeniscus, &S.PickFringePoint, &S.PickJitterPoint})
        *flag = false;
    S.PickZeroLevel = true;
    S.SavedMeniscus = S.Meniscus;
    S.Meniscus = 0.0F;
    PlotitForm().Load();
    PlotitForm().Hide();
    PlotitForm().Command1.Show();
    ShowAverageRate();
}

void TakeZeroLevel() {
    auto& S = Store();
    S.ZeroLevelSet = true;
    S.ZeroLevel = S.Meniscus;
    S.Meniscus = S.SavedMeniscus;
    for (std::int32_t I = 1; I <= S.SPoints; ++I) {
        S.RateWork(I) = Single(static_cast<double>(S.RateWork(I)) - S.ZeroLevel);
        S.AveRate(I) = Single(static_cast<double>(S.AveRate(I)) - S.ZeroLevel);
    }
    S.PickZeroLevel = false;
    Pass(Gate::kZeroLevelSet);
    PlotAvekeld_Click();
}

void BackToOrigKeld_Click() {
    auto& S = Store();
    for (std::int32_t I = 1; I <= S.SPoints; ++I) {
        S.AveRate(I) = S.AveRateRaw(I);
        S.RateWork(I) = S.AveRate(I);
    }
    S.ZeroLevel = 0.0F;
    Pass(Gate::kZeroLevelRestored);
    S.ZeroLevelSet = false;
}

}  // namespace halvern
