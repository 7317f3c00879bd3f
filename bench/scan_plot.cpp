#include "bench/scan_plot.h"

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"

namespace halvern::bench {

namespace {

constexpr double kMeniscus = 5.95, kBase = 7.2;  // cm
constexpr double kFringes = 3.0, kNoise = 0.006;
constexpr double kScansOfARun = 500.0;

double Radius(std::int32_t point) { return kMeniscus + (kBase - kMeniscus) * (point - 1) / (kPointsInScan - 1); }

/// Signal of scan f at a radius, fringes. A run has 500 scans; a plot of fewer shows the first of them farther apart.
double Signal(double scan, double radius) {
    const double boundary = kMeniscus + 0.03 + 1.05 * scan / kScansOfARun;
    const double width = 0.006 + 0.03 * std::sqrt(scan / kScansOfARun);
    const double plateau = kFringes * std::pow(kMeniscus / boundary, 2);
    return plateau / (1.0 + std::exp((boundary - radius) / width)) + 0.05 * std::sin(scan);
}

void SetView(const ScanPlot& plot) {
    auto& S = Store();
    const double middle = (kMeniscus + kBase) / 2.0;
    const double half = (kBase - kMeniscus) / (plot.quarter ? 8.0 : 2.0);
    S.PlotXMin = static_cast<float>(middle - half);
    S.PlotXMax = static_cast<float>(middle + half);
    S.PlotYMin = -0.06F;
    S.PlotYMax = 3.06F;
}

}  // namespace

std::vector<PlotPoint> PointsOf(const ScanPlot& plot) {
    std::mt19937 random(1);  // the same noise in every run
    std::normal_distribution<double> noise(0.0, plot.noise ? kNoise : 1E-12);
    std::vector<PlotPoint> points;
    points.reserve(static_cast<std::size_t>(plot.scans) * kPointsInScan);
    for (std::int32_t scan = 1; scan <= plot.scans; ++scan)
        for (std::int32_t i = 1; i <= kPointsInScan; ++i)
            points.push_back({static_cast<float>(Radius(i)),
                              static_cast<float>(Signal(scan * kScansOfARun / plot.scans, Radius(i)) + noise(random))});
    return points;
}

void Request(const ScanPlot& plot) {
    const std::vector<PlotPoint> points = PointsOf(plot);
    const auto pointOf = [&](std::int32_t scan) {
        return [&points, scan](std::int32_t i) {
            return points[static_cast<std::size_t>(scan - 1) * kPointsInScan + static_cast<std::size_t>(i - 1)];
        };
    };
    PlotitForm().Load();
    RequestFiller filler;
    for (std::int32_t scan = 1; scan <= plot.scans; ++scan)
        filler.Symbols(1, kPointsInScan, scan, pointOf(scan));
    for (std::int32_t scan = 1; scan <= plot.scans; ++scan)
        filler.Line(1, kPointsInScan, scan, pointOf(scan));
    filler.Finish();
    SetRequestTexts({"Raw Data", "Interference", "Radius (cm)", "Fringes"});
    SetView(plot);
    PlotitForm().SetPlace({0, 0, plot.width * kTwipsPerPixel, plot.height * kTwipsPerPixel});
    Store().PlotPixelWidth = static_cast<float>(plot.width);
    Store().PlotPixelHeight = static_cast<float>(plot.height);
}

}  // namespace halvern::bench
