#include "relations/random_run.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "analysis/g_of_s.h"
#include "analysis/time_derivative.h"
#include "store/analysis_store.h"
#include "store/single.h"

namespace halvern::test {

namespace {

float Decimal(double value, double decimals) { return static_cast<float>(std::round(value * decimals) / decimals); }

/// As a scan file has omega squared t: five digits.
float FiveDigits(double value) {
    const double scale = std::pow(10.0, std::floor(std::log10(value)) - 4.0);
    return static_cast<float>(std::round(value / scale) * scale);
}

/// Few large ones among many small ones.
int Size(Chances& chances, int fewest, int most) {
    const double u = chances.Uniform();
    return fewest + static_cast<int>((most - fewest + 1) * u * u * u);
}

struct Window {
    double first, last;
    int points;
    bool scattered;
};

std::vector<float> Radii(Chances& chances, const Window& window) {
    const double step = (window.last - window.first) / (window.points - 1);
    std::vector<float> radii;
    for (int i = 0; i < window.points; ++i) {
        const double off = window.scattered ? chances.Between(-0.3, 0.3) * step : 0.0;
        radii.push_back(Decimal(window.first + i * step + off, 1e4));
    }
    return radii;
}

/// The boundary of one species, of a shape that needs but quotients.
struct Boundary {
    double height, halfWidth, offset, noise;
};

std::vector<float> Signals(Chances& chances, const std::vector<float>& radii, double middle, const Boundary& boundary,
                           const Wishes& wishes) {
    std::vector<float> signals;
    for (const float radius : radii) {
        const double x = (static_cast<double>(radius) - middle) / boundary.halfWidth;
        const double value = boundary.offset + boundary.height * (0.5 + x / (2.0 + 2.0 * std::fabs(x))) +
                             boundary.noise * chances.Between(-1.0, 1.0);
        signals.push_back(wishes.quantum > 0.0 ? static_cast<float>(std::round(value / wishes.quantum) * wishes.quantum)
                                               : Decimal(value, 1e6));
    }
    return signals;
}

/// Speeds of the scans: one or several runs of consecutive scans, each faster than the one before.
std::vector<std::int32_t> Speeds(Chances& chances, int scans, int mostSpeeds) {
    const int runs = chances.Whole(1, std::min(mostSpeeds, scans));
    int speed = 500 * chances.Whole(6, mostSpeeds > 1 ? 60 : 120);
    std::vector<std::int32_t> speeds;
    for (int k = 0; k < scans; ++k) {
        if (k > 0 && k * runs / scans != (k - 1) * runs / scans)
            speed += 500 * chances.Whole(1, 20);
        speeds.push_back(speed);
    }
    return speeds;
}

}  // namespace

float RandomRun::LargestSignal() const {
    float largest = 0.0F;
    for (const auto& scan : signals)
        for (const float signal : scan)
            largest = std::max(largest, std::fabs(signal));
    return largest;
}

RandomRun MakeRun(std::uint64_t seed, const Wishes& wishes) {
    Chances chances(seed);
    RandomRun run;
    run.interference = wishes.optics == Wishes::kEither ? chances.Likely(0.5) : wishes.optics == Wishes::kInterference;
    const int scans = Size(chances, wishes.fewestScans, wishes.mostScans);
    const int points = Size(chances, wishes.fewestPoints, wishes.mostPoints);
    run.speeds = Speeds(chances, scans, wishes.mostSpeeds);
    const float meniscus = Decimal(wishes.wholeCell ? chances.Between(5.88, 5.99) : chances.Between(5.85, 6.3), 1e4);
    Window window{.first = static_cast<double>(meniscus) - chances.Between(0.02, 0.08),
                  .last = wishes.wholeCell ? chances.Between(7.05, 7.2) : chances.Between(6.7, 7.25),
                  .points = points,
                  .scattered = !run.interference && !wishes.commonRadii};
    const double s = 1E-13 * wishes.slowest * std::pow(wishes.fastest / wishes.slowest, chances.Uniform());
    const double firstAt = chances.Between(6.35, 6.5), lastAt = chances.Between(6.6, 7.1);
    const double from = std::log(firstAt / static_cast<double>(meniscus)) / s;
    const double to = std::max(std::log(lastAt / static_cast<double>(meniscus)) / s, 1.5 * from);
    const Boundary boundary{.height = chances.Between(0.1, run.interference ? 4.0 : 1.5),
                            .halfWidth = chances.Between(0.01, 0.08),
                            .offset = chances.Between(-0.1, 0.1),
                            .noise = chances.Between(0.001, 0.02)};
    for (int k = 0; k < scans; ++k) {
        const float omega2t = FiveDigits(from + (to - from) * k / (scans - 1));
        run.omega2t.push_back(omega2t);
        run.menisci.push_back(meniscus);
        run.radii.push_back(k > 0 && !window.scattered ? run.radii[0] : Radii(chances, window));
        const double middle = static_cast<double>(meniscus) * std::exp(s * static_cast<double>(omega2t));
        run.signals.push_back(Signals(chances, run.radii.back(), middle, boundary, wishes));
    }
    return run;
}

namespace {

void GiveScan(const RandomRun& run, std::int32_t K) {
    auto& S = Store();
    const auto k = static_cast<std::size_t>(K - 1);
    S.ScanSpeed(K) = run.speeds[k];
    S.ScanW2t(K) = run.omega2t[k];
    const double omega = run.speeds[k] * 0.1047196;
    S.ScanTime(K) = static_cast<float>(static_cast<double>(run.omega2t[k]) / (omega * omega));
    S.ScanMeniscus(K) = run.menisci[k];
    S.ScanPoints(K) = static_cast<std::int16_t>(run.radii[k].size());
    std::copy(run.radii[k].begin(), run.radii[k].end(), &S.ScanData(1, 1, K));
    std::copy(run.signals[k].begin(), run.signals[k].end(), &S.ScanData(1, 2, K));
    if (K == 1 || run.speeds[k] != run.speeds[k - 1]) {
        ++S.NumSpeeds;
        S.SpeedFirstScan(S.NumSpeeds) = static_cast<std::int16_t>(K);
    }
    S.ScanSpeedIndex(K) = S.NumSpeeds;
}

}  // namespace

void Give(const RandomRun& run) {
    auto& S = Store();
    S.IsInterference = run.interference;
    S.NumFiles = run.Scans();
    S.NumSpeeds = 0;
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        GiveScan(run, K);
    S.MultipleSpeeds = S.NumSpeeds > 1;
    S.Meniscus = run.menisci[0];
    for (std::int32_t K = S.NumFiles + 1; K <= kMostScans; ++K)
        S.ScanMeniscus(K) = kDefaultMeniscus;
    S.JitterOffset.Zero();
    // The common grid of absorbance scans is that of the last scan: a scan that ends before it shows what stood there.
    S.GridSignal.Zero();
    S.ZeroLevel = 0.0F;
    S.SLimitsSet = false;
    S.UseSmoothing = false;
    S.SmoothWindow = kDefaultSmoothWindow;
    S.DataLimitMin = 0.0F;
    S.DataLimitMax = 1E6F;
}

Analysis AnalysisInStore() {
    const auto& S = Store();
    const std::int32_t count = S.SPoints;
    Analysis of;
    of.deltaS = S.DeltaS;
    of.s = FirstOf(S.SStar, count);
    for (std::int32_t P = 1; P <= S.ScanSkip; ++P)
        of.pairs.emplace_back(&S.RatePairs(1, P), &S.RatePairs(1, P) + count);
    of.raw = FirstOf(S.AveRateRaw, count);
    of.average = FirstOf(S.AveRate, count);
    return of;
}

Analysis AnalyseRates() {
    CalculateRates();
    Analysis of = AnalysisInStore();
    of.sedTimeOfPair = Store().SedTime;
    return of;
}

Analysis Analyse(float zeroLevel) {
    auto& S = Store();
    CalculateRates();
    const float sedTimeOfPair = S.SedTime;
    for (std::int32_t I = 1; I <= S.SPoints; ++I)
        S.AveRate(I) = S.AveRate(I) - zeroLevel;
    FindSRange();
    PairStatistics();
    CalculateDistributions();
    Analysis of = AnalysisInStore();
    of.sedTimeOfPair = sedTimeOfPair;
    of.sedTime = S.SedTime;
    of.sem = FirstOf(S.RateSem, S.SPoints);
    of.gHat = FirstOf(S.GHat, S.SPoints);
    of.gStar = FirstOf(S.GStar, S.SPoints);
    of.gStarSem = FirstOf(S.GStarSem, S.SPoints);
    of.plateauRate = FirstOf(S.PlateauRate, S.SPoints);
    return of;
}

std::vector<float> Times(float factor, std::vector<float> values) {
    for (float& value : values)
        value *= factor;
    return values;
}

bool SameBits(const std::vector<float>& a, const std::vector<float>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](float x, float y) {
        return std::bit_cast<std::uint32_t>(x) == std::bit_cast<std::uint32_t>(y);
    });
}

bool SameBits(const Analysis& a, const Analysis& b) {
    const auto samePairs = [](const auto& x, const auto& y) { return SameBits(x, y); };
    return a.deltaS == b.deltaS && a.sedTimeOfPair == b.sedTimeOfPair && a.sedTime == b.sedTime && SameBits(a.s, b.s) &&
           std::equal(a.pairs.begin(), a.pairs.end(), b.pairs.begin(), b.pairs.end(), samePairs) &&
           SameBits(a.raw, b.raw) && SameBits(a.average, b.average) && SameBits(a.sem, b.sem) &&
           SameBits(a.gHat, b.gHat) && SameBits(a.gStar, b.gStar) && SameBits(a.gStarSem, b.gStarSem) &&
           SameBits(a.plateauRate, b.plateauRate);
}

bool Worst::Take(double deviation, double allowed) {
    share_ = std::max(share_, allowed > 0.0 ? deviation / allowed : (deviation > 0.0 ? INFINITY : 0.0));
    return deviation <= allowed;
}

}  // namespace halvern::test
