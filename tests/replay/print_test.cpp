#include "replay/print.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <locale>
#include <sstream>

#include "plot/plot_window.h"
#include "replay/script.h"
#include "store/analysis_store.h"
#include "store/report.h"
#include "support/test_desktop.h"

namespace halvern::replay {
namespace {

/// Numbers as a country writes them that parts decimals with a comma and thousands with a point.
struct CommaNumbers : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

std::string Printed(std::string_view subject) {
    std::ostringstream out;
    out.imbue(std::locale(std::locale::classic(), new CommaNumbers));
    Print(out, subject, {});
    return out.str();
}

TEST(Quoted, EscapesWhatWouldBreakTheLineOrTheQuotes) {
    EXPECT_EQ(Quoted(""), R"("")");
    EXPECT_EQ(Quoted(" a's <b> & c "), R"(" a's <b> & c ")");
    EXPECT_EQ(Quoted("a\\b\"c\r\nd\te"), R"("a\\b\"c\r\nd\te")");
    EXPECT_EQ(Quoted("\xC3\xA9\x01\xFF"), "\"\xC3\xA9\x01\xFF\"");
}

TEST(NineDigits, AreThoseOfPrintf) {
    constexpr float kSingleMost = std::numeric_limits<float>::max();
    constexpr float kSingleLeast = std::numeric_limits<float>::denorm_min();
    const double values[] = {0.0,          -0.0,
                             1.0,          -1.0,
                             6.0F,         5.98F,
                             0.1F,         0.1,
                             1E-4,         0.00012345F,
                             1E-5F,        2.5E-13F,
                             -4.5E-100,    1E100,
                             123456789.0,  1234567890.0,
                             1E9F,         999999999.5,
                             1E15,         kSingleMost,
                             kSingleLeast, 2050000.0,
                             2.0 / 3.0,    100000.0,
                             1.0E8,        0.000099999999999};
    for (const double value : values) {
        char expected[40];
        std::snprintf(expected, sizeof expected, "%.9g", value);
        EXPECT_EQ(NineDigits(value), expected);
    }
}

TEST(PrintMessage, GivesStyleTitleTextAndAnswer) {
    std::ostringstream out;
    PrintMessage(out, {.style = 36, .title = "Halvern", .text = "Exit Program?", .answer = Answer::kNo});
    PrintMessage(out, {.style = 0, .title = "A \"B\"", .text = "one\r\ntwo", .answer = Answer::kOk});
    PrintMessage(out, {.style = 20, .title = "", .text = "", .answer = Answer::kYes});
    EXPECT_EQ(out.str(), R"(message style=36 title="Halvern" text="Exit Program?" answer=no
message style=0 title="A \"B\"" text="one\r\ntwo" answer=ok
message style=20 title="" text="" answer=yes
)");
}

TEST(PrintReport, GivesEachLineAsItStands) {
    AddLine("  two blanks on either side  ");
    AddLine("");
    AddLine("a\\b \"c\"");
    EXPECT_EQ(Printed("report"), "report:   two blanks on either side  \nreport: \nreport: a\\b \"c\"\n");
}

TEST(PrintPlot, GivesTheRequestAndTheAxesWhateverTheLocale) {
    const test::TestDesktop desktop;
    auto& S = Store();
    S.PlotHelp1 = "Set the \"zero\" level";
    S.PlotHelp2 = "help 2";
    S.PlotXTitle = "S (Svedbergs)";
    S.PlotYTitle = "<dc/dt>";
    S.PlotCount = 2050000;
    S.PlotReady = true;
    S.PlotLnAxis = true;
    S.PickDataLimits = true;
    S.PickSLimits = true;
    S.PickMeniscus = true;
    S.PickJitterPoint = true;
    S.PickFringePoint = true;
    S.DataLimitMin = 0.5F;
    S.DataLimitMax = 14.25F;
    S.Meniscus = 5.98F;
    S.PlotXMin = 0.03F;
    S.PlotXMax = 1234.5F;
    S.PlotYMin = -1.0E-5F;
    S.PlotYMax = 1.0E20F;
    PlotitForm().XAxisMin = 1.0F;
    PlotitForm().XAxisMax = 20.0F;
    PlotitForm().YAxisMin = -3.0F;
    PlotitForm().YAxisMax = 0.25F;
    PlotitForm().Show();
    PlotitForm().Command1.Show();
    // 5.98 as a single is 5.98000001907..., 1E20 is 100000002004087734272.
    EXPECT_EQ(Printed("plot"), R"~(plot: PlotHelp1 "Set the \"zero\" level"
plot: PlotHelp2 "help 2"
plot: PlotXTitle "S (Svedbergs)"
plot: PlotYTitle "<dc/dt>"
plot: PlotCount 2050000
plot: PlotReady -1
plot: PlotLnAxis -1
plot: PickDataLimits -1
plot: PickSLimits -1
plot: PickMeniscus -1
plot: PickJitterPoint -1
plot: PickFringePoint -1
plot: PickZeroLevel 0
plot: DataLimitMin 0.5
plot: DataLimitMax 14.25
plot: Meniscus 5.98000002
plot: PlotXMin 0.0299999993
plot: PlotXMax 1234.5
plot: PlotYMin -9.99999975e-06
plot: PlotYMax 1.00000002e+20
plot: XAxisMin 1
plot: XAxisMax 20
plot: YAxisMin -3
plot: YAxisMax 0.25
plot: shown yes
plot: Command1 shown
plot: TestIt hidden
)~");
}

TEST(Print, HasNoDialogToTellOfAndNoOtherSubjects) {
    std::ostringstream out;
    EXPECT_THROW(Print(out, "dialog", PrintedDesktop()), ScriptError);
    EXPECT_THROW(Print(out, "Report", PrintedDesktop()), ScriptError);
    EXPECT_THROW(Print(out, "", PrintedDesktop()), ScriptError);
    EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace halvern::replay
