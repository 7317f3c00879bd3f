#include "analysis/g_of_s.h"

#include <string>

#include "analysis/rate_plots.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/menu_gates.h"
#include "store/numeric.h"
#include "store/single.h"
#include "store/svedberg.h"

namespace halvern {

namespace {

constexpr float kSmallestForG = 5E-15F;        // 0.05 Svedberg
constexpr float kSmallestForPlateau = 1E-14F;  // 0.1 Svedberg
constexpr int kPlateauPasses = 3;

// Kept: rpm to rad/s is 0.1047196 here and 0.104719755 in dc/dt.
double OmegaSquared() {
    const double omega = static_cast<double>(Store().ScanSpeed(1)) * 0.1047196;
    return omega * omega;
}

}  // namespace

void DoGofS_Click() {
    auto& S = Store();
    SetRequestTexts({"Use <Ctrl>LMB and <Ctrl>RMB to set upper & lower limits", "for calculating g(s*)",
                     "S (Svedbergs)", "<dc/dt>"});
    for (Boolean* flag : {&S.PlotReady, &S.PickJitterPoint, &S.PickMeniscus, &S.PickZeroLevel})
        *flag = false;
    S.PickDataLimits = true;
    S.PickSLimits = true;
    PlotitForm().Load();
    if (S.SLimitsSet)
        for (std::int32_t I = 1; I <= S.SPoints; ++I)
            S.AveRate(I) = Single(static_cast<double>(S.AveRateRaw(I)) - S.ZeroLevel);
    if (!S.SLimitsSet) {
        S.DataLimitMin = Svedbergs(S.SStar(1));
        S.DataLimitMax = Svedbergs(S.SStar(S.SPoints));
    }
    ShowAverageRate();
    PlotitForm().Command1.Show();
}

void TakeSLimits() {
    Store().PickSLimits = false;
    Pass(Gate::kSLimitsSet);
    FindSRange();
    PairStatistics();
    CalculateDistributions();
    PlotGShat();
}

void FindSRange() {
    auto& S = Store();
    S.SLimitsSet = true;
    S.SRangeFirst = 1;
    S.SRangeLast = S.SPoints;
    const float lower = Single(S.DataLimitMin * kSvedberg);
    for (std::int16_t I = 1; I <= S.SPoints; ++I)
        if (lower <= S.SStar(I)) {
            S.SRangeFirst = I;
            break;
        }
    const float upper = Single(S.DataLimitMax * kSvedberg);
    for (std::int16_t I = S.SRangeFirst; I <= S.SPoints; ++I)
        if (upper <= S.SStar(I)) {
            S.SRangeLast = I;
            break;
        }
}

void PairStatistics() {
    auto& S = Store();
    const double pairs = S.ScanSkip;
    for (std::int32_t I = 1; I <= S.SPoints; ++I) {
        double Sum = 0.0;
        double SumSq = 0.0;
        for (std::int32_t P = 1; P <= S.ScanSkip; ++P) {
            const double rate = S.RatePairs(I, P);
            Sum += rate;
            SumSq += rate * rate;
        }
        S.RateSem(I) = Single(Quotient(SumSq - Quotient(Sum * Sum, pairs), pairs - 1.0));
        S.RateSem(I) = Single(SquareRoot(Quotient(static_cast<double>(S.RateSem(I)), pairs)));
    }
    const std::int32_t scans = 2 * S.ScanSkip;
    S.SedTime = 0.0F;
    for (std::int32_t J = 1; J <= scans; ++J)
        S.SedTime = Single(S.SedTime + Quotient(1.0, static_cast<double>(S.ScanTime(J))));
    S.SedTime = Single(Quotient(static_cast<double>(scans), static_cast<double>(S.SedTime)));
}

void CalculateDistributions() {
    auto& S = Store();
    // Kept: a single here, and not in Plateau.
    const double Omega2 = Single(OmegaSquared());
    const double SedTime = S.SedTime;
    for (std::int32_t I = 1; I <= S.SPoints; ++I)
        S.GHat(I) = Single(Quotient(SedTime * S.AveRate(I), static_cast<double>(S.SStar(I))));
    for (std::int32_t I = 1; I <= S.SPoints; ++I) {
        const double E = Exp(S.SStar(I) * (Omega2 * -2.0) * SedTime);
        S.GStarSem(I) = Single(Quotient(SedTime, static_cast<double>(S.SStar(I))) * S.RateSem(I) * E * kSvedberg);
    }
    Plateau();
    for (std::int32_t I = 1; I <= S.SPoints; ++I)
        S.GStar(I) = S.SStar(I) > kSmallestForG ? Single(S.GHat(I) * Exp(S.SStar(I) * (2.0 * Omega2) * SedTime)) : 0.0F;
}

namespace {

/// The running integral of s* times g^(s*), in PlateauRate. Its first and last terms carry the factor 0.5.
void IntegrateGHat() {
    auto& S = Store();
    auto& P = S.PlateauRate;
    const std::int32_t N = S.SPoints;
    const auto width = [&](std::int32_t I) { return static_cast<double>(S.SStar(I)) - S.SStar(I - 1); };
    for (std::int32_t I = 1; I <= N; ++I)
        P(I) = 0.0F;
    P(1) = Single(width(2) * (S.SStar(1) * 0.5 * S.GHat(1)));
    for (std::int32_t I = 2; I <= N - 1; ++I)
        P(I) = Single(width(I) * (static_cast<double>(S.GHat(I)) * S.SStar(I)) + P(I - 1));
    P(N) = Single((S.SStar(N) * 0.5 * S.GHat(N)) * width(N) + P(N - 1));
}

}  // namespace

void Plateau() {
    auto& S = Store();
    const double W2 = OmegaSquared();
    const auto correctedRate = [&](std::int32_t I) { return S.AveRate(I) - (W2 * 2.0) * S.PlateauRate(I); };
    for (int pass = 1; pass <= kPlateauPasses; ++pass) {
        IntegrateGHat();
        for (std::int32_t I = 1; I <= S.SPoints; ++I)
            if (S.SStar(I) > kSmallestForPlateau) {
                const double perS = Single(Quotient(static_cast<double>(S.SedTime), static_cast<double>(S.SStar(I))));
                S.GHat(I) = Single(perS * correctedRate(I));
            }
    }
    for (std::int32_t I = 1; I <= S.SPoints; ++I)
        S.PlateauRate(I) = Single(correctedRate(I));
}

namespace {

std::string DistributionTitle(const char* distribution) {
    return Concat({distribution, Store().IsInterference ? " [fringes/Svedberg]" : " [A.U./Svedberg]"});
}

void BeginDistributionPlot(const RequestTexts& texts) {
    SetRequestTexts(texts);
    BeginPlainRequest();
    Store().PickSLimits = false;
    Store().PlotDialogOK = true;
}

}  // namespace

void PlotGS() {
    auto& S = Store();
    BeginDistributionPlot({"<g(s*)> vs S", " ", "S (Svedbergs)", DistributionTitle("<g(s*)>")});
    const std::int32_t first = S.SRangeFirst + 1;
    const std::int32_t last = S.SRangeLast - 1;
    const auto shifted = [&](double errors) {
        return [&S, errors](std::int32_t I) {
            return PlotPoint{Svedbergs(S.SStar(I)), Single(S.GStar(I) * kSvedberg + errors * S.GStarSem(I))};
        };
    };
    RequestFiller request;
    request.Line(first, last, kRed, shifted(1.0));
    request.Line(first, last, kRed, shifted(-1.0));
    request.Line(first, last, kBlack, shifted(0.0));
    request.Symbols(first, last, kBlack, shifted(0.0));
    ShowRequest(request);
}

void PlotGShat() {
    auto& S = Store();
    BeginDistributionPlot(
        {"<g^(s*)> vs S", "(un-normalized uncorrected distribution)", "S (Svedbergs)", DistributionTitle("<g^(s*)>")});
    const std::int32_t first = S.SRangeFirst + 1;
    const std::int32_t last = S.SRangeLast - 1;
    const auto pointAt = [&](std::int32_t I) {
        return PlotPoint{Svedbergs(S.SStar(I)), Single(S.GHat(I) * kSvedberg)};
    };
    RequestFiller request;
    request.Line(first, last, kBlack, pointAt);
    request.Symbols(first, last, kBlack, pointAt);
    ShowRequest(request);
}

}  // namespace halvern
