#include "conditioning/jitter.h"

#include <array>
#include <cstdint>

#include "conditioning/scans_of_pick.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/menu_gates.h"
#include "store/single.h"

namespace halvern {

namespace {

constexpr std::int32_t kHalfWindow = 10;  // points; an offset is the mean of 21

/// The request of the first half of the three scans with their menisci brought to that of scan 1. `signalAt` gives the
/// signal of point I of scan K.
template <class SignalAt>
RequestFiller RequestPick(SignalAt signalAt) {
    auto& S = Store();
    RequestFiller request;
    for (const std::int32_t K : ScansOfPick()) {
        const std::int32_t H = S.ScanPoints(K) / 2;
        const auto pointAt = [&](std::int32_t I) {
            const float x =
                K == 1 ? S.ScanData(I, 1, K)
                       : Single(static_cast<double>(S.ScanData(I, 1, K)) - S.ScanMeniscus(K) + S.ScanMeniscus(1));
            return PlotPoint{x, signalAt(I, K)};
        };
        request.Line(1, H, K, pointAt);
        request.Symbols(1, H, K, pointAt);
    }
    return request;
}

/// First point of a scan at or beyond a radius; 1 if there is none.
std::int16_t FirstPointFrom(float radius, std::int32_t K) {
    const auto& S = Store();
    for (std::int16_t I = 1; I <= S.ScanPoints(K); ++I)
        if (radius <= S.ScanData(I, 1, K))
            return I;
    return 1;
}

/// The window is not cut at the scan's last point: what the store holds beyond it counts.
void TakeOffset(std::int32_t K, float radius) {
    auto& S = Store();
    S.JitterPoint(K) = FirstPointFrom(radius, K);
    const std::int32_t centre = S.JitterPoint(K);
    float Sum = 0.0F;
    for (std::int32_t J = centre - kHalfWindow; J <= centre + kHalfWindow; ++J)
        Sum = Single(static_cast<double>(Sum) + S.ScanData(J, 2, K));
    S.JitterOffset(K) = Single(Sum / 21.0);
}

}  // namespace

void SetJitterLimits_Click() {
    auto& S = Store();
    SetRequestTexts(
        {"Use <Ctrl>LMB to Set the Point to be used to correct", "for Interference Jitter", "Radius (cm)", "Fringes"});
    S.PlotReady = false;
    S.PickDataLimits = false;
    S.PickJitterPoint = true;
    S.PickMeniscus = true;
    PlotitForm().Load();
    S.SavedMeniscus = S.Meniscus;
    S.Meniscus = S.JitterCorrected ? S.JitterRefRadius : S.ScanMeniscus(1);
    ShowRequest(RequestPick([&](std::int32_t I, std::int32_t K) { return S.ScanData(I, 2, K); }));
    PlotitForm().Command1.Show();
    PlotitForm().TestIt.Show();
}

// Kept: the radius follows each scan's meniscus here, and stands as it is in ApplyJitterCorrection. With several menisci
// the preview and the result differ.
void TestIt_Click() {
    auto& S = Store();
    S.JitterRefRadius = S.Meniscus;
    for (const std::int32_t K : ScansOfPick())
        TakeOffset(K, Single(static_cast<double>(S.JitterRefRadius) + S.ScanMeniscus(K) - S.ScanMeniscus(1)));
    const auto corrected = [&](std::int32_t I, std::int32_t K) {
        return Single(static_cast<double>(S.ScanData(I, 2, K)) - S.JitterOffset(K));
    };
    RequestPick(corrected).Finish();
    ShowPlot(false);
}

void ApplyJitterCorrection() {
    auto& S = Store();
    S.JitterCorrected = true;
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        TakeOffset(K, S.JitterRefRadius);
    Pass(Gate::kJitterCorrected);
}

void TakeJitterPoint() {
    auto& S = Store();
    PlotitForm().TestIt.Hide();
    S.JitterRefRadius = S.Meniscus;
    ApplyJitterCorrection();
    S.PickJitterPoint = false;
    Pass(Gate::kJitterPickDone);
    S.PickMeniscus = false;
    S.Meniscus = S.SavedMeniscus;
}

void NoJitterCorrection_Click() {
    auto& S = Store();
    S.JitterCorrected = false;
    S.FringeCorrected = false;
    Pass(Gate::kCorrectionRemoved);
    S.JitterOffset.Zero();
}

}  // namespace halvern
