#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "store/analysis_store.h"

namespace halvern::test {

/// A data set of one speed. Scan K is element K - 1, point I is element I - 1.
struct SmallRun {
    bool interference = true;
    std::int32_t speed = 40000;  // rpm
    float meniscus = 6.0F;       // cm
    float omega2t = 4E8F;        // of scan 1, radians squared per second
    std::vector<float> times;    // seconds
    std::vector<std::vector<float>> radii;
    std::vector<std::vector<float>> signals;
    std::vector<float> offsets;  // jitter; none for 0

    std::int32_t Scans() const { return static_cast<std::int32_t>(times.size()); }
};

/// Puts a data set into the store, as loading and conditioning leave it there.
void Give(const SmallRun& run);

/// A boundary that moves outwards, with noise: the signal rises from 0 to about 1 fringe.
///
/// The times are 600, 900, 1200, ... seconds, the radii 5.95 to 7.25 cm. The shape is 1/2 + x / (2 + 2 |x|) with x the
/// distance from the boundary in half-widths, the noise a linear congruential sequence: nothing but additions,
/// products and quotients of small integers, the same everywhere.
SmallRun MovingBoundary(std::int32_t scans, std::int32_t points, std::uint32_t seed = 1);

/// The same data set worked out in plain doubles and floats, without a line of the program.
struct LongHand {
    std::vector<float> gridRadius;
    std::vector<std::vector<float>> gridSignal;  // by scan
    float deltaS = 0.0F;                         // Svedbergs
    float lastPairTime = 0.0F;
    std::vector<float> s;
    std::vector<std::vector<float>> pairs;  // by pair; as long as its curve
    std::vector<float> raw;                 // average of the pairs
    std::vector<float> average;             // less the level
    float time = 0.0F;                      // harmonic mean of all scans in use
    std::vector<float> sem, gHat, gStar, gStarSem, plateauRate;
};

/// Given     level       zero level
///           rateRadian  rpm to rad/s in dc/dt
///           gRadian     the same in g(s*)
LongHand WorkOut(const SmallRun& run, float level = 0.0F, double rateRadian = 0.104719755, double gRadian = 0.1047196);

/// The first elements of an array of the store.
template <class Array>
std::vector<float> First(const Array& array, std::size_t count) {
    std::vector<float> values;
    for (std::size_t i = 1; i <= count; ++i)
        values.push_back(array(static_cast<std::int32_t>(i)));
    return values;
}

/// The signal of a scan on the common grid, and dc/dt of a pair.
std::vector<float> GridSignalOf(std::int32_t K, std::size_t count);
std::vector<float> RatesOfPair(std::int32_t P, std::size_t count);

/// One entry of the plot request.
struct Entry {
    float x, y;
    int code;
    bool operator==(const Entry&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Entry& entry) {
        return out << '(' << entry.x << ", " << entry.y << ", " << entry.code << ')';
    }
};
std::vector<Entry> Request();

/// A line of these points and its symbols.
std::vector<Entry> LineOf(const std::vector<float>& x, const std::vector<float>& y, int code);
std::vector<Entry> SymbolsOf(const std::vector<float>& x, const std::vector<float>& y, int code);
std::vector<Entry> Joined(std::vector<Entry> first, const std::vector<Entry>& second);

/// s* in seconds as the x of a plot.
std::vector<float> AsSvedbergs(const std::vector<float>& s);

/// The texts of the request: the lines above the box, then the titles of x and y.
std::vector<std::string> RequestTextsNow();

/// The flags of the request that are up, in the order of their names.
std::vector<std::string> FlagsUp();

/// Every item of the main window's menu with all that can be seen of it.
std::map<std::string, std::string> MenuStates();
/// What has changed since: the item and its new state.
std::map<std::string, std::string> MenuChanges(const std::map<std::string, std::string>& before);

/// What MenuChanges tells of items that have been enabled or disabled, and nothing else.
std::map<std::string, std::string> Only(const std::map<std::string, std::string>& before,
                                        const std::vector<std::string>& enabled,
                                        const std::vector<std::string>& disabled = {});

/// A checksum over the bits of singles, byte by byte from the lowest: FNV-1a, 64 bits.
std::uint64_t Digest(const std::vector<float>& values, std::uint64_t start = 0xCBF29CE484222325U);

}  // namespace halvern::test
