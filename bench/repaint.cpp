// The plot of raw data, markers and lines, drawn into a picture: by the program's paint handler, by what it is measured by,
// and in other ways.

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include "bench/bench_desktop.h"
#include "bench/other_ways.h"
#include "bench/report.h"
#include "bench/scan_plot.h"
#include "plot/plot_window.h"
#include "render/graphics.h"

namespace {

using namespace halvern;
using namespace halvern::bench;

struct Picture {
    std::string name;  ///< ROW/SCANS
    ScanPlot plot;
};

/// The plot in two sizes, whole, zoomed and with noise, and what it takes to be half of that, a quarter, an eighth.
std::vector<Picture> AllPictures() {
    std::vector<Picture> pictures;
    for (const auto& [width, height] : {std::pair{665, 500}, std::pair{1250, 700}}) {
        const std::string size = ' ' + std::to_string(width) + 'x' + std::to_string(height) + '/';
        for (const std::int32_t scans : {500, 250, 125, 63})
            pictures.push_back({"repaint" + size + std::to_string(scans), {scans, width, height, false, false}});
        pictures.push_back({"zoom" + size + "500", {500, width, height, true, false}});
        pictures.push_back({"noisy" + size + "500", {500, width, height, false, true}});
    }
    return pictures;
}

struct Way {
    const char* name;
    bool onlyFull;  ///< it takes long: once, for the full plot
    void (*draw)(QImage& picture);
};

constexpr Way kWays[] = {
    {"program", false, [](QImage&) { PlotitForm().Form_Paint(); }},
    {"yardstick", false, DrawTightly},
    {"point by point", true, DrawWithStamps},
    {"QPainter", true, DrawWithPainter},
};

constexpr double kMostOtherPixels = 0.01;  // the yardstick rounds pixels in single

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
        way.draw(other);
        benchmark::DoNotOptimize(desktop.canvas.Image().constBits());
        benchmark::DoNotOptimize(other.constBits());
    }
    DrawTightly(other);
    if (ShareOfOtherPixels(desktop.canvas.Image(), other) > kMostOtherPixels)
        state.SkipWithError("the yardstick draws another picture");
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    StartGraphics();
    for (const auto& picture : AllPictures())
        for (const auto& way : kWays)
            if (!way.onlyFull || picture.plot.scans == 500)
                benchmark::RegisterBenchmark((picture.name + '/' + way.name).c_str(),
                                             [&way, picture](benchmark::State& state) { Run(state, picture, way); })
                    ->Unit(benchmark::kMillisecond)
                    ->UseRealTime();
    return RunAndReport();
}
