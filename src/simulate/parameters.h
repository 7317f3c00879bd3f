#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulate/lamm_solver.h"

namespace halvern::simulate {

/// What the analysis can hold of a data set, and the points below which it takes a scan for a broken one.
inline constexpr std::size_t kMostScans = 500;
inline constexpr std::size_t kMostPoints = 2048;
inline constexpr std::size_t kFewestPoints = 10;

enum class Optics : std::uint8_t { kAbsorbance, kInterference };

/// `species = concentration:0.6 s:4.3 mass:66.4`: an ideal species that knows nothing of the others.
struct Species {
    double concentration = 0.0;                   // loading concentration, absorbance units or fringes
    double sSvedberg = 0.0;                       // 1E-13 s, at the temperature and in the solvent of the run
    std::optional<double> massKDa;                // either the mass
    std::optional<double> diffusionFick;          // or D, 1E-7 cm^2/s
    std::optional<double> partialSpecificVolume;  // mL/g; absent: that of the parameters
    std::string where;                            // what a complaint about it begins with
};

/// `speed = rpm:50000 from:1800 to:7200 scans:60`: a time at one speed. Seconds count from the start of the first one.
struct SpeedRun {
    int rpm = 0;
    std::vector<double> scanSeconds;  // rising; may be none
    double endSeconds = 0.0;          // at or behind the last scan; the next speed starts here
    std::string where;
};

/// Everything that a simulation depends on. Signals are in absorbance units or fringes. What is optional and absent
/// goes by the optics or by other parameters: a function below says how.
struct Parameters {
    Optics optics = Optics::kAbsorbance;
    std::string title = "simulated";
    std::string listFile = "simulated.LST";
    int cell = 1;

    double temperatureCelsius = 20.0;
    double density = 0.99823;              // g/mL: water at 20 C
    double partialSpecificVolume = 0.735;  // mL/g
    std::vector<Species> species;
    std::vector<SpeedRun> speeds;

    double meniscusCm = 6.0;
    double baseCm = 7.2;
    std::optional<double> readFromCm;
    std::optional<double> readToCm;
    std::optional<double> radialStepCm;
    std::optional<double> radiusScatterCm;

    int seed = 1;
    double noise = 0.0;  // standard deviation of a reported signal
    std::optional<int> readings;
    std::optional<double> ceiling;
    double meniscusSpike = 0.0;       // height
    double timeInvariantNoise = 0.0;  // root mean square
    double jitter = 0.0;              // standard deviation
    double jumpsBetween = 0.0;        // probability, per scan
    int jumpsWithin = 0;              // per scan

    std::optional<int> wavelengthNm;
    int radiusDecimals = 4;
    int signalDecimals = 6;
    int omega2tDigits = 6;

    std::optional<int> cells;
    double tolerance = 1e-8;

    /// Where each value came from that was set, by its key: "file:line" or "--key".
    std::map<std::string, std::string, std::less<>> where;
};

/// A parameter that is impossible or missing; what() is "file:line: reason", "--key: reason" or the reason alone.
class ParameterError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

bool IsAbsorbance(const Parameters& parameters);

/// 0.05 cm inside the meniscus and 0.02 cm beyond the base, if not set.
double ReadFromCm(const Parameters& parameters);
double ReadToCm(const Parameters& parameters);
/// 0.003 cm, with interference optics 0.0007 cm, if not set.
double RadialStepCm(const Parameters& parameters);
/// 0.0005 cm, with interference optics 0, if not set.
double RadiusScatterCm(const Parameters& parameters);
/// 5, with interference optics 40, if not set.
int Readings(const Parameters& parameters);
/// 280 nm, with interference optics 675 nm, if not set.
int WavelengthNm(const Parameters& parameters);
/// The highest signal before noise: 3, with interference optics none, if not set; none if set to 0.
std::optional<double> Ceiling(const Parameters& parameters);

/// Points of a scan: from the first radius to the last one that the range has room for.
std::size_t RadialPoints(const Parameters& parameters);

/// D of a species, cm^2/s: its own, or that of its mass, D = s R T / (M (1 - vbar rho)).
///
/// Source    T. Svedberg and K. O. Pedersen, The Ultracentrifuge, Oxford 1940
/// Fails     ParameterError if a species given by its mass does not sink: vbar times the density is 1 or more
double DiffusionCm2PerS(const Species& species, const Parameters& parameters);

/// What the solver takes of a species: its s, and D as above.
///
/// Fails     as DiffusionCm2PerS
Particle ParticleOf(const Species& species, const Parameters& parameters);

/// Cells of the solver for a species: those set, or 4000, or as many as keep the cell's Peclet number at 0.25 at the
/// highest speed, but no more than 20000.
std::size_t SolverCells(const Species& species, const Parameters& parameters);

/// (rpm times 2 pi / 60) squared, rad^2/s^2.
double Omega2(int rpm);

/// Checks what only all parameters together can show; each of them is within its own bounds already.
///
/// Fails     ParameterError, for example with a meniscus beyond the base, no species, times that do not rise
void Check(const Parameters& parameters);

/// What the user should know of a simulation that can be done: species for which the cells are too wide.
std::vector<std::string> Warnings(const Parameters& parameters);

}  // namespace halvern::simulate
