// What leaves the program of a replay by its menus: paper, clipboard, plot data files, list files.

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "replay/player.h"
#include "store/analysis_store.h"
#include "support/data_files.h"

namespace halvern::replay {
namespace {

/// A replay on six absorbance scans.
struct TakingHome : ::testing::Test {
    const test::DataFolder folder;
    std::ostringstream out, err;

    TakingHome() { test::WriteDataSet(folder, 6); }

    int Play(const std::string& script) { return Player(Script(script), "s", out, err).Play(); }
    int PlayLoaded(const std::string& script) { return Play("click GetListNow\nchoose all.LST\n" + script); }
    std::string Content(const char* name) const { return test::ContentOf(folder.Path() / name); }
};

constexpr const char* kPlotRaw = "click PlotRaw\nclick PlotEmUpScottie\n";

TEST_F(TakingHome, PrintsTheSelectedLinesOfTheReport) {
    EXPECT_EQ(PlayLoaded("select 3\nclick PrnSelect\nclick PrnSelect\nprint printer\n"), kRanToItsEnd);
    EXPECT_EQ(out.str(),
              "printer: 6 Data Files Found.\nprinter: end of document\n"
              "printer: 6 Data Files Found.\nprinter: end of document\n");
}

TEST_F(TakingHome, CopiesTheSelectedLines) {
    EXPECT_EQ(PlayLoaded("print clipboard\nselect 3 4\nclick CopySelect\nprint clipboard\nselect none\n"
                         "click CopySelect\nprint clipboard\n"),
              kRanToItsEnd);
    EXPECT_EQ(out.str(),
              "clipboard: empty\n"
              "clipboard: text \"6 Data Files Found.\\r\\n6 valid data files were found.\"\n"
              "message style=48 title=\"Nothing Selected\" text=\"No Text Was Selected!  Clipboard is Now "
              "Empty.\" answer=ok\n"
              "clipboard: empty\n");
}

TEST_F(TakingHome, CopiesAndPrintsThePlot) {
    EXPECT_EQ(
        PlayLoaded(std::string(kPlotRaw) + "resize Plotit 9000 6000\nclick ClipPrn\nprint clipboard\nclick PrnPlot\n"
                                           "resize Plotit 6000 6000\nclick PrnPlot\nprint printer\n"),
        kRanToItsEnd)
        << err.str();
    // 600 by 400 pixels fill the width of the lying page of 15840 by 12240 twips; 400 by 400 that of the upright one.
    EXPECT_EQ(out.str(),
              "clipboard: picture 600x400\n"
              "printer: picture 1584 1896 12672 8448 landscape\nprinter: end of document\n"
              "printer: picture 1224 3024 9792 9792 portrait\nprinter: end of document\n");
}

TEST_F(TakingHome, SavesThePointsOfThePlot) {
    std::filesystem::create_directory(folder.Path() / "plots");
    EXPECT_EQ(PlayLoaded(std::string(kPlotRaw) + "click SavePlotNow\nchoose plots/first\nclick SavePlotNow\n"
                                                 "choose second.dat\nprint plot\n"),
              kRanToItsEnd)
        << err.str();
    // The second dialog opened in the folder of the first file.
    const std::string first = Content("plots/first.dat");
    EXPECT_GT(first.size(), 500U);
    EXPECT_EQ(Content("plots/second.dat").size(), first.size());
    EXPECT_NE(out.str().find("plot: PlotCount"), std::string::npos);
}

TEST_F(TakingHome, MakesAListFileAndLoadsIt) {
    EXPECT_EQ(Play("click MakeListNow\nprint dialog\nclick Text3\nchoose 00001.RA1\ntype Text2 501\n"
                   "type Text2 5\nclick OKMakeFile\nclick GenerateFile.Command1\n"
                   "click GetListNow\nchoose C1_1-5_I1.LST\nprint report\n"),
              kRanToItsEnd)
        << err.str();
    EXPECT_EQ(Store().NumFiles, 5);
    EXPECT_TRUE(
        out.str().starts_with("dialog: GenerateFile \"Generate List File\"\n"
                              "control: Text3 enabled shown \"{Click Here To Get FileName}\"\n"
                              "control: Text2 enabled shown \"200\"\n"
                              "control: UpDown2 enabled shown \"200\"\n"
                              "control: Text1 enabled shown \"1\"\n"
                              "control: UpDown1 enabled shown \"1\"\n"
                              "control: OKMakeFile disabled shown \"Generate File\"\n"
                              "control: Command1 enabled shown \"Exit\"\n"
                              "message style=48 title=\"Data Entry Error\" text=\"The value for the number of "
                              "files is invalid or out of range!\" answer=ok\n"
                              "report:  Halvern V0.99   \n"
                              "report:  Current Revision V0.99.0055 \n"
                              "report: A Total of 5 files were found.\n"
                              "report: New ListFile saved as C1_1-5_I1.LST\n"))
        << out.str();
}

TEST_F(TakingHome, HasOnePrinterWhoseTicksStayInBothMenus) {
    EXPECT_EQ(Play("click Prn2Array(1)\nprint menus\n"), kRanToItsEnd) << err.str();
    EXPECT_NE(out.str().find("menu: Prn2Array(1) enabled shown ticked \"Replay\"\n"), std::string::npos);
    EXPECT_NE(out.str().find("menu: Plotit.PrnArray(1) enabled shown ticked \"Replay\"\n"), std::string::npos);
}

TEST_F(TakingHome, HasNothingToPrintOnWithoutAPrinter) {
    EXPECT_EQ(Play("screen 1024 768 noprinter\nclick PrintFitting\n"), kLineFailed);
    EXPECT_EQ(err.str(), "s:2: PrintDummy1 is disabled\n");
}

TEST_F(TakingHome, ClicksNoTextBoxThatHasNothingToClick) {
    EXPECT_EQ(Play("click MakeListNow\nclick Text2\n"), kLineFailed);
    EXPECT_EQ(err.str(), "s:2: Text2 can't be clicked\n");
}

}  // namespace
}  // namespace halvern::replay
