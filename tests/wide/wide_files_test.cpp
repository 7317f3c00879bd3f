#include "wide/wide_files.h"
#include "support/data_files.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iterator>

#include "wide/integral.h"
#include "wide/wide_run.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

struct WideFiles : test::WideRun {
    const std::string path = (folder.Path() / "wide.txt").string();

    WideFiles() {
        S.ProgramName = "Halvern V0.99";
        S.RevisionText = "0.99.0055";
        S.ListFileName = " /data/wide.LST ";
        MakeScans(45, 3);
        Calculate();
    }
    void KeepRadii(std::initializer_list<std::int32_t> kept) {
        for (std::int32_t K = 1; K <= 11; ++K)
            S.WDRadiusValid(K) = std::find(kept.begin(), kept.end(), K) != kept.end();
    }
    Lines Written(void (*command)()) {
        desktop.choices.push_back(path);
        command();
        return ReadLines();
    }
    std::string FileBytes() const { return test::ContentOf(path); }
    static std::string Joined(const Lines& lines) {
        std::string text;
        for (const auto& line : lines)
            text += line + "\r\n";
        return text;
    }
    Lines ReadLines() const {
        const std::string content = FileBytes();
        Lines lines;
        std::size_t begin = 0;
        for (std::size_t end; (end = content.find("\r\n", begin)) != std::string::npos; begin = end + 2)
            lines.push_back(content.substr(begin, end - begin));
        return lines;
    }
    static std::string Padded(std::string row) { return row + std::string(264 - row.size(), ' '); }
};

TEST_F(WideFiles, BeginWithWhereTheDataComeFrom) {
    S.ScanMeniscus(16) = 5.91234567F;
    KeepRadii({5, 6});
    const Lines lines = Written(SaveSvsG_Click);
    ASSERT_GT(lines.size(), 10U);
    EXPECT_EQ((Lines{lines.begin(), lines.begin() + 10}),
              (Lines{" Halvern V0.99   ", " Current Revision V0.99.0055 ", " ListFile :: /data/wide.LST",
                     " Multiple Speeds Were Found", " R(meniscus) at 10000 rpm was set to 5.9 cm.",
                     " R(meniscus) at 20000 rpm was set to 5.91235 cm.", " R(meniscus) at 30000 rpm was set to 5.9 cm.",
                     " s* vs g(s*) - no interpolation", " Smoothing = False",
                     " Speed# --s*--   g(s*)@6.40   --s*--   g(s*)@6.50"}));
    EXPECT_EQ(lines.size(), 10U + 44U);
    ASSERT_EQ(desktop.fileDialogs.size(), 1U);
    EXPECT_EQ(desktop.fileDialogs[0].title, "Wide Distribution Output");
    EXPECT_EQ(desktop.fileDialogs[0].filter, "Output File | *.*");
    EXPECT_EQ(desktop.fileDialogs[0].flags, 8194);
}

TEST_F(WideFiles, OfOneSpeedNameOneMeniscus) {
    S.MultipleSpeeds = false;
    S.UseSmoothing = true;
    S.SmoothWindow = 5;
    const Lines lines = Written(SaveLnSvsSG_Click);
    EXPECT_EQ((Lines{lines.begin() + 3, lines.begin() + 7}),
              (Lines{" R(meniscus) set to 5.9 cm.", " Ln(s*) vs s*xg(s*) - no interpolation", " Smoothing = True",
                     " Smoothing = 5 out of a total of 45"}));
    EXPECT_EQ(lines[7].substr(0, 51), " Speed# -Ln(s*)-  s*g(s*)@6.0 -Ln(s*)-  s*g(s*)@6.1");
}

TEST_F(WideFiles, HaveRowsOfAFixedWidthFromTheLastScanOn) {
    KeepRadii({6});
    S.WDSValue(2, 6) = 1.234E-3F;
    S.WDGofS(2, 6) = -1.234F;
    S.WDSValue(45, 6) = 25.0F;
    S.WDGofS(45, 6) = 0.0F;
    const Lines lines = Written(SaveSvsG_Click);
    EXPECT_EQ(lines[10], Padded("  003  1.234E-03 -1.234E+00"));
    EXPECT_EQ(lines.back(), Padded("  001  2.500E+01  0.000E+00"));
    // Row J belongs to scan 47 - J: runs of 15 scans, the first of which ends with scan 15.
    EXPECT_EQ(lines[10 + 30 - 1].substr(0, 5), "  002");
    EXPECT_EQ(lines[10 + 30].substr(0, 5), "  001");
    for (std::size_t row = 10; row < lines.size(); ++row)
        EXPECT_EQ(lines[row].size(), 264U);
}

TEST_F(WideFiles, HoldAllElevenRadii) {
    const Lines lines = Written(SaveSvsG_Click);
    const std::string& row = lines[10];
    EXPECT_EQ(row.find_last_not_of(' ') + 1, 5U + 11U * 22U);
    EXPECT_NEAR(std::atof(row.substr(5 + 10 * 22, 11).c_str()), S.WDSValue(2, 11), 1E-3 * S.WDSValue(2, 11));
    EXPECT_NE(lines[9].find("g(s*)@7.00"), std::string::npos);
}

TEST_F(WideFiles, WithoutARadiusHoldTheSpeedsAlone) {
    KeepRadii({});
    for (void (*command)() : {SaveSvsG_Click, SaveLnSvsSG_Click, DoIntegralWD_Click}) {
        const Lines lines = Written(command);
        ASSERT_EQ(lines.size(), 10U + 44U);
        EXPECT_EQ(lines[9], " Speed# ");
        EXPECT_EQ(lines[10], Padded("  003"));
        EXPECT_EQ(lines.back(), Padded("  001"));
    }
}

TEST_F(WideFiles, LeaveOutARadiusThatTheLastRunLeftOut) {
    S.ScanPoints(1) = 1000;
    Calculate();
    const Lines lines = Written(SaveSvsG_Click);
    EXPECT_EQ(lines[9].find("6.90"), std::string::npos);
    EXPECT_NE(lines[9].find("6.70"), std::string::npos);
}

TEST_F(WideFiles, WriteLogarithmsAndProducts) {
    KeepRadii({4});
    const Lines lines = Written(SaveLnSvsSG_Click);
    for (std::int32_t J = 2; J <= 45; ++J) {
        const std::string& row = lines[static_cast<std::size_t>(J) + 8];
        const double s = S.WDSValue(J, 4);
        EXPECT_NEAR(std::atof(row.substr(5, 11).c_str()), std::log(s), 0.0006 * std::log(s));
        const double product = s * S.WDGofS(J, 4);
        EXPECT_NEAR(std::atof(row.substr(16, 11).c_str()), product, 0.0006 * std::fabs(product));
    }
}

TEST_F(WideFiles, WriteTheIntegralOverMiddles) {
    KeepRadii({4, 7});
    for (std::int32_t K = 1; K <= 11; ++K)
        for (std::int32_t J = 2; J <= 45; ++J)
            S.WDIntegral(J, K, 1) = S.WDIntegral(J, K, 2) = 42.0F;  // of an earlier one
    const Lines lines = Written(DoIntegralWD_Click);
    EXPECT_EQ(desktop.fileDialogs.back().title, "Integral Of [s* x g(s*)] vs Ln(s*) - Output");
    EXPECT_EQ(lines[7], " Integral of [s* x g(s*)] vs Ln(s*) ");
    EXPECT_EQ(lines[9], " Speed# Ln(s*)   Int(sg)@6.3  Ln(s*)   Int(sg)@6.6");
    const auto B = [&](std::int32_t J) { return std::log(static_cast<double>(S.WDSValue(J, 7))); };
    const auto A = [&](std::int32_t J) { return static_cast<double>(S.WDGofS(J, 7)) * S.WDSValue(J, 7); };
    EXPECT_EQ(S.WDIntegral(2, 7, 2), S.WDIntegral(3, 7, 2)) << "the first two middles are one";
    double integral = 0.0;
    for (std::int32_t J = 2; J <= 45; ++J) {
        const std::int32_t low = J == 2 ? 2 : J - 1, high = J == 2 ? 3 : J;
        EXPECT_NEAR(S.WDIntegral(J, 7, 2), (B(low) + B(high)) / 2.0, 1E-6);
        integral += (J == 2 || J == 45 ? 0.5 : 1.0) * B(J) * A(J) * (B(high) - B(low));
        EXPECT_NEAR(S.WDIntegral(J, 7, 1), integral, 1E-5);
        const std::string& row = lines[static_cast<std::size_t>(J) + 8];
        EXPECT_NEAR(std::atof(row.substr(27, 11).c_str()), S.WDIntegral(J, 7, 2), 0.001 * S.WDIntegral(J, 7, 2));
        EXPECT_NEAR(std::atof(row.substr(38, 11).c_str()), integral, 0.0006 * std::fabs(integral) + 1E-5);
    }
    for (const std::int32_t K : {1, 5, 11})
        for (std::int32_t J = 2; J <= 45; ++J)
            EXPECT_TRUE(S.WDIntegral(J, K, 1) == 0.0F && S.WDIntegral(J, K, 2) == 0.0F)
                << "radii that are not valid are cleared";
}

TEST_F(WideFiles, TellOfALogarithmOfNothingAndKeepWhatWasWritten) {
    struct Command {
        void (*run)();
        const char* text;
        std::size_t linesWritten;
    };
    // The rows of points 2 to 19 come before the one that fails; the integral is worked out before the heads are written.
    constexpr std::size_t kPreamble = 9, kHeads = 1, kRowsBefore = 18;
    for (const auto& [run, text, linesWritten] :
         {Command{SaveLnSvsSG_Click, "Error in SaveLnSvsSG!", kPreamble + kHeads + kRowsBefore},
          Command{DoIntegralWD_Click, "Unknown Error in Saving Integral Data!", kPreamble}})
        for (const float nothing : {0.0F, -1.5F}) {
            const float s = S.WDSValue(20, 6);
            const Lines whole = Written(run);
            ASSERT_EQ(whole.size(), kPreamble + kHeads + 44);
            const std::size_t told = desktop.messages.size();
            S.WDSValue(20, 6) = nothing;
            const Lines lines = Written(run);
            S.WDSValue(20, 6) = s;
            ASSERT_EQ(desktop.messages.size(), told + 1);
            EXPECT_EQ(desktop.messages.back().text, text);
            EXPECT_EQ(desktop.messages.back().title, "Output File Error");
            EXPECT_EQ(desktop.messages.back().style, 48);
            EXPECT_EQ(lines, Lines(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(linesWritten)));
            EXPECT_EQ(FileBytes(), Joined(lines)) << "nothing behind the last line";
        }
}

TEST_F(WideFiles, TellWhereTheyCanNotBeWritten) {
    desktop.choices.push_back((folder.Path() / "no folder" / "x").string());
    SaveSvsG_Click();
    EXPECT_EQ(desktop.messages.back().text, "Unknown Error in SaveSvsG!");
}

TEST_F(WideFiles, AreNotTouchedByACancel) {
    S.WDIntegral(5, 6, 1) = 42.0F;
    desktop.choices.push_back(std::nullopt);
    DoIntegralWD_Click();
    EXPECT_EQ(S.WDIntegral(5, 6, 1), 42.0F);
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace halvern
