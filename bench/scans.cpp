// What is done to all scans of a run at once: they are read, dc/dt and the wide distribution are worked out, the tables of
// raw data and of the plot are written. Each is done by the program, by what it is measured by, and in other ways.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "analysis/time_derivative.h"
#include "bench/analyses.h"
#include "bench/bench_desktop.h"
#include "bench/readers.h"
#include "bench/report.h"
#include "bench/velocity_run.h"
#include "bench/writers.h"
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
using namespace halvern::bench;

namespace fs = std::filesystem;

/// A desktop whose user chooses one list and saves every table under one name.
struct SavingDesktop : BenchDesktop {
    std::string list, file;

    std::optional<std::string> AskForExistingFile(const FileDialog& /*dialog*/) override { return list; }
    std::optional<std::string> AskForNewFile(const FileDialog& /*dialog*/) override { return file; }
    void RunModal(Form& form) override { form.Unload(); }
};

/// What all benchmarks share.
struct Bench {
    fs::path scanFolder;
    fs::path scratch = fs::temp_directory_path() / ("halvern-bench-" + std::to_string(getpid()));
    SavingDesktop desktop;
    std::int32_t everyNth = 0;  ///< of the scans in the store; 0 for none, or none that have only been read
    std::vector<std::string> paths;
    std::string finishedText;

    std::string TableOfProgram() const { return (scratch / "program.txt").string(); }
    std::string TableOfOther() const { return (scratch / "other.txt").string(); }
};

Bench& B() {
    static Bench bench;
    return bench;
}

void LoadByProgram() {
    Store().NumSpeeds = 0;  // as after the start: nothing has to be wiped
    GetListNow_Click();
}

/// The scans of a list are in the store, and have a meniscus.
void Provide(std::int32_t everyNth) {
    auto& S = Store();
    if (B().everyNth == everyNth)
        return;
    B().everyNth = everyNth;
    B().paths = ScanPaths(B().scanFolder, kFullSize, everyNth);
    B().desktop.list = (B().scanFolder / ListName(everyNth)).string();
    S.PlotCount = 0;
    LoadByProgram();
    S.Meniscus = kRunMeniscus;
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        S.ScanMeniscus(K) = kRunMeniscus;
}

/// Every point as a marker and as a point of a line, as the plot of raw data has them.
void ProvidePlot() {
    auto& S = Store();
    S.ProgramDir = CurrentFolder();
    if (S.PlotCount != 0)
        return;
    const auto pointOf = [&](std::int32_t K) {
        return [&S, K](std::int32_t J) { return PlotPoint{S.ScanData(J, 1, K), S.ScanData(J, 2, K)}; };
    };
    RequestFiller filler;
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        filler.Symbols(1, S.ScanPoints(K), K, pointOf(K));
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        filler.Line(1, S.ScanPoints(K), K, pointOf(K));
    filler.Finish();
}

/// The arrays that other ways read scans into.
struct ReadArrays {
    std::vector<float> radius = std::vector<float>(std::size_t{kMostScans} * kMostPoints);
    std::vector<float> signal = std::vector<float>(std::size_t{kMostScans} * kMostPoints);
    std::vector<std::size_t> counts = std::vector<std::size_t>(kMostScans);
};

ReadArrays& Arrays() {
    static ReadArrays arrays;
    return arrays;
}

template <std::size_t (*Read)(const char*, const PointArrays&)>
void ReadAll() {
    auto& arrays = Arrays();
    for (std::size_t i = 0; i < B().paths.size(); ++i)
        arrays.counts[i] =
            Read(B().paths[i].c_str(), {&arrays.radius[i * kMostPoints], &arrays.signal[i * kMostPoints]});
}

void ReadAllBytes() {
    for (const auto& path : B().paths)
        benchmark::DoNotOptimize(ReadBytes(path.c_str()));
}

bool ArraysAreStore() {
    const auto& S = Store();
    const auto& arrays = Arrays();
    for (std::int32_t K = 1; K <= S.NumFiles; ++K) {
        const auto k = static_cast<std::size_t>(K - 1);
        if (arrays.counts[k] != static_cast<std::size_t>(S.ScanPoints(K)))
            return false;
        for (std::int32_t J = 1; J <= S.ScanPoints(K); ++J) {
            const std::size_t at = k * kMostPoints + static_cast<std::size_t>(J - 1);
            if (arrays.radius[at] != S.ScanData(J, 1, K) || arrays.signal[at] != S.ScanData(J, 2, K))
                return false;
        }
    }
    return true;
}

bool StoreIsFull() {
    const auto& S = Store();
    return S.NumFiles == static_cast<std::int32_t>(B().paths.size()) && S.ScanPoints(S.NumFiles) == kFullSize.points;
}

template <class Result>
Result& Kept() {
    static const auto result = std::make_unique<Result>();
    return *result;
}

template <class Result, void (*Calculate)(Result&)>
void CalculateKept() {
    Calculate(Kept<Result>());
}

bool RatesAreStore() {
    CalculateRates();
    return StoreHas(Kept<Rates>());
}

bool WideIsStore() {
    DoWideStraight_Click();
    return StoreHas(Kept<WideCurves>());
}

void SaveTable() {
    B().desktop.file = B().TableOfProgram();
    RawDataOut_Click();
}

void SavePlotData() {
    B().desktop.file = B().TableOfProgram();
    SavePlotNow_Click();
}

std::int64_t bytesWritten = 0;

template <std::int64_t (*Write)(const std::string&)>
void WriteOther() {
    bytesWritten = Write(B().TableOfOther());
}

template <void (*Save)()>
bool FileIsTheSame() {
    Save();
    return EndTheSame(B().TableOfOther(), B().TableOfProgram(), bytesWritten);
}

/// Ways that round otherwise still write as much.
template <std::int64_t (*Write)(const std::string&)>
bool FileIsAsLong() {
    return Write(B().TableOfOther()) == bytesWritten;
}

template <void (*Save)()>
bool FileIsThere() {
    return fs::file_size(B().TableOfProgram()) > 1000000 / static_cast<std::uintmax_t>(B().everyNth);
}

template <std::int64_t (*Write)(const std::string&)>
void ProvideText() {
    Write(B().TableOfOther());
    std::FILE* const file = std::fopen(B().TableOfOther().c_str(), "rb");
    B().finishedText.resize(fs::file_size(B().TableOfOther()));
    if (std::fread(B().finishedText.data(), 1, B().finishedText.size(), file) != B().finishedText.size())
        B().finishedText.clear();
    std::fclose(file);
}

void WriteFinished() { WriteBytes(B().TableOfOther(), B().finishedText); }

bool AlwaysAgrees() { return true; }

/// One way to do the work of a row.
struct Way {
    const char* row;
    const char* name;
    void (*run)();
    bool (*agrees)();  ///< asked once afterwards: whether the result is right
    void (*prepare)() = [] {};
    bool grows = false;  ///< measured at an eighth, a quarter and a half, too
};

constexpr Way kWays[] = {
    {"load", "program", LoadByProgram, StoreIsFull, [] {}, true},
    {"load", "yardstick", ReadAll<ReadScanByColumns>, ArraysAreStore, [] {}, true},
    {"load", "bytes alone", ReadAllBytes, AlwaysAgrees},
    {"load", "from_chars", ReadAll<ReadScanByFromChars>, ArraysAreStore},
    {"load", "getline and stod", ReadAll<ReadScanByGetline>, ArraysAreStore},

    {"dc/dt", "program", CalculateRates, RatesAreStore, CalculateKept<Rates, CalculateRatesTightly>, true},
    {"dc/dt", "yardstick", CalculateKept<Rates, CalculateRatesTightly>, RatesAreStore, [] {}, true},
    {"dc/dt", "plain steps", CalculateKept<Rates, CalculateRatesPlainly>, RatesAreStore},

    {"wide", "program", DoWideStraight_Click, WideIsStore, CalculateKept<WideCurves, CalculateWidePlainly>},
    {"wide", "yardstick", CalculateKept<WideCurves, CalculateWidePlainly>, WideIsStore},

    {"re-add", "program", ReAddFringes, AlwaysAgrees},

    {"table", "program", SaveTable, FileIsThere<SaveTable>, [] {}, true},
    {"table", "yardstick", WriteOther<WriteTableTightly>, FileIsTheSame<SaveTable>, [] {}, true},
    {"table", "finished bytes", WriteFinished, AlwaysAgrees, ProvideText<WriteTableTightly>},
    {"table", "to_chars", WriteOther<WriteTableByToChars>, FileIsAsLong<WriteTableTightly>},
    {"table", "sprintf", WriteOther<WriteTableBySprintf>, FileIsAsLong<WriteTableTightly>},

    {"plot file", "program", SavePlotData, FileIsThere<SavePlotData>, ProvidePlot},
    {"plot file", "yardstick", WriteOther<WritePlotTightly>, FileIsTheSame<SavePlotData>, ProvidePlot},
    {"plot file", "finished bytes", WriteFinished, AlwaysAgrees,
     [] {
         ProvidePlot();
         ProvideText<WritePlotTightly>();
     }},
    {"plot file", "to_chars", WriteOther<WritePlotByToChars>, FileIsAsLong<WritePlotTightly>, ProvidePlot},
    {"plot file", "sprintf", WriteOther<WritePlotBySprintf>, FileIsAsLong<WritePlotTightly>, ProvidePlot},
};

void Measure(benchmark::State& state, const Way& way, std::int32_t everyNth) {
    Provide(everyNth);
    way.prepare();
    way.run();  // once before the clock runs: memory that nobody has touched yet is fetched from the system
    for (auto _ : state)
        way.run();
    if (!way.agrees())
        state.SkipWithError("the result is not that of the program");
    if (way.run == LoadByProgram || way.run == ReAddFringes)
        B().everyNth = 0;  // without meniscus, or with other signals
}

void Register(const Way& way, std::int32_t everyNth) {
    const std::int32_t scans = (kFullSize.scans + everyNth - 1) / everyNth;
    const std::string name = std::string(way.row) + '/' + std::to_string(scans) + '/' + way.name;
    benchmark::RegisterBenchmark(name.c_str(),
                                 [&way, everyNth](benchmark::State& state) { Measure(state, way, everyNth); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

}  // namespace

/// scans [FOLDER]: of the scan files in a folder, or of some that it writes and takes away.
int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    StartGraphics();
    fs::create_directories(B().scratch);
    B().scanFolder = argc > 1 ? fs::absolute(argv[1]) : B().scratch / "scans";
    if (argc <= 1)
        WriteRun(B().scanFolder, kFullSize);
    for (const Way& way : kWays)
        for (const std::int32_t everyNth : kEveryNth)
            if (everyNth == 1 || way.grows)
                Register(way, everyNth);
    const int status = RunAndReport();
    fs::remove_all(B().scratch);
    return status;
}
