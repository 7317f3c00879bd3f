#include "intake/data_set_load.h"

#include <cstdint>

#include "intake/reset_menus.h"
#include "intake/scan_reader.h"
#include "store/analysis_store.h"
#include "store/files.h"
#include "store/format.h"
#include "store/menu_gates.h"
#include "store/menus.h"
#include "store/report.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr std::int32_t kFewestFiles = 4;
constexpr std::int16_t kFewestPoints = 10;

constexpr Pattern kFilesFound{"###;0;0"};
constexpr Pattern kCounter{"###"};
constexpr Pattern kValidFiles{" ### valid data files were found."};
constexpr Pattern kSpeeds{"##"};

FileDialog ListFileDialog() {
    return {.title = "Get List File",
            .filter = " ListFile (*.LST)| *.LST",
            .flags = kPathMustExist + kFileMustExist,
            .defaultExtension = {},
            .fileName = {}};
}

void AddCounter(std::int16_t J) { AddLine(Concat({" -", Format(J, kCounter), "-"})); }

/// Takes the names of the files that exist, in the order of the list.
void ReadList() {
    auto& S = Store();
    S.FileNum = FreeFile();
    OpenForInput(S.FileNum, S.ListFileName);
    AddLine(Concat({"ListFile :: ", Trimmed(S.ListFileName), " being used."}));
    std::int16_t J = 0;
    while (!AtEnd(S.FileNum)) {
        S.FileNames(J) = ReadLine(S.FileNum);
        if (FileExists(S.FileNames(J).Name()))
            ++J;
        else
            AddLine(Concat({"Data File Not Found: ", S.FileNames(J).Shown()}));
    }
    Close(S.FileNum);
    S.NumFiles = J;
    AddLine(Concat({Format(S.NumFiles, kFilesFound), " Data Files Found."}));
}

void ReportSparseFile(std::int16_t J) {
    RemoveLastLine();
    RemoveLastLine();
    AddLine("*");
    AddLine(Concat({"* Sparse File Found: ", Store().FileNames(J - 1).Shown()}));
    AddLine("*");
    AddLine(" * Reading Files *");
    AddCounter(J);
}

void DropName(std::int16_t J) {
    auto& S = Store();
    for (std::int32_t K = J; K <= S.NumFiles - 1; ++K)
        S.FileNames(K - 1) = S.FileNames(K);
    S.NumFiles -= 1;
}

/// Reads place J until a scan of enough points stands there.
void ReadPlace(std::int16_t J) {
    auto& S = Store();
    for (;;) {
        ReadScanFile(J);
        if (S.ScanPoints(J) >= kFewestPoints)
            return;
        ReportSparseFile(J);
        DropName(J);
        // Kept: with the last but one file sparse, place J ends with the name of the last file, which is never read,
        // and the data of the sparse one.
        if (J >= S.NumFiles)
            return;
    }
}

void ReadScans() {
    auto& S = Store();
    std::int16_t J = 0;
    do {
        ++J;
        ReadPlace(J);
        if (J > S.NumFiles)
            return;
        if (J % 10 == 0) {
            RemoveLastLine();
            AddCounter(J);
            DoEvents();
        }
    } while (J < S.NumFiles);
}

/// A run is a stretch of consecutive scans of exactly the same speed.
void FindSpeedRuns() {
    auto& S = Store();
    S.NumSpeeds = 1;
    S.SpeedFirstScan(1) = 1;
    S.ScanSpeedIndex(1) = 1;
    for (std::int16_t J = 2; J <= S.NumFiles; ++J) {
        if (S.ScanSpeed(J) != S.ScanSpeed(S.SpeedFirstScan(S.NumSpeeds))) {
            S.MultipleSpeeds = true;
            ++S.NumSpeeds;
            S.SpeedFirstScan(S.NumSpeeds) = J;
        }
        S.ScanSpeedIndex(J) = S.NumSpeeds;
    }
}

void TellOfSeveralSpeeds() {
    Pass(Gate::kSeveralSpeedsFound);
    MsgBox("Multiple speeds have been found.  These datasets\r\ncan only be used to calculate Wide Distributions!",
           kOkOnly, "Multiple Speed Data");
    AddLine(Concat({"Datasets from ", Format(Store().NumSpeeds, kSpeeds), " different speeds were found."}));
    ScrollReportAtOnce();
}

void OpenNextMenus() {
    Pass(Store().IsInterference ? Gate::kInterferenceScansFound : Gate::kOtherScansFound);
    if (Store().MultipleSpeeds)
        TellOfSeveralSpeeds();
    Pass(Gate::kDataSetStands);
}

void LoadDataSet() {
    auto& S = Store();
    S.ListFileName = ChooseExistingFile(ListFileDialog());
    ReadList();
    ScrollReport();
    DoEvents();
    if (S.NumFiles < kFewestFiles) {
        MsgBox("Too few files in List File.  Try again and select at least 4 data files.", kOkOnly,
               "Too Few Files Chosen!");
        MousePointer(kPointerNormal);
        return;
    }
    AddLine(" * Reading Files *");
    DoEvents();
    AddLine(" -0-");
    DoEvents();
    ReadScans();
    Pass(Gate::kScansRead);
    RemoveLastLine();
    RemoveLastLine();
    AddLine(Format(S.NumFiles, kValidFiles));
    DoEvents();
    FindSpeedRuns();
    MousePointer(kPointerNormal);
    OpenNextMenus();
}

}  // namespace

void GetListNow_Click() {
    if (Store().NumSpeeds != 0)
        ResetMenus();
    MousePointer(kPointerHourglass);
    try {
        LoadDataSet();
    } catch (const RuntimeFailure&) {
        MousePointer(kPointerNormal);
    }
}

}  // namespace halvern
