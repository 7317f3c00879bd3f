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

void BeginPlainRequest() {
    auto& S = Store();
    S.PlotReady = false;
    S.PickDataLimits = false;
    S.PickMeniscus = false;
    S.PickJitterPoint = false;
    PlotitForm().Load();
}

void RequestFiller::Finish() const {
    auto& S = Store();
    S.PlotCount = count_;
    if (S.PlotCount > 1)
        S.PlotReady = true;
}

}  // namespace halvern
