#include <benchmark/benchmark.h>

#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "bench/bench_desktop.h"
#include "bench/other_ways.h"
#include "bench/ratios.h"
#include "bench/scan_plot.h"
#include "plot/plot_window.h"
#include "render/graphics.h"

namespace {

using namespace halvern;
using namespace halvern::bench;

struct Picture {
    std::string name;
    ScanPlot plot;
};

/// The full plot in two sizes, and what it takes to be half of that, a quarter, an eighth.
std::vector<Picture> AllPictures() {
    std::vector<Picture> pictures;
    const auto add = [&](const std::string& name, const ScanPlot& plot) {
        pictures.push_back({name + '/' + std::to_string(plot.width) + 'x' + std::to_string(plot.height), plot});
    };
    for (const auto& [width, height] : {std::pair{665, 500}, std::pair{1250, 700}}) {
        add("full", {500, width, height, false, false});
        add("zoomed", {500, width, height, true, false});
        add("noisy", {500, width, height, false, true});
        add("eighth", {63, width, height, false, false});
        add("quarter", {125, width, height, false, false});
        add("half", {250, width, height, false, false});
    }
    return pictures;
}

struct Way {
    std::string name;
    int repetitions;
    std::function<void(BenchDesktop& desktop, QImage& picture)> draw;
};

const std::vector<Way> kWays = {
    {"handler", 15, [](BenchDesktop&, QImage&) { PlotitForm().Form_Paint(); }},
    {"stamps", 15, [](BenchDesktop&, QImage& picture) { DrawWithStamps(picture); }},
    {"painter", 1, [](BenchDesktop&, QImage& picture) { DrawWithPainter(picture); }},
};

/// All ways draw into pictures of their own. The handler has run once and has worked out the axes for all.
void Run(benchmark::State& state, const Picture& picture, const Way& way) {
    static BenchDesktop desktop;
    static std::string requested;
    if (requested != picture.name) {
        requested = picture.name;
        desktop.canvas.SetSize({picture.plot.width, picture.plot.height}, 1.0);
        Request(picture.plot);
        PlotitForm().Form_Paint();
    }
    QImage other(picture.plot.width, picture.plot.height, QImage::Format_RGB32);
    for (auto _ : state) {
        way.draw(desktop, other);
        benchmark::DoNotOptimize(desktop.canvas.Image().constBits());
        benchmark::DoNotOptimize(other.constBits());
    }
    state.SetItemsProcessed(state.iterations() * picture.plot.scans * kPointsInScan * 2);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    StartGraphics();
    for (const auto& picture : AllPictures())
        for (const auto& way : kWays)
            benchmark::RegisterBenchmark((way.name + '/' + picture.name).c_str(),
                                         [&way, picture](benchmark::State& state) { Run(state, picture, way); })
                ->Unit(benchmark::kMillisecond)
                ->MinTime(0.01)
                ->Repetitions(way.repetitions);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    std::vector<std::string> ways;
    for (const auto& way : kWays)
        ways.push_back(way.name);
    reporter.PrintRatios(std::cout, ways);
}
