#pragma once

#include <cstdint>

namespace halvern {

/// Puts interference scans on the radii of scan 1, less their offsets. That all scans lie on these radii, nothing checks.
///
/// Reads     ScanData, ScanPoints(1), NumFiles, JitterOffset(K)
/// Writes    GridRadius(I)      cm
///           GridSignal(I, K)   fringes, I = 1 .. ScanPoints(1), K = 1 .. NumFiles, each difference a single
/// Result    points of the grid, ScanPoints(1)
/// Note      GridPoints is the caller's
std::int16_t TakeGridOfFirstScan();

}  // namespace halvern
