#include "wide/wide_distribution.h"

#include <algorithm>

#include "analysis/linear_interpolation.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/common_grid.h"
#include "store/format.h"
#include "store/menu_gates.h"
#include "store/report.h"
#include "store/single.h"
#include "ui/desktop.h"
#include "wide/radii_dialogs.h"

namespace halvern {

namespace {

constexpr float kSmoothingPasses = 3.0F;
constexpr float kFirstRadius = 6.0F, kLastRadius = 7.0F, kRadiusStep = 0.1F;  // cm
constexpr float kGridStep = 0.001F;                                           // cm
constexpr double kBeforeGrid = 5.8;                                           // cm

void Report() {
    const auto& S = Store();
    static constexpr Pattern kCount{"### "};
    AddLine(" ");
    AddLine(" * Calculating Wide Straight Distribution *");
    if (S.UseSmoothing) {
        AddLine(" * Calculated Distribution Will Be Smoothed *");
        AddLine(Concat({" * Current Smoothing Window is ", Format(S.SmoothWindow, kCount), "out of ",
                        Format(S.NumFiles, kCount), "points"}));
    } else {
        AddLine(" * Calculated Distribution Will Not Be Smoothed *");
    }
    ScrollReportAtOnce();
}

/// The radii that all scans reach.
void FindRadialLimits() {
    auto& S = Store();
    const auto last = [&](std::int32_t Scan) { return S.ScanData(S.ScanPoints(Scan), 1, Scan); };
    S.MaxFirstRadius = S.ScanData(1, 1, 1);
    S.MinLastRadius = last(1);
    for (std::int32_t Scan = 2; Scan <= S.NumFiles; ++Scan) {
        S.MaxFirstRadius = std::max(S.MaxFirstRadius, S.ScanData(1, 1, Scan));
        S.MinLastRadius = std::min(S.MinLastRadius, last(Scan));
    }
}

/// The grid ends where the first scan to end does. Result: points of the grid.
std::int16_t InterpolateScans() {
    auto& S = Store();
    static Curve Values;
    std::int16_t N = kMostGridPoints;
    for (std::int32_t Scan = 1; Scan <= S.NumFiles; ++Scan) {
        const std::int16_t PointsIn = S.ScanPoints(Scan);
        for (std::int32_t I = 1; I <= PointsIn; ++I) {
            S.GridRadius(I) = S.ScanData(I, 1, Scan);
            Values(I) = S.ScanData(I, 2, Scan);
        }
        std::int16_t PointsOut = 0;
        InterpolateToGrid(S.GridRadius, Values, PointsIn, PointsOut, kGridStep);
        for (std::int32_t I = 1; I <= PointsOut; ++I)
            S.GridSignal(I, Scan) = Values(I);
        N = std::min(N, PointsOut);
    }
    S.GridPoints = N;
    return N;
}

// Kept: radius number K is held against the meniscus of scan number K.
bool IsUsable(float R, std::int32_t K) {
    const auto& S = Store();
    return R > S.ScanMeniscus(K) && R > S.MaxFirstRadius && R < S.MinLastRadius;
}

void DistributionAt(std::int32_t K, std::int16_t N, ScanCurve& SValues, ScanCurve& GValues) {
    auto& S = Store();
    float Radius = S.WDRadius(K);
    WideAtRadius(S.GridRadius, S.GridSignal, ToInteger16(S.NumFiles), N, Radius, SValues, GValues);
    if (S.UseSmoothing)
        SmoothData(GValues, S.NumFiles, kSmoothingPasses, S.SmoothWindow);
    for (std::int32_t J = 1; J <= S.NumFiles; ++J) {
        S.WDGofS(J, K) = GValues(J);
        S.WDSValue(J, K) = SValues(J);
    }
}

void DistributionAtAllRadii(std::int16_t N) {
    auto& S = Store();
    ScanCurve SValues, GValues;
    SValues.Fill(0.0F);
    GValues.Fill(0.0F);
    for (std::int32_t K = 1; K <= 50; ++K)
        S.WDRadiusValid(K) = false;
    std::int32_t K = 0;
    for (float R = kFirstRadius; R <= kLastRadius; R = Single(static_cast<double>(R) + kRadiusStep)) {
        S.WDRadius(++K) = R;
        if (!IsUsable(R, K))
            continue;
        S.WDRadiusValid(K) = true;
        DistributionAt(K, N, SValues, GValues);
    }
}

}  // namespace

void InterpolateToGrid(Curve& Radii, Curve& Values, std::int16_t PointsIn, std::int16_t& PointsOut, float Step) {
    GridValues grid;
    for (std::int32_t J = 1; J <= kMostGridPoints; ++J)
        grid[static_cast<std::size_t>(J - 1)] = Single(Single(static_cast<double>(J) * Step) + kBeforeGrid);
    const auto slopeAt = [&](std::int32_t P) {
        const float rise = Single(static_cast<double>(Values(P + 1)) - Values(P));
        const float run = Single(static_cast<double>(Radii(P + 1)) - Radii(P));
        return Single(Quotient(static_cast<double>(rise), static_cast<double>(run)));
    };
    InterpolateLinearly(Radii, Values, PointsIn, PointsOut, grid, slopeAt);
}

void DoWideStraight_Click() {
    auto& S = Store();
    Report();
    MousePointer(kPointerHourglass);
    S.PlotReady = false;
    FindRadialLimits();
    DistributionAtAllRadii(S.IsInterference ? TakeGridOfFirstScan() : InterpolateScans());
    MousePointer(kPointerNormal);
    Pass(Gate::kWideDistributionCalculated);
    ShowRadiiDialog(kPlotLogWD);
    FinishLnPlot();
}

}  // namespace halvern
