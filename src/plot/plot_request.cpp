#include "plot/plot_request.h"

#include "plot/plot_window.h"

namespace halvern {

void SetRequestTexts(const RequestTexts& texts) {
    auto& S = Store();
    S.PlotHelp1 = texts.help1;
    S.PlotHelp2 = texts.help2;
    S.PlotXTitle = texts.xTitle;
    S.PlotYTitle = texts.yTitle;
}

void TakeNoPicks() {
    auto& S = Store();
    S.PickDataLimits = false;
    S.PickMeniscus = false;
    S.PickJitterPoint = false;
}

void BeginPlainRequest() {
    Store().PlotReady = false;
    TakeNoPicks();
    PlotitForm().Load();
}

const char* SignalTitle() { return Store().IsInterference ? "Fringes" : "Conc"; }

void RequestFiller::Finish() const {
    auto& S = Store();
    S.PlotCount = count_;
    if (S.PlotCount > 1)
        S.PlotReady = true;
}

}  // namespace halvern
