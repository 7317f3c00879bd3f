#include "output/g_of_s_files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "analysis/g_of_s.h"
#include "analysis/small_run.h"
#include "store/files.h"
#include "support/data_files.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

/// Points of 1 to 5 Svedbergs; 2, 3 and 4 lie between the limits.
struct GOfSFiles : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;
    const std::string path = (folder.Path() / "out.txt").string();

    GOfSFiles() {
        auto& S = Store();
        S.ProgramName = "Halvern V0.99";
        S.RevisionText = "0.99.0055";
        S.ListFileName = "  /data/run 7.LST ";
        S.SedTime = 2345.678F;
        S.ScanMeniscus(1) = 5.9125F;
        S.ScanMeniscus(2) = 6.5F;
        S.Meniscus = 7.0F;
        S.ScanSpeed(1) = 42000;
        S.ScanSpeed(2) = 3000;
        S.ScanSkip = 6;
        S.SPoints = 5;
        S.SRangeFirst = 1;
        S.SRangeLast = 5;
        S.DeltaS = 0.5F;
        const float kHat[] = {9.0F, 1.0F, 2.0F, 1.0F, 9.0F};
        const float kRate[] = {1.0F, 3.14159F, -0.001F, 0.0F, 1.0F};
        for (std::int32_t I = 1; I <= 5; ++I) {
            S.SStar(I) = static_cast<float>(I) * 1E-13F;
            S.PlateauRate(I) = kRate[I - 1];
            S.RateSem(I) = 0.00321F * static_cast<float>(I);
            S.GHat(I) = kHat[I - 1] * 1E13F;
            S.GStar(I) = 2.0F * kHat[I - 1] * 1E13F;
            S.GStarSem(I) = 0.5F;
        }
    }

    void Choose(const std::string& name) { desktop.choices.push_back(name); }

    void ExpectOneMessage(const char* text) const {
        ASSERT_EQ(desktop.messages.size(), 1U);
        EXPECT_EQ(desktop.messages[0].text, text);
        EXPECT_EQ(desktop.messages[0].title, "Output File Error");
        EXPECT_EQ(desktop.messages[0].style, 48);
    }

    void ExpectDialog(const char* title) const {
        ASSERT_EQ(desktop.fileDialogs.size(), 1U);
        const FileDialog& dialog = desktop.fileDialogs[0];
        EXPECT_EQ(dialog.title, title);
        EXPECT_EQ(dialog.filter, "Output File | *.*");
        EXPECT_EQ(dialog.flags, 8194);
        EXPECT_EQ(dialog.fileName, "");
        EXPECT_EQ(dialog.defaultExtension, "");
        EXPECT_EQ(dialog.maxFileSize, 127);
    }
};

// Name and revision are filled up to 16 and 10 characters.
constexpr char kHead[] =
    "Halvern V0.99   \r\n"
    "Current Revision V0.99.0055 \r\n"
    "ListFile :: /data/run 7.LST\r\n"
    "sed time = 2345.7\r\n"
    "meniscus = 5.9125\r\n"
    "speed = 42000\r\n"
    "skip = 6\r\n"
    "number of scans used = 12\r\n";

constexpr char kRateHeading[] = "   s*(svedbergs)   <dc/dt>        S.E.M.\r\n";

// 1, 2, 1 at 2, 3, 4 Svedbergs: 48/17, 3, 38/12, 126/38; errors of 1/2 at each point give the squares 0.79438, 0.875,
// 1.11772 and 1.51836, and the roots of twice the distribution are half as large. Areas 0.5 x 4 and 0.5 x 8.
constexpr char kAverages[] =
    "Distribution Averages for Interacting Systems\r\n"
    "   Sn   =  2.824 +/-  0.891 Svedbergs\r\n"
    "   Sw   =  3.000 +/-  0.935 Svedbergs\r\n"
    "   Sz   =  3.167 +/-  1.057 Svedbergs\r\n"
    "   Sz+1 =  3.316 +/-  1.232 Svedbergs\r\n"
    "   Cp   =   2.000  ( plateau concentration )\r\n"
    " \r\n"
    "Distribution Averages for Non-Interacting Systems\r\n"
    "   Sn   =  2.824 +/-  0.446 Svedbergs\r\n"
    "   Sw   =  3.000 +/-  0.468 Svedbergs\r\n"
    "   Sz   =  3.167 +/-  0.529 Svedbergs\r\n"
    "   Sz+1 =  3.316 +/-  0.616 Svedbergs\r\n"
    "   Co   =   4.000  ( loading concentration )\r\n";

constexpr char kDistributionHeading[] =
    "  s*(svedbergs)  <g(s*)\\dt\\n>     S.E.M.    <g^(s*)\\dt\\n>    s*Xg^(s*)\r\n";

TEST_F(GOfSFiles, HoldTheCorrectedRate) {
    Choose(path);
    const auto before = test::MenuStates();
    KeldOutCorrected_Click();
    EXPECT_EQ(test::ContentOf(path), std::string(kHead) + kRateHeading +
                                         "    2.0000E+00    3.1416E+00    6.4200E-03\r\n"
                                         "    3.0000E+00   -1.0000E-03    9.6300E-03\r\n"
                                         "    4.0000E+00    0.0000E+00    1.2840E-02\r\n");
    ExpectDialog("Keld (corrected) Output");
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(Store().OutFileName, path);
    EXPECT_EQ(FreeFile(), 1) << "the file is closed";
    EXPECT_EQ(Store().GHat(1), 9E13F) << "nothing is blanked";
    EXPECT_TRUE(test::MenuChanges(before).empty());
}

TEST_F(GOfSFiles, HoldTheDistributionsAndTheirAverages) {
    Choose(path);
    const auto before = test::MenuStates();
    KeldOutGofS_Click();
    EXPECT_EQ(test::ContentOf(path), std::string(kHead) + kAverages + kDistributionHeading +
                                         "    2.0000E+00    2.0000E+00    5.0000E-01    1.0000E+00    2.0000E+00\r\n"
                                         "    3.0000E+00    4.0000E+00    5.0000E-01    2.0000E+00    6.0000E+00\r\n"
                                         "    4.0000E+00    2.0000E+00    5.0000E-01    1.0000E+00    4.0000E+00\r\n");
    ExpectDialog("Keld G-of-S Output");
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(Store().OutFileName, path);
    EXPECT_EQ(FreeFile(), 1);
    EXPECT_TRUE(test::MenuChanges(before).empty());
}

TEST_F(GOfSFiles, BlankThePointsOutsideTheLimits) {
    Choose(path);
    KeldOutGofS_Click();
    for (const std::int32_t I : {1, 5}) {
        EXPECT_EQ(Store().GHat(I), 0.0F);
        EXPECT_EQ(Store().GStar(I), 0.0F);
        EXPECT_EQ(Store().GStarSem(I), 0.0F);
    }
    EXPECT_EQ(Store().GHat(2), 1E13F);
}

TEST_F(GOfSFiles, AreNotChangedByTheBlanking) {
    Choose(path);
    KeldOutGofS_Click();
    const std::string first = test::ContentOf(path);
    Choose(path);
    KeldOutGofS_Click();
    EXPECT_EQ(test::ContentOf(path), first) << "and the old file is replaced";
}

TEST_F(GOfSFiles, KeepTheWidthOfNegativeColumns) {
    Store().GHat(2) = -2.5E12F;
    Choose(path);
    KeldOutGofS_Click();
    EXPECT_NE(
        test::ContentOf(path).find("\r\n    2.0000E+00    2.0000E+00    5.0000E-01   -2.5000E-01   -5.0000E-01\r\n"),
        std::string::npos);
}

TEST_F(GOfSFiles, WriteSmallAndLargeFiguresOfTheHead) {
    auto& S = Store();
    S.SedTime = 1000.0F;  // "#####.#" keeps the point
    S.ScanMeniscus(1) = 6.0F;
    S.ScanSpeed(1) = 5;
    S.ScanSkip = 250;
    S.ListFileName = "";
    Choose(path);
    KeldOutCorrected_Click();
    const std::string content = test::ContentOf(path);
    EXPECT_EQ(content.substr(0, content.find("   s*")),
              "Halvern V0.99   \r\n"
              "Current Revision V0.99.0055 \r\n"
              "ListFile :: \r\n"
              "sed time = 1000.\r\n"
              "meniscus = 6.\r\n"
              "speed = 005\r\n"
              "skip = 250\r\n"
              "number of scans used = 500\r\n");
}

TEST_F(GOfSFiles, WithoutAPointBetweenTheLimitsAreHeadAndHeading) {
    Store().SRangeFirst = 3;
    Store().SRangeLast = 4;
    Choose(path);
    KeldOutCorrected_Click();
    EXPECT_EQ(test::ContentOf(path), std::string(kHead) + kRateHeading);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(GOfSFiles, WithoutAPointBetweenTheLimitsHaveNoAverages) {
    Store().SRangeFirst = 3;
    Store().SRangeLast = 4;
    EXPECT_FAILURE(11, KeldOutGofS_Click());
    EXPECT_TRUE(desktop.messages.empty()) << "the failure exit was not on yet";
    EXPECT_TRUE(desktop.fileDialogs.empty());
    EXPECT_EQ(Store().GHat(1), 0.0F) << "blanked nevertheless";
}

TEST_F(GOfSFiles, EndWithTheGrid) {
    // A new dc/dt can be shorter than the limits picked before it.
    Store().SPoints = 3;
    Choose(path);
    KeldOutCorrected_Click();
    EXPECT_EQ(test::ContentOf(path), std::string(kHead) + kRateHeading +
                                         "    2.0000E+00    3.1416E+00    6.4200E-03\r\n"
                                         "    3.0000E+00   -1.0000E-03    9.6300E-03\r\n");
    Choose(path);
    KeldOutGofS_Click();
    const std::string content = test::ContentOf(path);
    EXPECT_EQ(content.substr(content.find(kDistributionHeading)),
              std::string(kDistributionHeading) +
                  "    2.0000E+00    2.0000E+00    5.0000E-01    1.0000E+00    2.0000E+00\r\n"
                  "    3.0000E+00    4.0000E+00    5.0000E-01    2.0000E+00    6.0000E+00\r\n");
}

TEST_F(GOfSFiles, OfACancelledDialogAreNotOpened) {
    Store().OutFileName = "before";
    Store().FileNum = 77;
    for (void (*command)() : {KeldOutCorrected_Click, KeldOutGofS_Click}) {
        desktop.choices.push_back(std::nullopt);
        command();
        EXPECT_TRUE(desktop.messages.empty());
        EXPECT_EQ(Store().OutFileName, "before");
        EXPECT_EQ(Store().FileNum, 77);
        EXPECT_EQ(FreeFile(), 1);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    EXPECT_EQ(Store().GHat(1), 0.0F) << "the distributions were blanked before the dialog";
}

TEST_F(GOfSFiles, ThatCannotBeOpenedAreToldOf) {
    Choose((folder.Path() / "missing" / "out.txt").string());
    KeldOutCorrected_Click();
    ExpectOneMessage("Error in Saving <dc/dt> Output File!");
    EXPECT_EQ(FreeFile(), 1) << "nothing was opened";
    desktop.messages.clear();
    Choose(folder.Path().string());
    KeldOutGofS_Click();
    ExpectOneMessage("Error in Saving G-of-S Output File!");
    EXPECT_EQ(FreeFile(), 1);
}

/// /dev/full takes no byte: the disk that a link leads to is full.
std::string FullDisk(const test::DataFolder& folder) {
    const auto link = folder.Path() / "full.txt";
    std::filesystem::create_symlink("/dev/full", link);
    return link.string();
}

TEST_F(GOfSFiles, OnAFullDiskAreToldOfAndStayOpen) {
    const std::string full = FullDisk(folder);
    Choose(full);
    KeldOutCorrected_Click();
    ExpectOneMessage("Error in Saving <dc/dt> Output File!");
    EXPECT_EQ(Store().FileNum, 1);
    EXPECT_EQ(FreeFile(), 2) << "the number stays in use";
    desktop.messages.clear();
    Choose(full);
    KeldOutGofS_Click();
    ExpectOneMessage("Error in Saving G-of-S Output File!");
    EXPECT_EQ(FreeFile(), 3);
    desktop.messages.clear();
    Choose(path);
    KeldOutCorrected_Click();
    EXPECT_TRUE(desktop.messages.empty()) << "the next command works";
    EXPECT_EQ(Store().FileNum, 3);
    EXPECT_TRUE(test::ContentOf(path).starts_with(kHead));
}

TEST_F(GOfSFiles, KeepWhatWasWrittenWhenAFailureInterruptsThem) {
    // The row of index 2049 is outside the arrays, and comes after 2047 that are inside.
    auto& S = Store();
    S.SRangeFirst = 2045;
    S.SRangeLast = 2060;
    S.SPoints = 2050;
    for (std::int32_t I = 2046; I <= 2048; ++I) {
        S.SStar(I) = 1E-13F;
        S.PlateauRate(I) = S.RateSem(I) = 0.5F;
    }
    Choose(path);
    KeldOutCorrected_Click();
    ExpectOneMessage("Error in Saving <dc/dt> Output File!");
    const std::string row = "    1.0000E+00    5.0000E-01    5.0000E-01\r\n";
    EXPECT_EQ(test::ContentOf(path), std::string(kHead) + kRateHeading + row + row + row);
    EXPECT_EQ(FreeFile(), 2);
    desktop.messages.clear();
    S.SPoints = 5;
    S.SRangeFirst = 1;
    S.SRangeLast = 2;
    Choose(path);
    KeldOutCorrected_Click();
    EXPECT_TRUE(desktop.messages.empty()) << "the same file can be written again";
    EXPECT_EQ(test::ContentOf(path), std::string(kHead) + kRateHeading);
}

TEST_F(GOfSFiles, TellTheTimeOfTheDistributions) {
    auto& S = Store();
    test::Give(test::MovingBoundary(4, 27));
    S.ScanSkip = 2;
    S.SPoints = 2;
    S.DataLimitMin = 0.0F;
    S.DataLimitMax = 9.0F;
    TakeSLimits();
    Choose(path);
    KeldOutCorrected_Click();
    // Harmonic mean of 600, 900, 1200 and 1500 s: 4 / (1/600 + 1/900 + 1/1200 + 1/1500) = 935.06
    EXPECT_NE(test::ContentOf(path).find("\r\nsed time = 935.1\r\nmeniscus = 6.\r\nspeed = 40000\r\n"),
              std::string::npos);
}

}  // namespace
}  // namespace halvern
