#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/small_run.h"

// The stages that come before dc/dt and beside it, worked out in plain doubles and floats from the texts of the scan files,
// without a line of the program.

namespace halvern::test {

/// The scans of a list file. Scan K is element K - 1, point I is element I - 1.
struct ScansByHand {
    bool interference = false;
    std::vector<std::int32_t> speeds;
    std::vector<float> omega2t, times;
    std::vector<std::vector<float>> radii, signals;
};
ScansByHand ReadByHand(const std::string& folder, const std::string& list);

/// Every scan with its fringes added again.
std::vector<std::vector<float>> FringesAddedAgain(std::vector<std::vector<float>> signals);

/// The mean of 21 points around the first one at or beyond a radius, by scan.
std::vector<float> JitterAt(const ScansByHand& scans, float radiusCm);

/// The offsets once each scan has been brought within half a fringe of the one behind it, around a radius.
std::vector<float> WholeFringesAt(const ScansByHand& scans, std::vector<float> offsets, float radiusCm);

/// The wide distribution of absorbance scans, by radius number from 0; empty at a radius that is left out.
struct WideByHand {
    std::vector<std::vector<float>> g, s;
};
/// Given     menisci   by scan
///           window    points of the smoothing; 0 for none
WideByHand WorkOutWide(const ScansByHand& scans, const std::vector<float>& menisci, std::size_t window);

}  // namespace halvern::test
