#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "plot/done.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/menus.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

/// Axes from 0 to 120 and from 0 to 12: a page unit is 1.2 in x and 0.12 in y.
struct Interaction : ::testing::Test {
    test::TestDesktop desktop;
    PlotWindow& plot = PlotitForm();
    AnalysisStore& S = Store();

    Interaction() {
        S.ShowXYDefault = true;
        static constexpr PlotPoint kPoints[] = {
            {0.0F, 0.0F}, {30.0F, 3.0F}, {60.0F, 6.0F}, {60.0F, 6.0F}, {100.0F, 10.0F}};
        BeginPlainRequest();
        RequestFiller request;
        request.Line(1, 5, kBlack, [](std::int32_t I) { return kPoints[I - 1]; });
        request.Finish();
        ShowPlot(false);
    }

    void Click(int button, int shift, float X, float Y) {
        plot.Form_MouseDown(button, shift, X, Y);
        plot.Form_MouseUp(button, shift, X, Y);
    }

    void Drag(float X0, float Y0, float X1, float Y1) {
        plot.Form_MouseDown(kLeftButton, kNoModifier, X0, Y0);
        plot.Form_MouseMove(kLeftButton, kNoModifier, X1, Y1);
        plot.Form_MouseUp(kLeftButton, kNoModifier, X1, Y1);
    }

    /// What is drawn by an act; a repaint begins with a Cls.
    bool Repaints(const std::function<void()>& act) {
        desktop.surface.marks.clear();
        act();
        return !desktop.surface.Of(test::Drew::kCls).empty();
    }

    std::vector<float> View() const { return {S.PlotXMin, S.PlotXMax, S.PlotYMin, S.PlotYMax}; }

    /// To the last bit or the one beside it: the scale of the axes is a rounded single.
    void ExpectView(const std::vector<float>& expected) const {
        const auto view = View();
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_FLOAT_EQ(view[i], expected[i]);
    }
};

TEST_F(Interaction, ReadsThePositionOutWithADigitMoreInX) {
    plot.Form_MouseMove(0, kNoModifier, 50.0F, 25.0F);
    EXPECT_EQ(plot.XYLabel.Caption(), " X= 6.0000E+01, Y= 3.000E+00");
    plot.Form_MouseMove(0, kNoModifier, -10.0F, -10.0F);
    EXPECT_EQ(plot.XYLabel.Caption(), " X= -1.2000E+01, Y= -1.200E+00");
}

TEST_F(Interaction, DoesNothingWhileNoPlotIsReady) {
    const auto before = View();
    plot.Form_MouseMove(0, kNoModifier, 50.0F, 25.0F);
    S.PlotReady = false;
    plot.Form_MouseMove(0, kNoModifier, 10.0F, 10.0F);
    EXPECT_EQ(plot.XYLabel.Caption(), " X= 6.0000E+01, Y= 3.000E+00");
    Drag(20.0F, 20.0F, 60.0F, 60.0F);
    EXPECT_EQ(View(), before);
    EXPECT_FALSE(plot.Menu.Zoomout.IsEnabled());
}

TEST_F(Interaction, TakesNoPositionThatNobodyAskedFor) {
    S.Meniscus = 6.0F;
    Click(kLeftButton, kCtrl, 25.0F, 25.0F);
    EXPECT_EQ(S.Meniscus, 6.0F);
}

TEST_F(Interaction, ReadsNothingOutWhileTheReadOutIsHidden) {
    plot.Form_MouseMove(0, kNoModifier, 50.0F, 25.0F);
    plot.Menu.ShowEm.Click();
    plot.Form_MouseMove(0, kNoModifier, 10.0F, 10.0F);
    EXPECT_EQ(plot.XYLabel.Caption(), " X= 6.0000E+01, Y= 3.000E+00");
}

TEST_F(Interaction, MovesTheLowerLimitWithCtrlLeft) {
    S.PickDataLimits = true;
    S.DataLimitMin = 0.0F;
    S.DataLimitMax = 100.0F;
    Click(kLeftButton, kCtrl, 25.0F, 0.0F);
    EXPECT_EQ(S.DataLimitMin, 30.0F);
    EXPECT_EQ(S.DataLimitMax, 100.0F);
}

TEST_F(Interaction, MovesTheUpperLimitWithCtrlRightAndWithAltLeft) {
    S.PickDataLimits = true;
    S.DataLimitMin = 0.0F;
    S.DataLimitMax = 100.0F;
    Click(kRightButton, kCtrl, 50.0F, 0.0F);
    EXPECT_EQ(S.DataLimitMax, 60.0F);
    Click(kLeftButton, kAlt, 25.0F, 0.0F);
    EXPECT_EQ(S.DataLimitMax, 30.0F);
    Click(kRightButton, kAlt, 75.0F, 0.0F);
    EXPECT_EQ(S.DataLimitMax, 30.0F) << "alt belongs to the left button";
}

TEST_F(Interaction, DoesNotLetTheLimitsCross) {
    S.PickDataLimits = true;
    S.DataLimitMin = 30.0F;
    S.DataLimitMax = 60.0F;
    EXPECT_FALSE(Repaints([&] {
        Click(kLeftButton, kCtrl, 50.0F, 0.0F);   // at the upper limit
        Click(kLeftButton, kCtrl, 75.0F, 0.0F);   // above it
        Click(kRightButton, kCtrl, 25.0F, 0.0F);  // at the lower limit
    }));
    EXPECT_EQ(S.DataLimitMin, 30.0F);
    EXPECT_EQ(S.DataLimitMax, 60.0F);
    ASSERT_EQ(desktop.messages.size(), 3U);
    EXPECT_EQ(desktop.messages[0].text, "Error Setting Data Limits! This would remove all data.");
    EXPECT_EQ(desktop.messages[0].title, "Invalid Operation");
    EXPECT_EQ(desktop.messages[0].style, 0);
}

TEST_F(Interaction, TakesAnyPositionOnThePage) {
    S.PickMeniscus = true;
    Click(kLeftButton, kCtrl, -25.0F, 0.0F);
    EXPECT_EQ(S.Meniscus, -30.0F);
}

TEST_F(Interaction, TakesTheLevelFromYAlone) {
    S.PickZeroLevel = true;
    Click(kLeftButton, kCtrl, 3.0F, 50.0F);
    EXPECT_EQ(S.Meniscus, 6.0F);
}

TEST_F(Interaction, LooksAtTheLimitsBeforeTheMeniscus) {
    S.PickDataLimits = true;
    S.PickMeniscus = true;
    S.DataLimitMax = 100.0F;
    S.Meniscus = 6.0F;
    Click(kLeftButton, kCtrl, 25.0F, 0.0F);
    EXPECT_EQ(S.DataLimitMin, 30.0F);
    EXPECT_EQ(S.Meniscus, 6.0F);
}

TEST_F(Interaction, NeedsTheExactModifiers) {
    S.PickMeniscus = true;
    S.Meniscus = 6.0F;
    for (const int shift : {kCtrl + kShift, kCtrl + kAlt, kShift, kAlt})
        Click(kLeftButton, shift, 25.0F, 0.0F);
    Click(kRightButton, kCtrl, 25.0F, 0.0F);
    EXPECT_EQ(S.Meniscus, 6.0F);
    ExpectView({0.0F, 100.0F, 0.0F, 10.0F});
}

TEST_F(Interaction, ZoomsIntoABox) {
    Drag(20.0F, 20.0F, 60.0F, 60.0F);
    ExpectView({24.0F, 72.0F, 2.4F, 7.2F});
    EXPECT_TRUE(plot.Menu.Zoomout.IsEnabled());
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Interaction, ZoomsIntoABoxDrawnUpwardsAndLeftwards) {
    Drag(60.0F, 20.0F, 20.0F, 60.0F);
    ExpectView({24.0F, 72.0F, 2.4F, 7.2F});
}

TEST_F(Interaction, HoldsABoxALittleInsideTheAxes) {
    Drag(-20.0F, -20.0F, 110.0F, 60.0F);
    EXPECT_EQ(S.PlotXMin, static_cast<float>(0.0 + 1E-5 * 120.0));
    EXPECT_EQ(S.PlotXMax, static_cast<float>(120.0 - 1E-5 * 120.0));
    EXPECT_EQ(S.PlotYMin, static_cast<float>(0.0 + 1E-5 * 12.0));
    EXPECT_FLOAT_EQ(S.PlotYMax, 7.2F);
    plot.Menu.Zoomout.Click();
    Drag(20.0F, 20.0F, 60.0F, 119.0F);
    EXPECT_EQ(S.PlotYMax, static_cast<float>(12.0 - 1E-5 * 12.0));
}

TEST_F(Interaction, DoesNotZoomWithAClickOrALine) {
    const auto before = View();
    Click(kLeftButton, kNoModifier, 30.0F, 30.0F);
    Drag(30.0F, 30.0F, 30.0F, 60.0F);
    Drag(30.0F, 30.0F, 60.0F, 30.0F);
    EXPECT_EQ(View(), before);
    EXPECT_FALSE(plot.Menu.Zoomout.IsEnabled());
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Interaction, DoesNotZoomAroundNoPointOrOne) {
    const auto before = View();
    EXPECT_TRUE(Repaints([&] { Drag(1.0F, 50.0F, 10.0F, 60.0F); }));
    EXPECT_TRUE(Repaints([&] { Drag(20.0F, 20.0F, 30.0F, 30.0F); }));
    EXPECT_EQ(View(), before);
    ASSERT_EQ(desktop.messages.size(), 2U);
    EXPECT_EQ(desktop.messages[0].text, "There Were No Data Within the Zoom-In Box!");
    EXPECT_EQ(desktop.messages[1].text, "You CANNOT Zoom Around a Single Point!");
    EXPECT_EQ(desktop.messages[1].title, "Error in Zooming");
    EXPECT_EQ(desktop.messages[1].style, 48);
}

TEST_F(Interaction, ZoomsAroundTwoPointsOfTheSameValue) {
    Drag(45.0F, 45.0F, 55.0F, 55.0F);
    ExpectView({54.0F, 66.0F, 5.4F, 6.6F});
}

TEST_F(Interaction, CountsAPointWhateverIsDrawnAtIt) {
    for (const std::int16_t code : {std::int16_t{1}, std::int16_t{-58}, std::int16_t{0}}) {
        S.PlotSym(4) = code;
        Drag(45.0F, 45.0F, 55.0F, 55.0F);
        EXPECT_TRUE(plot.Menu.Zoomout.IsEnabled()) << code;
        plot.Menu.Zoomout.Click();
    }
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Interaction, DrawsTheRubberBandOverItselfAndTheLastBoxInItsOwnColour) {
    EXPECT_FALSE(Repaints([&] {
        plot.Form_MouseDown(kLeftButton, kNoModifier, 10.0F, 10.0F);
        plot.Form_MouseMove(kLeftButton, kNoModifier, 20.0F, 30.0F);
        plot.Form_MouseMove(kLeftButton, kNoModifier, 10.0F, 40.0F);
        plot.Form_MouseUp(kLeftButton, kNoModifier, 10.0F, 40.0F);
    }));
    const auto boxes = desktop.surface.Of(test::Drew::kBox);
    ASSERT_EQ(boxes.size(), 4U);
    const Colour colours[] = {0xFF0000, 0xFF0000, 0xFF0000, 0x800000};
    const float corners[] = {20.0F, 20.0F, 10.0F, 10.0F};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(boxes[i].colour, colours[i]);
        EXPECT_EQ(boxes[i].x2, corners[i]);
        EXPECT_EQ(boxes[i].mode, DrawMode::kExclusiveOr);
    }
    plot.Form_Paint();
    EXPECT_EQ(desktop.surface.Of(test::Drew::kBox)[0].mode, DrawMode::kCopy);
}

TEST_F(Interaction, RepaintsWhereWhatIsShownHasChanged) {
    S.PickDataLimits = true;
    S.DataLimitMax = 100.0F;
    EXPECT_TRUE(Repaints([&] { Click(kLeftButton, kCtrl, 25.0F, 0.0F); }));
    EXPECT_TRUE(Repaints([&] { Click(kRightButton, kCtrl, 60.0F, 0.0F); }));
    S.PickDataLimits = false;
    S.PickMeniscus = true;
    EXPECT_TRUE(Repaints([&] { Click(kLeftButton, kCtrl, 25.0F, 0.0F); }));
    S.PickMeniscus = false;
    S.PickZeroLevel = true;
    EXPECT_TRUE(Repaints([&] { Click(kLeftButton, kCtrl, 25.0F, 0.0F); }));
    EXPECT_TRUE(Repaints([&] { Drag(20.0F, 20.0F, 60.0F, 60.0F); }));
    EXPECT_TRUE(Repaints([&] { plot.Menu.Zoomout.Click(); }));
    for (MenuItem* style : {&plot.Menu.Nolines, &plot.Menu.LargePoints, &plot.Menu.UseFilled, &plot.Menu.Col_Sym})
        EXPECT_TRUE(Repaints([&] { style->Click(); })) << style->Name();
    EXPECT_FALSE(Repaints([&] { plot.Menu.ShowEm.Click(); }));
    EXPECT_FALSE(Repaints([&] { plot.Form_MouseMove(0, kNoModifier, 50.0F, 25.0F); }));
    S.PlotReady = false;
    EXPECT_FALSE(Repaints([&] { plot.Menu.UseFilled.Click(); }));
}

TEST_F(Interaction, GoesBackToTheWholePictureInOneStep) {
    Drag(20.0F, 20.0F, 60.0F, 60.0F);
    Drag(10.0F, 10.0F, 90.0F, 90.0F);
    ExpectView({26.0F, 74.0F, 2.6F, 7.4F});  // of axes from 20 to 80 and from 2 to 8
    EXPECT_TRUE(desktop.messages.empty());
    plot.Menu.Zoomout.Click();
    ExpectView({0.0F, 100.0F, 0.0F, 10.0F});
    EXPECT_FALSE(plot.Menu.Zoomout.IsEnabled());
}

TEST_F(Interaction, ComesUpUnzoomedWithTheNextRequest) {
    Drag(20.0F, 20.0F, 60.0F, 60.0F);
    S.PlotX(1) = -40.0F;
    ShowPlot(false);
    ExpectView({-40.0F, 100.0F, 0.0F, 10.0F});
    EXPECT_FALSE(plot.Menu.Zoomout.IsEnabled());
}

std::string taken;

TEST_F(Interaction, DoneTakesTheFirstBranchWhoseFlagIsUp) {
    static constexpr DoneBranch kBranches[] = {
        {&PlotRequest::PickSLimits, [] { taken += "limits "; }},
        {&PlotRequest::PickZeroLevel, [] { taken += "level "; }},
        {&PlotRequest::PickMeniscus, [] { taken += "meniscus "; }},
    };
    SetDoneBranches(kBranches);
    plot.Command1.Show();
    S.PlotHelp1 = "Use <Ctrl>LMB";
    plot.Command1.Click();
    EXPECT_EQ(taken, "") << "with no flag up the window is just hidden";
    EXPECT_FALSE(plot.IsShown());
    EXPECT_FALSE(plot.Command1.IsShown());
    EXPECT_EQ(S.PlotHelp1, " ");
    EXPECT_EQ(S.PlotHelp2, " ");
    S.PickMeniscus = true;
    plot.Command1.Click();
    S.PickZeroLevel = true;
    plot.Command1.Click();
    S.PickSLimits = true;
    plot.Command1.Click();
    EXPECT_EQ(taken, "meniscus level limits ");
}

TEST_F(Interaction, FailsOnAPickBeforeAnythingWasDrawn) {
    plot.XScale = 0.0F;
    S.PickMeniscus = true;
    EXPECT_FAILURE(11, (Click(kLeftButton, kCtrl, 25.0F, 0.0F), 0));
}

}  // namespace
}  // namespace halvern
