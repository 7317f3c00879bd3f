#include "simulate/instrument.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "simulate/random.h"

namespace halvern::simulate {

namespace {

constexpr double kSpikeWidthCm = 0.003;  // standard deviation of the peak at the meniscus

/// Half of the time-invariant noise is dust that differs from point to point, half is the slow waviness of windows:
/// a few waves of 0.03 to 0.6 cm.
std::vector<double> TimeInvariantNoise(const Parameters& p, std::uint64_t seed) {
    std::vector<double> pattern(RadialPoints(p), 0.0);
    if (p.timeInvariantNoise == 0.0)
        return pattern;
    constexpr int kWaves = 8;
    constexpr double kShortestCm = 0.03, kLongestCm = 0.6;
    Random random(seed, Chance::kTimeInvariant, 0);
    // A sine of amplitude 1 has a mean square of 1/2.
    const double amplitude = p.timeInvariantNoise / std::sqrt(static_cast<double>(kWaves));
    for (int wave = 0; wave < kWaves; ++wave) {
        const double lengthCm = kShortestCm * std::pow(kLongestCm / kShortestCm, random.Uniform());
        const double phase = random.Uniform();
        for (std::size_t i = 0; i < pattern.size(); ++i) {
            const double waves = static_cast<double>(i) * RadialStepCm(p) / lengthCm;
            pattern[i] += amplitude * std::sin(2.0 * std::numbers::pi * (waves + phase));
        }
    }
    for (double& value : pattern)
        value += p.timeInvariantNoise / std::numbers::sqrt2 * random.Normal();
    return pattern;
}

std::vector<int> FringeLevels(const Parameters& p, std::uint64_t seed, std::size_t scans) {
    std::vector<int> levels(scans, 0);
    for (std::size_t scan = 1; scan < scans && p.jumpsBetween > 0.0; ++scan) {
        Random random(seed, Chance::kJumpsBetween, scan);
        const bool jumps = random.Uniform() < p.jumpsBetween;
        levels[scan] = levels[scan - 1] + (jumps ? random.Sign() : 0);
    }
    return levels;
}

}  // namespace

Instrument::Instrument(const Parameters& parameters, std::size_t scans)
    : p_(parameters),
      seed_(static_cast<std::uint64_t>(parameters.seed)),
      timeInvariant_(TimeInvariantNoise(parameters, seed_)),
      fringeLevel_(FringeLevels(parameters, seed_, scans)) {}

std::vector<double> Instrument::Radii(std::size_t scan) const {
    Random random(seed_, Chance::kRadii, scan);
    const double scatter = RadiusScatterCm(p_);
    std::vector<double> radii(RadialPoints(p_));
    for (std::size_t i = 0; i < radii.size(); ++i) {
        const double off = scatter > 0.0 ? scatter * (2.0 * random.Uniform() - 1.0) : 0.0;
        radii[i] = WrittenRadius(ReadFromCm(p_) + static_cast<double>(i) * RadialStepCm(p_) + off, p_.radiusDecimals);
    }
    return radii;
}

void Instrument::Read(std::size_t scan, Trace& trace) const {
    AddMeniscusSpike(trace);
    CutAtCeiling(trace);
    AddInterferenceIlls(scan, trace);
    AddNoise(scan, trace);
}

void Instrument::AddMeniscusSpike(Trace& trace) const {
    if (p_.meniscusSpike == 0.0)
        return;
    for (std::size_t i = 0; i < trace.signal.size(); ++i) {
        const double away = (trace.radiusCm[i] - p_.meniscusCm) / kSpikeWidthCm;
        trace.signal[i] += p_.meniscusSpike * std::exp(-0.5 * away * away);
    }
}

void Instrument::CutAtCeiling(Trace& trace) const {
    if (const auto ceiling = Ceiling(p_))
        for (double& signal : trace.signal)
            signal = std::min(signal, *ceiling);
}

void Instrument::AddInterferenceIlls(std::size_t scan, Trace& trace) const {
    if (p_.optics != Optics::kInterference)
        return;
    const double offset = p_.jitter * Random(seed_, Chance::kJitter, scan).Normal() + fringeLevel_[scan];
    for (std::size_t i = 0; i < trace.signal.size(); ++i)
        trace.signal[i] += timeInvariant_[i] + offset;
    AddJumpsWithin(scan, trace);
}

void Instrument::AddJumpsWithin(std::size_t scan, Trace& trace) const {
    Random random(seed_, Chance::kJumpsWithin, scan);
    for (int jump = 0; jump < p_.jumpsWithin; ++jump) {
        const double from = p_.meniscusCm + random.Uniform() * (p_.baseCm - p_.meniscusCm);
        const int sign = random.Sign();
        for (std::size_t i = 0; i < trace.signal.size(); ++i)
            trace.signal[i] += trace.radiusCm[i] >= from ? sign : 0;
    }
}

void Instrument::AddNoise(std::size_t scan, Trace& trace) const {
    const std::size_t points = trace.signal.size();
    trace.spread.assign(points, 0.0);
    if (p_.noise == 0.0)
        return;
    Random random(seed_, Chance::kReadings, scan);
    const int readings = Readings(p_);
    // The noise asked for is that of the mean; a single reading has more of it.
    const double single = p_.noise * std::sqrt(static_cast<double>(readings));
    for (std::size_t i = 0; i < points; ++i) {
        double sum = 0.0, sumOfSquares = 0.0;
        for (int reading = 0; reading < readings; ++reading) {
            const double noise = single * random.Normal();
            sum += noise;
            sumOfSquares += noise * noise;
        }
        trace.signal[i] += sum / readings;
        const double excess = std::max(sumOfSquares - sum * sum / readings, 0.0);
        trace.spread[i] = readings > 1 ? std::sqrt(excess / (readings - 1)) : 0.0;
    }
}

}  // namespace halvern::simulate
