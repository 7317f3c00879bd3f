// make_data FOLDER: the scan files of a full run and of a usual cell, in folders of these names, and the points of a full
// plot, as singles, one scan behind the other: plot.x and plot.y, and both of a point together in plot.xy.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

#include "bench/scan_plot.h"
#include "bench/velocity_run.h"

namespace {

using namespace halvern::bench;

void WriteArray(const std::filesystem::path& path, const std::vector<float>& values) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(values.data()),
               static_cast<std::streamsize>(values.size() * sizeof values[0]));
}

void WritePlotPoints(const std::filesystem::path& folder) {
    std::vector<float> xs, ys, pairs;
    for (const auto& point : PointsOf({500, 0, 0, false, false})) {
        xs.push_back(point.x);
        ys.push_back(point.y);
        pairs.insert(pairs.end(), {point.x, point.y});
    }
    WriteArray(folder / "plot.x", xs);
    WriteArray(folder / "plot.y", ys);
    WriteArray(folder / "plot.xy", pairs);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_data FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    WriteRun(folder / "full", kFullSize);
    WriteRun(folder / "usual", kUsualCell);
    WritePlotPoints(folder);
}
