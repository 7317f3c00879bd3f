// What is done to all scans of the instrument's full size at once: fringes re-added, the tables of raw data and of
// the plot written, the wide distribution at eleven radii.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "analysis/time_derivative.h"
#include "bench/bench_desktop.h"
#include "conditioning/readd_fringes.h"
#include "intake/data_set_load.h"
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
    std::string list;
    const std::string file = (std::filesystem::temp_directory_path() / "halvern-bench-table.txt").string();

    ~SavingDesktop() override {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
    std::optional<std::string> AskForExistingFile(const FileDialog& /*dialog*/) override { return list; }
    std::optional<std::string> AskForNewFile(const FileDialog& /*dialog*/) override { return file; }
    void RunModal(Form& form) override { form.Unload(); }
};

SavingDesktop* theDesktop = nullptr;

/// 500 scans of 2048 points, 8 fringes each, wrapped to their fractions.
void FillScans() {
    auto& S = Store();
    S.NumFiles = kMostScans;
    S.IsInterference = true;
    S.Meniscus = 5.9F;
    for (std::int32_t K = 1; K <= kMostScans; ++K) {
        S.ScanPoints(K) = kMostPoints;
        S.ScanMeniscus(K) = 5.9F;
        S.ScanSpeedIndex(K) = 1;
        S.ScanSpeed(K) = 50000;
        S.ScanTime(K) = 60.0F * static_cast<float>(K);
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

/// The scans as files of the instrument, in a folder of their own, with a list of them.
class ScanFiles {
  public:
    ScanFiles() : folder_(std::filesystem::temp_directory_path() / "halvern-bench-scans") {
        std::filesystem::create_directories(folder_);
        std::ofstream list(List());
        for (std::int32_t K = 1; K <= kMostScans; ++K) {
            char name[16];
            std::snprintf(name, sizeof name, "%05d.IP1", K);
            list << name << "\r\n";
            WriteScan(folder_ / name, K);
        }
    }
    ~ScanFiles() { std::filesystem::remove_all(folder_); }
    ScanFiles(const ScanFiles&) = delete;
    ScanFiles& operator=(const ScanFiles&) = delete;

    std::string List() const { return (folder_ / "all.LST").string(); }

  private:
    static void WriteScan(const std::filesystem::path& path, std::int32_t K) {
        const auto& S = Store();
        std::FILE* const file = std::fopen(path.c_str(), "wb");
        std::fprintf(file, "simulated scan\r\nP 1 20.0 50000 %06d %.4E 675 0\r\n", 60 * K, double{S.ScanW2t(K)});
        for (std::int32_t J = 1; J <= kMostPoints; ++J)
            std::fprintf(file, "%9.4f %14.5E\r\n", double{S.ScanData(J, 1, K)}, double{S.ScanData(J, 2, K)});
        std::fclose(file);
    }

    std::filesystem::path folder_;
};

void Load(benchmark::State& state) {
    const ScanFiles files;
    theDesktop->list = files.List();
    for (auto _ : state) {
        Store().NumSpeeds = 0;  // as after the start: nothing has to be wiped
        GetListNow_Click();
    }
    if (Store().NumFiles != kMostScans || Store().ScanPoints(kMostScans) != kMostPoints)
        state.SkipWithError("the scans have not been read");
    FillScans();
}

void DcDtToAverages(benchmark::State& state) {
    for (auto _ : state)
        CalculateRates();
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
    Store().PlotCount = 0;
}

void WideDistributionSmoothed(benchmark::State& state) {
    Store().UseSmoothing = true;
    Store().SmoothWindow = 11;
    for (auto _ : state)
        DoWideStraight_Click();
}

BENCHMARK(Load)->Unit(benchmark::kMillisecond);
BENCHMARK(DcDtToAverages)->Unit(benchmark::kMillisecond);
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
    SavingDesktop desktop;
    theDesktop = &desktop;
    FillScans();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
