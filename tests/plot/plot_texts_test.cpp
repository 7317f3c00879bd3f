#include "plot/drawn_plot.h"

namespace halvern {
namespace {

using test::Drew;
using test::kNear;
using test::Mark;
using test::RecordingCanvas;

/// Texts of a window of 10000 twips: titles of 14 points, tick labels of 12, a rotated font of 24 pixels. Its axes leave
/// no power of ten to the titles.
struct PlotTexts : test::DrawnPlot {
    PlotTexts() {
        auto& S = Store();
        S.PlotReady = true;
        plot.Resized(10000, 6000, false);
        S.PlotHelp1 = "Help one";
        S.PlotHelp2 = "and a longer second";
        S.PlotXTitle = "S (Svedbergs)";
        S.PlotYTitle = "<dc/dt>";
        View(20.0F, 80.0F, 0.2F, 0.8F);
    }
    void PaintPlot() { Paint({{10.0F, 10.0F, 0}, {20.0F, 20.0F, 0}}); }
};

TEST_F(PlotTexts, TakeTheirSizesFromTheLargerDimension) {
    PaintPlot();
    EXPECT_EQ(Text("Help one").points, 14);
    EXPECT_TRUE(Text("Help one").bold);
    EXPECT_EQ(canvas.Texts("0.900").front().points, 12);
    EXPECT_EQ(Text("<dc/dt>").cell, 24);
}

TEST_F(PlotTexts, OfATallWindowTakeTheirSizeFromItsHeight) {
    plot.Resized(4000, 20000, false);
    PaintPlot();
    EXPECT_EQ(Text("Help one").points, 28);
    EXPECT_EQ(canvas.Texts("0.900").front().points, 24);
    EXPECT_EQ(Text("<dc/dt>").cell, 48);
}

TEST_F(PlotTexts, StandCentredAboveAndBelowTheBox) {
    PaintPlot();
    for (const char* text : {"Help one", "and a longer second", "S (Svedbergs)"})
        EXPECT_NEAR(MiddleOf(Text(text)), 50.0F, kNear) << text;
    EXPECT_EQ(Text("Help one").y1, 118.0F);
    EXPECT_EQ(Text("and a longer second").y1, 110.0F);
    EXPECT_NEAR(Text("S (Svedbergs)").y1, -12.5F - HeightOf(Text("S (Svedbergs)")), kNear);
    EXPECT_EQ(Text("Help one").colour, 0x000000);
}

TEST_F(PlotTexts, ShrinkUntilTheLongerHelpLineFits) {
    // 100 characters at 14 points are 140 page units wide, at 11 points exactly the 110 that are too much.
    Store().PlotHelp1 = std::string(100, 'w');
    Store().PickDataLimits = true;
    PaintPlot();
    EXPECT_EQ(Text(Store().PlotHelp1).points, 10);
    EXPECT_EQ(Text("S (Svedbergs)").points, 10);
    EXPECT_EQ(Text("Click on [Done] when finished").points, 10);
    EXPECT_EQ(canvas.Texts("0.900").front().points, 12) << "tick labels keep their size";
}

TEST_F(PlotTexts, MeasureTheHelpLineThatIsLongerWithoutItsBlanks) {
    // The first is longer only by blanks: the second is measured, and fits.
    Store().PlotHelp1 = "short" + std::string(200, ' ');
    Store().PlotHelp2 = "longer than it";
    PaintPlot();
    EXPECT_EQ(Text("longer than it").points, 14);
}

TEST_F(PlotTexts, EndAtTheSmallestFontWhereNothingFits) {
    Store().PlotHelp1 = std::string(5000, 'w');
    Store().PlotYTitle = std::string(5000, 'w');
    PaintPlot();
    EXPECT_EQ(Text("S (Svedbergs)").points, 1);
}

TEST_F(PlotTexts, CarryThePowerOfTenBehindTheTitles) {
    View(0.0F, 0.05F, 3500.0F, 15000.0F);
    PaintPlot();
    EXPECT_EQ(canvas.Texts("S (Svedbergs)").size(), 0U);
    // Two blanks on x, one on y.
    Text("S (Svedbergs)  (10^-02)");
    Text("<dc/dt> (10^+03)");
}

TEST_F(PlotTexts, TurnTheYTitleAndCentreItOnTheBox) {
    Store().PlotYTitle = "0123456789";
    PaintPlot();
    const Mark title = Text("0123456789");
    EXPECT_EQ(title.cell, 24);
    EXPECT_EQ(title.x1, -18.0F);
    // 10 characters of half of 24 pixels are 120; the page's 145 units are the surface's 400 pixels.
    EXPECT_NEAR(title.y1, 50.0F - 120.0F * 145.0F / 400.0F / 2.0F, kNear);
}

TEST_F(PlotTexts, ShrinkTheYTitleUntilItIsShorterThanTheBox) {
    Store().PlotYTitle = std::string(30, 'y');
    PaintPlot();
    // Half its length has to be below 50 units, 137.9 pixels: 30 * cell / 2 / 2 at 18 pixels is 135, at 19 it is 142.5.
    EXPECT_EQ(Text(Store().PlotYTitle).cell, 18);
    EXPECT_GT(Text(Store().PlotYTitle).y1, 0.0F);
}

struct PickMessages : PlotTexts {
    PickMessages() {
        Store().PickDataLimits = true;
        View(0.0F, 100.0F, 0.0F, 100.0F);  // the axis is 0 to 120
    }
    static void Limits(float lower, float upper) {
        Store().DataLimitMin = lower;
        Store().DataLimitMax = upper;
    }
};

TEST_F(PickMessages, NameTheLimitsAtTheirLines) {
    Limits(12.0F, 108.0F);
    PaintPlot();
    const Mark done = Text("Click on [Done] when finished");
    EXPECT_EQ(done.colour, Store().PlotColor(2));
    EXPECT_NEAR(MiddleOf(done), 50.0F, kNear);
    EXPECT_NEAR(done.y1, 100.0F - HeightOf(done), kNear);
    EXPECT_NEAR(Text("min").x1, 10.01F, kNear);
    EXPECT_EQ(Text("min").y1, 97.5F);
    EXPECT_NEAR(Text("max").x1 + WidthOf(Text("max")), 89.99F, kNear);
    EXPECT_NEAR(Text("max").y1, 2.5F - HeightOf(Text("max")), kNear);
    EXPECT_EQ(Text("min").colour, Store().PlotColor(2));
}

TEST_F(PickMessages, CountALimitOnAnEdgeAsInRange) {
    Limits(0.0F, 120.0F);
    PaintPlot();
    EXPECT_NEAR(Text("min").x1, 0.01F, kNear);
    EXPECT_NEAR(Text("max").x1, 99.99F - WidthOf(Text("max")), kNear);
}

TEST_F(PickMessages, PointToLimitsBelowTheView) {
    Limits(-2.0F, -1.0F);
    PaintPlot();
    EXPECT_EQ(Text("<<min").x1, 0.0F);
    EXPECT_EQ(Text("<<max").x1, 0.0F);
    EXPECT_EQ(Text("<<min").y1, 97.5F);
    EXPECT_TRUE(ThinLines().empty());
}

TEST_F(PickMessages, PointToLimitsAboveTheView) {
    Limits(121.0F, 122.0F);
    PaintPlot();
    EXPECT_NEAR(Text("min>>").x1, 100.0F - WidthOf(Text("min>>")), kNear);
    EXPECT_NEAR(Text("max>>").x1, 100.0F - WidthOf(Text("max>>")), kNear);
}

TEST_F(PlotTexts, TellWhatAPickIsFor) {
    struct Pick {
        Boolean PlotRequest::*flag;
        const char* text;
    };
    constexpr Pick kPicks[] = {
        {&PlotRequest::PickMeniscus, "Click on [Done] when finished defining meniscus position"},
        {&PlotRequest::PickFringePoint, "Click on [Done] when finished defining position"},
        {&PlotRequest::PickJitterPoint, "Click on [Done] when finished defining position"},
    };
    for (const Pick& pick : kPicks) {
        Store().PickMeniscus = true;
        Store().*pick.flag = true;
        PaintPlot();
        const Mark text = Text(pick.text);
        EXPECT_EQ(text.colour, Store().PlotColor(4));
        EXPECT_NEAR(MiddleOf(text), 50.0F, kNear);
        Store().*pick.flag = false;
    }
    Store().PickMeniscus = false;
    Store().PickZeroLevel = true;
    PaintPlot();
    Text("Click on [Done] when finished defining zero position");
}

TEST_F(PlotTexts, SayNothingOfPicksOnAPlainPlot) {
    PaintPlot();
    for (const Mark& text : canvas.Of(Drew::kText))
        EXPECT_EQ(text.text.find("[Done]"), std::string::npos) << text.text;
}

}  // namespace
}  // namespace halvern
