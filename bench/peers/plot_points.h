#pragma once

#include <functional>
#include <string>
#include <vector>

namespace halvern::bench {

inline constexpr int kScans = 500, kPoints = 2048;
inline constexpr double kYMin = -0.06, kYMax = 3.06;  ///< as the program's plot has them

/// The points of the full plot, one scan behind the other.
struct PlotPoints {
    std::vector<double> x, y;
};

/// Reads what make_data has written into a folder.
PlotPoints ReadPlotPoints(const std::string& folder);

/// One of the pictures that are measured: its row, its size, and the radii on view.
struct PictureRow {
    const char* row;
    int width, height;
    double xMin, xMax;
};

/// Draws each picture once, and prints "ROW/500/WAY MILLISECONDS" for it.
void MeasurePictures(const char* way, const std::function<void(const PictureRow&)>& draw);

/// The colours of curves, by their number: 0xRRGGBB.
unsigned ColourOf(int scan);

}  // namespace halvern::bench
