#include "random/invariants.h"

#include <cmath>
#include <filesystem>
#include <string_view>

#include "plot/plot_window.h"
#include "store/analysis_store.h"

namespace halvern::random_user {

std::vector<std::string> BrokenBounds() {
    const auto& S = Store();
    const struct {
        const char* name;
        std::int32_t value, least, most;
    } rows[] = {
        {"NumFiles", S.NumFiles, 0, kMostScans + 1},
        {"FoundFiles", S.FoundFiles, 0, kMostScans},
        {"NumSpeeds", S.NumSpeeds, 0, S.NumFiles},
        {"GridPoints", S.GridPoints, 0, kMostPoints},
        {"FirstGridPoint", S.FirstGridPoint, 0, kMostPoints},
        {"ScanSkip", S.ScanSkip, 0, kMostPairs},
        {"SPoints", S.SPoints, 0, 2000},
        {"SGridPoints", S.SGridPoints, 0, 2000},
        {"SRangeFirst", S.SRangeFirst, 0, 2000},
        {"SRangeLast", S.SRangeLast, 0, 2000},
        {"SmoothWindow", S.SmoothWindow, 1, 51},
        {"PlotEveryNth", S.PlotEveryNth, 1, kMostPairs},
        {"PlotCount", S.PlotCount, 0, kMostPlotPoints},
    };
    std::vector<std::string> found;
    for (const auto& row : rows)
        if (row.value < row.least || row.value > row.most)
            found.push_back(std::string(row.name) + " is " + std::to_string(row.value));
    for (std::int32_t I = 1; I <= kMostScans; ++I)
        if (S.ScanPoints(I) < 0 || S.ScanPoints(I) > kMostPoints || S.JitterPoint(I) < 0 ||
            S.JitterPoint(I) > kMostPoints || !std::isfinite(S.JitterOffset(I)) || !std::isfinite(S.ScanMeniscus(I)))
            found.push_back("scan " + std::to_string(I) +
                            " has points, a jitter point, an offset or a meniscus beyond bounds");
    const PlotWindow& plot = PlotitForm();
    for (const float value : {S.Meniscus, S.DataLimitMin, S.DataLimitMax, S.PlotXMin, S.PlotXMax, S.PlotYMin,
                              S.PlotYMax, plot.XAxisMin, plot.XAxisMax, plot.YAxisMin, plot.YAxisMax})
        if (!std::isfinite(value))
            found.push_back("a number of the plot is not finite");
    return found;
}

std::vector<std::string> WindowsLeft(const replay::ReplayDesktop& desktop) {
    std::vector<std::string> found;
    for (const Form* form : desktop.LoadedForms()) {
        const std::string& name = form->Name();
        if (name != "Keld" && name != "Plotit" && name != "cmpltfrm")
            found.push_back("the window " + name + " is left");
        if (name == "cmpltfrm" && form->IsShown())
            found.push_back("the progress window is left on the screen");
        if (name == "Keld" && !form->IsShown())
            found.push_back("the main window is not shown");
    }
    if (desktop.OpenDialogForm() != nullptr)
        found.push_back("a dialog is left open");
    return found;
}

int OpenFiles() {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        static_cast<void>(entry);
        ++count;
    }
    return count;
}

int FilesLeftByLoads(const ListBox& report) {
    int count = 0;
    for (std::size_t i = 0; i < report.ListCount(); ++i) {
        const std::string_view line = report.Line(i);
        count += line.starts_with("* Sparse File Found: ") || line.starts_with("ListFile :: ");
        count -= line.ends_with(" valid data files were found.");
    }
    return count;
}

}  // namespace halvern::random_user
