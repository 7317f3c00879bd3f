#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "store/analysis_store.h"

namespace halvern::bench {

using PointRow = std::array<float, kMostPoints>;

/// What dc/dt makes of scans: the common grid and the signals on it, the grid of s*, dc/dt of the pairs, and their mean.
struct Rates {
    PointRow gridRadius, sStar, mean;
    std::array<PointRow, kMostScans> gridSignal;
    std::array<PointRow, kMostPairs> pairs;
    std::int32_t pairCount = 0;
    std::int32_t points = 0;  ///< of the grid of s*, as the last pair leaves it
};

/// What dc/dt is measured by: the interference scans in the store, step by step in tight loops, with the logarithms and
/// the grid of s* worked out once. The bits are those of the program.
void CalculateRatesTightly(Rates& rates);

/// The same steps written down one after the other for each pair.
void CalculateRatesPlainly(Rates& rates);

/// Whether the store has the same.
bool StoreHas(const Rates& rates);

/// The wide distribution at eleven radii, not smoothed.
struct WideCurves {
    std::array<std::array<float, kMostScans>, 11> gOfS, sValue;  ///< by radius, points against the scans
    std::array<float, 11> radius;
    std::int32_t scans = 0;
};

/// What the wide distribution is measured by: of each scan only the points that it takes, in plain loops, in the same
/// extended precision. The bits are those of the program.
void CalculateWidePlainly(WideCurves& curves);

bool StoreHas(const WideCurves& curves);

}  // namespace halvern::bench
