#include "simulate/parameters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "simulate/parameter_text.h"

namespace halvern::simulate {
namespace {

constexpr const char* kSpecies = "species = concentration:1 s:4.3 mass:66.4\n";
constexpr const char* kSpeed = "speed = rpm:50000 from:600 to:6000 scans:10\n";

Parameters Parsed(const std::string& text) {
    Parameters parameters;
    ReadParameters(parameters, text, "p.txt");
    return parameters;
}

/// What is said against parameters, or "" if nothing is.
std::string Complaint(const std::string& text) {
    try {
        Check(Parsed(text));
    } catch (const ParameterError& error) {
        return error.what();
    }
    return "";
}

std::string ComplaintWithSpeciesAndSpeed(const std::string& text) { return Complaint(text + kSpecies + kSpeed); }

TEST(Parameters, NeedASpeciesAndASpeedAndNothingElse) {
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed(""), "");
    EXPECT_EQ(Complaint(kSpeed), "no species is given");
    EXPECT_EQ(Complaint(kSpecies), "no speed is given");
    EXPECT_EQ(Complaint(std::string(kSpecies) + "speed = rpm:50000 until:100\n"), "p.txt:2: no speed has any scan");
}

TEST(Parameters, HaveRadiiInOrder) {
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("meniscus = 7.3\n"), "p.txt:1: the meniscus has to lie inside the base");
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("base = 6\n"), "p.txt:1: the meniscus has to lie inside the base");
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("read-to = 5.9\n"), "p.txt:1: read-from has to be less than read-to");
}

TEST(Parameters, HaveAScanOfTenPointsTo2048) {
    // 6.0 to 7.0235 in steps of 0.0005 are 2048 points
    EXPECT_EQ(
        ComplaintWithSpeciesAndSpeed("optics = interference\nread-from = 6\nread-to = 7.0235\nradial-step = 0.0005\n"),
        "");
    EXPECT_EQ(
        ComplaintWithSpeciesAndSpeed("optics = interference\nread-from = 6\nread-to = 7.024\nradial-step = 0.0005\n"),
        "p.txt:4: a scan would have 2049 points, and has to have 10 to 2048");
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("read-from = 6\nread-to = 7\nradial-step = 0.12\n"),
              "p.txt:3: a scan would have 9 points, and has to have 10 to 2048");
}

TEST(Parameters, KeepWrittenRadiiApart) {
    const std::string tooSmall = "the radial step, less twice the scatter, is too small for radii written with ";
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("radius-scatter = 0.0015\n"), "p.txt:1: " + tooSmall + "4 decimals");
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("radius-decimals = 2\n"), "p.txt:1: " + tooSmall + "2 decimals");
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("radius-scatter = 0.001\n"), "");
}

TEST(Parameters, BelongToTheirOptics) {
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("jitter = 0.1\n"),
              "p.txt:1: jitter is of interference optics, and the optics are absorbance");
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("jumps-within = 1\n"),
              "p.txt:1: jumps-within is of interference optics, and the optics are absorbance");
    EXPECT_EQ(ComplaintWithSpeciesAndSpeed("optics = interference\nradius-scatter = 0.0002\n"),
              "p.txt:2: radius-scatter is of absorbance optics, and the optics are interference");
}

TEST(Parameters, HaveTimesThatRise) {
    const std::string complaint = "p.txt:2: the times of the scans have to rise, from speed to speed too";
    EXPECT_EQ(Complaint(std::string(kSpecies) + "speed = rpm:50000 at:100,300,200\n"), complaint);
    EXPECT_EQ(Complaint(std::string(kSpecies) + "speed = rpm:50000 at:100,100\n"), complaint);
    EXPECT_EQ(Complaint("speed = rpm:30000 at:100,300\nspeed = rpm:50000 at:200,400\n" + std::string(kSpecies)),
              complaint);
    EXPECT_EQ(Complaint("speed = rpm:30000 at:100 until:300\nspeed = rpm:50000 until:200\n" + std::string(kSpecies)),
              "p.txt:2: the speed ends before it starts");
    EXPECT_EQ(Complaint("speed = rpm:30000 until:300\nspeed = rpm:50000 at:300,400\n" + std::string(kSpecies)), "");
}

// Two scans that their files cannot tell apart would be no two scans to whoever reads the files.
TEST(Parameters, HaveTimesThatTheFilesCanTellApart) {
    // 50000 rpm: omega^2 is 2.74157E7, so that from 1000 to 1000.01 s omega squared t goes from 2.741557E10
    // to 2.741584E10
    const std::string text = std::string(kSpecies) + "speed = rpm:50000 at:1000,1000.01\n";
    EXPECT_EQ(Complaint(text + "omega2t-digits = 6\n"), "");
    EXPECT_EQ(Complaint(text + "omega2t-digits = 5\n"),
              "p.txt:2: scans 1 and 2 would have the same omega squared t in their files, 2.7416E10");
}

TEST(Parameters, HaveNoMoreThan500ScansOverAllSpeeds) {
    const std::string full = std::string(kSpecies) + "speed = rpm:40000 from:1 to:4000 scans:400\n";
    EXPECT_EQ(Complaint(full + "speed = rpm:50000 from:4001 to:5000 scans:100\n"), "");
    EXPECT_EQ(Complaint(full + "speed = rpm:50000 from:4001 to:5000 scans:101\n"),
              "p.txt:3: there are 501 scans, and a data set holds no more than 500");
}

TEST(Parameters, HaveSpeciesThatSink) {
    EXPECT_EQ(Complaint("species = concentration:1 s:4.3 mass:66 vbar:1.01\n" + std::string(kSpeed)),
              "p.txt:1: the species does not sink: its partial specific volume times the density is not below 1");
}

TEST(Parameters, GiveTheDiffusionOfAMass) {
    // s R T / (M (1 - vbar rho)) in long hand: 4.3E-13 x 8.314462618E7 x 293.15 / (66400 x (1 - 0.735 x 0.99823)):
    // the numerator is 1.048075E-2, the denominator 66400 x 0.26630095 = 17682.38
    const auto p = Parsed(kSpecies);
    EXPECT_NEAR(DiffusionCm2PerS(p.species[0], p), 5.92723e-7, 1e-12);
    const auto warm = Parsed("temperature = 25\n" + std::string(kSpecies));
    EXPECT_NEAR(DiffusionCm2PerS(warm.species[0], warm) / DiffusionCm2PerS(p.species[0], p), 298.15 / 293.15, 1e-12);
    const auto given = Parsed("species = concentration:1 s:4.3 diffusion:6.1\n");
    EXPECT_DOUBLE_EQ(DiffusionCm2PerS(given.species[0], given), 6.1e-7);
}

TEST(Parameters, GoByTheOpticsWhereTheyAreNotSet) {
    const auto absorbance = Parsed(""), interference = Parsed("optics = interference\n");
    EXPECT_EQ(RadialStepCm(absorbance), 0.003);
    EXPECT_EQ(RadialStepCm(interference), 0.0007);
    EXPECT_EQ(RadiusScatterCm(interference), 0.0);
    EXPECT_EQ(Readings(absorbance), 5);
    EXPECT_EQ(WavelengthNm(interference), 675);
    EXPECT_EQ(Ceiling(absorbance), 3.0);
    EXPECT_FALSE(Ceiling(interference).has_value());
    EXPECT_FALSE(Ceiling(Parsed("ceiling = 0\n")).has_value());
    EXPECT_DOUBLE_EQ(ReadFromCm(Parsed("meniscus = 6.1\n")), 6.05);
}

TEST(Parameters, TakeMoreCellsForSpeciesThatHardlyDiffuse) {
    const auto cells = [](const std::string& species) {
        const auto p = Parsed("speed = rpm:30000 at:100\nspecies = concentration:1 " + species + "\n");
        return SolverCells(p.species[0], p);
    };
    EXPECT_EQ(cells("s:4.3 mass:66.4"), 4000U);
    // s omega^2 / D x 7.92 / N is 0.25: 1E-11 x 9.8696E6 / 1.83E-7 x 7.92 / 0.25, with omega^2 = (1000 pi)^2
    EXPECT_EQ(cells("s:100 diffusion:1.83"), 17086U);
    EXPECT_EQ(cells("s:100 diffusion:0.01"), 20000U);
    const auto set = Parsed("cells = 123\nspeed = rpm:30000 at:100\nspecies = concentration:1 s:100 diffusion:1.83\n");
    EXPECT_EQ(SolverCells(set.species[0], set), 123U);
}

TEST(Parameters, WarnOfABoundaryThatComesOutTooBroad) {
    EXPECT_TRUE(Warnings(Parsed(std::string(kSpecies) + kSpeed)).empty());
    const auto warnings = Warnings(Parsed("species = concentration:1 s:1000 diffusion:0.01\n" + std::string(kSpeed)));
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_TRUE(warnings[0].starts_with("p.txt:1: the species diffuses too little")) << warnings[0];
}

TEST(Parameters, TurnRevolutionsIntoRadians) {
    EXPECT_DOUBLE_EQ(Omega2(30000), 9869604.4010893586);  // (1000 pi)^2
}

}  // namespace
}  // namespace halvern::simulate
