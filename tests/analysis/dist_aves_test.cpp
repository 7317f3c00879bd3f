#include "analysis/dist_aves.h"

#include <gtest/gtest.h>

#include "analysis/g_of_s.h"
#include "analysis/small_run.h"
#include "support/failure.h"
#include "support/layout.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

/// Points of 1 to 5 Svedbergs with g^ of 1, 2, 1 between the limits, twice that for g, and no errors.
struct DistAvesTest : ::testing::Test {
    test::TestDesktop desktop;

    DistAvesTest() {
        auto& S = Store();
        S.SPoints = 5;
        S.SRangeFirst = 1;
        S.SRangeLast = 5;
        S.DeltaS = 0.5F;
        const float kHat[] = {9.0F, 1.0F, 2.0F, 1.0F, 9.0F};
        for (std::int32_t I = 1; I <= 5; ++I) {
            S.SStar(I) = static_cast<float>(I) * 1E-13F;
            S.GHat(I) = kHat[I - 1] * 1E13F;
            S.GStar(I) = 2.0F * kHat[I - 1] * 1E13F;
            S.GStarSem(I) = 0.5F;
        }
    }

    /// The captions of the dialog's controls in their order, from one showing.
    Lines Shown() {
        Lines captions;
        desktop.dialogs.push_back([&](Form& form) {
            captions.push_back(form.Name() + ": " + form.Caption());
            for (Control* control : form.Controls())
                captions.push_back(control->Name() + ": " + control->Caption());
            dynamic_cast<DistAves&>(form).Command1.Click();
        });
        ShowSAve_Click();
        return captions;
    }
};

// The figures of 1, 2, 1 at 2, 3, 4 Svedbergs: 48/17 = 2.824, 3, 38/12 = 3.167, 126/38 = 3.316; their errors for 1/2 at
// each point, squared: (576/289)^2 61/576 + (12/17)^2 3/4 = 0.79438; 0.421875 + 0.453125 = 0.875;
// (38/144)^2 29/4 + 353/576 = 1.11772; (126/1444)^2 353/4 + 4889/5776 = 1.51836. Twice g halves the roots.
TEST_F(DistAvesTest, ShowsBothSetsOfAverages) {
    const auto before = test::MenuStates();
    EXPECT_EQ(Shown(), (Lines{
                           "DistAves: Distribution Averages",
                           "Frame1: Averages for Interacting Systems",
                           "Label1:    Sn   =  2.824 +/-  0.891 Svedbergs",
                           "Label2:    Sw   =  3.000 +/-  0.935 Svedbergs",
                           "Label3:    Sz   =  3.167 +/-  1.057 Svedbergs",
                           "Label4:    Sz+1 =  3.316 +/-  1.232 Svedbergs",
                           "Label5:    Cp   =   2.000  ( plateau concentration )",
                           "Frame2: Averages for Non-Interacting Systems",
                           "Label6:    Sn   =  2.824 +/-  0.446 Svedbergs",
                           "Label7:    Sw   =  3.000 +/-  0.468 Svedbergs",
                           "Label8:    Sz   =  3.167 +/-  0.529 Svedbergs",
                           "Label9:    Sz+1 =  3.316 +/-  0.616 Svedbergs",
                           "Label10:    Co   =   4.000  ( loading concentration )",
                           "Command1: &OK",
                       }));
    EXPECT_TRUE(test::MenuChanges(before).empty());
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(DistAvesTest, ClosesAtItsButton) {
    Shown();
    EXPECT_TRUE(desktop.loaded.empty());
    EXPECT_EQ(desktop.story.front(), "load DistAves");
    EXPECT_EQ(desktop.story.back(), "unload DistAves");
}

TEST_F(DistAvesTest, ShowsTheSameFiguresTwice) {
    const Lines first = Shown();
    EXPECT_EQ(Shown(), first);
}

TEST_F(DistAvesTest, BlanksThePointsThatNoSumUses) {
    Shown();
    const auto& S = Store();
    for (const std::int32_t I : {1, 5}) {
        EXPECT_EQ(S.GHat(I), 0.0F);
        EXPECT_EQ(S.GStar(I), 0.0F);
        EXPECT_EQ(S.GStarSem(I), 0.0F);
    }
}

TEST_F(DistAvesTest, ChangesNoPlot) {
    PlotGS();
    const auto gs = test::Request();
    PlotGShat();
    const auto gHat = test::Request();
    Shown();
    PlotGS();
    EXPECT_EQ(test::Request(), gs);
    EXPECT_EQ(gs.size(), 12U);
    PlotGShat();
    EXPECT_EQ(test::Request(), gHat);
}

TEST_F(DistAvesTest, BlanksThePointsAndFailsWithNoneBetweenTheLimits) {
    Store().SRangeLast = 2;
    EXPECT_FAILURE(11, ShowSAve_Click());
    EXPECT_EQ(Store().GHat(3), 0.0F);
    EXPECT_TRUE(desktop.loaded.empty());
}

TEST_F(DistAvesTest, HasFiveLinesInEachOfTwoFramesOfOneShape) {
    const DistAves dialog;
    EXPECT_EQ(test::NamesOn(dialog), (Lines{"Frame1", "Label1", "Label2", "Label3", "Label4", "Label5", "Frame2",
                                            "Label6", "Label7", "Label8", "Label9", "Label10", "Command1"}));
    test::ExpectLaidOut(dialog);
    const auto& controls = dialog.Controls();
    for (std::size_t i = 0; i < 6; ++i) {
        const Place upper = controls[i]->Where(), lower = controls[i + 6]->Where();
        EXPECT_TRUE(test::IsWithin(upper, controls[0]->Where())) << controls[i]->Name();
        EXPECT_TRUE(test::IsWithin(lower, controls[6]->Where())) << controls[i + 6]->Name();
        EXPECT_EQ(lower.top - upper.top, dialog.Frame2.Where().top - dialog.Frame1.Where().top);
        EXPECT_EQ(lower.width, upper.width);
    }
}

}  // namespace
}  // namespace halvern
