#include "simulate/parameters.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

#include "simulate/scan_writer.h"

namespace halvern::simulate {

namespace {

constexpr double kGasConstantErg = 8.314462618e7;  // erg/(mol K)
constexpr double kZeroCelsiusKelvin = 273.15;
constexpr double kSecondsPerSvedberg = 1e-13;
constexpr double kCm2PerSPerFick = 1e-7;
constexpr double kGramsPerKDa = 1000.0;

constexpr std::size_t kUsualCells = 4000;
constexpr std::size_t kMostCells = 20000;
constexpr double kWantedPeclet = 0.25;
constexpr double kHighestPeclet = 2.0;

[[noreturn]] void Complain(const std::string& where, const std::string& reason) {
    throw ParameterError(where.empty() ? reason : where + ": " + reason);
}

/// Complains about the first of the keys that was set, or about none of them if all stand as they were.
[[noreturn]] void Complain(const Parameters& p, std::initializer_list<std::string_view> keys,
                           const std::string& reason) {
    for (const auto key : keys)
        if (const auto found = p.where.find(key); found != p.where.end())
            Complain(found->second, reason);
    Complain("", reason);
}

double HighestOmega2(const Parameters& p) {
    int highest = 0;
    for (const auto& run : p.speeds)
        highest = std::max(highest, run.rpm);
    return Omega2(highest);
}

void CheckOptics(const Parameters& p) {
    const std::string_view foreign[] = {"ti-noise", "jitter", "jumps-between", "jumps-within"};
    if (IsAbsorbance(p)) {
        for (const auto key : foreign)
            if (p.where.contains(key))
                Complain(p, {key}, std::string(key) + " is of interference optics, and the optics are absorbance");
    } else if (p.where.contains("radius-scatter")) {
        Complain(p, {"radius-scatter"}, "radius-scatter is of absorbance optics, and the optics are interference");
    }
}

void CheckRadii(const Parameters& p) {
    if (p.meniscusCm >= p.baseCm)
        Complain(p, {"meniscus", "base"}, "the meniscus has to lie inside the base");
    if (ReadFromCm(p) >= ReadToCm(p))
        Complain(p, {"read-from", "read-to"}, "read-from has to be less than read-to");
    // Half a unit of the last decimal is what each of two neighbours can lose when it is written.
    const double gap = RadialStepCm(p) - 2.0 * RadiusScatterCm(p);
    if (gap < 1.5 * std::pow(10.0, -p.radiusDecimals))
        Complain(p, {"radial-step", "radius-scatter", "radius-decimals"},
                 "the radial step, less twice the scatter, is too small for radii written with " +
                     std::to_string(p.radiusDecimals) + " decimals");
    const std::size_t points = RadialPoints(p);
    if (points > kMostPoints || points < kFewestPoints)
        Complain(p, {"radial-step", "read-from", "read-to"},
                 "a scan would have " + std::to_string(points) + " points, and has to have " +
                     std::to_string(kFewestPoints) + " to " + std::to_string(kMostPoints));
}

void CheckSpecies(const Parameters& p) {
    if (p.species.empty())
        Complain("", "no species is given");
    for (const auto& species : p.species)
        DiffusionCm2PerS(species, p);
}

/// Scans and speeds follow each other in time, and the file can tell each scan from the one before it.
class TimesCheck {
  public:
    explicit TimesCheck(const Parameters& p) : p_(p) {}

    void Pass(const SpeedRun& run) {
        for (const double seconds : run.scanSeconds)
            PassScan(run, seconds);
        if (run.endSeconds <= runStart_ && run.scanSeconds.empty())
            Complain(run.where, "the speed ends before it starts");
        omega2tAtStart_ += Omega2(run.rpm) * (run.endSeconds - runStart_);
        runStart_ = run.endSeconds;
    }
    std::size_t Scans() const { return scans_; }

  private:
    void PassScan(const SpeedRun& run, double seconds) {
        if (seconds < runStart_ || seconds <= lastScan_)
            Complain(run.where, "the times of the scans have to rise, from speed to speed too");
        lastScan_ = seconds;
        auto text = Omega2tText(omega2tAtStart_ + Omega2(run.rpm) * (seconds - runStart_), p_.omega2tDigits);
        if (text == lastText_)
            Complain(run.where, "scans " + std::to_string(scans_) + " and " + std::to_string(scans_ + 1) +
                                    " would have the same omega squared t in their files, " + text);
        lastText_ = std::move(text);
        ++scans_;
    }

    const Parameters& p_;
    double runStart_ = 0.0;
    double lastScan_ = -1.0;
    double omega2tAtStart_ = 0.0;
    std::string lastText_;
    std::size_t scans_ = 0;
};

void CheckTimes(const Parameters& p) {
    if (p.speeds.empty())
        Complain("", "no speed is given");
    TimesCheck times(p);
    for (const auto& run : p.speeds)
        times.Pass(run);
    if (times.Scans() == 0)
        Complain(p.speeds.back().where, "no speed has any scan");
    if (times.Scans() > kMostScans)
        Complain(p.speeds.back().where, "there are " + std::to_string(times.Scans()) +
                                            " scans, and a data set holds no more than " + std::to_string(kMostScans));
}

}  // namespace

bool IsAbsorbance(const Parameters& parameters) { return parameters.optics == Optics::kAbsorbance; }

double ReadFromCm(const Parameters& parameters) { return parameters.readFromCm.value_or(parameters.meniscusCm - 0.05); }

double ReadToCm(const Parameters& parameters) { return parameters.readToCm.value_or(parameters.baseCm + 0.02); }

double RadialStepCm(const Parameters& parameters) {
    return parameters.radialStepCm.value_or(IsAbsorbance(parameters) ? 0.003 : 0.0007);
}

double RadiusScatterCm(const Parameters& parameters) {
    return parameters.radiusScatterCm.value_or(IsAbsorbance(parameters) ? 0.0005 : 0.0);
}

int Readings(const Parameters& parameters) { return parameters.readings.value_or(IsAbsorbance(parameters) ? 5 : 40); }

int WavelengthNm(const Parameters& parameters) {
    return parameters.wavelengthNm.value_or(IsAbsorbance(parameters) ? 280 : 675);
}

std::optional<double> Ceiling(const Parameters& parameters) {
    const double ceiling = parameters.ceiling.value_or(IsAbsorbance(parameters) ? 3.0 : 0.0);
    return ceiling > 0.0 ? std::optional(ceiling) : std::nullopt;
}

std::size_t RadialPoints(const Parameters& parameters) {
    // 1E-9 of a step is the rounding of the quotient: a range of whole steps keeps its last point.
    const double steps = (ReadToCm(parameters) - ReadFromCm(parameters)) / RadialStepCm(parameters);
    return static_cast<std::size_t>(std::floor(steps + 1e-9)) + 1;
}

double DiffusionCm2PerS(const Species& species, const Parameters& parameters) {
    if (species.diffusionFick)
        return *species.diffusionFick * kCm2PerSPerFick;
    const double vbar = species.partialSpecificVolume.value_or(parameters.partialSpecificVolume);
    const double buoyancy = 1.0 - vbar * parameters.density;
    if (buoyancy <= 0.0)
        Complain(species.where,
                 "the species does not sink: its partial specific volume times the density is not below 1");
    const double thermal = kGasConstantErg * (parameters.temperatureCelsius + kZeroCelsiusKelvin);
    return species.sSvedberg * kSecondsPerSvedberg * thermal / (*species.massKDa * kGramsPerKDa * buoyancy);
}

Particle ParticleOf(const Species& species, const Parameters& parameters) {
    return {species.sSvedberg * kSecondsPerSvedberg, DiffusionCm2PerS(species, parameters)};
}

double Omega2(int rpm) {
    const double omega = rpm * 2.0 * std::numbers::pi / 60.0;
    return omega * omega;
}

std::size_t SolverCells(const Species& species, const Parameters& parameters) {
    if (parameters.cells)
        return static_cast<std::size_t>(*parameters.cells);
    const double peclet = CellPeclet({parameters.meniscusCm, parameters.baseCm}, ParticleOf(species, parameters),
                                     HighestOmega2(parameters), kUsualCells);
    const double wanted = std::ceil(static_cast<double>(kUsualCells) * peclet / kWantedPeclet);
    return static_cast<std::size_t>(
        std::clamp(wanted, static_cast<double>(kUsualCells), static_cast<double>(kMostCells)));
}

void Check(const Parameters& parameters) {
    CheckOptics(parameters);
    CheckRadii(parameters);
    CheckSpecies(parameters);
    CheckTimes(parameters);
}

std::vector<std::string> Warnings(const Parameters& parameters) {
    std::vector<std::string> warnings;
    for (const auto& species : parameters.species) {
        const double peclet = CellPeclet({parameters.meniscusCm, parameters.baseCm}, ParticleOf(species, parameters),
                                         HighestOmega2(parameters), SolverCells(species, parameters));
        if (peclet > kHighestPeclet)
            warnings.push_back(species.where +
                               ": the species diffuses too little for the cells of the solver, and its boundary comes "
                               "out too broad");
    }
    return warnings;
}

}  // namespace halvern::simulate
