#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "plot/export.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/files.h"
#include "support/data_files.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

std::string Content(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::string content(std::filesystem::file_size(path), ' ');
    in.read(content.data(), static_cast<std::streamsize>(content.size()));
    return content;
}

/// Lines that end with CR LF.
Lines LinesOf(const std::string& content) {
    Lines lines;
    std::size_t begin = 0;
    for (std::size_t end; (end = content.find("\r\n", begin)) != std::string::npos; begin = end + 2)
        lines.push_back(content.substr(begin, end - begin));
    EXPECT_EQ(begin, content.size()) << "the last line has no end";
    return lines;
}

/// A request of three points, in a program that was started in one folder while the plots go to another.
struct PlotDataFile : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;
    AnalysisStore& S = Store();
    const std::filesystem::path plots = folder.Path() / "plots";

    PlotDataFile() {
        PlotitForm().Load();
        std::filesystem::create_directory(plots);
        S.ProgramDir = CurrentFolder();
        SetRequestTexts({"Plotting <dc/dt>", "Average <dc/dt> vs S", " S (Svedbergs) ", "<dc/dt>"});
        Put(1.5F, -0.25F, 2);
        Put(0.0F, 123456.0F, 0);
        Put(-6.25F, 1E-10F, -58);
    }
    void Put(float x, float y, std::int16_t code) {
        ++S.PlotCount;
        S.PlotX(S.PlotCount) = x;
        S.PlotY(S.PlotCount) = y;
        S.PlotSym(S.PlotCount) = code;
    }
    Lines Saved(const char* name = "a.dat") {
        desktop.choices.push_back((plots / name).string());
        SavePlotNow_Click();
        return LinesOf(Content(plots / name));
    }
};

TEST_F(PlotDataFile, AsksForAFileOfItsKind) {
    Saved();
    const FileDialog& dialog = desktop.fileDialogs.at(0);
    EXPECT_EQ(dialog.filter, "Plot Files | *.dat");
    EXPECT_EQ(dialog.flags, 2);
    EXPECT_EQ(dialog.defaultExtension, "dat");
    EXPECT_EQ(dialog.fileName, "");
    EXPECT_EQ(dialog.maxFileSize, 127);
    EXPECT_EQ(desktop.pointers, (std::vector<int>{kPointerHourglass, kPointerNormal}));
}

TEST_F(PlotDataFile, HoldsFiveLinesOfHeadAndOneForEachPoint) {
    const Lines lines = Saved();
    ASSERT_EQ(lines.size(), 8U);
    EXPECT_EQ(lines[0], "Plotting <dc/dt>");
    EXPECT_EQ(lines[1].substr(0, 81), "Average <dc/dt> vs S" + std::string(60, ' ') + "!");
    EXPECT_EQ(lines[2], " S (Svedbergs)");
    EXPECT_EQ(lines[3], " <dc/dt>");
    EXPECT_EQ(lines[4], "               3");
    EXPECT_EQ(lines[5], "      1.5000E+00   -2.5000E-01    0.0000E+00   2");
    EXPECT_EQ(lines[6], "      0.0000E+00    1.2346E+05    0.0000E+00");
    EXPECT_EQ(lines[7], "     -6.2500E+00    1.0000E-10    0.0000E+00  -58");
}

TEST_F(PlotDataFile, TellsTheLocalTimeInEnglish) {
    ::setenv("TZ", "XST-14", 1);  // 14 hours ahead
    const std::time_t before = std::time(nullptr);
    const std::string line = Saved()[1];
    const std::time_t after = std::time(nullptr);
    Lines possible;
    for (std::time_t second = before; second <= after; ++second) {
        const std::time_t there = second + 14 * 3600;
        std::tm parts{};
        ::gmtime_r(&there, &parts);
        char time[32], monthAndYear[32];
        std::strftime(time, sizeof time, "!%H:%M:%S ON ", &parts);
        std::strftime(monthAndYear, sizeof monthAndYear, "-%b-%Y", &parts);
        possible.push_back(time + std::to_string(parts.tm_mday) + monthAndYear);
    }
    EXPECT_NE(std::find(possible.begin(), possible.end(), line.substr(80)), possible.end()) << line;
}

TEST_F(PlotDataFile, WithoutPointsHasAnEmptyLineForTheirNumber) {
    S.PlotCount = 0;
    const Lines lines = Saved();
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[4], "");
}

TEST_F(PlotDataFile, WritesTheNumberOfAFullRequest) {
    S.PlotCount = 2050000;
    const Lines lines = Saved();
    ASSERT_EQ(lines.size(), 2050005U);
    EXPECT_EQ(lines[4], "         2050000");
    EXPECT_EQ(lines[2050004], "      0.0000E+00    0.0000E+00    0.0000E+00");
}

TEST_F(PlotDataFile, HasABlankForATitleWithoutText) {
    S.PlotHelp1 = "   ";
    S.PlotHelp2 = "";
    const Lines lines = Saved();
    EXPECT_EQ(lines[0], " ");
    EXPECT_EQ(lines[1].substr(0, 81), std::string(80, ' ') + "!");
    EXPECT_EQ(S.PlotHelp1, " ");
    EXPECT_EQ(S.PlotHelp2, " ");
}

TEST_F(PlotDataFile, WritesTheFirstTitleAsItStandsAndCutsTheTitlesOfTheAxes) {
    S.PlotHelp1 = "  " + std::string(140, 'h') + "  ";
    S.PlotXTitle = std::string(140, 'x');
    const Lines lines = Saved();
    EXPECT_EQ(lines[0], S.PlotHelp1);
    EXPECT_EQ(lines[2], " " + std::string(127, 'x'));
}

TEST_F(PlotDataFile, FailsInSilenceWithASecondTitleThatIsTooLong) {
    S.PlotHelp2 = std::string(80, 'h');
    EXPECT_EQ(Saved("full.dat")[1].substr(0, 81), S.PlotHelp2 + "!");
    S.PlotHelp2 += 'h';
    EXPECT_EQ(Saved("long.dat"), (Lines{"Plotting <dc/dt>"}));
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(desktop.pointer, kPointerHourglass);
    EXPECT_EQ(CurrentFolder(), S.ProgramDir);
    // Its number stays taken: the file is open.
    EXPECT_EQ(FreeFile(), S.FileNum + 1);
}

TEST_F(PlotDataFile, LeavesTheCurrentFolderWhereTheProgramWasStarted) {
    Saved();
    EXPECT_EQ(CurrentFolder(), S.ProgramDir);
    EXPECT_EQ(PlotitForm().PlotFileDir, plots.string() + "/");
    EXPECT_EQ(FreeFile(), S.FileNum);
}

TEST_F(PlotDataFile, OpensTheNextDialogInTheFolderOfTheLastFile) {
    Saved();
    struct Seen : test::TestDesktop {
        std::string folder;
        std::optional<std::string> AskForNewFile(const FileDialog& /*dialog*/) override {
            folder = CurrentFolder();
            return std::nullopt;
        }
    } next;
    SavePlotNow_Click();
    EXPECT_EQ(next.folder, plots.string() + "/");
    EXPECT_EQ(CurrentFolder(), S.ProgramDir);
}

TEST_F(PlotDataFile, IsNotWrittenAfterACancel) {
    desktop.choices.push_back(std::nullopt);
    SavePlotNow_Click();
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_TRUE(desktop.pointers.empty());
    EXPECT_EQ(PlotitForm().PlotFileDir, "");
    EXPECT_TRUE(std::filesystem::is_empty(plots));
}

TEST_F(PlotDataFile, EndsWithoutAWordWhereItCannotBeOpened) {
    desktop.choices.push_back((plots / "no such folder" / "a.dat").string());
    SavePlotNow_Click();
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(PlotitForm().PlotFileDir, "");
    EXPECT_EQ(CurrentFolder(), S.ProgramDir);
}

TEST_F(PlotDataFile, EndsTheProgramWhenTheFolderOfTheLastOneIsGone) {
    Saved();
    std::filesystem::remove_all(plots);
    EXPECT_FAILURE(76, SavePlotNow_Click());
}

TEST_F(PlotDataFile, HoldsTheRequestsPointsToFiveDigits) {
    S.PlotCount = 0;
    for (int i = 0; i < 1000; ++i)
        Put(5.9F + 0.0013F * static_cast<float>(i), 1E-13F * static_cast<float>((i * 7919) % 1000 - 500),
            static_cast<std::int16_t>(i % 7 - 3));
    const Lines lines = Saved();
    ASSERT_EQ(lines.size(), 1005U);
    for (std::int32_t I = 1; I <= 1000; ++I) {
        const std::string& line = lines[static_cast<std::size_t>(I) + 4];
        const double x = std::stod(line.substr(2, 14)), y = std::stod(line.substr(16, 14));
        EXPECT_NEAR(x, S.PlotX(I), 5.1E-5 * std::abs(x)) << line;
        EXPECT_NEAR(y, S.PlotY(I), 5.1E-5 * std::abs(y)) << line;
        EXPECT_EQ(line.substr(30, 14), "    0.0000E+00");
        EXPECT_EQ(line.size() > 44 ? std::stoi(line.substr(44)) : 0, S.PlotSym(I)) << line;
    }
}

}  // namespace
}  // namespace halvern
