#include "random/gates.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

namespace halvern::random_user {

namespace {

constexpr Gate kGates[] = {
    // event, enables, disables, shows, hides, ticks, unticks
    {"reset", "Get_MenFromScan Set_MenManually NoJitterCorrection",
     "BackToOrigKeld SetKeldZero DoGofS ShowSAve DoPlotGS DoPlotGShat DoReAddNow dummy_men SetJitterLimits DoIntShift "
     "KeldIt UseWSSmoothing SetCSpan DoWideStraight PlotDummy1 PlotCorrected PlotRawkeld PlotAvekeld PlotWideD "
     "OutputMenu CorrectedDataOut WDOut KeldOut KeldOutCorrected",
     "Get_MenFromScan Set_MenManually SetJitterLimits", "Set_MultiMenManually NoJitterCorrection", "",
     "DoReAddNow UseWSSmoothing"},
    {"scans read", "dummy_men PlotDummy1", "", "", "", "", ""},
    {"interference scans read", "DoReAddNow", "", "", "", "", ""},
    {"other scans read", "", "", "", "DoReAddNow", "", ""},
    {"several speeds", "", "", "Set_MultiMenManually", "Set_MenManually", "", ""},
    {"load over", "OutputMenu", "", "", "", "", ""},
    {"meniscus pick, one speed", "KeldIt DoWideStraight UseWSSmoothing", "", "", "", "", ""},
    {"meniscus pick, several speeds", "DoWideStraight UseWSSmoothing", "KeldIt", "", "", "", ""},
    {"interference meniscus", "SetJitterLimits DoIntShift", "", "", "", "", ""},
    {"one meniscus typed", "KeldIt DoWideStraight UseWSSmoothing", "", "", "", "", ""},
    {"menisci typed", "DoWideStraight UseWSSmoothing", "KeldIt", "", "", "", ""},
    {"fringes re-added", "", "", "", "", "DoReAddNow", ""},
    {"jitter corrected", "PlotCorrected", "", "NoJitterCorrection", "SetJitterLimits", "", ""},
    {"jitter pick over", "CorrectedDataOut", "", "", "", "", ""},
    {"integer fringes corrected", "", "", "", "", "", ""},
    {"correction removed", "DoIntShift",
     "PlotCorrected BackToOrigKeld SetKeldZero ShowSAve DoGofS PlotAvekeld PlotRawkeld DoPlotGS DoPlotGShat "
     "CorrectedDataOut KeldOut KeldOutCorrected",
     "SetJitterLimits", "NoJitterCorrection", "", ""},
    {"dc/dt calculated", "PlotAvekeld PlotRawkeld SetKeldZero", "", "", "", "", ""},
    {"zero level pick over", "BackToOrigKeld DoGofS", "SetKeldZero", "", "", "", ""},
    {"zero level restored", "SetKeldZero",
     "BackToOrigKeld DoGofS ShowSAve DoPlotGS DoPlotGShat KeldOut KeldOutCorrected", "", "", "", ""},
    {"s* limits pick over", "DoPlotGS DoPlotGShat ShowSAve KeldOut KeldOutCorrected KeldOutGofS", "", "", "", "", ""},
    {"wide distribution calculated", "PlotWideD WDOut", "", "", "", "", ""},
    {"smoothing switched on", "SetCSpan", "PlotWideD WDOut", "", "", "UseWSSmoothing", ""},
    {"smoothing switched off", "", "SetCSpan PlotWideD WDOut", "", "", "", "UseWSSmoothing"},
    {"too few scans for smoothing", "", "UseWSSmoothing SetCSpan", "", "", "", ""},
    {"smoothing refused", "", "UseWSSmoothing", "", "", "", "UseWSSmoothing"},
    {"smoothing window changed", "", "PlotWideD WDOut", "", "", "", ""},
};

}  // namespace

std::span<const Gate> Gates() { return kGates; }

const Gate& GateOf(std::string_view event) {
    const auto row =
        std::find_if(std::begin(kGates), std::end(kGates), [&](const Gate& gate) { return gate.event == event; });
    if (row == std::end(kGates))
        throw std::logic_error("no row of the gates for: " + std::string(event));
    return *row;
}

}  // namespace halvern::random_user
