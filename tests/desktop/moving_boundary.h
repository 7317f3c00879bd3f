#pragma once

#include <string>

#include "support/data_files.h"

namespace halvern::test {

/// Scans of a boundary that moves at 4.2 Svedbergs, 1300 points each from 5.9 cm on, and a list file of them.
///
/// Result    the list's path

/// A meniscus at 5.98 cm, 20 scans at 42000 rpm.
std::string WriteMovingBoundary(const DataFolder& folder);
inline constexpr int kMovingScans = 20;

/// A speed, its number of scans being kScansOfSpeed, and where its cell has the meniscus.
struct SpeedRun {
    int speed;
    double meniscus;
};
inline constexpr SpeedRun kSpeedRuns[] = {{10000, 5.96}, {25000, 5.98}, {42000, 6.00}};
inline constexpr int kScansOfSpeed = 4;

/// The three speeds, one after the other; the meniscus is seen as a spike.
std::string WriteThreeSpeeds(const DataFolder& folder);

}  // namespace halvern::test
