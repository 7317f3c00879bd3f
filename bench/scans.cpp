// What is done to all scans of the instrument's full size at once: fringes re-added, the tables of raw data and of
// the plot written, the wide distribution at eleven radii.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <string>

#include "bench/bench_desktop.h"
#include "conditioning/readd_fringes.h"
#include "output/scan_tables.h"
#include "plot/export.h"
#include "plot/plot_request.h"
#include "render/graphics.h"
#include "store/analysis_store.h"
#include "store/files.h"
#include "wide/wide_distribution.h"

namespace {

using namespace halvern;

/// A desktop whose user saves every table under one name.
struct SavingDesktop : bench::BenchDesktop {
    const std::string file = (std::filesystem::temp_directory_path() / "halvern-bench-table.txt").string();

    ~SavingDesktop() override {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
    std::optional<std::string> AskForNewFile(const FileDialog& /*dialog*/) override { return file; }
    void RunModal(Form& form) override { form.Unload(); }
};

/// 500 scans of 2048 points, 8 fringes each, wrapped to their fractions.
void FillScans() {
    auto& S = Store();
    S.NumFiles = kMostScans;
    S.IsInterference = true;
    for (std::int32_t K = 1; K <= kMostScans; ++K) {
        S.ScanPoints(K) = kMostPoints;
        S.ScanMeniscus(K) = 5.9F;
        S.ScanSpeedIndex(K) = 1;
        S.ScanW2t(K) = 1E10F + 5E8F * static_cast<float>(K);
        const double boundary = 5.9 * std::exp(8E-13 * S.ScanW2t(K));
        for (std::int32_t J = 1; J <= kMostPoints; ++J) {
            const double radius = 5.85 + 0.00065 * J;
            const double fringes = 4.0 * (1.0 + std::erf((radius - boundary) / 0.05)) + 0.01 * std::sin(J * 0.37 + K);
            S.ScanData(J, 1, K) = static_cast<float>(radius);
            S.ScanData(J, 2, K) = static_cast<float>(fringes - std::floor(fringes));
        }
    }
}

void ReAdd(benchmark::State& state) {
    for (auto _ : state)
        ReAddFringes();
}

void RawTable(benchmark::State& state) {
    for (auto _ : state)
        RawDataOut_Click();
}

/// Every point as a marker and as a point of a line, as the plot of raw data has them.
void FillRequest() {
    auto& S = Store();
    S.ProgramDir = CurrentFolder();
    S.PlotCount = 0;
    for (const bool line : {false, true})
        for (std::int32_t K = 1; K <= kMostScans; ++K)
            for (std::int32_t J = 1; J <= kMostPoints; ++J) {
                ++S.PlotCount;
                S.PlotX(S.PlotCount) = S.ScanData(J, 1, K);
                S.PlotY(S.PlotCount) = S.ScanData(J, 2, K);
                S.PlotSym(S.PlotCount) = line ? LineCode(K) : ToInteger16(K);
            }
}

void PlotDataFile(benchmark::State& state) {
    FillRequest();
    for (auto _ : state)
        SavePlotNow_Click();
}

void WideDistributionSmoothed(benchmark::State& state) {
    Store().UseSmoothing = true;
    Store().SmoothWindow = 11;
    for (auto _ : state)
        DoWideStraight_Click();
}

BENCHMARK(ReAdd)->Unit(benchmark::kMillisecond);
BENCHMARK(RawTable)->Unit(benchmark::kMillisecond);
BENCHMARK(PlotDataFile)->Unit(benchmark::kMillisecond);
BENCHMARK(WideDistributionSmoothed)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    StartGraphics();
    const SavingDesktop desktop;
    FillScans();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
