// The replay itself never takes over the user's locale, but what draws for it, or a library, may have done so. Here the
// program's own code runs in a process that writes numbers as another country does.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <locale>
#include <map>
#include <regex>
#include <sstream>
#include <string>

#include "replay/player.h"
#include "replay/script.h"
#include "support/data_files.h"

namespace halvern::replay {
namespace {

namespace fs = std::filesystem;

struct Country {
    const char* locale;
    const char* oneAndAHalf;  ///< as the C library prints it there
};
constexpr Country kCountries[] = {{"de_DE.UTF-8", "1,5"}, {"tr_TR.UTF-8", "1,5"}, {"fa_IR.UTF-8", "1.5"}};

void PrintTo(const Country& country, std::ostream* out) { *out << country.locale; }

/// Numbers as a country writes them that parts decimals with a comma and thousands with a point.
struct CommaNumbers : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

void RunProgram(const std::string& command) { ASSERT_EQ(std::system(command.c_str()), 0) << command; }

/// The files of a folder, without the time of day that one of them tells.
std::map<std::string, std::string> FilesOf(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files[entry.path().filename()] =
            std::regex_replace(test::ContentOf(entry.path()), std::regex("!\\d\\d:\\d\\d:\\d\\d ON "), "!ON ");
    return files;
}

struct InACountry : ::testing::TestWithParam<Country> {
    test::DataFolder folder;

    /// The sample's session in a folder of its own, played here; what it printed.
    static std::string PlayHere(const std::string& script) {
        std::ostringstream out, err;
        EXPECT_EQ(Player(Script(script), "all.session", out, err).Play(), kRanToItsEnd) << err.str();
        return out.str();
    }
    static void TakeTheCountryOver(const Country& country) {
        ::setenv("LOCPATH", HALVERN_LOCALES, 1);
        ASSERT_NE(std::setlocale(LC_ALL, country.locale), nullptr);
        char text[16];
        std::snprintf(text, sizeof text, "%.1f", 1.5);
        ASSERT_STREQ(text, country.oneAndAHalf);
        std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
        ASSERT_EQ((std::ostringstream() << 1234.5).str(), "1.234,5");
        ASSERT_NE(std::setlocale(LC_ALL, country.locale), nullptr);
    }
};

TEST_P(InACountry, TheSampleGivesWhatItGivesElsewhere) {
    RunProgram("'" HALVERN_SAMPLES "/make' '" HALVERN_SIMULATE "' . two-species >made");
    const std::string script = test::ContentOf(HALVERN_SAMPLES "/two-species.session") + test::ContentOf(HALVERN_TOUR);
    folder.Write("two-species/all.session", script);
    fs::copy("two-species", "fresh");
    RunProgram("cd two-species && LC_ALL=C '" HALVERN_REPLAY "' all.session >../printed");
    // The same folder, since its name is printed.
    fs::rename("two-species", "elsewhere");
    fs::rename("fresh", "two-species");

    ASSERT_NO_FATAL_FAILURE(TakeTheCountryOver(GetParam()));
    fs::current_path("two-species");
    const std::string printed = PlayHere(script);
    std::locale::global(std::locale::classic());
    fs::current_path("..");

    EXPECT_GT(printed.size(), 5000U);
    EXPECT_EQ(printed, test::ContentOf("printed"));
    const auto here = FilesOf("two-species"), elsewhere = FilesOf("elsewhere");
    EXPECT_GT(here.at("gofs.txt").size(), 10000U);
    EXPECT_GT(here.at("plot.dat").size(), 10000U);
    ASSERT_EQ(here.size(), elsewhere.size());
    for (const auto& [name, text] : here)
        EXPECT_TRUE(elsewhere.contains(name) && elsewhere.at(name) == text) << name;
}

std::string NameOf(const ::testing::TestParamInfo<Country>& info) {
    return std::string(info.param.locale).substr(0, 2);
}

INSTANTIATE_TEST_SUITE_P(Locales, InACountry, ::testing::ValuesIn(kCountries), NameOf);

}  // namespace
}  // namespace halvern::replay
