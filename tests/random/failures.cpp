#include "random/failures.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "plot/plot_window.h"
#include "store/analysis_store.h"

namespace halvern::random_user {

namespace {

constexpr int kInvalidCall = 5, kOverflow = 6, kSubscript = 9, kZeroDivisor = 11;

bool ScanIsPlausible(std::int32_t K) {
    const auto& S = Store();
    if (S.ScanPoints(K) < 10 || S.ScanSpeed(K) < 1000 || S.ScanW2t(K) < 1E9F)
        return false;
    for (std::int32_t I = 1; I <= S.ScanPoints(K); ++I) {
        const float radius = S.ScanData(I, 1, K);
        if (radius < 5.0F || radius > 8.0F || std::fabs(S.ScanData(I, 2, K)) > 1000.0F)
            return false;
        if (I > 1 && radius <= S.ScanData(I - 1, 1, K))
            return false;
    }
    return true;
}

/// Scans as an instrument writes them: radii that rise, signals that an optics can have, time that goes on.
bool DataArePlausible() {
    const auto& S = Store();
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        if (!ScanIsPlausible(K) || (K > 1 && S.ScanW2t(K) <= S.ScanW2t(K - 1)))
            return false;
    return S.NumSpeeds > 0 && S.NumFiles > 1;
}

/// A meniscus where the cell has one, and data beyond it. A pick that was left open leaves its own value there.
bool MeniscusIsPlausible() {
    const auto& S = Store();
    if (S.Meniscus < 5.7F || S.Meniscus > 6.2F)
        return false;
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        if (S.ScanMeniscus(K) < 5.7F || S.ScanMeniscus(K) > 6.2F || S.ScanPoints(K) < 1 ||
            S.ScanData(S.ScanPoints(K), 1, K) < 6.5F)
            return false;
    return true;
}

bool Always(const Model& /*model*/) { return true; }

/// Positions that a person gets only by a mouse far outside of the window.
bool PicksArePlausible() {
    const auto& S = Store();
    return std::fabs(S.ZeroLevel) < 1000.0F && std::fabs(S.DataLimitMin) < 1E6F && std::fabs(S.DataLimitMax) < 1E6F;
}

/// Numbers of which no calculation and no plot can promise anything.
bool WithWildNumbers(const Model& /*model*/) {
    return !DataArePlausible() || !MeniscusIsPlausible() || !PicksArePlausible();
}

bool WithOneScan(const Model& model) { return model.Now().numFiles < 2; }

bool InCorrection(const Model& model) { return model.LastDone() == "jitter" || model.LastDone() == "fringe point"; }
bool InDistribution(const Model& model) { return model.LastDone() == "s* limits"; }
bool InDistributionOfOnePair(const Model& model) { return InDistribution(model) && model.Now().numFiles / 2 == 1; }

/// A pick of one meniscus was left open, and goes on with a data set of several speeds: at none of them.
bool InPickOfNoSpeed(const Model& model) {
    return model.LastDone() == "meniscus of a speed" && model.Now().speedIndex == 0;
}

/// A radii dialog closed by its frame draws the request that stood before on an axis of logarithms; s* in Svedbergs are
/// beyond what has an exponential.
bool WithExponentialsBeyondReach() { return Store().PlotLnAxis && PlotitForm().XAxisMax > 700.0F; }

/// Which of the radii are used is decided by a few scans; one of them can lie at the meniscus of another scan, or inside.
bool WithDifferentMenisci(const Model& /*model*/) {
    const auto& S = Store();
    for (std::int32_t K = 2; K <= S.NumFiles; ++K)
        if (S.ScanMeniscus(K) != S.ScanMeniscus(1))
            return true;
    return false;
}

/// No logarithm can be taken of such an s*.
bool WithSOfZeroOrLess(const Model& /*model*/) {
    const auto& S = Store();
    for (std::int32_t K = 1; K <= 11; ++K)
        for (std::int32_t J = 2; J <= S.NumFiles; ++J)
            if (S.WDRadiusValid(K) && S.WDSValue(J, K) <= 0.0F)
                return true;
    return false;
}

bool BeyondTwelveSpeeds(const Model& model) { return model.Now().speeds > 12; }
bool WithInterference(const Model& model) { return model.Now().interference; }
bool WithNothingPainted(const Model& /*model*/) { return PlotitForm().XScale == 0.0F; }

/// A box of which singles can't tell the edges apart any more.
bool WhileZoomed(const Model& model) { return model.CanClick({"Plotit", "Zoomout"}); }

struct Row {
    std::string_view command;
    int number;
    bool (*when)(const Model& model);
};

constexpr Row kRows[] = {
    // The middle one of less than two scans is number 0, and so is the last one in use.
    {"Keld.SetJitterLimits", kSubscript, WithOneScan},
    {"Keld.DoIntShift", kSubscript, WithOneScan},
    {"Keld.KeldIt", kSubscript, WithOneScan},
    {"Keld.KeldIt", kZeroDivisor, WithOneScan},
    // A position too near to the start of a scan, or beyond its end.
    {"Plotit.TestIt", kSubscript, Always},
    {"Plotit.Command1", kSubscript, InCorrection},
    {"Plotit.Command1", kSubscript, InPickOfNoSpeed},
    // One pair has no scatter; the scatter of equal values has a root only if rounding leaves it one.
    {"Plotit.Command1", kZeroDivisor, InDistributionOfOnePair},
    {"Plotit.Command1", kInvalidCall, InDistribution},
    // A row for each of twelve speeds.
    {"Keld.Set_MultiMenManually", kSubscript, BeyondTwelveSpeeds},
    // No point between the limits.
    {"Keld.ShowSAve", kZeroDivisor, Always},
    {"Keld.KeldOutGofS", kZeroDivisor, Always},
    // Less than seven points below a radius: the scans of the interference optics are taken at their own.
    {"Keld.DoWideStraight", kSubscript, WithInterference},
    {"Keld.DoWideStraight", kZeroDivisor, WithDifferentMenisci},
    {"PlotLogWD.PlotEmUp", kInvalidCall, WithSOfZeroOrLess},
    {"PlotIntegral.PlotEmUp", kInvalidCall, WithSOfZeroOrLess},
    // Nothing has been drawn yet, and so there is no scale.
    {"Plotit.mouse", kZeroDivisor, WithNothingPainted},
    // A name whose first dot stands in front of the number's place, or a number beyond 16 bits.
    {"GenerateFile.OKMakeFile", kInvalidCall, Always},
    {"GenerateFile.OKMakeFile", kOverflow, Always},
};

/// What calculates or draws.
constexpr std::string_view kWorkers[] = {
    "Keld.KeldIt",        "Keld.SetKeldZero",   "Keld.DoGofS",           "Keld.Get_MenFromScan", "Keld.SetJitterLimits",
    "Keld.DoIntShift",    "Keld.DoReAddNow",    "Keld.DoWideStraight",   "Keld.ShowSAve",        "Keld.KeldOutGofS",
    "Keld.PlotRaw",       "Keld.PlotCorrected", "Keld.PlotRawkeld",      "Keld.PlotAvekeld",     "Keld.DoPlotGShat",
    "Keld.DoPlotGS",      "Keld.PlotSvsG",      "Keld.PlotLnS",          "Keld.PlotIntegralWD",  "Plotit.Command1",
    "Plotit.TestIt",      "Plotit.Zoomout",     "Plotit.Nolines",        "Plotit.NoSymbols",     "Plotit.LargePoints",
    "Plotit.UseFilled",   "Plotit.mouse",       "Plotit.drag",           "Plotit.hover",         "Plotit.resize",
    "PlotRadii.PlotEmUp", "PlotLogWD.PlotEmUp", "PlotIntegral.PlotEmUp",
};

constexpr int kNumeric[] = {kInvalidCall, kOverflow, kSubscript, kZeroDivisor};

template <class T, std::size_t N>
bool IsOneOf(const T (&choices)[N], const T& value) {
    return std::find(std::begin(choices), std::end(choices), value) != std::end(choices);
}

}  // namespace

bool MayFail(std::string_view command, int number, const Model& model) {
    if (IsOneOf(kWorkers, command) && IsOneOf(kNumeric, number) && (WithWildNumbers(model) || WhileZoomed(model)))
        return true;
    if (IsOneOf(kWorkers, command) && number == kOverflow && WithExponentialsBeyondReach())
        return true;
    return std::any_of(std::begin(kRows), std::end(kRows), [&](const Row& row) {
        return row.command == command && row.number == number && row.when(model);
    });
}

}  // namespace halvern::random_user
