#include <algorithm>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

#include "plot/export.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/files.h"
#include "store/fixed_text.h"
#include "store/format.h"
#include "store/point_field.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

/// What a line has beyond it is lost.
constexpr std::size_t kLongestLine = 128;
constexpr std::size_t kWidthOfHelp = 80;
constexpr std::size_t kWidthOfCount = 16;

constexpr Pattern kCount{"#######"};
constexpr Pattern kSymbol{"   #####;  -#####"};
constexpr std::string_view kThirdColumn = "    0.0000E+00";

FileDialog PlotFileDialog() {
    return {.title = {},
            .filter = "Plot Files | *.dat",
            .flags = kAskBeforeOverwriting,
            .defaultExtension = "dat",
            .fileName = {}};
}

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

void WriteCut(std::string_view line) { WriteLine(Store().FileNum, RightTrimmed(line.substr(0, kLongestLine))); }

/// "!hh:mm:ss ON d-mmm-yyyy", local time, the month in English.
std::string TimeStamp() {
    constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const auto two = [](int number) { return Format(number, "00"); };
    return Concat({"!", two(local.tm_hour), ":", two(local.tm_min), ":", two(local.tm_sec), " ON ",
                   std::to_string(local.tm_mday), "-", kMonths[local.tm_mon], "-",
                   std::to_string(local.tm_year + 1900)});
}

/// A title that has no text becomes a single blank, in the request too.
void FillTitle(std::string& title) {
    if (Trimmed(title).empty())
        title.assign(1, ' ');
}

void WriteHead() {
    auto& S = Store();
    FillTitle(S.PlotHelp1);
    WriteLine(S.FileNum, S.PlotHelp1);
    FillTitle(S.PlotHelp2);
    if (S.PlotHelp2.size() > kWidthOfHelp)
        Fail(FailureCode::kInvalidProcedureCall);
    WriteCut(Concat({S.PlotHelp2, Blanks(kWidthOfHelp - S.PlotHelp2.size()), TimeStamp()}));
    WriteCut(Concat({" ", Trimmed(S.PlotXTitle)}));
    WriteCut(Concat({" ", Trimmed(S.PlotYTitle)}));
    FixedText<7> count;
    count = Format(S.PlotCount, kCount);
    WriteCut(Concat({Blanks(kWidthOfCount - Trimmed(count).size()), Trimmed(count)}));
}

/// The lines of the points, built in one place: a plot has two million.
class PointLine {
  public:
    void Write(float x, float y, std::int16_t code) {
        char* end = PlotField(text_ + kIndent, x);
        end = PlotField(end, y);
        end = std::copy(kThirdColumn.begin(), kThirdColumn.end(), end);
        if (code != code_)
            TakeCode(code);
        end = std::copy(codeText_.begin(), codeText_.end(), end);
        WriteCut({text_, end});
    }

  private:
    static constexpr std::size_t kIndent = 2;

    /// Neighbours mostly have the same one.
    void TakeCode(std::int16_t code) {
        code_ = code;
        codeText_ = std::string(Format(code, kSymbol));
    }

    char text_[kIndent + 3 * kPointFieldRoom + kThirdColumn.size()] = {' ', ' '};
    std::int16_t code_ = 0;
    std::string codeText_{Format(0, kSymbol)};
};

void WritePoints() {
    const auto& S = Store();
    PointLine line;
    for (std::int32_t I = 1; I <= S.PlotCount; ++I)
        line.Write(S.PlotX(I), S.PlotY(I), S.PlotSym(I));
}

void SavePlot() {
    auto& S = Store();
    const std::string chosen = ChooseNewFile(PlotFileDialog());
    S.FileNum = FreeFile();
    OpenForOutput(S.FileNum, chosen);
    PlotitForm().PlotFileDir = CurrentFolder();
    MousePointer(kPointerHourglass);
    WriteHead();
    WritePoints();
    Close(S.FileNum);
    MousePointer(kPointerNormal);
    ChangeFolder(S.ProgramDir);
}

}  // namespace

void SavePlotNow_Click() {
    if (const std::string& folder = PlotitForm().PlotFileDir; !folder.empty())
        ChangeFolder(folder);
    try {
        SavePlot();
    } catch (const RuntimeFailure&) {
        FlushOpenFiles();
        ChangeFolder(Store().ProgramDir);
    }
}

}  // namespace halvern
