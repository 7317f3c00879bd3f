#include "output/scan_tables.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "store/analysis_store.h"
#include "support/data_files.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

/// Four scans of different lengths.
struct ScanTables : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;
    AnalysisStore& S = Store();
    const std::string path = (folder.Path() / "out.txt").string();

    ScanTables() {
        S.ProgramName = "Halvern V0.99";
        S.RevisionText = "0.99.0055";
        S.ListFileName = "  /data/run 7.LST ";
        S.NumFiles = 4;
        for (std::int32_t K = 1; K <= 4; ++K) {
            S.ScanPoints(K) = static_cast<std::int16_t>(K == 3 ? 3 : 2);
            S.JitterOffset(K) = 0.5F;
            for (std::int32_t J = 1; J <= S.ScanPoints(K); ++J) {
                S.ScanData(J, 1, K) = 5.9F + 0.1F * static_cast<float>(K) + 0.001F * static_cast<float>(J);
                S.ScanData(J, 2, K) = J == 1 ? 0.0F : -0.25F * static_cast<float>(K);
            }
        }
    }
    Lines Written(void (*command)()) {
        desktop.choices.push_back(path);
        command();
        const std::string content = test::ContentOf(path);
        Lines lines;
        std::size_t begin = 0;
        for (std::size_t end; (end = content.find("\r\n", begin)) != std::string::npos; begin = end + 2)
            lines.push_back(content.substr(begin, end - begin));
        EXPECT_EQ(begin, content.size()) << "the last line is ended too";
        return lines;
    }
};

TEST_F(ScanTables, OfRawDataHoldTheScansSideBySide) {
    EXPECT_EQ(Written(RawDataOut_Click),
              (Lines{"Halvern V0.99   ", "Current Revision V0.99.0055 ", "ListFile :: /data/run 7.LST",
                     "number of scans used = 4", "Original (uncorrected) Data",
                     "    Dataset #001        Dataset #002        Dataset #003        Dataset #004",
                     "  R (cm)     Conc.    R (cm)     Conc.    R (cm)     Conc.    R (cm)     Conc.",
                     "  6.0010  0.0000E+00  6.1010  0.0000E+00  6.2010  0.0000E+00  6.3010  0.0000E+00",
                     "  6.0020 -2.5000E-01  6.1020 -5.0000E-01  6.2020 -7.5000E-01  6.3020 -1.0000E+00",
                     "  0.0000  0.0000E+00  0.0000  0.0000E+00  6.2030 -7.5000E-01  0.0000  0.0000E+00"}));
    ASSERT_EQ(desktop.fileDialogs.size(), 1U);
    const FileDialog& dialog = desktop.fileDialogs[0];
    EXPECT_EQ(dialog.title, "Output Raw Data");
    EXPECT_EQ(dialog.filter, "Output File | *.*");
    EXPECT_EQ(dialog.flags, 8194);
    EXPECT_EQ(dialog.fileName, "");
    EXPECT_EQ(S.OutFileName, path);
    EXPECT_EQ(desktop.pointers, (std::vector<int>{kPointerHourglass, kPointerNormal}));
    EXPECT_EQ(desktop.story, (Lines{"2 passes"}));
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ScanTables, OfCorrectedDataAreLessTheOffsetBehindAScanToo) {
    const Lines lines = Written(CorrectedDataOut_Click);
    EXPECT_EQ(desktop.fileDialogs[0].title, "Output Jitter + I.F.S. Corrected Data");
    ASSERT_EQ(lines.size(), 10U);
    EXPECT_EQ(lines[4], "Jitter & Integral-Fringe-Shift Corrected Data");
    EXPECT_EQ(lines[7], "  6.0010 -5.0000E-01  6.1010 -5.0000E-01  6.2010 -5.0000E-01  6.3010 -5.0000E-01");
    EXPECT_EQ(lines[9], "  0.0000 -5.0000E-01  0.0000 -5.0000E-01  6.2030 -1.2500E+00  0.0000 -5.0000E-01");
}

TEST_F(ScanTables, NumberScansWithThreeDigits) {
    S.NumFiles = 500;
    const Lines lines = Written(RawDataOut_Click);
    EXPECT_EQ(lines[3], "number of scans used = 500");
    EXPECT_EQ(lines[5].substr(16 + 97 * 20, 40), "        Dataset #099        Dataset #100");
    EXPECT_EQ(lines[5].substr(lines[5].size() - 12), "Dataset #500");
    EXPECT_EQ(lines[6].size(), 18U + 499U * 20U);
    EXPECT_EQ(lines[7].size(), 500U * 20U);
}

TEST_F(ScanTables, LoseOfRawLinesWhatIsBeyondTheirText) {
    S.NumFiles = 500;
    for (std::int32_t K = 1; K <= 500; ++K)
        S.ScanData(1, 1, K) = 123.5F;  // a field of 10 characters
    EXPECT_EQ(Written(RawDataOut_Click)[7].size(), 10240U);
    EXPECT_EQ(Written(CorrectedDataOut_Click)[7].size(), 500U * 22U);
}

// Each number of a large table is read back and held against the store.
TEST_F(ScanTables, HoldEveryPointOfALargeTable) {
    S.NumFiles = 37;
    for (std::int32_t K = 1; K <= 37; ++K) {
        S.ScanPoints(K) = static_cast<std::int16_t>(101 - K);
        for (std::int32_t J = 1; J <= 101 - K; ++J) {
            S.ScanData(J, 1, K) = 5.8F + 0.0107F * static_cast<float>(J);
            S.ScanData(J, 2, K) = 0.37F * static_cast<float>(J - 40) * static_cast<float>(K);
        }
    }
    const Lines lines = Written(RawDataOut_Click);
    ASSERT_EQ(lines.size(), 7U + 100U);
    for (std::int32_t J = 1; J <= 100; ++J)
        for (std::int32_t K = 1; K <= 37; ++K) {
            const std::string& line = lines[static_cast<std::size_t>(J) + 6];
            const auto column = static_cast<std::size_t>(K - 1) * 20;
            const double radius = std::atof(line.substr(column, 8).c_str());
            const double signal = std::atof(line.substr(column + 8, 12).c_str());
            EXPECT_NEAR(radius, S.ScanData(J, 1, K), 0.5001E-4);
            EXPECT_NEAR(signal, S.ScanData(J, 2, K), 0.5001E-4 * std::abs(S.ScanData(J, 2, K)));
        }
}

TEST_F(ScanTables, WriteNothingAfterACancel) {
    desktop.choices.push_back(std::nullopt);
    RawDataOut_Click();
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(desktop.pointer, kPointerNormal);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(ScanTables, TellWhereTheyCanNotBeWritten) {
    for (const bool corrected : {false, true}) {
        desktop.choices.push_back((folder.Path() / "no folder" / "out.txt").string());
        corrected ? CorrectedDataOut_Click() : RawDataOut_Click();
        EXPECT_EQ(desktop.messages.back().text, corrected ? "Error in Saving Corrected Data To Output File!"
                                                          : "Error in Saving Raw Data To Output File!");
        EXPECT_EQ(desktop.messages.back().title, "Output File Error");
        EXPECT_EQ(desktop.messages.back().style, 48);
        EXPECT_EQ(desktop.pointer, kPointerNormal);
    }
    EXPECT_EQ(desktop.messages.size(), 2U);
}

}  // namespace
}  // namespace halvern
