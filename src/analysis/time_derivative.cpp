#include "analysis/time_derivative.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "analysis/interpolation.h"
#include "plot/plot_request.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/common_grid.h"
#include "store/format.h"
#include "store/menu_gates.h"
#include "store/numeric.h"
#include "store/report.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr float kRadialStep = 0.001F;
constexpr double kBaseRadius = 7.2;
constexpr float kLastRadius = 7.2F;
constexpr float kSpacingSteps[] = {1.0F, 1.5F, 2.0F, 3.0F, 4.0F, 5.0F};

constexpr Pattern kDeltaSPattern{"#0.0###"};
constexpr Pattern kMassPattern{"######"};

/// Grid and count stand as the last scan leaves them, for all scans.
void InterpolateScans() {
    auto& S = Store();
    Curve work;
    for (std::int32_t K = 1; K <= S.NumFiles; ++K) {
        for (std::int32_t I = 1; I <= S.ScanPoints(K); ++I) {
            S.GridRadius(I) = Single(static_cast<double>(S.ScanData(I, 1, K)) - S.Meniscus);
            work(I) = S.ScanData(I, 2, K);
        }
        InterpolateToRadialGrid(S.GridRadius, work, S.ScanPoints(K), S.GridPoints, kRadialStep);
        for (std::int32_t I = 1; I <= S.GridPoints; ++I) {
            S.GridSignal(I, K) = work(I);
            S.GridRadius(I) = Single(static_cast<double>(S.Meniscus) + S.GridRadius(I));
        }
    }
}

// Kept: with no such point the one of an earlier dc/dt stays.
void FindFirstGridPoint() {
    auto& S = Store();
    for (std::int16_t I = 1; I <= S.GridPoints; ++I)
        if (S.GridRadius(I) >= S.Meniscus) {
            S.FirstGridPoint = I;
            return;
        }
}

void ChooseDeltaS() {
    auto& S = Store();
    S.DeltaS = 500000.0F;
    const double ratio = Quotient(kBaseRadius, static_cast<double>(S.GridRadius(S.FirstGridPoint)));
    const double SMax = Quotient(Ln(ratio), static_cast<double>(S.ScanW2t(1)));
    for (int E = -4; E <= 5; ++E) {
        const double Base = Single(std::pow(10.0, E));
        for (const float step : kSpacingSteps)
            if (SMax <= (Base * step * 2000.0) * std::pow(10.0, -13)) {
                S.DeltaS = Single(Base * step);
                return;
            }
    }
}

void ReportDeltaS() {
    AddLine(" ");
    AddLine(" * Calculating dc/dt *");
    AddLine(" ");
    AddLine(Concat({" DeltaS has been set to ", Format(Store().DeltaS, kDeltaSPattern)}));
    ScrollReportAtOnce();
}

/// Ln(radius / meniscus) of the grid points, up to and including the one that crosses 7.2 cm. They belong to the radius,
/// not to the pair of scans.
std::vector<double> LogarithmsOfRadius() {
    const auto& S = Store();
    std::vector<double> logarithms;
    for (std::int32_t I = 1; I <= S.GridPoints; ++I) {
        logarithms.push_back(Ln(Quotient(static_cast<double>(S.GridRadius(I)), static_cast<double>(S.Meniscus))));
        if (S.GridRadius(I) > kLastRadius)
            break;
    }
    return logarithms;
}

// The loops below are plain so that the compiler does several points at once.

/// Signal per second of scan P less scan K.
void RatesOf(std::span<const float> earlier, std::span<const float> later, float DT, std::span<float> rates) {
    for (std::size_t i = 0; i < rates.size(); ++i)
        rates[i] = (earlier[i] - later[i]) / DT;
    FailUnlessFinite(rates);
}

void SStarOf(std::span<const double> logarithms, double SedTime, double Omega2, std::span<float> SStar) {
    for (std::size_t i = 0; i < SStar.size(); ++i)
        SStar[i] = static_cast<float>(logarithms[i] / SedTime / Omega2);
    FailUnlessFinite(SStar);
}

/// dc/dt of one pair over s*, in RateWork and SStar, at the points that have logarithms.
///
/// Given     logarithms   see LogarithmsOfRadius; taken here for the first pair
void DifferencePair(std::int32_t P, std::int32_t K, float Omega2, std::vector<double>& logarithms) {
    auto& S = Store();
    const float DT = Single(static_cast<double>(S.ScanTime(K)) - S.ScanTime(P));
    if (DT == 0.0F)
        Fail(FailureCode::kDivisionByZero);
    if (logarithms.empty())
        logarithms = LogarithmsOfRadius();
    if (Omega2 == 0.0F)
        Fail(FailureCode::kDivisionByZero);
    const std::size_t count = logarithms.size();
    const auto signalsOf = [&](std::int32_t scan) { return std::span<const float>(&S.GridSignal(1, scan), count); };
    RatesOf(signalsOf(P), signalsOf(K), DT, S.RateWork.Elements().first(count));
    SStarOf(logarithms, S.SedTime, Omega2, S.SStar.Elements().first(count));
}

void DifferencePairs() {
    auto& S = Store();
    S.ScanSkip = static_cast<std::int16_t>(S.NumFiles / 2);
    // Kept: rpm to rad/s is 0.104719755 here and 0.1047196 in the scan times and in g(s*).
    const double omega = static_cast<double>(S.ScanSpeed(1)) * 0.104719755;
    const float Omega2 = Single(omega * omega);
    const GridValues grid = SGrid(S.DeltaS);
    std::vector<double> logarithms;
    for (std::int32_t K = S.ScanSkip + 1; K <= 2 * S.ScanSkip; ++K) {
        const auto P = static_cast<std::int16_t>(K - S.ScanSkip);
        const double later = S.ScanTime(K);
        const double earlier = S.ScanTime(P);
        static_cast<void>(Ln(Quotient(later, earlier)));  // times that are no times end it here
        S.SedTime = Single(Quotient(2.0, Quotient(1.0, later) + Quotient(1.0, earlier)));
        DifferencePair(P, K, Omega2, logarithms);
        const auto Count = static_cast<std::int16_t>(logarithms.size());
        InterpolateTo(grid, S.SStar, S.RateWork, Count, S.SGridPoints);
        S.SPoints = S.SGridPoints;
        std::copy_n(S.RateWork.Elements().begin(), S.SGridPoints, &S.RatePairs(1, P));
    }
}

/// The sums go over the pairs in their order, for all points side by side.
void AveragePairs() {
    auto& S = Store();
    const auto count = static_cast<std::size_t>(S.SPoints);
    const auto mean = S.AveRateRaw.Elements().first(count);
    std::fill(mean.begin(), mean.end(), 0.0F);
    for (std::int32_t P = 1; P <= S.ScanSkip; ++P) {
        const std::span<const float> pair(&S.RatePairs(1, P), count);
        for (std::size_t i = 0; i < count; ++i)
            mean[i] += pair[i];
    }
    for (float& value : mean)
        value = Single(Quotient(static_cast<double>(value), static_cast<double>(S.ScanSkip)));
    std::copy(mean.begin(), mean.end(), S.AveRate.Elements().begin());
    std::copy(mean.begin(), mean.end(), S.RateWork.Elements().begin());
}

/// The mass, kDa, whose diffusion would broaden a peak about as much as the time between first and last scan does.
float LargestMass() {
    const auto& S = Store();
    const double T1 = S.ScanTime(1);
    const double T2 = S.ScanTime(2 * S.ScanSkip);
    const float root = Single(Quotient((T2 + T1) * 40000.0, (T2 - T1) * S.ScanSpeed(1)));
    return Single(static_cast<double>(root) * root);
}

void ReportLargestMass(float MaxMass) {
    AddLine(" ");
    AddLine(" The approximate highest molecular mass present that will not");
    AddLine(Concat({" show significant peak broadening is ", Format(MaxMass, kMassPattern), " kDa"}));
    ScrollReportAtOnce();
}

}  // namespace

void CalculateRates() {
    auto& S = Store();
    if (S.IsInterference)
        S.GridPoints = TakeGridOfFirstScan();
    else
        InterpolateScans();
    FindFirstGridPoint();
    ChooseDeltaS();
    ReportDeltaS();
    DifferencePairs();
    AveragePairs();
}

void KeldIt_Click() {
    MousePointer(kPointerHourglass);
    CalculateRates();
    Pass(Gate::kRatesCalculated);
    MousePointer(kPointerNormal);
    ReportLargestMass(LargestMass());
    SetRequestTexts({" ", "Raw <dc/dt> vs S", "S (Svedbergs)", "<dc/dt>"});
    PlotRawRate();
}

void PlotRawRate() {
    auto& S = Store();
    BeginPlainRequest();
    S.PlotDialogOK = true;
    RequestFiller request;
    for (std::int32_t P = 1; P <= S.ScanSkip; ++P)
        request.Symbols(1, S.SPoints, P, [&](std::int32_t I) {
            return PlotPoint{Svedbergs(S.SStar(I)), S.RatePairs(I, P)};
        });
    for (std::int32_t P = 1; P <= S.ScanSkip; ++P)
        request.Line(1, S.SPoints, P, [&](std::int32_t I) {
            return PlotPoint{Svedbergs(S.SStar(I)), S.RatePairs(I, P)};
        });
    ShowRequest(request);
}

}  // namespace halvern
