#include "conditioning/readd_fringes.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "store/analysis_store.h"
#include "store/menu_gates.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr float kAcceptedJump = 0.9F;  // fringes
constexpr std::int16_t kMostTries = 31;
constexpr std::int16_t kMostFringes = 30;

using Curve = BoundedArray<float, Points>;

float Sum(float a, float b) { return Single(static_cast<double>(a) + b); }

/// The value of point I by the three points before it.
float PredictedAt(const Curve& W, std::int32_t I) {
    const double before = W(I - 1), second = W(I - 2), third = W(I - 3);
    return Single(before * 4.0 / 3.0 + second / 3.0 - (third + third) / 3.0);
}

/// Moves point I by whole fringes until it continues the curve.
///
/// Result    Net   fringes added, negative for fringes taken away
///           false if no number of fringes within the limit does it
bool ContinueCurve(Curve& W, std::int32_t I, std::int16_t& Net) {
    std::int16_t Tries = 0;
    Net = 0;
    const float Predicted = PredictedAt(W, I);
    for (;;) {
        if (Tries > kMostTries)
            return false;
        const float D = Single(static_cast<double>(W(I)) - Predicted);
        if (std::fabs(D) <= kAcceptedJump)
            return true;
        const std::int16_t step = D < 0.0F ? 1 : -1;
        ++Tries;
        W(I) = Sum(W(I), step);
        Net = static_cast<std::int16_t>(Net + step);
        if (std::abs(Net) > kMostFringes)
            return true;
    }
}

void ReAddScan(Curve& W, std::int16_t N) {
    std::int16_t Shift = 0;
    for (std::int32_t I = 4; I <= N; ++I) {
        std::int16_t Net = 0;
        W(I) = Sum(W(I), Shift);
        if (!ContinueCurve(W, I, Net))
            return;
        if (std::abs(Net) == kMostFringes)
            Net = 0;
        Shift = ToInteger16(Shift + static_cast<double>(Net));
    }
}

}  // namespace

void ReAddFringes() {
    auto& S = Store();
    static Curve W;
    for (std::int32_t K = 1; K <= S.NumFiles; ++K) {
        const std::int16_t N = S.ScanPoints(K);
        for (std::int32_t I = 1; I <= N; ++I)
            W(I) = Single(S.ScanData(I, 2, K) - std::floor(static_cast<double>(S.ScanData(I, 2, K))));
        ReAddScan(W, N);
        for (std::int32_t I = 1; I <= N; ++I)
            S.ScanData(I, 2, K) = W(I);
    }
}

void DoReAddNow_Click() {
    MousePointer(kPointerHourglass);
    ReAddFringes();
    Pass(Gate::kFringesReAdded);
    MousePointer(kPointerNormal);
}

}  // namespace halvern
