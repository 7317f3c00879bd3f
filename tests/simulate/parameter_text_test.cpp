#include "simulate/parameter_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "support/data_files.h"

namespace halvern::simulate {
namespace {

Parameters Read(std::string_view text) {
    Parameters parameters;
    ReadParameters(parameters, text, "p.txt");
    return parameters;
}

/// What is said against a text, or "" if nothing is.
std::string TextComplaint(std::string_view text) {
    try {
        Read(text);
    } catch (const ParameterError& error) {
        return error.what();
    }
    return "";
}

TEST(ParameterText, SetsEachKindOfValue) {
    const auto p = Read(
        "optics = interference\n"
        "title = a run   of two\n"
        "meniscus = 5.95\n"
        "seed = 12\n"
        "read-to = 7.1\n"
        "cells = 300\n");
    EXPECT_EQ(p.optics, Optics::kInterference);
    EXPECT_EQ(p.title, "a run   of two");
    EXPECT_EQ(p.meniscusCm, 5.95);
    EXPECT_EQ(p.seed, 12);
    EXPECT_EQ(p.readToCm, 7.1);
    EXPECT_EQ(p.cells, 300);
    EXPECT_EQ(p.where.at("seed"), "p.txt:4");
}

TEST(ParameterText, PassesOverBlanksCommentsAndEitherLineEnd) {
    const auto p = Read("# none of this: seed = 3\r\n\r\n \tseed\t=  12  # the twelfth\r\ntitle = cell#3\nnoise=1e-2");
    EXPECT_EQ(p.seed, 12);
    EXPECT_EQ(p.title, "cell#3");  // a # within a word is none of a comment
    EXPECT_EQ(p.noise, 0.01);
}

TEST(ParameterText, CollectsSpecies) {
    const auto p = Read(
        "species = concentration:0.6 s:4.3 mass:66 vbar:0.73\n"
        "species = s:6.6 diffusion:5.5 concentration:0.4\n");
    ASSERT_EQ(p.species.size(), 2U);
    EXPECT_EQ(p.species[0].concentration, 0.6);
    EXPECT_EQ(p.species[0].sSvedberg, 4.3);
    EXPECT_EQ(p.species[0].massKDa, 66.0);
    EXPECT_EQ(p.species[0].partialSpecificVolume, 0.73);
    EXPECT_FALSE(p.species[0].diffusionFick.has_value());
    EXPECT_EQ(p.species[1].diffusionFick, 5.5);
    EXPECT_FALSE(p.species[1].massKDa.has_value());
    EXPECT_EQ(p.species[1].where, "p.txt:2");
}

TEST(ParameterText, SpreadsScansEvenlyOverASpeedBothEndsIncluded) {
    const auto p = Read("speed = rpm:42000 from:600 to:1500 scans:4\n");
    ASSERT_EQ(p.speeds.size(), 1U);
    EXPECT_EQ(p.speeds[0].rpm, 42000);
    EXPECT_EQ(p.speeds[0].scanSeconds, (std::vector<double>{600, 900, 1200, 1500}));
    EXPECT_EQ(p.speeds[0].endSeconds, 1500.0);
}

TEST(ParameterText, TakesListedTimesAndSpeedsWithoutScans) {
    const auto p = Read(
        "speed = rpm:3000 until:300\n"
        "speed = rpm:42000 at:400,450.5,700 until:800\n"
        "speed = rpm:50000 from:900 scans:1\n");
    ASSERT_EQ(p.speeds.size(), 3U);
    EXPECT_TRUE(p.speeds[0].scanSeconds.empty());
    EXPECT_EQ(p.speeds[0].endSeconds, 300.0);
    EXPECT_EQ(p.speeds[1].scanSeconds, (std::vector<double>{400, 450.5, 700}));
    EXPECT_EQ(p.speeds[1].endSeconds, 800.0);
    EXPECT_EQ(p.speeds[2].scanSeconds, (std::vector<double>{900}));
}

struct ComplaintCase {
    const char* text;
    const char* complaint;
};

constexpr ComplaintCase kComplaints[] = {
    {"\nmeniscus 6", "p.txt:2: a line is key = value"},
    {"menisucs = 6", "p.txt:1: there is no such key: menisucs"},
    {"seed = 1\nseed = 2", "p.txt:2: seed is given twice"},
    {"meniscus = six", "p.txt:1: meniscus is not a number: six"},
    {"meniscus = 5,95", "p.txt:1: meniscus is not a number: 5,95"},
    {"meniscus =", "p.txt:1: meniscus is not a number: "},
    {"meniscus = nan", "p.txt:1: meniscus is nan, and has to be 1 to 9.9"},
    {"meniscus = 65", "p.txt:1: meniscus is 65, and has to be 1 to 9.9"},
    {"noise = -0.01", "p.txt:1: noise is -0.01, and has to be 0 to 10"},
    {"seed = 1.5", "p.txt:1: seed is not a whole number: 1.5"},
    {"cells = 10", "p.txt:1: cells is 10, and has to be 50 to 40000"},
    {"optics = rayleigh", "p.txt:1: optics are absorbance or interference, not rayleigh"},
    {"title =", "p.txt:1: title is empty"},
    {"list = ../a.LST", "p.txt:1: list is the name of a file without a folder"},
    {"list = ..", "p.txt:1: list is the name of a file without a folder"},

    {"species = 4.3", "p.txt:1: there is no colon in 4.3"},
    {"species = s:4.3 mass:66", "p.txt:1: concentration is missing"},
    {"species = concentration:-1 s:4.3 mass:66", "p.txt:1: concentration is -1, and has to be 0 to 1000"},
    {"species = concentration:1 mass:66", "p.txt:1: s is missing"},
    {"species = concentration:1 s:0 mass:66", "p.txt:1: s is 0, and has to be 0.001 to 100000"},
    {"species = concentration:1 s:4.3", "p.txt:1: a species has either a mass or a diffusion"},
    {"species = concentration:1 s:4.3 mass:66 diffusion:6", "p.txt:1: a species has either a mass or a diffusion"},
    {"species = concentration:1 s:4.3 vbar:0.7 diffusion:6",
     "p.txt:1: vbar says nothing about a species whose diffusion is given"},
    {"species = concentration:1 s:4.3 mass:0", "p.txt:1: mass is 0, and has to be 0.01 to 10000000"},
    {"species = concentration:1 s:4.3 s:5", "p.txt:1: s is given twice"},
    {"species = concentration:1 S:4.3", "p.txt:1: there is no such part: S"},

    {"speed = from:1 to:2 scans:2", "p.txt:1: rpm is missing"},
    {"speed = rpm:0 from:1 to:2 scans:2", "p.txt:1: rpm is 0, and has to be 1 to 100000"},
    {"speed = rpm:42000.5 from:1 to:2 scans:2", "p.txt:1: rpm is not a whole number: 42000.5"},
    {"speed = rpm:42000", "p.txt:1: a speed has scans or an end"},
    {"speed = rpm:42000 from:1 to:2", "p.txt:1: scans is missing"},
    {"speed = rpm:42000 to:2 scans:2", "p.txt:1: from is missing"},
    {"speed = rpm:42000 from:1 scans:2", "p.txt:1: to is missing"},
    {"speed = rpm:42000 from:2 to:2 scans:2", "p.txt:1: to has to be later than from"},
    {"speed = rpm:42000 from:2 to:3 scans:1", "p.txt:1: a single scan has one time"},
    {"speed = rpm:42000 from:-2 to:3 scans:2", "p.txt:1: from is -2, and has to be 0 to 9999999"},
    {"speed = rpm:42000 from:1 to:2 scans:501", "p.txt:1: there are 501 scans, and a data set holds no more than 500"},
    {"speed = rpm:42000 at:1,2 scans:2", "p.txt:1: the times of the scans are either listed or even"},
    {"speed = rpm:42000 at:1,,2", "p.txt:1: at is not a number: "},
    {"speed = rpm:42000 at:1,2 until:1.5", "p.txt:1: the speed ends before its last scan"},
};

TEST(ParameterText, SaysWhereAndWhyItTakesNoValue) {
    for (const auto& [text, complaint] : kComplaints)
        EXPECT_EQ(TextComplaint(text), complaint) << text;
}

TEST(ParameterText, ReadsAFileAndNamesItInComplaints) {
    const test::DataFolder folder;
    folder.Write("good.txt", "seed = 4\n");
    folder.Write("bad.txt", "seed = 4\nnoise = much\n");
    std::filesystem::create_directory("folder");
    Parameters parameters;
    ReadParameterFile(parameters, "good.txt");
    EXPECT_EQ(parameters.seed, 4);
    for (const auto& [path, complaint] : {ComplaintCase{"bad.txt", "bad.txt:2: noise is not a number: much"},
                                          ComplaintCase{"none.txt", "none.txt: No such file or directory"},
                                          ComplaintCase{"folder", "folder: it is a folder"}}) {
        try {
            Parameters other;
            ReadParameterFile(other, path);
            ADD_FAILURE() << path;
        } catch (const ParameterError& error) {
            EXPECT_STREQ(error.what(), complaint);
        }
    }
}

TEST(ParameterText, ListsEachKeyWithItsDefault) {
    std::ostringstream out;
    PrintKeys(out);
    std::istringstream lines(out.str());
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count)
        EXPECT_TRUE(IsKey(line.substr(2, line.find(' ', 2) - 2))) << line;
    EXPECT_EQ(count, 30U);
    EXPECT_NE(out.str().find("  density          0.99823          of the solvent, g/mL\n"), std::string::npos);
    EXPECT_FALSE(IsKey("output"));
}

}  // namespace
}  // namespace halvern::simulate
