#include "intake/scan_reader.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/files.h"
#include "support/data_files.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using test::ScanFile;

// Columns 9 to 14 hold the speed, 23 to 32 omega squared t.
//                                   123456789012345678901234567890123
constexpr std::string_view kHeader = "R 1 20.0 45000 0001800 3.9972E10 280 5\r\n";

std::string Header(char type, std::string_view speed, std::string_view omega2t) {
    std::string line(40, ' ');
    line[0] = type;
    line.replace(8, speed.size(), speed);
    line.replace(22, omega2t.size(), omega2t);
    return line + "\r\n";
}

std::string DataLines(int points) {
    std::string text;
    for (int J = 0; J < points; ++J)
        text += "   5.9000    1.00000E-01\r\n";
    return text;
}

struct ScanReader : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;

    /// Reads a file of this text as scan I.
    void Read(std::int16_t I, std::string_view text) {
        const std::string name = "scan" + std::to_string(I);
        folder.Write(name, text);
        Store().FileNames(I - 1) = name;
        ReadScanFile(I);
    }
};

TEST_F(ScanReader, TakesTheFieldsFromTheirColumns) {
    Read(1, std::string("anything at all\r\n") + std::string(kHeader) +
                "   5.9110  4.57670E-0002   5.91012E-0003\r\n"
                "xxx 5.914 -4.37036E-0002   5.14893E-0004\r\n");
    const auto& S = Store();
    EXPECT_EQ(S.ScanPoints(1), 2);
    EXPECT_EQ(S.ScanSpeed(1), 45000);
    EXPECT_EQ(S.ScanW2t(1), 3.9972e10F);
    EXPECT_EQ(S.ScanData(1, 1, 1), 5.911F);
    EXPECT_EQ(S.ScanData(1, 2, 1), 4.5767e-2F);
    EXPECT_EQ(S.ScanData(2, 1, 1), 5.914F);
    EXPECT_EQ(S.ScanData(2, 2, 1), -4.37036e-2F);
    EXPECT_FALSE(S.IsInterference);
}

TEST_F(ScanReader, WorksTheTimeFromOmegaSquaredTAndTheSpeed) {
    Read(1, "\r\n" + std::string(kHeader) + DataLines(1));
    // omega = 45000 x 0.1047196 = 4712.382 rad/s. Singles lie 4096 apart at 3.9972E10, the nearest is 39971999744.
    const double omega = 45000.0 * 0.1047196;
    EXPECT_EQ(Store().ScanTime(1), static_cast<float>(39971999744.0 / (omega * omega)));
    EXPECT_NEAR(Store().ScanTime(1), 1800.01, 0.02);
}

TEST_F(ScanReader, AScanOfTwoLinesHasNoPoints) {
    Store().ScanPoints(1) = 7;
    Read(1, "\r\n" + std::string(kHeader));
    EXPECT_EQ(Store().ScanPoints(1), 0);
    EXPECT_EQ(FreeFile(), 1) << "it was read to its end and closed";
}

TEST_F(ScanReader, AFileOfOneLineOrNoneFailsAndStaysOpen) {
    Store().ScanPoints(1) = 7;
    Read(1, "only a line\r\n");
    EXPECT_EQ(Store().ScanPoints(1), 7) << "the earlier value stays";
    EXPECT_EQ(FreeFile(), 2);
    Read(2, "");
    EXPECT_EQ(Store().ScanPoints(2), 0);
    EXPECT_EQ(FreeFile(), 3);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ScanReader, AFileThatCannotBeOpenedFailsWithoutAWord) {
    desktop.SetMousePointer(kPointerHourglass);
    Store().FileNames(0) = "missing";
    ReadScanFile(1);
    EXPECT_EQ(Store().ScanPoints(1), 0);
    EXPECT_EQ(desktop.pointer, kPointerNormal);
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(FreeFile(), 1) << "nothing was opened";
}

TEST_F(ScanReader, Reads2048PointsInFull) {
    Read(1, "\r\n" + std::string(kHeader) + DataLines(2048));
    EXPECT_EQ(Store().ScanPoints(1), 2048);
    EXPECT_EQ(Store().ScanData(2048, 2, 1), 0.1F);
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(ScanReader, FailsAtPoint2049AndKeepsWhatItRead) {
    Read(1, "\r\n" + std::string(kHeader) + DataLines(2049));
    EXPECT_EQ(Store().ScanPoints(1), 0);
    EXPECT_EQ(Store().ScanData(2048, 2, 1), 0.1F);
    EXPECT_EQ(Store().ScanSpeed(1), 45000);
    EXPECT_EQ(FreeFile(), 2) << "the file stays open";
}

TEST_F(ScanReader, KeepsTheRadiusOfAPointWhoseSignalFails) {
    Read(1, "\r\n" + std::string(kHeader) + DataLines(1) + "   6.1000    1.00000E+39\r\n" + DataLines(1));
    EXPECT_EQ(Store().ScanPoints(1), 0);
    EXPECT_EQ(Store().ScanData(1, 2, 1), 0.1F);
    EXPECT_EQ(Store().ScanData(2, 1, 1), 6.1F);
    EXPECT_EQ(Store().ScanData(2, 2, 1), 0.0F);
    EXPECT_EQ(Store().ScanData(3, 1, 1), 0.0F);
}

TEST_F(ScanReader, OnlyACapitalPMeansInterference) {
    for (const char type : {'p', ' ', 'R', 'Q'}) {
        Read(1, "\r\n" + Header(type, "45000", "1E10") + DataLines(1));
        EXPECT_FALSE(Store().IsInterference) << type;
    }
    Read(2, "\r\n" + Header('P', "45000", "2E10") + DataLines(1));
    EXPECT_TRUE(Store().IsInterference);
    Read(3, "\r\n" + Header('R', "45000", "3E10") + DataLines(1));
    EXPECT_TRUE(Store().IsInterference) << "one scan is enough";
}

TEST_F(ScanReader, ThePInTheFirstLineMeansNothing) {
    Read(1, "P\r\n" + std::string(kHeader) + DataLines(1));
    EXPECT_FALSE(Store().IsInterference);
}

TEST_F(ScanReader, RoundsTheSpeedAHalfToEven) {
    struct Case {
        const char* field;  // six columns wide
        std::int32_t speed;
    };
    // The field holds six characters: of 42001.5 there is room for the point but not for what follows it.
    constexpr Case kCases[] = {{"4200.5", 4200}, {"4201.5", 4202}, {"420.51", 421},    {"42E3", 42000},
                               {"42000", 42000}, {"  4200", 4200}, {"42000.5", 42000}, {"42001.5", 42001}};
    std::int16_t I = 1;
    for (const auto& c : kCases) {
        Read(I, "\r\n" + Header('R', c.field, std::to_string(I) + "E9") + DataLines(1));
        EXPECT_EQ(Store().ScanSpeed(I), c.speed) << c.field;
        ++I;
    }
}

TEST_F(ScanReader, FailsWithASpeedOfZero) {
    Read(1, "\r\n" + Header('R', "0", "1E10") + DataLines(3));
    EXPECT_EQ(Store().ScanPoints(1), 0);
    EXPECT_EQ(Store().ScanW2t(1), 1e10F) << "what was read stays";
    EXPECT_EQ(Store().ScanData(1, 1, 1), 0.0F) << "the points come later";
    Read(2, "\r\n" + Header('R', "0", "0") + DataLines(3));
    EXPECT_EQ(Store().ScanPoints(2), 0) << "0 / 0 is no time either";
}

TEST_F(ScanReader, FailsWithANumberTooLargeForItsStore) {
    Read(1, "\r\n" + Header('R', "1E10", "1E10") + DataLines(3));
    EXPECT_EQ(Store().ScanPoints(1), 0) << "a speed of 32 bits";
    Read(2, "\r\n" + Header('R', "45000", "1E39") + DataLines(3));
    EXPECT_EQ(Store().ScanPoints(2), 0) << "omega squared t is a single";
    Read(3, "\r\n" + Header('R', "45000", "1E999") + DataLines(3));
    EXPECT_EQ(Store().ScanPoints(3), 0);
    // 3E38 / (1 x 0.1047196) squared is 2.7E40.
    Read(4, "\r\n" + Header('R', "1", "3E38") + DataLines(3));
    EXPECT_EQ(Store().ScanPoints(4), 0) << "the time is a single";
    Read(5, "\r\n" + Header('R', "45000", "1E10") + "   5.9000    1.00000E+39\r\n");
    EXPECT_EQ(Store().ScanPoints(5), 0) << "so is the signal";
    EXPECT_EQ(FreeFile(), 6) << "each stays open";
}

TEST_F(ScanReader, ABlankLineIsAPointOfZeroAndZero) {
    Read(1, "\r\n" + std::string(kHeader) + DataLines(1) + "\r\n" + DataLines(1) + "\r\n");
    const auto& S = Store();
    EXPECT_EQ(S.ScanPoints(1), 4);
    EXPECT_EQ(S.ScanData(2, 1, 1), 0.0F);
    EXPECT_EQ(S.ScanData(2, 2, 1), 0.0F);
    EXPECT_EQ(S.ScanData(3, 1, 1), 5.9F);
    EXPECT_EQ(S.ScanData(4, 1, 1), 0.0F);
}

TEST_F(ScanReader, ReadsALastLineWithoutALineBreak) {
    Read(1, "\n" + std::string(kHeader) + "   5.9000    1.00000E-01\n   5.9010    2.00000E-01");
    EXPECT_EQ(Store().ScanPoints(1), 2);
    EXPECT_EQ(Store().ScanData(2, 2, 1), 0.2F);
}

TEST_F(ScanReader, TextInAFieldEndsItsNumber) {
    Read(1, "\r\n" + std::string(kHeader) +
                "   1.5x      rpm\r\n"
                "   5,9000    1.00000D-01\r\n"
                "   5.9\r\n");
    const auto& S = Store();
    EXPECT_EQ(S.ScanPoints(1), 3);
    EXPECT_EQ(S.ScanData(1, 1, 1), 1.5F);
    EXPECT_EQ(S.ScanData(1, 2, 1), 0.0F);
    EXPECT_EQ(S.ScanData(2, 1, 1), 5.0F);
    EXPECT_EQ(S.ScanData(2, 2, 1), 0.1F);
    EXPECT_EQ(S.ScanData(3, 1, 1), 5.9F) << "a field beyond the line is blank";
    EXPECT_EQ(S.ScanData(3, 2, 1), 0.0F);
}

TEST_F(ScanReader, WhatStandsBehindColumn127IsLost) {
    const std::string longLine = "   5.9000    1.00000E-01" + std::string(200, '7');
    Read(1, "\r\n" + std::string(kHeader) + longLine + "\r\n");
    EXPECT_EQ(Store().ScanPoints(1), 1);
    EXPECT_EQ(Store().ScanData(1, 1, 1), 5.9F);
    EXPECT_EQ(Store().LineBuf.View(), longLine.substr(0, 127));
}

TEST_F(ScanReader, LeavesTheLastLineInTheBuffer) {
    Read(1, "\r\n" + std::string(kHeader) + "   5.9000    1.00000E-01\r\n");
    EXPECT_EQ(RightTrimmed(Store().LineBuf), "   5.9000    1.00000E-01");
}

TEST_F(ScanReader, KeepsTheLineOfTheFileBeforeWhenAFileHasNone) {
    Read(1, "\r\n" + std::string(kHeader) + "   5.9000    1.00000E-01\r\n");
    Read(2, "");
    EXPECT_EQ(RightTrimmed(Store().LineBuf), "   5.9000    1.00000E-01");
}

TEST_F(ScanReader, FailsBeforeItsTrapWithoutAFileNumber) {
    folder.Write("open", "");
    for (int i = 1; i <= kMostOpenFiles; ++i)
        OpenForInput(FreeFile(), "open");
    Store().FileNames(0) = "open";
    EXPECT_FAILURE(67, ReadScanFile(1));
}

TEST_F(ScanReader, ReadsLineFeedsAndCarriageReturnsAlike) {
    ScanFile scan;
    folder.Write("crlf", scan.Text());
    scan.lineEnd = "\n";
    scan.omega2t = "1.1E10";
    folder.Write("lf", scan.Text());
    Store().FileNames(0) = "crlf";
    Store().FileNames(1) = "lf";
    ReadScanFile(1);
    ReadScanFile(2);
    const auto& S = Store();
    EXPECT_EQ(S.ScanPoints(1), 12);
    EXPECT_EQ(S.ScanPoints(2), 12);
    for (std::int32_t J = 1; J <= 12; ++J) {
        EXPECT_EQ(S.ScanData(J, 1, 1), S.ScanData(J, 1, 2));
        EXPECT_EQ(S.ScanData(J, 2, 1), S.ScanData(J, 2, 2));
    }
}

TEST_F(ScanReader, AsksWhenNeighboursHaveEqualOmegaSquaredT) {
    desktop.answers = {Answer::kYes};
    Read(1, "\r\n" + std::string(kHeader) + DataLines(2));
    Read(2, "\r\n" + std::string(kHeader) + DataLines(2));
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(
        desktop.messages[0].text,
        "scan2 and\r\nscan1\r\n have identical values of Omega^2*t.  Wide distribution calculations will fail!\r\n"
        "Do You Want to Continue?");
    EXPECT_EQ(desktop.messages[0].title, "Data Error!");
    EXPECT_EQ(desktop.messages[0].style, 4 + 16);
    EXPECT_EQ(Store().ScanPoints(2), 2);
    EXPECT_EQ(Store().ScanTime(1), Store().ScanTime(2));
}

TEST_F(ScanReader, ComparesOmegaSquaredTAsSingles) {
    desktop.answers = {Answer::kYes};
    // Singles lie 256 apart here: 3997200001 and 3997200002 are both 3997199872.
    Read(1, "\r\n" + Header('R', "45000", "39972E6") + DataLines(1));
    Read(2, "\r\n" + Header('R', "45000", "3997200001") + DataLines(1));
    EXPECT_TRUE(desktop.messages.empty());
    Read(3, "\r\n" + Header('R', "45000", "3997200002") + DataLines(1));
    EXPECT_EQ(desktop.messages.size(), 1U);
}

TEST_F(ScanReader, ComparesOnlyNeighboursOfTheList) {
    Read(1, "\r\n" + Header('R', "45000", "1E10") + DataLines(1));
    Read(2, "\r\n" + Header('R', "45000", "2E10") + DataLines(1));
    Read(3, "\r\n" + Header('R', "45000", "1E10") + DataLines(1));
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ScanReader, NeverComparesTheFirstScan) {
    Store().ScanW2t(2) = 3.9972e10F;
    Read(1, "\r\n" + std::string(kHeader) + DataLines(1));
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ScanReader, EndsTheProgramWhenTheUserDoesNotWantToGoOn) {
    PlotitForm().Load();
    desktop.answers = {Answer::kNo};
    Read(1, "\r\n" + std::string(kHeader) + DataLines(2));
    EXPECT_THROW(Read(2, "\r\n" + std::string(kHeader) + DataLines(2)), ProgramEnd);
    EXPECT_FALSE(PlotitForm().IsLoaded());
    EXPECT_EQ(desktop.messages.size(), 1U) << "the exit question is not asked";
    EXPECT_EQ(Store().ScanPoints(2), 0);
}

TEST_F(ScanReader, TakesBinaryFilesAsTheyCome) {
    std::string bytes;
    for (int i = 0; i < 4000; ++i)
        bytes += static_cast<char>((i * 7919) % 256);
    Read(1, bytes);
    EXPECT_EQ(Store().ScanPoints(1), 0);
    Read(2, std::string(5000, '\0'));
    EXPECT_EQ(Store().ScanPoints(2), 0);
}

}  // namespace
}  // namespace halvern
