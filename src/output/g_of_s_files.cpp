#include "output/g_of_s_files.h"

#include <string_view>

#include "analysis/averages.h"
#include "analysis/s_range.h"
#include "store/analysis_store.h"
#include "store/file_command.h"
#include "store/format.h"
#include "store/svedberg.h"
#include "store/table_file.h"

namespace halvern {

namespace {

constexpr Pattern kSedTime{"#####.#"};
constexpr Pattern kMeniscus{"#.######"};
constexpr Pattern kSpeed{"##000"};
constexpr Pattern kCount{"##0"};
constexpr Pattern kColumn{"    0.0000E+00;   -0.0000E+00"};
constexpr Pattern kErrorColumn{"    0.0000E+00"};

/// A heading or a line of averages: 256 characters at most, without the blanks at its end.
void WriteTrimmed(std::string_view line) {
    FixedText<256> fixed;
    fixed = line;
    WriteTableLine(RightTrimmed(fixed));
}

void WriteHead() {
    const auto& S = Store();
    WriteTableOrigin();
    WriteTableLine(Concat({"sed time = ", Format(S.SedTime, kSedTime)}));
    WriteTableLine(Concat({"meniscus = ", Format(S.ScanMeniscus(1), kMeniscus)}));
    WriteTableLine(Concat({"speed = ", Format(S.ScanSpeed(1), kSpeed)}));
    WriteTableLine(Concat({"skip = ", Format(S.ScanSkip, kCount)}));
    WriteTableLine(Concat({"number of scans used = ", Format(2 * S.ScanSkip, kCount)}));
}

void WriteCorrectedRate() {
    const auto& S = Store();
    OpenTableFile(AskForTableFile("Keld (corrected) Output"));
    WriteHead();
    WriteTrimmed("   s*(svedbergs)   <dc/dt>        S.E.M.");
    for (std::int32_t I = FirstPointInUse(); I <= LastPointInUse(); ++I)
        WriteTableLine(Concat({Format(S.SStar(I) * kPerSvedberg, kColumn), Format(S.PlateauRate(I), kColumn),
                               Format(S.RateSem(I), kErrorColumn)}));
    CloseTableFile();
}

void WriteDistributions(const DistributionAverages& interacting, const DistributionAverages& nonInteracting) {
    const auto& S = Store();
    OpenTableFile(AskForTableFile("Keld G-of-S Output"));
    WriteHead();
    WriteTableLine("Distribution Averages for Interacting Systems");
    for (const auto& line : AverageLinesOfInteracting(interacting))
        WriteTrimmed(line);
    WriteTableLine(" ");
    WriteTableLine("Distribution Averages for Non-Interacting Systems");
    for (const auto& line : AverageLinesOfNonInteracting(nonInteracting))
        WriteTrimmed(line);
    // Kept: the backslashes and the letters behind them are plain characters of the heading.
    WriteTrimmed("  s*(svedbergs)  <g(s*)\\dt\\n>     S.E.M.    <g^(s*)\\dt\\n>    s*Xg^(s*)");
    for (std::int32_t I = FirstPointInUse(); I <= LastPointInUse(); ++I) {
        const double s = S.SStar(I) * kPerSvedberg;
        const double g = S.GStar(I) * kSvedberg;
        const double h = S.GHat(I) * kSvedberg;
        WriteTableLine(Concat({Format(s, kColumn), Format(g, kColumn), Format(S.GStarSem(I), kColumn),
                               Format(h, kColumn), Format(h * s, kColumn)}));
    }
    CloseTableFile();
}

}  // namespace

void KeldOutCorrected_Click() { RunFileCommand(WriteCorrectedRate, "Error in Saving <dc/dt> Output File!"); }

void KeldOutGofS_Click() {
    BlankOutsideLimits();
    const DistributionAverages interacting = AveragesOfInteracting();
    const DistributionAverages nonInteracting = AveragesOfNonInteracting();
    RunFileCommand([&] { WriteDistributions(interacting, nonInteracting); }, "Error in Saving G-of-S Output File!");
}

}  // namespace halvern
