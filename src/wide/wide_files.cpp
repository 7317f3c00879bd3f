#include "wide/wide_files.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/analysis_store.h"
#include "store/file_command.h"
#include "store/fixed_text.h"
#include "store/format.h"
#include "store/table_file.h"
#include "wide/integral.h"

namespace halvern {

namespace {

/// A number as its column shows it. It may be a double or a single widened.
using ColumnValue = double (*)(std::int32_t J, std::int32_t K);

struct WideTable {
    const char* dialogTitle;
    const char* title;
    const char* firstHead;   ///< filled up to 11 characters
    const char* secondHead;  ///< the radius follows
    Pattern radius;
    ColumnValue first;
    ColumnValue second;
    void (*prepare)();  ///< runs behind the preamble; null for nothing
    const char* failure;
};

/// A row of the table. What is put into it is cut at its width, and it is written with its blanks.
using RowText = FixedText<264>;

constexpr Pattern kValue{"  0.000E+00; -0.000E+00"};
constexpr Pattern kMeniscus{"#.#####"};

void WritePreamble(const WideTable& table) {
    const auto& S = Store();
    const auto meniscusOf = [&](std::int32_t R) { return Format(S.ScanMeniscus(S.SpeedFirstScan(R)), kMeniscus); };
    WriteTableLine(Concat({" ", S.ProgramName}));
    WriteTableLine(Concat({" Current Revision V", S.RevisionText}));
    WriteTableLine(Concat({" ListFile :: ", Trimmed(S.ListFileName)}));
    if (!S.MultipleSpeeds) {
        WriteTableLine(Concat({" R(meniscus) set to ", meniscusOf(1), " cm."}));
    } else {
        WriteTableLine(" Multiple Speeds Were Found");
        for (std::int32_t R = 1; R <= S.NumSpeeds; ++R)
            WriteTableLine(Concat({" R(meniscus) at ", Format(S.ScanSpeed(S.SpeedFirstScan(R)), "##000"),
                                   " rpm was set to ", meniscusOf(R), " cm."}));
    }
    WriteTableLine(table.title);
    if (S.UseSmoothing) {
        WriteTableLine(" Smoothing = True");
        WriteTableLine(
            Concat({" Smoothing = ", Format(S.SmoothWindow, "## "), "out of a total of ", Format(S.NumFiles, "###")}));
    } else {
        WriteTableLine(" Smoothing = False");
    }
}

/// Writes the line of heads. Result: the radii that have columns.
std::vector<std::int32_t> WriteHeads(const WideTable& table) {
    const auto& S = Store();
    std::vector<std::int32_t> Cols;
    RowText Line;
    for (std::int32_t K = 1; K <= 50; ++K) {
        if (!S.WDRadiusValid(K))
            continue;
        Cols.push_back(K);
        FixedText<11> Title;
        Title = table.firstHead;
        Line = Concat({RightTrimmed(Line), Title, table.secondHead, Format(S.WDRadius(K), table.radius)});
    }
    WriteTableLine(Concat({" Speed# ", Trimmed(Line)}));
    return Cols;
}

void WriteRow(const WideTable& table, std::int32_t J, const std::vector<std::int32_t>& Cols) {
    const auto& S = Store();
    RowText Line;
    Line = Format(S.ScanSpeedIndex(S.NumFiles - J + 2), "  000");
    for (const std::int32_t K : Cols)
        Line = Concat({RightTrimmed(Line), Format(table.first(J, K), kValue), Format(table.second(J, K), kValue)});
    WriteTableLine(Line);
}

void WriteTable(const WideTable& table) {
    OpenTableFile(AskForTableFile(table.dialogTitle));
    WritePreamble(table);
    if (table.prepare != nullptr)
        table.prepare();
    const auto Cols = WriteHeads(table);
    for (std::int32_t J = 2; J <= Store().NumFiles; ++J)
        WriteRow(table, J, Cols);
    CloseTableFile();
}

double SOf(std::int32_t J, std::int32_t K) { return Store().WDSValue(J, K); }
double GOf(std::int32_t J, std::int32_t K) { return Store().WDGofS(J, K); }
double SGOf(std::int32_t J, std::int32_t K) { return STimesG(J, K); }
double AxisOf(std::int32_t J, std::int32_t K) { return Store().WDIntegral(J, K, 2); }
double IntegralOf(std::int32_t J, std::int32_t K) { return Store().WDIntegral(J, K, 1); }
void IntegrateAtMiddles() { IntegrateWideDistribution(IntegralAxis::kMiddles); }

constexpr WideTable kSvsG{
    "Wide Distribution Output",  " s* vs g(s*) - no interpolation", "   --s*-- ", " g(s*)@", "0.00", SOf, GOf, nullptr,
    "Unknown Error in SaveSvsG!"};
constexpr WideTable kLnSvsSG{"Wide Distribution Output",
                             " Ln(s*) vs s*xg(s*) - no interpolation",
                             " -Ln(s*)- ",
                             "s*g(s*)@",
                             "0.0",
                             LnOfS,
                             SGOf,
                             nullptr,
                             "Error in SaveLnSvsSG!"};
constexpr WideTable kIntegralWD{"Integral Of [s* x g(s*)] vs Ln(s*) - Output",
                                " Integral of [s* x g(s*)] vs Ln(s*) ",
                                "  Ln(s*)  ",
                                "Int(sg)@",
                                "0.0",
                                AxisOf,
                                IntegralOf,
                                IntegrateAtMiddles,
                                "Unknown Error in Saving Integral Data!"};

void RunTableCommand(const WideTable& table) {
    RunFileCommand([&] { WriteTable(table); }, table.failure);
}

}  // namespace

void SaveSvsG_Click() { RunTableCommand(kSvsG); }
void SaveLnSvsSG_Click() { RunTableCommand(kLnSvsSG); }
void DoIntegralWD_Click() { RunTableCommand(kIntegralWD); }

}  // namespace halvern
