// What the conditioning makes of interference scans whose ills are known: a pattern of the windows that stays, an offset
// of each scan, whole fringes lost between scans and within them. The same solute as clean absorbance scans, taken at the
// same times, says what has to come out.
//
// How close it can come: an offset is a mean of 21 points, so it has the noise of a point over the root of 21. With 0.004
// fringes that is 0.0009, and 0.0012 between two scans. That error is the same at all s* of a pair. Ten pairs and a
// boundary of 3 fringes leave 0.0004 of 3 fringes, some 0.01 % of the concentration, at each s*; summed over the range of
// s* relative to the width of the boundary it is less than 0.1 % of s and 0.3 % of the concentration. (Seven seeds
// gave Sw from 4.222 to 4.223 S and Co from 3.041 to 3.048 fringes.) The windows' pattern falls out of every difference of
// two scans.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <numbers>
#include <sstream>
#include <string>

#include "replay/player.h"
#include "replay/script.h"
#include "simulate/experiment.h"
#include "simulate/parameter_text.h"
#include "simulate/scan_writer.h"
#include "store/analysis_store.h"
#include "support/data_files.h"

namespace halvern {
namespace {

constexpr double kNoise = 0.004;  // fringes

// What the clean absorbance scans give, with all that g(s*) is off by design: see noise_free_run_test.cpp.
constexpr double kCleanSw = 4.222, kCleanCo = 3.046;
constexpr const char* kSolute =
    "meniscus = 6.0\nbase = 7.2\nread-from = 5.94\nspecies = concentration:3 s:4.3 mass:66.4 vbar:0.735\n"
    "speed = rpm:50000 from:3000 to:4800 scans:20\nlist = run.LST\nsignal-decimals = 6\n";

void Simulate(const std::string& more) {
    simulate::Parameters parameters;
    simulate::ReadParameters(parameters, kSolute + more, "the test");
    simulate::Check(parameters);
    simulate::WriteScans(parameters, simulate::RunExperiment(parameters), ".");
}

/// Interference scans with everything that befalls them. The windows' pattern is as fine as re-adding can take: half of
/// it differs from point to point, and where a scan crosses a whole fringe a point that strays by a tenth of one is not
/// told from a jump. With 0.02 fringes that happens to some point of these scans, with 0.01 to none.
void SimulateIlls(int seed) {
    std::ostringstream more;
    more << "optics = interference\nseed = " << seed << "\nnoise = " << kNoise
         << "\nti-noise = 0.01\njitter = 2\njumps-between = 0.4\njumps-within = 3\n";
    Simulate(more.str());
}

constexpr const char* kLoad = "click GetListNow\nchoose run.LST\n";
constexpr const char* kSetMeniscus = "click Set_MenManually\ntype Text1 6.000\nclick IsOK\n";
constexpr const char* kCorrections =
    "click Keld.SetJitterLimits\nmouse left+ctrl 5.97 0\nclick Command1\n"
    "click DoIntShift\nmouse left+ctrl 7.1 0\nclick Command1\nclick Nevermind\n";
constexpr const char* kAnalysis =
    "click KeldIt\nclick SetKeldZero\nclick Plotit.Command1\nclick DoGofS\n"
    "mouse left+ctrl 1.5 0\nmouse right+ctrl 7.5 0\nclick Command1\n";

void Play(const std::string& script) {
    std::ostringstream out, err;
    ASSERT_EQ(replay::Player(replay::Script(script), "script", out, err).Play(), replay::kRanToItsEnd) << err.str();
    ASSERT_EQ(out.str(), "");
}

/// The number behind the last "   Sw   =" or "   Co   =" of a file: that of g(s*).
double FigureOf(const std::string& file, const char* name) {
    return std::stod(file.substr(file.rfind(name) + std::string(name).size()));
}

/// Mean of a scan, corrected, over points around a radius.
double LevelAt(double radiusCm, std::int32_t K) {
    const auto& S = Store();
    double sum = 0.0;
    int points = 0;
    for (std::int32_t J = 1; J <= S.ScanPoints(K); ++J)
        if (std::fabs(S.ScanData(J, 1, K) - radiusCm) < 0.0071F) {
            sum += static_cast<double>(S.ScanData(J, 2, K)) - S.JitterOffset(K);
            ++points;
        }
    return sum / points;
}

TEST(Conditioning, LeavesNeighbouringScansWhereTheNoiseLeavesThem) {
    const test::DataFolder folder;
    SimulateIlls(1);
    Play(std::string(kLoad) + "click DoReAddNow\n" + kSetMeniscus + kCorrections);
    const auto& S = Store();
    ASSERT_EQ(S.NumFiles, 20);
    // Above the meniscus nothing changes: what is left is the noise of two means of 21 points.
    const double allowed = 4.0 * kNoise * std::sqrt(2.0 / 21.0);
    for (std::int32_t K = 2; K <= S.NumFiles; ++K) {
        EXPECT_NEAR(LevelAt(5.97, K), LevelAt(5.97, K - 1), allowed) << K;
        // In the plateau the solute thins out, by 1.1 % from scan to scan; a fringe more or less would show.
        EXPECT_NEAR(LevelAt(7.1, K), LevelAt(7.1, K - 1), 0.05) << K;
    }
}

TEST(Conditioning, GivesWhatTheSameSoluteGivesAsCleanAbsorbance) {
    const test::DataFolder folder;
    SimulateIlls(2);
    Play(std::string(kLoad) + "click DoReAddNow\n" + kSetMeniscus + kCorrections + kAnalysis +
         "click KeldOutGofS\nchoose ills.txt\n"
         // Removed and made again, the corrections give the same.
         "click NoJitterCorrection\n" +
         kCorrections + kAnalysis + "click KeldOutGofS\nchoose again.txt\n");
    const std::string ills = test::ContentOf("ills.txt");
    EXPECT_EQ(ills, test::ContentOf("again.txt"));
    const double Sw = FigureOf(ills, "Sw   ="), Co = FigureOf(ills, "Co   =");
    std::cout << "Sw " << Sw << " S, Co " << Co << " fringes\n";
    EXPECT_NEAR(Sw, kCleanSw, 0.001 * kCleanSw);
    EXPECT_NEAR(Co, kCleanCo, 0.003 * kCleanCo);
}

TEST(Conditioning, IsHeldAgainstTheseFigures) {
    const test::DataFolder folder;
    Simulate("optics = absorbance\nradius-scatter = 0\nradial-step = 0.0007\nceiling = 0\n");
    Play(std::string(kLoad) + kSetMeniscus + kAnalysis + "click KeldOutGofS\nchoose clean.txt\n");
    const std::string clean = test::ContentOf("clean.txt");
    EXPECT_NEAR(FigureOf(clean, "Sw   ="), kCleanSw, 0.001);
    EXPECT_NEAR(FigureOf(clean, "Co   ="), kCleanCo, 0.001);
}

}  // namespace
}  // namespace halvern
