#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "support/test_desktop.h"

namespace halvern::test {

/// Random numbers of a seed, the same with every library: the standard lays down the bits, the rest is written out.
class Chances {
  public:
    explicit Chances(std::uint64_t seed) : bits_(seed) {}

    /// Evenly distributed, 0 up to but not including 1, in steps of 2^-53.
    double Uniform() { return static_cast<double>(bits_() >> 11U) * 0x1p-53; }
    double Between(double low, double high) { return low + (high - low) * Uniform(); }
    /// Both ends included.
    int Whole(int low, int high) { return low + static_cast<int>(Uniform() * (high - low + 1)); }
    bool Likely(double probability) { return Uniform() < probability; }

  private:
    std::mt19937_64 bits_;
};

/// What a data set is to be like. Everything that is left open is drawn.
struct Wishes {
    enum Optics { kEither, kAbsorbance, kInterference } optics = kEither;
    bool commonRadii = false;  ///< of all scans; interference scans have them anyway
    double quantum = 0.0;      ///< signals are multiples of it, and singles as they stand; 0 for six decimals
    int fewestScans = 4, mostScans = 60;
    int fewestPoints = 30, mostPoints = 400;
    int mostSpeeds = 1;
    double slowest = 1.0, fastest = 50.0;  ///< Svedbergs
    bool wholeCell = false;                ///< scans reach from in front of 6 cm to beyond 7 cm
};

/// A data set. Scan K is element K - 1, point I is element I - 1.
struct RandomRun {
    bool interference = false;
    std::vector<std::int32_t> speeds;  ///< rpm, of each scan
    std::vector<float> omega2t;        ///< radians squared per second
    std::vector<float> menisci;        ///< cm, of each scan
    std::vector<std::vector<float>> radii, signals;

    std::int32_t Scans() const { return static_cast<std::int32_t>(omega2t.size()); }
    std::int32_t PointsOf(std::int32_t K) const {
        return static_cast<std::int32_t>(radii[static_cast<std::size_t>(K - 1)].size());
    }
    float LargestSignal() const;
};

/// A boundary that comes through the cell, with noise, taken at rising omega squared t. Most sets are small: 4 to 60
/// scans, 30 to 400 points. Radii have four decimals, omega squared t five digits, as in scan files.
RandomRun MakeRun(std::uint64_t seed, const Wishes& wishes);

/// Puts a data set into the store, as loading it and setting the meniscus leave it there. Of earlier sets that which no
/// stage reads may stay.
void Give(const RandomRun& run);

/// A desktop on which nobody draws: a thousand plots are not kept.
class QuietDesktop final : public TestDesktop {
  public:
    QuietDesktop() { canvas_.SetSize(665.0F, 499.0F); }
    Canvas& SurfaceOf(Form& /*form*/) override { return canvas_; }

  private:
    NullCanvas canvas_;
};

/// What dc/dt and g(s*) leave behind, as far as the grid goes.
struct Analysis {
    float deltaS = 0.0F, sedTimeOfPair = 0.0F, sedTime = 0.0F;
    std::vector<float> s;
    std::vector<std::vector<float>> pairs;  ///< by pair
    std::vector<float> raw, average, sem, gHat, gStar, gStarSem, plateauRate;
    bool operator==(const Analysis&) const = default;
};

/// The first elements of an array of the store.
template <class Array>
std::vector<float> FirstOf(const Array& array, std::int32_t count) {
    return {array.Elements().begin(), array.Elements().begin() + count};
}

/// dc/dt of the data set in the store.
Analysis AnalyseRates();
/// dc/dt, then g(s*) with a zero level. The limits are those in the store.
Analysis Analyse(float zeroLevel = 0.0F);
/// What the store holds of both.
Analysis AnalysisInStore();

/// All values times a number.
std::vector<float> Times(float factor, std::vector<float> values);

/// Whether two series agree in all bits, signs of zeros included.
bool SameBits(const std::vector<float>& a, const std::vector<float>& b);
bool SameBits(const Analysis& a, const Analysis& b);

/// The largest deviation met, as a share of what is allowed.
class Worst {
  public:
    /// Result    whether it is allowed
    bool Take(double deviation, double allowed);
    double Share() const { return share_; }

  private:
    double share_ = 0.0;
};

/// Half the step of a single in [1, 2): what a single is off by at most, relative to it.
inline constexpr double kHalfStep = 0x1p-24;

/// Data sets of a relation. What the sanitizers look for shows in fewer, and with them each takes five times as long.
#ifdef __SANITIZE_ADDRESS__
inline constexpr std::uint64_t kRuns = 200;
#else
inline constexpr std::uint64_t kRuns = 1000;
#endif

}  // namespace halvern::test
