#include "intake/data_set_load.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/files.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/data_files.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;
using test::ScanFile;

struct Load : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;

    void LoadList(const std::string& path) {
        desktop.choices.push_back(path);
        GetListNow_Click();
    }

    /// Files scan1, scan2, ... of rising omega squared t, with as many points as told each; returns the list's path.
    std::string WriteScans(const std::vector<int>& points, ScanFile like = {}) {
        Lines names;
        for (std::size_t i = 0; i < points.size(); ++i) {
            like.points = points[i];
            like.omega2t = std::to_string(i + 1) + "E9";
            names.push_back("scan" + std::to_string(i + 1));
            folder.Write(names.back(), like.Text());
        }
        return folder.Write("scans.LST", test::ListText(names));
    }

    std::string WriteSpeeds(const std::vector<int>& speeds) {
        Lines names;
        ScanFile scan;
        for (std::size_t i = 0; i < speeds.size(); ++i) {
            scan.speed = speeds[i];
            scan.omega2t = std::to_string(i + 1) + "E9";
            names.push_back("speed" + std::to_string(i + 1));
            folder.Write(names.back(), scan.Text());
        }
        return folder.Write("speeds.LST", test::ListText(names));
    }

    std::string Using(const std::string& path) const { return "ListFile :: " + path + " being used."; }
};

TEST_F(Load, TellsOfAMissingAndASparseFileAmong45) {
    Lines names;
    ScanFile scan;
    for (int I = 1; I <= 45; ++I) {
        names.push_back("scan" + std::to_string(I));
        scan.points = I == 20 ? 9 : 12;
        scan.omega2t = std::to_string(I) + "E9";
        if (I != 7)
            folder.Write(names.back(), scan.Text());
    }
    const auto list = folder.Write("run.LST", test::ListText(names));
    LoadList(list);
    EXPECT_EQ(test::ReportLines(), (Lines{Using(list), "Data File Not Found: scan7", "44 Data Files Found.", "*",
                                          "* Sparse File Found: scan20", "*", " 43 valid data files were found."}));
    EXPECT_EQ(Store().NumFiles, 43);
    EXPECT_EQ(Store().FileNames(18).Name(), "scan21");
    EXPECT_EQ(Store().ScanW2t(19), 21e9F);
}

TEST_F(Load, AsksForAListFile) {
    LoadList(WriteScans({12, 12, 12, 12}));
    ASSERT_EQ(desktop.fileDialogs.size(), 1U);
    const FileDialog& dialog = desktop.fileDialogs[0];
    EXPECT_EQ(dialog.title, "Get List File");
    EXPECT_EQ(dialog.filter, " ListFile (*.LST)| *.LST");
    EXPECT_EQ(dialog.flags, 6144);
    EXPECT_EQ(dialog.fileName, "");
    EXPECT_EQ(dialog.maxFileSize, 127);
}

TEST_F(Load, OpensTheNextMenus) {
    LoadList(WriteScans({12, 12, 12, 12}));
    const auto& M = Menus();
    EXPECT_TRUE(M.dummy_men.IsEnabled());
    EXPECT_TRUE(M.PlotDummy1.IsEnabled());
    EXPECT_TRUE(M.OutputMenu.IsEnabled());
    EXPECT_FALSE(M.KeldIt.IsEnabled());
    EXPECT_FALSE(M.DoReAddNow.IsShown());
    EXPECT_EQ(M.GetListNow.Caption(), "Restart With Another Set");
    EXPECT_EQ(M.Get_MenFromScan.Caption(), "Graphically (From 1st Scan)");
    EXPECT_TRUE(M.Set_MenManually.IsShown());
    EXPECT_FALSE(M.Set_MultiMenManually.IsShown());
    EXPECT_EQ(desktop.pointer, kPointerNormal);
    EXPECT_EQ(desktop.pointers.front(), kPointerHourglass);
    EXPECT_EQ(Store().NumSpeeds, 1);
    EXPECT_EQ(Store().SpeedFirstScan(1), 1);
    EXPECT_EQ(Store().ScanSpeedIndex(4), 1);
}

TEST_F(Load, OffersTheReAddingOfFringesForInterferenceData) {
    ScanFile scan;
    scan.type = 'P';
    LoadList(WriteScans({12, 12, 12, 12}, scan));
    EXPECT_TRUE(Menus().DoReAddNow.IsEnabled());
    EXPECT_TRUE(Menus().DoReAddNow.IsShown());
}

TEST_F(Load, KeepsDoReAddNowHiddenAfterAnAbsorbanceSet) {
    LoadList(WriteScans({12, 12, 12, 12}));
    ScanFile scan;
    scan.type = 'P';
    LoadList(WriteScans({12, 12, 12, 12}, scan));
    EXPECT_TRUE(Store().IsInterference);
    EXPECT_TRUE(Menus().DoReAddNow.IsEnabled());
    EXPECT_FALSE(Menus().DoReAddNow.IsShown());
}

TEST_F(Load, ASetWithAPInItsLastScanAloneIsInterference) {
    const auto list = WriteScans({12, 12, 12, 12});
    ScanFile last;
    last.type = 'P';
    last.omega2t = "9E9";
    folder.Write("scan4", last.Text());
    LoadList(list);
    EXPECT_TRUE(Store().IsInterference);
    EXPECT_TRUE(Menus().DoReAddNow.IsEnabled());
}

TEST_F(Load, RefusesThreeFiles) {
    const auto list = WriteScans({12, 12, 12});
    LoadList(list);
    EXPECT_EQ(test::ReportLines(), (Lines{Using(list), "3 Data Files Found."}));
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "Too few files in List File.  Try again and select at least 4 data files.");
    EXPECT_EQ(desktop.messages[0].title, "Too Few Files Chosen!");
    EXPECT_EQ(desktop.messages[0].style, 0);
    const auto& S = Store();
    EXPECT_EQ(S.ScanPoints(1), 0) << "nothing is read";
    EXPECT_EQ(S.NumSpeeds, 0);
    EXPECT_EQ(S.NumFiles, 3);
    EXPECT_EQ(S.FileNames(2).Name(), "scan3");
    EXPECT_EQ(Menus().GetListNow.Caption(), "&Get Files From Listfile");
    EXPECT_FALSE(Menus().dummy_men.IsEnabled());
    EXPECT_EQ(desktop.pointer, kPointerNormal);
}

TEST_F(Load, RefusesFiveLinesOfWhichTwoAreMissing) {
    WriteScans({12, 12, 12});
    const auto list = folder.Write("five.LST", test::ListText({"scan1", "gone", "scan2", "gone too", "scan3"}));
    LoadList(list);
    EXPECT_EQ(test::ReportLines(), (Lines{Using(list), "Data File Not Found: gone", "Data File Not Found: gone too",
                                          "3 Data Files Found."}));
    EXPECT_EQ(desktop.messages.size(), 1U);
}

TEST_F(Load, CountsZeroInAnEmptyList) {
    const auto list = folder.Write("empty.LST", "");
    LoadList(list);
    EXPECT_EQ(test::ReportLines(), (Lines{Using(list), "0 Data Files Found."}));
    EXPECT_EQ(desktop.messages.size(), 1U);
}

TEST_F(Load, GoesOnWithThreeOfFourFilesSparse) {
    LoadList(WriteScans({3, 9, 12, 0}));
    EXPECT_EQ(Store().NumFiles, 1);
    EXPECT_EQ(Store().NumSpeeds, 1);
    EXPECT_EQ(test::ReportLines().back(), " 1 valid data files were found.");
    EXPECT_EQ(Store().FileNames(0).Name(), "scan3");
    EXPECT_EQ(Store().ScanPoints(1), 12);
    EXPECT_TRUE(desktop.messages.empty()) << "the limit of four counts names, not good scans";
}

TEST_F(Load, TenPointsAreEnoughAndNineAreSparse) {
    LoadList(WriteScans({10, 9, 10, 10, 10}));
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_EQ(test::ReportLines()[3], "* Sparse File Found: scan2");
}

TEST_F(Load, NeverReadsTheLastFileBehindASparseOne) {
    LoadList(WriteScans({12, 12, 12, 5, 14}));
    const auto& S = Store();
    EXPECT_EQ(S.NumFiles, 4);
    EXPECT_EQ(S.FileNames(3).Name(), "scan5") << "the name of the last file";
    EXPECT_EQ(S.ScanPoints(4), 5) << "with the points of the sparse one";
    EXPECT_EQ(S.ScanW2t(4), 4e9F);
    EXPECT_EQ(test::ReportLines().back(), " 4 valid data files were found.");
}

TEST_F(Load, DropsASparseLastFile) {
    LoadList(WriteScans({12, 12, 12, 12, 5}));
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_EQ(Store().FileNames(3).Name(), "scan4");
    EXPECT_EQ(Store().ScanPoints(4), 12);
}

TEST_F(Load, ReadsAPlaceAgainUntilAGoodFileStandsThere) {
    LoadList(WriteScans({12, 1, 2, 3, 12, 12, 12}));
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_EQ(Store().FileNames(1).Name(), "scan5");
    EXPECT_EQ(Store().ScanW2t(2), 5e9F);
}

TEST_F(Load, TakesAFileOfTooManyPointsForASparseOne) {
    LoadList(WriteScans({12, 2049, 12, 12, 2048}));
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_EQ(test::ReportLines()[3], "* Sparse File Found: scan2");
    EXPECT_EQ(Store().ScanPoints(4), 2048);
    EXPECT_EQ(FreeFile(), 2) << "the file of too many points stays open";
}

TEST_F(Load, CountsTensWhileItReads) {
    Lines counters;
    desktop.atPass = [&] {
        const auto lines = test::ReportLines();
        if (!lines.empty() && lines.back().starts_with(" -") && (counters.empty() || counters.back() != lines.back()))
            counters.push_back(lines.back());
    };
    LoadList(WriteScans(std::vector<int>(25, 12)));
    EXPECT_EQ(counters, (Lines{" -0-", " -10-", " -20-"}));
}

TEST_F(Load, CountsAPlaceWhenItIsPassedWithAGoodFile) {
    Lines seen;
    desktop.atPass = [&] { seen.push_back(test::ReportLines().back()); };
    std::vector<int> points(12, 12);
    points[9] = 5;  // place 10 is sparse, and is read again
    LoadList(WriteScans(points));
    // After the list, the heading, the first counter; then place 10 once, and the end.
    EXPECT_EQ(seen, (Lines{"12 Data Files Found.", " * Reading Files *", " -0-", " -10-",
                           " 11 valid data files were found."}));
}

TEST_F(Load, CountsAPlaceWhenItIsPassedWithTheEnd) {
    Lines seen;
    desktop.atPass = [&] { seen.push_back(test::ReportLines().back()); };
    std::vector<int> points(11, 12);
    points[9] = 5;  // the last but one
    LoadList(WriteScans(points));
    EXPECT_EQ(seen, (Lines{"11 Data Files Found.", " * Reading Files *", " -0-", " -10-",
                           " 10 valid data files were found."}));
    EXPECT_EQ(Store().FileNames(9).Name(), "scan11");

    // The last one: its place is gone, and is not counted at all.
    seen.clear();
    points.pop_back();
    LoadList(WriteScans(points));
    EXPECT_EQ(seen, (Lines{"10 Data Files Found.", " * Reading Files *", " -0-", " 9 valid data files were found."}));
}

TEST_F(Load, KeepsTheCountOfADroppedFileWhereTheNextOneFails) {
    const auto list = WriteScans({12, 5, 12, 12, 12, 12});
    folder.Write("scan3", "one line");
    LoadList(list);
    // Place 2 has been read three times.
    EXPECT_EQ(Store().ScanPoints(2), 12);
    EXPECT_EQ(Store().FileNames(1).Name(), "scan4");
    EXPECT_EQ(test::ReportLines().back(), " 4 valid data files were found.");

    // With the failing file as the last but one its place ends as the dropped file before it has left it.
    const auto other = WriteScans({12, 12, 12, 5, 12, 12});
    folder.Write("scan5", "one line");
    LoadList(other);
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_EQ(Store().ScanPoints(4), 5);
    EXPECT_EQ(Store().FileNames(3).Name(), "scan6");
}

TEST_F(Load, LeavesThePointsOfADroppedLongFileBelowThoseOfAShorterOne) {
    LoadList(WriteScans({12, 2049, 12, 12, 12}));
    EXPECT_EQ(Store().ScanPoints(2), 12);
    EXPECT_EQ(Store().FileNames(1).Name(), "scan3");
    EXPECT_NE(Store().ScanData(13, 1, 2), 0.0F);
    EXPECT_EQ(Store().ScanData(13, 1, 1), 0.0F);
}

TEST_F(Load, FindsRunsOfEqualSpeed) {
    LoadList(WriteSpeeds({42000, 42000, 30000, 30000, 42000}));
    const auto& S = Store();
    EXPECT_EQ(S.NumSpeeds, 3);
    EXPECT_TRUE(S.MultipleSpeeds);
    const int first[] = {1, 3, 5}, index[] = {1, 1, 2, 2, 3};
    for (int K = 1; K <= 3; ++K)
        EXPECT_EQ(S.SpeedFirstScan(K), first[K - 1]);
    for (int I = 1; I <= 5; ++I)
        EXPECT_EQ(S.ScanSpeedIndex(I), index[I - 1]);
}

TEST_F(Load, TellsOfSeveralSpeeds) {
    LoadList(WriteSpeeds({42000, 42000, 30000, 30000, 42000}));
    const auto& M = Menus();
    EXPECT_FALSE(M.Set_MenManually.IsShown());
    EXPECT_TRUE(M.Set_MultiMenManually.IsShown());
    EXPECT_EQ(M.Get_MenFromScan.Caption(), "Graphically (From 1st Scan at each speed)");
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text,
              "Multiple speeds have been found.  These datasets\r\ncan only be used to calculate Wide Distributions!");
    EXPECT_EQ(desktop.messages[0].title, "Multiple Speed Data");
    EXPECT_EQ(desktop.messages[0].style, 0);
    EXPECT_EQ(test::ReportLines().back(), "Datasets from 3 different speeds were found.");
    EXPECT_FALSE(M.KeldIt.IsEnabled());
}

TEST_F(Load, KeepsOneCaptionOfASetOfSeveralSpeeds) {
    LoadList(WriteSpeeds({42000, 42000, 30000, 30000}));
    LoadList(WriteScans({12, 12, 12, 12}));
    EXPECT_TRUE(Menus().Set_MenManually.IsShown());
    EXPECT_FALSE(Menus().Set_MultiMenManually.IsShown());
    EXPECT_EQ(Menus().Get_MenFromScan.Caption(), "Graphically (From 1st Scan at each speed)");
    EXPECT_FALSE(Store().MultipleSpeeds);
    EXPECT_EQ(Store().NumSpeeds, 1);
}

TEST_F(Load, GoesOnBelowInTheReportWithAnotherSet) {
    const auto list = WriteScans({12, 12, 12, 12});
    LoadList(list);
    LoadList(list);
    const Lines once{Using(list), "4 Data Files Found.", " 4 valid data files were found."};
    Lines twice = once;
    twice.insert(twice.end(), once.begin(), once.end());
    EXPECT_EQ(test::ReportLines(), twice);
}

TEST_F(Load, LeavesNoDataSetWhenTheRestartIsCancelled) {
    LoadList(WriteScans({12, 12, 12, 12}));
    desktop.choices = {std::nullopt};
    GetListNow_Click();
    const auto& M = Menus();
    EXPECT_EQ(Store().NumSpeeds, 0);
    EXPECT_EQ(Store().ScanPoints(1), 0);
    EXPECT_FALSE(M.dummy_men.IsEnabled());
    EXPECT_FALSE(M.PlotDummy1.IsEnabled());
    EXPECT_FALSE(M.OutputMenu.IsEnabled());
    EXPECT_EQ(M.GetListNow.Caption(), "Restart With Another Set");
    EXPECT_EQ(desktop.pointer, kPointerNormal);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Load, ChangesNothingWhenTheFirstDialogIsCancelled) {
    desktop.choices = {std::nullopt};
    GetListNow_Click();
    EXPECT_TRUE(test::ReportLines().empty());
    EXPECT_EQ(Menus().GetListNow.Caption(), "&Get Files From Listfile");
    EXPECT_EQ(desktop.pointer, kPointerNormal);
}

TEST_F(Load, StopsWithoutAWordWhenTheListCannotBeRead) {
    LoadList(folder.Path().string() + "/missing.LST");
    EXPECT_TRUE(test::ReportLines().empty());
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(desktop.pointer, kPointerNormal);
}

TEST_F(Load, ShowsWhatWasReachedOfAListThatStopsInTheMiddle) {
    // The memory of this process can be opened, and has nothing at its beginning that could be read.
    LoadList("/proc/self/mem");
    EXPECT_EQ(test::ReportLines(), Lines{Using("/proc/self/mem")});
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(desktop.pointer, kPointerNormal);
    EXPECT_EQ(Store().NumSpeeds, 0);
}

TEST_F(Load, TakesALineWholeAsAName) {
    WriteScans({12, 12, 12, 12});
    folder.Write(" scan5", ScanFile{}.Text());
    folder.Write("scan \xC3\xA4\xFF", ScanFile{.omega2t = "8E9"}.Text());
    std::filesystem::create_directory("folder");
    const auto list =
        folder.Write("odd.LST", "scan1   \nscan2\r\n scan5\nscan5\n\nfolder\nscan \xC3\xA4\xFF\nscan*\nscan3\nscan4");
    LoadList(list);
    EXPECT_EQ(test::ReportLines(),
              (Lines{Using(list), "Data File Not Found: scan5", "Data File Not Found: ", "Data File Not Found: folder",
                     "Data File Not Found: scan*", "6 Data Files Found.", " 6 valid data files were found."}));
    EXPECT_EQ(Store().FileNames(3).Name(), "scan \xC3\xA4\xFF");
}

TEST_F(Load, CutsNamesAt127Characters) {
    WriteScans({12, 12, 12});
    const std::string name127(127, 'n');
    folder.Write(name127, ScanFile{}.Text());
    const auto list =
        folder.Write("long.LST", test::ListText({"scan1", "scan2", "scan3", name127 + ".RA1", std::string(126, 'n')}));
    LoadList(list);
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_EQ(Store().FileNames(3).Name(), name127);
    EXPECT_EQ(test::ReportLines()[1], "Data File Not Found: " + std::string(126, 'n'));
}

TEST_F(Load, ReadsNamesFromTheFolderOfTheList) {
    test::ScanFile scan;
    for (int I = 1; I <= 4; ++I) {
        scan.omega2t = std::to_string(I) + "E9";
        folder.Write("deep/scan" + std::to_string(I), scan.Text());
    }
    LoadList(folder.Write("deep/run.LST", test::ListText({"scan1", "scan2", "scan3", "scan4"})));
    EXPECT_EQ(Store().NumFiles, 4);
}

TEST_F(Load, AsksAboutEqualOmegaSquaredTAndGoesOn) {
    const auto list = WriteScans({12, 12, 12, 12});
    folder.Write("scan3", ScanFile{.omega2t = "2E9"}.Text());
    desktop.answers = {Answer::kYes};
    LoadList(list);
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_EQ(Store().ScanTime(2), Store().ScanTime(3));
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_TRUE(desktop.messages[0].text.starts_with("scan3 and\r\nscan2\r\n"));
}

TEST_F(Load, AsksAboutEqualOmegaSquaredTAndEndsTheProgram) {
    const auto list = WriteScans({12, 12, 12, 12});
    folder.Write("scan3", ScanFile{.omega2t = "2E9"}.Text());
    desktop.answers = {Answer::kNo};
    EXPECT_THROW(LoadList(list), ProgramEnd);
}

/// Names of many files cost little: all are links to one scan.
std::string WriteManyNames(const test::DataFolder& folder, int count, int sparsePoints = 0) {
    folder.Write("scan", ScanFile{.points = 12}.Text());
    if (sparsePoints > 0)
        folder.Write("scan", ScanFile{.points = sparsePoints}.Text());
    Lines names;
    for (int I = 1; I <= count; ++I) {
        names.push_back("link" + std::to_string(I));
        std::filesystem::create_symlink("scan", names.back());
    }
    return folder.Write("many.LST", test::ListText(names));
}

TEST_F(Load, Takes500Files) {
    desktop.answers.assign(499, Answer::kYes);
    LoadList(WriteManyNames(folder, 500));
    EXPECT_EQ(Store().NumFiles, 500);
    EXPECT_EQ(Store().ScanPoints(500), 12);
    EXPECT_EQ(Store().NumSpeeds, 1);
    EXPECT_EQ(test::ReportLines().back(), " 500 valid data files were found.");
}

TEST_F(Load, EndsAt501FilesWithTheScansInTheStore) {
    desktop.answers.assign(500, Answer::kYes);
    LoadList(WriteManyNames(folder, 501));
    const auto lines = test::ReportLines();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[1], "501 Data Files Found.");
    EXPECT_EQ(lines[2], " * Reading Files *");
    EXPECT_EQ(lines[3], " -500-");
    EXPECT_EQ(Store().NumFiles, 501);
    EXPECT_EQ(Store().NumSpeeds, 0);
    EXPECT_EQ(Store().ScanPoints(500), 12);
    EXPECT_FALSE(Menus().dummy_men.IsEnabled());
    EXPECT_EQ(desktop.pointer, kPointerNormal);
    EXPECT_EQ(FreeFile(), 2) << "the file of scan 501 stays open";
}

TEST_F(Load, EndsAt502FilesWithTheListOpen) {
    Store().NumFiles = 7;
    const auto list = WriteManyNames(folder, 502);
    LoadList(list);
    EXPECT_EQ(test::ReportLines(), Lines{Using(list)});
    EXPECT_EQ(Store().NumFiles, 7) << "the old value";
    EXPECT_EQ(FreeFile(), 2);
    EXPECT_EQ(Store().FileNum, 1);
}

TEST_F(Load, EndsAtAnyLineBehind501Files) {
    const auto names = test::ContentOf(WriteManyNames(folder, 501));
    for (const std::string line : {"missing", ""}) {
        const auto list = folder.Write("behind.LST", names + line + "\r\n");
        const auto before = test::ReportLines().size();
        LoadList(list);
        EXPECT_EQ(test::ReportLines().size(), before + 1) << '"' << line << '"';
        EXPECT_EQ(test::ReportLines().back(), Using(list));
        EXPECT_EQ(Store().NumFiles, 0);
    }
}

TEST_F(Load, Behind501FilesTakesAFailingFileForTheScanThatStoodThere) {
    desktop.answers.assign(500, Answer::kYes);
    LoadList(WriteManyNames(folder, 501));
    // Nothing was wiped, since no data set stood.
    const auto list = WriteScans({14, 12, 14, 14, 14});
    folder.Write("scan2", "one line");
    LoadList(list);
    EXPECT_EQ(Store().NumFiles, 5);
    EXPECT_EQ(Store().ScanPoints(2), 12) << "of scan 2 of the 501";
    EXPECT_EQ(Store().FileNames(1).Name(), "scan2");
    EXPECT_EQ(test::ReportLines().back(), " 5 valid data files were found.");
}

TEST_F(Load, KeepsFiveHundredFailedFilesOpen) {
    // A header that lacks its second line fails; all but the first and the last place see every file of the list.
    folder.Write("bad", "only one line");
    Lines names{"good1"};
    folder.Write("good1", ScanFile{}.Text());
    for (int I = 1; I <= 499; ++I) {
        names.push_back("bad" + std::to_string(I));
        std::filesystem::create_symlink("bad", names.back());
    }
    LoadList(folder.Write("bad.LST", test::ListText(names)));
    EXPECT_EQ(FreeFile(), 499) << "498 failed: the last one is not read, the one before it being sparse";
    EXPECT_EQ(Store().NumFiles, 2);
    EXPECT_EQ(Store().FileNames(1).Name(), "bad499");
}

TEST_F(Load, EndsWhereThereIsNoFileNumberLeft) {
    // Files of one line fail and stay open. Of 511 numbers the list takes one for a while; each load of 300 such files
    // keeps 300.
    Lines names{"good1"};
    folder.Write("good1", ScanFile{}.Text());
    folder.Write("bad", "only one line");
    for (int I = 1; I <= 300; ++I) {
        names.push_back("bad" + std::to_string(I));
        std::filesystem::create_symlink("bad", names.back());
    }
    for (const char* good : {"good2", "good3", "good4"}) {
        names.emplace_back(good);
        folder.Write(good, ScanFile{.omega2t = std::string(1, good[4]) + "E10"}.Text());
    }
    const auto list = folder.Write("many.LST", test::ListText(names));
    LoadList(list);
    EXPECT_EQ(Store().NumFiles, 4);
    LoadList(list);
    EXPECT_EQ(test::ReportLines().back(), " -2-") << "the counter is left in the report";
    EXPECT_EQ(Store().NumSpeeds, 0);
    EXPECT_FALSE(Menus().dummy_men.IsEnabled());
    EXPECT_EQ(desktop.pointer, kPointerNormal);
}

TEST_F(Load, ScrollsOnAndRepaintsAfterTellingOfSeveralSpeeds) {
    Lines lines(20, "gone");
    for (int I = 1; I <= 4; ++I) {
        lines.push_back("speed" + std::to_string(I));
        folder.Write(lines.back(),
                     ScanFile{.speed = I < 3 ? 30000 : 42000, .omega2t = std::to_string(I) + "E9"}.Text());
    }
    int passes = 0;
    desktop.atPass = [&] { passes += test::ReportLines().back().starts_with("Datasets from ") ? 1 : 0; };
    LoadList(folder.Write("speeds.LST", test::ListText(lines)));
    EXPECT_EQ(OutFileBox().TopIndex(), 10U) << "five lines after the list, five here";
    EXPECT_EQ(passes, 2);
}

TEST_F(Load, ScrollsByFiveLinesAfterTheList) {
    Lines names(20, "gone");
    LoadList(folder.Write("gone.LST", test::ListText(names)));
    EXPECT_EQ(OutFileBox().TopIndex(), 5U);
}

}  // namespace
}  // namespace halvern
