// What the program reads and writes against what it holds: scans read again, scans read after others, tables read back.
// Each relation is tried on a thousand random data sets, which go through files.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/averages.h"
#include "bits/store_bits.h"
#include "conditioning/readd_fringes.h"
#include "output/g_of_s_files.h"
#include "output/scan_tables.h"
#include "plot/export.h"
#include "relations/random_run.h"
#include "shell/start.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"
#include "wide/radii_dialogs.h"
#include "wide/wide_distribution.h"
#include "wide/wide_files.h"

namespace halvern {
namespace {

using test::Analyse;
using test::Analysis;
using test::kRuns;
using test::MakeRun;
using test::RandomRun;
using test::SameBits;
using test::Wishes;

std::string Printed(const char* format, auto... values) {
    char text[64];
    const int size = std::snprintf(text, sizeof text, format, values...);
    return {text, static_cast<std::size_t>(size)};
}

struct FileRelation : ::testing::Test {
    test::DataFolder folder;
    test::QuietDesktop desktop;
    AnalysisStore& S = Store();

    FileRelation() { Main(); }

    /// Writes the scans of a data set as the instrument does, and their list. Returns the list's path.
    std::string Write(const RandomRun& run, const std::string& name) {
        std::string list;
        for (std::size_t k = 0; k < run.omega2t.size(); ++k) {
            std::string text = "simulated\r\n";
            text += Printed("%c 1 20.0%6d 0000600%10s 280 5\r\n", run.interference ? 'P' : 'R', run.speeds[k],
                            Printed("%.4E", static_cast<double>(run.omega2t[k])).c_str());
            for (std::size_t i = 0; i < run.radii[k].size(); ++i)
                text += Printed("   %7.4f%15.6f\r\n", static_cast<double>(run.radii[k][i]),
                                static_cast<double>(run.signals[k][i]));
            const std::string scan = name + Printed("%03d", static_cast<int>(k) + 1);
            // Some file systems write a file to the disk that is cut and filled anew, but not a new one.
            std::filesystem::remove(scan);
            folder.Write(scan, text);
            list += scan + "\r\n";
        }
        return folder.Write(name + ".LST", list);
    }
    /// Loads a list as the user does.
    void Load(const std::string& list) {
        desktop.choices.emplace_back(list);
        Menus().GetListNow.Click();
        desktop.messages.clear();
    }
    void SetMeniscusTo(float meniscus) {
        S.Meniscus = meniscus;
        for (std::int32_t K = 1; K <= S.NumFiles; ++K)
            S.ScanMeniscus(K) = meniscus;
        S.DataLimitMax = 1E6F;
    }
};

constexpr Wishes kSmallFiles{.mostScans = 16, .fewestPoints = 40, .mostPoints = 120};

TEST_F(FileRelation, TheSameListTwiceGivesTheSameStore) {
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        const RandomRun run = MakeRun(seed, kSmallFiles);
        const std::string list = Write(run, "a");
        Load(list);
        ASSERT_EQ(S.NumFiles, run.Scans());
        for (std::int32_t K = 1; K <= S.NumFiles; ++K) {
            const auto k = static_cast<std::size_t>(K - 1);
            const auto points = run.radii[k].size();
            ASSERT_TRUE(SameBits({&S.ScanData(1, 2, K), &S.ScanData(1, 2, K) + points}, run.signals[k]));
            ASSERT_TRUE(SameBits({&S.ScanData(1, 1, K), &S.ScanData(1, 1, K) + points}, run.radii[k]));
        }
        const auto once = test::StoreBitsBesidesPlot();
        Load(list);
        ASSERT_EQ(test::StoreBitsBesidesPlot(), once) << "seed " << seed;
    }
}

TEST_F(FileRelation, WhatStoodBeforeMakesNoDifferenceToAnAnalysis) {
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        const RandomRun run = MakeRun(seed, kSmallFiles), other = MakeRun(seed + 1'000'000, kSmallFiles);
        const std::string list = Write(run, "a"), otherList = Write(other, "b");
        Load(list);
        SetMeniscusTo(run.menisci[0]);
        const Analysis before = Analyse();
        Load(otherList);
        SetMeniscusTo(other.menisci[0]);
        if (other.interference)
            ReAddFringes();
        Analyse();
        Load(list);
        SetMeniscusTo(run.menisci[0]);
        ASSERT_TRUE(SameBits(Analyse(), before)) << "seed " << seed;
    }
}

/// The fields of a line, taken apart at blanks.
std::vector<std::string> FieldsOf(std::string_view line) {
    std::vector<std::string> fields;
    while (!line.empty()) {
        const std::size_t end = std::min(line.find(' '), line.size());
        if (end > 0)
            fields.emplace_back(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return fields;
}

/// The lines of a file behind the one that holds a text, as fields.
std::vector<std::vector<std::string>> RowsBehind(const std::string& path, std::string_view heading) {
    std::ifstream in(path, std::ios::binary);
    std::vector<std::vector<std::string>> rows;
    bool behind = false;
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        if (behind)
            rows.push_back(FieldsOf(line));
        behind = behind || line.find(heading) != std::string::npos;
    }
    return rows;
}

/// Whether a field is the value to all of its digits: off by half a unit of the last one at most. Of the value 15 digits
/// count.
bool IsPrintedFrom(const std::string& field, double value) {
    char* end = nullptr;
    const double printed = std::strtod(field.c_str(), &end);
    if (end == field.c_str() || *end != '\0')
        return false;
    const std::size_t point = field.find('.'), exponent = field.find('E');
    const std::size_t digitsEnd = std::min(exponent, field.size());
    double unit = std::pow(10.0, -static_cast<double>(digitsEnd - point - 1));
    if (exponent != std::string::npos)
        unit *= std::pow(10.0, std::atof(field.c_str() + exponent + 1));
    return std::fabs(printed - value) <= unit * 0.5 + std::fabs(value) * 1E-14;
}

TEST_F(FileRelation, TablesReadBackAreTheStoreInAllTheirDigits) {
    const std::string rates = folder.Write("rates.txt", ""), g = folder.Write("g.txt", ""),
                      plot = folder.Write("plot.dat", ""), raw = folder.Write("raw.txt", "");
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        Wishes wishes = kSmallFiles;
        wishes.optics = Wishes::kInterference;
        const RandomRun run = MakeRun(seed, wishes);
        test::Give(run);
        Analyse();
        desktop.choices = {rates, g, raw};
        KeldOutCorrected_Click();
        KeldOutGofS_Click();
        RawDataOut_Click();

        const auto rateRows = RowsBehind(rates, "s*(svedbergs)"), gRows = RowsBehind(g, "s*(svedbergs)");
        const auto points = static_cast<std::size_t>(S.SRangeLast - S.SRangeFirst - 1);
        ASSERT_EQ(rateRows.size(), points);
        ASSERT_EQ(gRows.size(), points);
        for (std::int32_t I = S.SRangeFirst + 1; I < S.SRangeLast; ++I) {
            const auto row = static_cast<std::size_t>(I - S.SRangeFirst - 1);
            const double s = S.SStar(I) * 1E13;
            ASSERT_EQ(gRows[row].size(), 5U);
            ASSERT_TRUE(IsPrintedFrom(rateRows[row].at(0), s) && IsPrintedFrom(gRows[row][0], s));
            ASSERT_TRUE(IsPrintedFrom(rateRows[row].at(1), static_cast<double>(S.PlateauRate(I))));
            ASSERT_TRUE(IsPrintedFrom(rateRows[row].at(2), static_cast<double>(S.RateSem(I))));
            ASSERT_TRUE(IsPrintedFrom(gRows[row][1], S.GStar(I) * 1E-13));
            ASSERT_TRUE(IsPrintedFrom(gRows[row][2], static_cast<double>(S.GStarSem(I))));
            ASSERT_TRUE(IsPrintedFrom(gRows[row][3], S.GHat(I) * 1E-13));
            ASSERT_TRUE(IsPrintedFrom(gRows[row][4], S.GHat(I) * 1E-13 * s));
        }

        // The lines of the table end at 10240 characters: more than these sets have.
        const auto rawRows = RowsBehind(raw, "R (cm)");
        ASSERT_EQ(rawRows.size(), run.radii[0].size());
        for (std::size_t i = 0; i < rawRows.size(); ++i) {
            ASSERT_EQ(rawRows[i].size(), 2 * run.radii.size());
            for (std::size_t k = 0; k < run.radii.size(); ++k) {
                ASSERT_TRUE(IsPrintedFrom(rawRows[i][2 * k], static_cast<double>(run.radii[k][i])));
                ASSERT_TRUE(IsPrintedFrom(rawRows[i][2 * k + 1], static_cast<double>(run.signals[k][i])));
            }
        }
    }
}

TEST_F(FileRelation, PlotAndWideTablesReadBackAreTheStoreInAllTheirDigits) {
    const std::string table = folder.Write("wide.txt", ""), plot = folder.Write("plot.dat", "");
    for (std::uint64_t seed = 1; seed <= kRuns; ++seed) {
        test::Give(MakeRun(seed, {.mostScans = 30, .fewestPoints = 200, .mostSpeeds = 3, .wholeCell = true}));
        desktop.dialogs.push_back([](Form& form) { dynamic_cast<RadiiDialog&>(form).PlotEmUp.Click(); });
        DoWideStraight_Click();
        desktop.choices = {table, plot};
        SaveSvsG_Click();
        SavePlotNow_Click();

        const auto rows = RowsBehind(table, " Speed# ");
        ASSERT_EQ(rows.size(), static_cast<std::size_t>(S.NumFiles - 1));
        for (std::int32_t J = 2; J <= S.NumFiles; ++J) {
            const auto& row = rows[static_cast<std::size_t>(J - 2)];
            // A row ends at 264 characters: eleven radii of two columns are 5 + 22 x 11.
            std::size_t column = 1;
            for (std::int32_t K = 1; K <= kWideRadii; ++K) {
                if (!S.WDRadiusValid(K))
                    continue;
                ASSERT_LT(column + 1, row.size());
                ASSERT_TRUE(IsPrintedFrom(row[column], static_cast<double>(S.WDSValue(J, K))));
                ASSERT_TRUE(IsPrintedFrom(row[column + 1], static_cast<double>(S.WDGofS(J, K))));
                column += 2;
            }
        }

        const auto points = RowsBehind(plot, "s* x g(s*)");
        ASSERT_EQ(S.PlotCount, 2 * (S.NumFiles - 1));
        const std::size_t first = points.size() - static_cast<std::size_t>(S.PlotCount);
        for (std::int32_t P = 1; P <= S.PlotCount; ++P) {
            const auto& row = points.at(first + static_cast<std::size_t>(P) - 1);
            ASSERT_EQ(row.size(), 4U);
            ASSERT_TRUE(IsPrintedFrom(row[0], static_cast<double>(S.PlotX(P))));
            ASSERT_TRUE(IsPrintedFrom(row[1], static_cast<double>(S.PlotY(P))));
            ASSERT_EQ(std::atoi(row[3].c_str()), S.PlotSym(P));
        }
    }
}

}  // namespace
}  // namespace halvern
