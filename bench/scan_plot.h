#pragma once

#include <cstdint>
#include <vector>

#include "plot/plot_request.h"

namespace halvern::bench {

/// What a benchmark draws: scans of a velocity run, on a picture of a size.
struct ScanPlot {
    std::int32_t scans;
    int width;  ///< pixels
    int height;
    bool quarter;  ///< the view is a quarter of the radii, around the middle
    bool noise;    ///< of 0.006 fringes, as an interferometer has it
};

inline constexpr std::int32_t kPointsInScan = 2048;

/// The points of the scans, one scan behind the other.
///
/// Note      a boundary goes outwards from scan to scan, becomes broader and, by dilution, lower; every scan has an offset
std::vector<PlotPoint> PointsOf(const ScanPlot& plot);

/// Fills the plot request as the plot of raw data does: each scan's markers, then each scan's line. The request is ready,
/// and the plot window has the size.
void Request(const ScanPlot& plot);

}  // namespace halvern::bench
