#include "simulate/command_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <map>
#include <sstream>

#include "store/val.h"
#include "support/data_files.h"

namespace halvern::simulate {
namespace {

struct Outcome {
    int status;
    std::string out, err;
};

Outcome Called(const std::vector<std::string>& arguments) {
    std::ostringstream out, err;
    const int status = Run(arguments, out, err);
    return {status, out.str(), err.str()};
}

/// All files of a folder by their names.
std::map<std::string, std::string> Files(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files[entry.path().filename().string()] = test::ContentOf(entry.path());
    return files;
}

/// Lines of a text that ends each of them with CR LF.
std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0, end = 0; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
        lines.push_back(text.substr(at, end - at));
    return lines;
}

constexpr const char* kQuick =
    "species = concentration:1 s:4.3 mass:66  # a protein\n"
    "speed = rpm:50000 from:1000 to:4000 scans:4\n"
    "cells = 400\n"
    "tolerance = 1e-6\n"
    "noise = 0.01\n";

TEST(CommandLine, WritesWhatAParameterFileAsksFor) {
    const test::DataFolder folder;
    folder.Write("quick.parameters", kQuick);
    const auto outcome = Called({"--output", "run", "quick.parameters"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "4 scans and simulated.LST written to run\n");
    EXPECT_EQ(outcome.status, 0);
    const auto files = Files("run");
    ASSERT_EQ(files.size(), 5U);
    EXPECT_EQ(files.at("simulated.LST"), "00001.RA1\r\n00002.RA1\r\n00003.RA1\r\n00004.RA1\r\n");
    EXPECT_EQ(Lines(files.at("00004.RA1"))[1], "R 1 20.0 50000 00040001.09662E11 280 5");  // (5000 pi / 3)^2 x 4000 s
    EXPECT_EQ(Lines(files.at("00004.RA1")).size(), 2U + 424U);                             // 5.95 to 7.22 by 0.003 cm
}

TEST(CommandLine, RepeatsARunToTheByteWithTheSameSeed) {
    const test::DataFolder folder;
    folder.Write("quick.parameters", kQuick);
    for (const auto* optics : {"absorbance", "interference"}) {
        ASSERT_EQ(Called({"quick.parameters", "--optics", optics, "--output=a"}).status, 0);
        ASSERT_EQ(Called({"quick.parameters", "--optics", optics, "--output=b", "--seed=1"}).status, 0);
        ASSERT_EQ(Called({"quick.parameters", "--optics", optics, "--output=c", "--seed=2"}).status, 0);
        EXPECT_EQ(Files("a"), Files("b"));
        const auto a = Files("a"), c = Files("c");
        EXPECT_EQ(a.at("simulated.LST"), c.at("simulated.LST"));
        for (const auto& [name, content] : a)
            EXPECT_TRUE(name == "simulated.LST" || content != c.at(name)) << name;
    }
}

TEST(CommandLine, PutsOptionsInPlaceOfTheFile) {
    const test::DataFolder folder;
    folder.Write("quick.parameters", kQuick);
    const auto outcome = Called({"--output", "run", "--cell=2", "quick.parameters", "--species",
                                 "concentration:0.5 s:6 mass:100", "--species=concentration:0.25 s:3 mass:50",
                                 "--noise", "0", "--speed=rpm:40000 at:10", "--list=two.LST"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(test::ContentOf("run/two.LST"), "00001.RA2\r\n");
    // The middle of the cell still shows what was loaded, 0.75, thinned out by exp(-2 s omega^2 t): in ten seconds by
    // 2 x 6E-13 x 1.755E7 x 10, some 2E-4, for the faster species.
    const auto lines = Lines(test::ContentOf("run/00001.RA2"));
    EXPECT_NEAR(Val(lines[2 + 200].substr(10, 15)), 0.75, 2e-4);
}

// Two species at 50000 rpm, absorbance, noise: the sample to try the program on.
TEST(CommandLine, WritesTheTwoSpeciesSample) {
    const test::DataFolder folder;
    const auto outcome = Called({SIMULATE_TEST_SAMPLES "/two-species.parameters", "--output", "run"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const auto names = Lines(test::ContentOf("run/two-species.LST"));
    ASSERT_EQ(names.size(), 60U);
    EXPECT_EQ(names.front(), "00001.RA1");
    EXPECT_EQ(names.back(), "00060.RA1");
    double lastOmega2t = 0.0, lastLow = 1.0;
    for (const auto& name : names) {
        const auto lines = Lines(test::ContentOf("run/" + name));
        ASSERT_EQ(lines.size(), 2U + 441U) << name;  // 5.90 to 7.22 cm by 0.003 cm
        EXPECT_EQ(lines[1][0], 'R');
        EXPECT_EQ(lines[1].substr(8, 6), " 50000");
        const double omega2t = Val(lines[1].substr(22, 10));
        EXPECT_GT(omega2t, lastOmega2t) << name;
        lastOmega2t = omega2t;
        double low = 0.0;  // mean signal of ten points some 6.2 cm
        double radius = 0.0;
        for (std::size_t i = 2; i < lines.size(); ++i) {
            const double next = Val(lines[i].substr(3, 7));
            EXPECT_GT(next, radius) << name << " point " << i - 1;
            radius = next;
            if (i >= 102 && i < 112)
                low += Val(lines[i].substr(10, 15)) / 10.0;
        }
        EXPECT_LT(low, lastLow + 0.01) << name;  // solute only leaves; 0.01 is eight standard deviations of ten points
        lastLow = low;
    }
    EXPECT_NEAR(lastLow, 0.0, 0.01);
}

struct BadCall {
    std::vector<std::string> arguments;
    const char* complaint;
};

TEST(CommandLine, EndsWithTwoOnWhatIsImpossibleOrMissing) {
    const test::DataFolder folder;
    folder.Write("quick.parameters", kQuick);
    folder.Write("bad.parameters", "# none\nbase = 5.9\n");
    const BadCall calls[] = {
        {{"--output", "run"}, "no species is given"},
        {{"quick.parameters"}, "--output: the folder for the files is missing"},
        {{"quick.parameters", "--output="}, "--output: the folder for the files is missing"},
        {{"quick.parameters", "--output"}, "--output: its value is missing"},
        {{"quick.parameters", "bad.parameters"}, "bad.parameters: there is a parameter file already: quick.parameters"},
        {{"none.parameters", "--output=run"}, "none.parameters: No such file or directory"},
        {{"bad.parameters", "--output=run"}, "bad.parameters:2: the meniscus has to lie inside the base"},
        {{"quick.parameters", "--output=run", "--meniscus=7.5"}, "--meniscus: the meniscus has to lie inside the base"},
        {{"quick.parameters", "--output=run", "--noise=-1"}, "--noise: noise is -1, and has to be 0 to 10"},
        {{"quick.parameters", "--output=run", "--speed=rpm:0 at:9"}, "--speed: rpm is 0, and has to be 1 to 100000"},
        {{"quick.parameters", "--output=run", "--menisucs=6"}, "--menisucs: there is no such option"},
        {{"quick.parameters", "--output=run", "-q"}, "-q: there is no such option"},
    };
    for (const auto& [arguments, complaint] : calls) {
        const auto outcome = Called(arguments);
        EXPECT_EQ(outcome.status, 2) << complaint;
        EXPECT_EQ(outcome.err, std::string("halvern-simulate: ") + complaint + "\n");
        EXPECT_EQ(outcome.out, "");
    }
    EXPECT_FALSE(std::filesystem::exists("run"));
    EXPECT_EQ(Called({}).status, 2);
    EXPECT_TRUE(Called({}).err.starts_with("usage: halvern-simulate "));
}

TEST(CommandLine, EndsWithOneWhenTheFilesCannotBeWritten) {
    const test::DataFolder folder;
    folder.Write("quick.parameters", kQuick);
    const auto outcome = Called({"quick.parameters", "--output=quick.parameters"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "halvern-simulate: quick.parameters: Not a directory\n");
}

TEST(CommandLine, WarnsAndGoesOn) {
    const test::DataFolder folder;
    const auto outcome =
        Called({"--output=run", "--cells=50", "--species=concentration:1 s:100 mass:5000", "--speed=rpm:30000 at:100"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.err.starts_with("halvern-simulate: --species: the species diffuses too little")) << outcome.err;
    EXPECT_TRUE(std::filesystem::exists("run/00001.RA1"));
}

TEST(CommandLine, ExplainsItself) {
    const auto help = Called({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.out.starts_with("usage: halvern-simulate --output FOLDER "));
    for (const auto* word : {"\n  meniscus ", "\n  concentration:C ", "\n  from:T1 to:T2 scans:N ", "\nExit status:"})
        EXPECT_NE(help.out.find(word), std::string::npos) << word;
    std::string version = Called({"--version"}).out;
    EXPECT_EQ(version.substr(0, version.find(' ') + 1), "halvern-simulate ");
    // The build's version has no zeros in front of the revision, the program shows four digits of it.
    const std::string build = SIMULATE_TEST_VERSION;
    const auto dot = build.rfind('.') + 1;
    const std::string revision = build.substr(dot);
    EXPECT_EQ(version.substr(version.find(' ') + 1),
              build.substr(0, dot) + std::string(4 - revision.size(), '0') + revision + "\n");
}

// The small parameter file of the help text is one.
TEST(CommandLine, ExplainsItselfByAnExampleThatRuns) {
    const test::DataFolder folder;
    const std::string help = Called({"--help"}).out;
    const auto begin = help.find("    optics  = ");
    ASSERT_NE(begin, std::string::npos);
    folder.Write("example.parameters", help.substr(begin, help.find("\n\n", begin) - begin));
    const auto outcome = Called({"example.parameters", "--output=run", "--cells=200", "--tolerance=1e-4"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "60 scans and simulated.LST written to run\n");
}

}  // namespace
}  // namespace halvern::simulate
