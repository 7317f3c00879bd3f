#include "simulate/scan_writer.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "store/val.h"
#include "support/data_files.h"

namespace halvern::simulate {
namespace {

Scan TwoPoints() { return {{42000, 1800.4, 3.99720449e10}, {{5.911, 7.01}, {0.0457670449, -1.25}, {0.00591012, 0.0}}}; }

/// Columns of a line, counted from 1.
std::string Columns(const std::string& line, std::size_t first, std::size_t last) {
    return line.substr(first - 1, last - first + 1);
}

TEST(ScanText, OfAbsorbanceHasThreeColumns) {
    Parameters parameters;
    parameters.title = "a sample";
    EXPECT_EQ(ScanText(parameters, TwoPoints()),
              "a sample\r\n"
              "R 1 20.0 42000 00018003.99720E10 280 5\r\n"
              "   5.9110    4.576704E-02    5.91012E-03\r\n"
              "   7.0100   -1.250000E+00    0.00000E+00\r\n");
}

TEST(ScanText, OfInterferenceHasTwoColumnsAndTheStepInItsFirstLine) {
    Parameters parameters;
    parameters.optics = Optics::kInterference;
    parameters.cell = 3;
    parameters.temperatureCelsius = 4.0;
    parameters.omega2tDigits = 5;
    EXPECT_EQ(ScanText(parameters, TwoPoints()),
              "cm/pixel:  0.00070000000, simulated\r\n"
              "P 3  4.0 42000 0001800 3.9972E10 675 40\r\n"
              "   5.9110    4.576704E-02\r\n"
              "   7.0100   -1.250000E+00\r\n");
}

// The narrowest case of every field: all columns taken, none crossed.
TEST(ScanText, KeepsItsColumnsWithAllDigits) {
    Parameters parameters;
    parameters.radiusDecimals = 5;
    parameters.signalDecimals = 8;
    const Scan scan{{100000, 9999999.0, 1.23456789e15}, {{9.87654}, {-123.456789012}, {0.5}}};
    const std::string text = ScanText(parameters, scan);
    const std::string head = text.substr(text.find('\n') + 1);
    const std::string point = head.substr(head.find('\n') + 1);
    EXPECT_EQ(Columns(head, 9, 14), "100000");
    EXPECT_EQ(Columns(head, 16, 22), "9999999");
    EXPECT_EQ(Columns(head, 23, 32), "1.23457E15");
    EXPECT_EQ(Columns(point, 4, 10), "9.87654");
    EXPECT_EQ(Columns(point, 11, 25), "-1.23456789E+02");
    EXPECT_EQ(Columns(point, 26, 40), "    5.00000E-01");
}

TEST(ScanText, ShowsNoSignInFrontOfAZero) {
    Parameters parameters;
    const Scan scan{{3000, 0.0, 0.0}, {{6.0}, {-0.0}, {0.0}}};
    EXPECT_NE(ScanText(parameters, scan).find("   6.0000    0.000000E+00 "), std::string::npos);
}

TEST(Omega2tText, FillsTenColumnsAtMost) {
    EXPECT_EQ(Omega2tText(1.99061234e9, 5), "1.9906E09");
    EXPECT_EQ(Omega2tText(1.99061234e9, 6), "1.99061E09");
    EXPECT_EQ(Omega2tText(0.0, 6), "0.00000E00");
    EXPECT_EQ(Omega2tText(0.0109662, 6), "0.01097");
    EXPECT_EQ(Val(Omega2tText(3.99720449e10, 6)), 3.9972e10);
}

TEST(WrittenRadius, IsWhatTheFileHolds) {
    EXPECT_EQ(WrittenRadius(5.91104999, 4), 5.911);
    EXPECT_EQ(WrittenRadius(5.91105001, 4), 5.9111);
    EXPECT_EQ(WrittenRadius(5.91104999, 5), 5.91105);
}

TEST(ScanFileName, CountsFromOneInFiveDigits) {
    Parameters parameters;
    EXPECT_EQ(ScanFileName(parameters, 1), "00001.RA1");
    parameters.optics = Optics::kInterference;
    parameters.cell = 4;
    EXPECT_EQ(ScanFileName(parameters, 500), "00500.IP4");
}

TEST(WriteScans, WritesTheScansAndTheirListIntoANewFolder) {
    const test::DataFolder folder;
    Parameters parameters;
    parameters.listFile = "a.LST";
    WriteScans(parameters, {TwoPoints(), TwoPoints()}, "new/run");
    EXPECT_EQ(test::ContentOf("new/run/a.LST"), "00001.RA1\r\n00002.RA1\r\n");
    EXPECT_EQ(test::ContentOf("new/run/00001.RA1"), ScanText(parameters, TwoPoints()));
    EXPECT_EQ(test::ContentOf("new/run/00002.RA1"), ScanText(parameters, TwoPoints()));
}

std::string WriteComplaint(const Parameters& parameters, const std::string& folder) {
    try {
        WriteScans(parameters, {TwoPoints()}, folder);
    } catch (const WriteError& error) {
        return error.what();
    }
    return "";
}

TEST(WriteScans, SaysWhatItCannotWrite) {
    const test::DataFolder folder;
    folder.Write("file", "");
    std::filesystem::create_directories("run/00001.RA1");
    std::filesystem::create_directory("full");
    std::filesystem::create_symlink("/dev/full", "full/00001.RA1.part");
    EXPECT_EQ(WriteComplaint({}, "file"), "file: Not a directory");
    EXPECT_EQ(WriteComplaint({}, "file/run"), "file/run: Not a directory");
    EXPECT_EQ(WriteComplaint({}, "run"), "run/00001.RA1: Is a directory");
    EXPECT_EQ(WriteComplaint({}, "full"), "full/00001.RA1: No space left on device");
}

}  // namespace
}  // namespace halvern::simulate
