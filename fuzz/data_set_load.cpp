// The load of a data set, by the command of the menu. Input, in parts: the answers to the boxes, the list file, the scan
// files "1" to "8". An 'a' among the answers loads a second time, over the first data set; a 'c' cancels that.
#include "intake/data_set_load.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/check.h"
#include "support/fresh_program.h"
#include "support/quiet_desktop.h"
#include "support/scratch.h"

namespace {

using namespace halvern;
using namespace halvern::fuzz;

constexpr std::size_t kScanFiles = 8;

/// A data set stands: what holds of each one.
void CheckDataSet() {
    const auto& S = Store();
    Check(S.NumFiles >= 0 && S.NumFiles <= kMostScans, "a data set has as many scans as there is room for");
    Check(S.NumSpeeds >= 1 && S.MultipleSpeeds == (S.NumSpeeds > 1), "several speeds are told");
    Check(S.SpeedFirstScan(1) == 1, "the first run begins with the first scan");
    for (std::int32_t I = 1; I <= S.NumFiles; ++I) {
        const std::int16_t run = S.ScanSpeedIndex(I);
        Check(run >= 1 && run <= S.NumSpeeds, "a scan belongs to a run");
        Check(S.ScanSpeed(I) == S.ScanSpeed(S.SpeedFirstScan(run)), "a run has one speed");
        Check(I == 1 || run == S.ScanSpeedIndex(I - 1) || S.SpeedFirstScan(run) == I, "a run is a stretch of scans");
        // Of the last place the file may never have been read.
        Check(I == S.NumFiles || S.ScanPoints(I) >= 10, "sparse scans are dropped");
    }
    Check(Menus().OutputMenu.IsEnabled() && Menus().dummy_men.IsEnabled(), "the next steps are open");
    Check(Menus().Set_MultiMenManually.IsShown() == S.MultipleSpeeds, "menisci of several speeds are offered");
    Check(Menus().GetListNow.Caption() == "Restart With Another Set", "the command tells that a data set stands");
}

/// The work that a list can make, bytes to read. Lists of a hundred large files find nothing that those of a few do not,
/// and take a second each.
bool IsTooMuch(std::string_view list, const std::vector<std::string>& scans) {
    constexpr std::size_t kMostBytes = 200'000;
    std::size_t largest = 0;
    for (const auto& scan : scans)
        largest = std::max(largest, scan.size());
    const auto names = static_cast<std::size_t>(std::count(list.begin(), list.end(), '\n')) + 1;
    return names * largest > kMostBytes;
}

/// Loads; false if the program has ended.
bool Load() {
    const std::size_t linesBefore = OutFileBox().ListCount();
    try {
        GetListNow_Click();
    } catch (const ProgramEnd&) {
        return false;
    }
    Check(OutFileBox().ListCount() >= linesBefore, "lines of the report stay");
    if (Store().NumSpeeds != 0)
        CheckDataSet();
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Scratch scratch;
    std::string_view input = TextOf(data, size);
    const std::string answers(TakePart(input));
    const std::string_view list = TakePart(input);
    std::vector<std::string> scans;
    while (scans.size() < kScanFiles && !input.empty())
        scans.push_back(Expanded(TakePart(input)));
    constexpr int kNotForTheCorpus = -1;
    if (IsTooMuch(list, scans))
        return kNotForTheCorpus;

    FreshProgram();
    scratch.Clear();
    scratch.Write("list", list);
    for (std::size_t i = 0; i < scans.size(); ++i)
        scratch.Write(std::to_string(i + 1), scans[i]);

    QuietDesktop desktop(answers);
    desktop.choice = scratch.Path() / "list";
    const bool again = answers.find('a') != std::string::npos;
    const bool cancels = answers.find('c') != std::string::npos;
    if (!Load() || !(again || cancels))
        return 0;
    if (cancels) {
        const bool stood = Store().NumSpeeds != 0;
        desktop.choice.reset();
        Check(Load(), "a cancelled dialog ends no program");
        Check(!stood || (Store().NumSpeeds == 0 && Store().ScanPoints(1) == 0 && !Menus().OutputMenu.IsEnabled()),
              "the data set before is gone");
    } else {
        Load();
    }
    return 0;
}
