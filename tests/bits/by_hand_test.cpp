// The stored numbers of the samples, expected-*.txt, against the same analyses worked out by hand from the scan files: the
// checksums of what no line of the program has calculated. What the user picks, a level or a radius, is taken from the
// file, and so is what is not worked out here.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "bits/by_hand.h"
#include "bits/store_bits.h"
#include "simulate/experiment.h"
#include "simulate/parameter_text.h"
#include "simulate/parameters.h"
#include "simulate/scan_writer.h"
#include "support/data_files.h"

namespace halvern {
namespace {

using Series = std::vector<float>;

/// Writes the scans of a sample into the current folder.
void Simulate(const std::string& parametersFile) {
    simulate::Parameters parameters;
    const std::string text = test::ContentOf(parametersFile);
    EXPECT_FALSE(text.empty()) << parametersFile;
    simulate::ReadParameters(parameters, text, parametersFile);
    simulate::Check(parameters);
    simulate::WriteScans(parameters, simulate::RunExperiment(parameters), ".");
}

/// What a sample's file has of each stage: the bits of the members that changed.
class Expected {
  public:
    explicit Expected(const std::string& sample) {
        std::ifstream in(std::string(HALVERN_BITS) + "/expected-" + sample + ".txt");
        std::string stage;
        for (std::string line; std::getline(in, line);)
            if (line.starts_with("stage "))
                stage = line.substr(6);
            else if (const std::size_t blank = line.find(' ', 2); line.starts_with("  ") && blank != std::string::npos)
                bits_[stage][line.substr(2, blank - 2)] = line.substr(blank + 1);
        EXPECT_FALSE(bits_.empty()) << sample;
    }
    std::string Of(const std::string& stage, const std::string& member) const { return bits_.at(stage).at(member); }
    float Single(const std::string& stage, const std::string& member) const {
        return std::strtof(Of(stage, member).c_str(), nullptr);
    }

  private:
    std::map<std::string, std::map<std::string, std::string>> bits_;
};

/// Columns of an array of the store whose first dimension has `stride` elements, as StoreBits reads them.
std::string BitsOf(const std::vector<Series>& columns, std::size_t stride) {
    Series flat;
    for (std::size_t k = 0; k < columns.size(); ++k) {
        flat.resize(k * stride);
        flat.insert(flat.end(), columns[k].begin(), columns[k].end());
    }
    while (!flat.empty() && flat.back() == 0.0F && !std::signbit(flat.back()))
        flat.pop_back();
    test::Checksum sum;
    for (const float value : flat)
        sum.Add(value);
    return "[" + std::to_string(flat.size()) + "] " + sum.Text();
}
std::string BitsOf(const Series& values) { return BitsOf(std::vector<Series>{values}, values.size()); }

constexpr std::size_t kPoints = 2048, kScans = 500;

std::string BitsOfScans(const std::vector<Series>& radii, const std::vector<Series>& signals) {
    std::vector<Series> rows;
    for (std::size_t k = 0; k < radii.size(); ++k) {
        rows.push_back(radii[k]);
        rows.push_back(signals[k]);
    }
    return BitsOf(rows, kPoints);
}

void ExpectScans(const Expected& expected, const test::ScansByHand& scans) {
    EXPECT_EQ(expected.Of("load", "ScanData"), BitsOfScans(scans.radii, scans.signals));
    EXPECT_EQ(expected.Of("load", "ScanW2t"), BitsOf(scans.omega2t));
    EXPECT_EQ(expected.Of("load", "ScanTime"), BitsOf(scans.times));
}

test::SmallRun RunOf(const test::ScansByHand& scans, float meniscus) {
    test::SmallRun run;
    run.interference = scans.interference;
    run.speed = scans.speeds[0];
    run.meniscus = meniscus;
    run.omega2t = scans.omega2t[0];
    run.times = scans.times;
    run.radii = scans.radii;
    run.signals = scans.signals;
    return run;
}

void ExpectRates(const Expected& expected, const std::string& stage, const test::LongHand& w) {
    EXPECT_EQ(expected.Of(stage, "RatePairs"), BitsOf(w.pairs, kPoints));
    EXPECT_EQ(expected.Of(stage, "AveRateRaw"), BitsOf(w.raw));
}

void ExpectDistributions(const Expected& expected, const std::string& stage, const test::LongHand& w) {
    EXPECT_EQ(expected.Of(stage, "RateSem"), BitsOf(w.sem));
    EXPECT_EQ(expected.Of(stage, "GHat"), BitsOf(w.gHat));
    EXPECT_EQ(expected.Of(stage, "GStar"), BitsOf(w.gStar));
    EXPECT_EQ(expected.Of(stage, "GStarSem"), BitsOf(w.gStarSem));
    EXPECT_EQ(expected.Of(stage, "PlateauRate"), BitsOf(w.plateauRate));
}

TEST(Samples, TwoSpeciesHasTheNumbersWorkedOutByHand) {
    const test::DataFolder folder;
    Simulate(std::string(HALVERN_SAMPLES) + "/two-species.parameters");
    const Expected expected("two-species");
    const auto scans = test::ReadByHand(".", "two-species.LST");
    ExpectScans(expected, scans);

    const test::SmallRun run = RunOf(scans, 5.95F);
    const auto w = test::WorkOut(run, expected.Single("zero level picked", "ZeroLevel"));
    EXPECT_EQ(expected.Of("dc/dt", "GridSignal"), BitsOf(w.gridSignal, kPoints));
    ExpectRates(expected, "dc/dt", w);
    // The plot has the points of all pairs twice: symbols, then lines.
    Series x, y;
    for (std::size_t pass = 0; pass < 2; ++pass)
        for (const auto& pair : w.pairs)
            for (std::size_t i = 0; i < w.s.size(); ++i) {
                x.push_back(static_cast<float>(w.s[i] * 1E13));
                y.push_back(pair[i]);
            }
    EXPECT_EQ(expected.Of("dc/dt", "PlotX"), BitsOf(x));
    EXPECT_EQ(expected.Of("dc/dt", "PlotY"), BitsOf(y));
    EXPECT_EQ(expected.Of("zero level picked", "AveRate"), BitsOf(w.average));
    ExpectDistributions(expected, "g(s*)", w);

    const auto zeroLevelLeft = test::WorkOut(run, 0.0F);
    EXPECT_EQ(expected.Of("narrower range", "PlateauRate"), BitsOf(zeroLevelLeft.plateauRate));
    EXPECT_EQ(expected.Of("narrower range", "GStar"), BitsOf(zeroLevelLeft.gStar));

    const Series menisci(scans.radii.size(), 5.95F);
    const auto wide = test::WorkOutWide(scans, menisci, 0);
    EXPECT_EQ(expected.Of("wide distribution", "WDGofS"), BitsOf(wide.g, kScans));
    EXPECT_EQ(expected.Of("wide distribution", "WDSValue"), BitsOf(wide.s, kScans));
    EXPECT_EQ(expected.Of("wide distribution smoothed", "WDGofS"),
              BitsOf(test::WorkOutWide(scans, menisci, 5).g, kScans));
}

TEST(Samples, ThreeSpeedsHasTheNumbersWorkedOutByHand) {
    const test::DataFolder folder;
    Simulate(std::string(HALVERN_SAMPLES) + "/three-speeds.parameters");
    const Expected expected("three-speeds");
    const auto scans = test::ReadByHand(".", "three-speeds.LST");
    ExpectScans(expected, scans);
    Series menisci;
    for (const std::int32_t speed : scans.speeds)
        menisci.push_back(speed == 6000 ? 5.95F : speed == 20000 ? 5.951F : 5.9495F);
    const auto wide = test::WorkOutWide(scans, menisci, 0);
    EXPECT_EQ(expected.Of("wide distribution", "WDGofS"), BitsOf(wide.g, kScans));
    EXPECT_EQ(expected.Of("wide distribution", "WDSValue"), BitsOf(wide.s, kScans));
    EXPECT_EQ(expected.Of("smoothed over 3", "WDGofS"), BitsOf(test::WorkOutWide(scans, menisci, 3).g, kScans));
    EXPECT_EQ(expected.Of("smoothed over 5", "WDGofS"), BitsOf(test::WorkOutWide(scans, menisci, 5).g, kScans));
}

TEST(Samples, InterferenceHasTheNumbersWorkedOutByHand) {
    const test::DataFolder folder;
    Simulate(std::string(HALVERN_SAMPLES) + "/interference.parameters");
    const Expected expected("interference");
    auto scans = test::ReadByHand(".", "interference.LST");
    ExpectScans(expected, scans);

    scans.signals = test::FringesAddedAgain(scans.signals);
    EXPECT_EQ(expected.Of("fringes added again", "ScanData"), BitsOfScans(scans.radii, scans.signals));

    test::SmallRun run = RunOf(scans, 6.0F);
    run.offsets = test::JitterAt(scans, expected.Single("jitter", "JitterRefRadius"));
    EXPECT_EQ(expected.Of("jitter", "JitterOffset"), BitsOf(run.offsets));
    EXPECT_EQ(run.offsets,
              test::WholeFringesAt(scans, run.offsets, expected.Single("whole fringes", "FringeRefRadius")))
        << "the jitter took the whole fringes too";

    const auto w = test::WorkOut(run, expected.Single("zero level", "ZeroLevel"));
    EXPECT_EQ(expected.Of("whole fringes shown", "GridSignal"), BitsOf(w.gridSignal, kPoints));
    ExpectRates(expected, "dc/dt", w);
    EXPECT_EQ(expected.Of("zero level", "AveRate"), BitsOf(w.average));
    ExpectDistributions(expected, "g(s*)", w);

    run.offsets = Series(scans.radii.size());
    const auto without = test::WorkOut(run);
    EXPECT_EQ(expected.Of("dc/dt without corrections", "GridSignal"), BitsOf(without.gridSignal, kPoints));
    ExpectRates(expected, "dc/dt without corrections", without);

    run.offsets = test::WholeFringesAt(scans, run.offsets, expected.Single("whole fringes alone", "FringeRefRadius"));
    EXPECT_EQ(expected.Of("whole fringes alone", "JitterOffset"), BitsOf(run.offsets));
    ExpectRates(expected, "dc/dt of whole fringes alone", test::WorkOut(run));
}

}  // namespace
}  // namespace halvern
