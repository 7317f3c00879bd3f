#include "conditioning/fringe_shift.h"

#include <cmath>
#include <cstdint>

#include "conditioning/scans_of_pick.h"
#include "output/scan_plots.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/common_grid.h"
#include "store/menu_gates.h"
#include "store/single.h"

namespace halvern {

namespace {

constexpr std::int32_t kHalfWindow = 2;  // points; five are averaged
constexpr float kHalfFringe = 0.5F;
// Singles count single fringes up to 2^24, and so a mean can move by 2^25; the sum's rounding adds to it.
constexpr float kFarthestMove = 0x1p26F;  // fringes
constexpr float kSumRounding = 0x1p-18F;  // per fringe of the mean

void ShowPick() {
    auto& S = Store();
    RequestFiller request;
    for (const std::int32_t K : ScansOfPick()) {
        const auto pointAt = [&](std::int32_t I) { return PlotPoint{S.GridRadius(I), S.GridSignal(I, K)}; };
        request.Line(1, S.GridPoints, K, pointAt);
        request.Symbols(1, S.GridPoints, K, pointAt);
    }
    PlotitForm().Command1.Show();
    ShowRequest(request);
}

/// The point below the first one at or beyond the reference radius; 0 if there is none.
std::int32_t ReferencePoint() {
    const auto& S = Store();
    for (std::int32_t I = 1; I <= S.ScanPoints(1); ++I)
        if (S.GridRadius(I) >= S.FringeRefRadius)
            return I - 1;
    return 0;
}

/// Whether a mean can come to another one by whole fringes. A signal beyond that is no signal; to count towards it would
/// take minutes, and come to nothing.
bool CanBeReached(float Cur, float Diff) { return std::fabs(Diff) <= kFarthestMove + std::fabs(Cur) * kSumRounding; }

float MeanAround(std::int32_t Idx, std::int32_t K) {
    const auto& S = Store();
    float Sum = 0.0F;
    for (std::int32_t J = Idx - kHalfWindow; J <= Idx + kHalfWindow; ++J)
        Sum = Single(static_cast<double>(Sum) + S.GridSignal(J, K));
    return Single(Sum / 5.0);
}

/// Result    false if no point has moved: beyond the 24 bits of a single a fringe is lost in the rounding
bool MoveScan(std::int32_t K, double fringes) {
    auto& S = Store();
    bool moved = false;
    for (std::int32_t I = 1; I <= S.ScanPoints(1); ++I) {
        const float before = S.GridSignal(I, K);
        S.GridSignal(I, K) = Single(before + fringes);
        moved = moved || S.GridSignal(I, K) != before;
    }
    if (moved)
        S.JitterOffset(K) = Single(S.JitterOffset(K) - fringes);
    return moved;
}

}  // namespace

void DoIntShift_Click() {
    auto& S = Store();
    SetRequestTexts({"Use <Ctrl>LMB to Set the Point to be used to correct for", "Integer Fringe Shifts", "Radius (cm)",
                     "Fringes"});
    S.PickMeniscus = true;
    S.PickFringePoint = true;
    S.PlotReady = false;
    S.PickDataLimits = false;
    S.PickJitterPoint = false;
    S.SavedMeniscus = S.Meniscus;
    S.GridPoints = TakeGridOfFirstScan();
    PlotitForm().Load();
    PlotitForm().Hide();
    ShowPick();
}

void TakeFringePoint() {
    auto& S = Store();
    S.PickFringePoint = false;
    S.PickMeniscus = false;
    S.FringeRefRadius = S.Meniscus;
    S.Meniscus = S.SavedMeniscus;
    CorrectIntegerFringes();
}

void CorrectIntegerFringes() {
    auto& S = Store();
    const std::int32_t Idx = ReferencePoint();
    float Ref = MeanAround(Idx, S.NumFiles);
    for (std::int32_t K = S.NumFiles - 1; K >= 1; --K) {
        float Cur = MeanAround(Idx, K);
        for (;;) {
            const float Diff = Single(static_cast<double>(Cur) - Ref);
            if (std::fabs(Diff) <= kHalfFringe || !CanBeReached(Cur, Diff))
                break;
            if (!MoveScan(K, Diff > 0.0F ? -1.0 : 1.0))
                break;
            Cur = MeanAround(Idx, K);
        }
        Ref = Cur;
    }
    S.FringeCorrected = true;
    Pass(Gate::kIntegralFringesCorrected);
    PlotCorrected_Click();
}

}  // namespace halvern
