#include "bench/analyses.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>

namespace halvern::bench {

namespace {

constexpr std::int32_t kMostGridPointsOfS = 2000;
constexpr float kEndOfCell = 7.2F;  // cm

float AsSingle(double value) { return static_cast<float>(value); }

/// The scans in the store as plain memory, numbered from 0.
struct ScanMemory {
    const float* data = Store().ScanData.Elements().data();
    std::int32_t scans = Store().NumFiles;
    std::int32_t points = Store().ScanPoints(1);

    const float* Radii(std::int32_t scan) const { return data + std::ptrdiff_t{scan} * 2 * kMostPoints; }
    const float* Signals(std::int32_t scan) const { return Radii(scan) + kMostPoints; }
    float Offset(std::int32_t scan) const { return Store().JitterOffset.Elements()[static_cast<std::size_t>(scan)]; }
    float Time(std::int32_t scan) const { return Store().ScanTime.Elements()[static_cast<std::size_t>(scan)]; }
    float Omega2t(std::int32_t scan) const { return Store().ScanW2t.Elements()[static_cast<std::size_t>(scan)]; }
};

void TakeGrid(const ScanMemory& memory, Rates& rates) {
    std::copy_n(memory.Radii(0), memory.points, rates.gridRadius.data());
    for (std::int32_t scan = 0; scan < memory.scans; ++scan) {
        const float* const signals = memory.Signals(scan);
        float* const grid = rates.gridSignal[static_cast<std::size_t>(scan)].data();
        const float offset = memory.Offset(scan);
        for (std::int32_t i = 0; i < memory.points; ++i)
            grid[i] = signals[i] - offset;
    }
}

/// The smallest round step of which 2000 reach the s* of the cell's end at the first scan.
float StepOfS(const ScanMemory& memory, float firstRadius) {
    const double most = std::log(7.2 / firstRadius) / memory.Omega2t(0);
    for (int power = -4; power <= 5; ++power)
        for (const float step : {1.0F, 1.5F, 2.0F, 3.0F, 4.0F, 5.0F}) {
            const double base = AsSingle(std::pow(10.0, power));
            if (most <= base * step * 2000.0 * std::pow(10.0, -13))
                return AsSingle(base * step);
        }
    return 500000.0F;
}

float GridOfS(std::int32_t number, float step) {
    return AsSingle(1E-13 * AsSingle(static_cast<double>(number) * step));
}

std::int32_t FirstBehindMeniscus(const Rates& rates, float meniscus) {
    std::int32_t first = 0;
    while (rates.gridRadius[static_cast<std::size_t>(first)] < meniscus)
        ++first;
    return first;
}

/// Points up to and including the one that crosses the end of the cell.
std::int32_t PointsOfCell(const Rates& rates, std::int32_t points) {
    std::int32_t count = 0;
    while (count < points && rates.gridRadius[static_cast<std::size_t>(count++)] <= kEndOfCell) {
    }
    return count;
}

struct PairTimes {
    float between;
    float sed;

    PairTimes(const ScanMemory& memory, std::int32_t earlier, std::int32_t later)
        : between(AsSingle(static_cast<double>(memory.Time(later)) - memory.Time(earlier))),
          sed(AsSingle(2.0 / (1.0 / memory.Time(later) + 1.0 / memory.Time(earlier)))) {}
};

float Omega2() {
    const double omega = Store().ScanSpeed(1) * 0.104719755;
    return AsSingle(omega * omega);
}

/// The curve of one pair, from the last point before the meniscus on.
struct Curve {
    PointRow s, rate;
    std::int32_t count;
};

/// Straight lines between the points of a curve that rises, at the values of a grid. Returns how many of them it reaches.
std::int32_t Interpolate(const Curve& curve, const PointRow& grid, float* out) {
    const float* const x = curve.s.data();
    const float* const y = curve.rate.data();
    std::int32_t i = 0;
    for (; i < kMostGridPointsOfS && grid[static_cast<std::size_t>(i)] <= x[0]; ++i)
        out[i] = y[0];
    for (std::int32_t j = 0; j + 1 < curve.count; ++j) {
        if (grid[static_cast<std::size_t>(i)] > x[j + 1])
            continue;
        const float slope = AsSingle((static_cast<double>(y[j + 1]) - y[j]) / (static_cast<double>(x[j + 1]) - x[j]));
        for (; grid[static_cast<std::size_t>(i)] <= x[j + 1]; ++i) {
            if (i == kMostGridPointsOfS)
                return i;
            out[i] = (grid[static_cast<std::size_t>(i)] - x[j]) * slope + y[j];
        }
    }
    return i;
}

/// Sums in the order of the pairs, each addition rounded to single.
void Average(Rates& rates) {
    const auto points = static_cast<std::size_t>(rates.points);
    std::fill_n(rates.mean.begin(), points, 0.0F);
    for (std::int32_t pair = 0; pair < rates.pairCount; ++pair)
        for (std::size_t i = 0; i < points; ++i)
            rates.mean[i] += rates.pairs[static_cast<std::size_t>(pair)][i];
    for (std::size_t i = 0; i < points; ++i)
        rates.mean[i] /= static_cast<float>(rates.pairCount);
}

bool AreTheSame(const float* a, const float* b, std::int32_t count) {
    return std::memcmp(a, b, static_cast<std::size_t>(count) * sizeof *a) == 0;
}

}  // namespace

void CalculateRatesTightly(Rates& rates) {
    const ScanMemory memory;
    const float meniscus = Store().Meniscus;
    TakeGrid(memory, rates);
    const std::int32_t first = FirstBehindMeniscus(rates, meniscus);
    const std::int32_t from = std::max(first - 1, 0);
    static Curve curve;
    curve.count = PointsOfCell(rates, memory.points) - from;
    static std::array<double, kMostPoints> logarithms;
    for (std::int32_t i = 0; i < curve.count; ++i)
        logarithms[static_cast<std::size_t>(i)] =
            std::log(static_cast<double>(rates.gridRadius[static_cast<std::size_t>(from + i)]) / meniscus);
    const float step = StepOfS(memory, rates.gridRadius[static_cast<std::size_t>(first)]);
    for (std::int32_t i = 0; i <= kMostGridPointsOfS; ++i)
        rates.sStar[static_cast<std::size_t>(i)] = GridOfS(i + 1, step);

    rates.pairCount = memory.scans / 2;
    const double omega2 = Omega2();
    const double* const logarithm = logarithms.data();
    for (std::int32_t pair = 0; pair < rates.pairCount; ++pair) {
        const std::int32_t later = pair + rates.pairCount;
        const PairTimes times(memory, pair, later);
        const float* const a = rates.gridSignal[static_cast<std::size_t>(pair)].data() + from;
        const float* const b = rates.gridSignal[static_cast<std::size_t>(later)].data() + from;
        const double sedTime = times.sed;
        float* const s = curve.s.data();
        float* const rate = curve.rate.data();
        for (std::int32_t i = 0; i < curve.count; ++i)
            rate[i] = (a[i] - b[i]) / times.between;
        for (std::int32_t i = 0; i < curve.count; ++i)
            s[i] = static_cast<float>(logarithm[i] / sedTime / omega2);
        rates.points = Interpolate(curve, rates.sStar, rates.pairs[static_cast<std::size_t>(pair)].data());
    }
    Average(rates);
}

void CalculateRatesPlainly(Rates& rates) {
    const ScanMemory memory;
    const float meniscus = Store().Meniscus;
    TakeGrid(memory, rates);
    const std::int32_t first = FirstBehindMeniscus(rates, meniscus);
    const float step = StepOfS(memory, rates.gridRadius[static_cast<std::size_t>(first)]);
    static Curve curve;
    curve.count = PointsOfCell(rates, memory.points);
    rates.pairCount = memory.scans / 2;
    for (std::int32_t pair = 0; pair < rates.pairCount; ++pair) {
        const std::int32_t later = pair + rates.pairCount;
        const PairTimes times(memory, pair, later);
        for (std::size_t i = 0; i < static_cast<std::size_t>(curve.count); ++i) {
            const double logarithm = std::log(static_cast<double>(rates.gridRadius[i]) / meniscus);
            curve.s[i] = AsSingle(logarithm / times.sed / Omega2());
            curve.rate[i] = (rates.gridSignal[static_cast<std::size_t>(pair)][i] -
                             rates.gridSignal[static_cast<std::size_t>(later)][i]) /
                            times.between;
        }
        for (std::int32_t i = 0; i <= kMostGridPointsOfS; ++i)
            rates.sStar[static_cast<std::size_t>(i)] = GridOfS(i + 1, step);
        rates.points = Interpolate(curve, rates.sStar, rates.pairs[static_cast<std::size_t>(pair)].data());
    }
    Average(rates);
}

bool StoreHas(const Rates& rates) {
    const auto& S = Store();
    bool same = rates.pairCount == S.ScanSkip && rates.points == S.SPoints &&
                AreTheSame(rates.mean.data(), &S.AveRate(1), rates.points) &&
                AreTheSame(rates.sStar.data(), &S.SStar(1), rates.points) &&
                AreTheSame(rates.gridRadius.data(), &S.GridRadius(1), S.GridPoints);
    for (std::int32_t scan = 1; scan <= S.NumFiles; ++scan)
        same &= AreTheSame(rates.gridSignal[static_cast<std::size_t>(scan - 1)].data(), &S.GridSignal(1, scan),
                           S.GridPoints);
    for (std::int32_t pair = 1; pair <= S.ScanSkip; ++pair)
        same &= AreTheSame(rates.pairs[static_cast<std::size_t>(pair - 1)].data(), &S.RatePairs(1, pair), S.SPoints);
    return same;
}

namespace {

using Course = std::array<float, kMostScans>;

/// At one radius, the scans from the last to the first.
void WideAt(const ScanMemory& memory, float wanted, float* gOfS, float* sValue) {
    const float* const radii = memory.Radii(0);
    const auto point = std::find_if(radii, radii + memory.points, [&](float r) { return r >= wanted; }) - radii;
    const float radius = radii[point];
    const auto n = static_cast<std::size_t>(memory.scans);
    Course c, s, omega2t, g0, ga, ss, integral;
    for (std::size_t j = 0; j < n; ++j) {
        const std::int32_t scan = memory.scans - 1 - static_cast<std::int32_t>(j);
        const float* const signals = memory.Signals(scan) + point - 6;
        float sum = 0.0F;
        for (int i = 0; i < 11; ++i)
            sum += signals[i] - memory.Offset(scan);
        c[j] = AsSingle(sum / 11.0);
        omega2t[j] = memory.Omega2t(scan);
        const float meniscus = Store().ScanMeniscus.Elements()[static_cast<std::size_t>(scan)];
        s[j] = AsSingle(std::log(static_cast<double>(radius / meniscus)) / omega2t[j]);
    }
    using Wide = long double;
    gOfS[0] = 0.0F;
    sValue[0] = 0.0F;
    for (std::size_t j = 1; j < n; ++j) {
        gOfS[j] = static_cast<float>((Wide{c[j]} - c[j - 1]) / (Wide{s[j]} - s[j - 1]) * Wide{1E-13});
        sValue[j] = static_cast<float>((Wide{s[j - 1]} + s[j]) * 0.5L * Wide{1E13});
    }
    for (std::size_t j = 0; j < n; ++j) {
        ga[j] = g0[j] = AsSingle(gOfS[j] * 1E13);
        ss[j] = AsSingle(sValue[j] * 1E-13);
    }
    for (int pass = 0; pass < 3; ++pass) {
        integral[0] = static_cast<float>(Wide{ss[0]} * 0.5L * ga[0] * (Wide{ss[1]} - ss[0]));
        for (std::size_t j = 1; j + 1 < n; ++j)
            integral[j] = static_cast<float>((Wide{ss[j]} - ss[j - 1]) * (Wide{ss[j]} * ga[j]) + integral[j - 1]);
        integral[n - 1] =
            static_cast<float>(Wide{ss[n - 1]} * 0.5L * ga[n - 1] * (Wide{ss[n - 1]} - ss[n - 2]) + integral[n - 2]);
        for (std::size_t j = 0; j < n; ++j)
            if (ss[j] > 0.0F)
                ga[j] = static_cast<float>(g0[j] - (Wide{omega2t[j]} / ss[j]) * (Wide{integral[j]} + integral[j]));
    }
    for (std::size_t j = 0; j < n; ++j)
        gOfS[j] = AsSingle(ga[j] * 1E-13);
}

}  // namespace

void CalculateWidePlainly(WideCurves& curves) {
    const ScanMemory memory;
    curves.scans = memory.scans;
    float radius = 6.0F;
    for (std::size_t k = 0; k < curves.radius.size(); ++k, radius = AsSingle(static_cast<double>(radius) + 0.1F)) {
        curves.radius[k] = radius;
        WideAt(memory, curves.radius[k], curves.gOfS[k].data(), curves.sValue[k].data());
    }
}

bool StoreHas(const WideCurves& curves) {
    const auto& S = Store();
    bool same = curves.scans == S.NumFiles;
    for (std::int32_t K = 1; K <= 11; ++K) {
        const auto k = static_cast<std::size_t>(K - 1);
        // Point 1 is a placeholder.
        same &= S.WDRadiusValid(K) && curves.radius[k] == S.WDRadius(K) &&
                AreTheSame(&curves.gOfS[k][1], &S.WDGofS(2, K), S.NumFiles - 1) &&
                AreTheSame(&curves.sValue[k][1], &S.WDSValue(2, K), S.NumFiles - 1);
    }
    return same;
}

}  // namespace halvern::bench
