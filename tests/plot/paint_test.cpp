#include <cstdlib>
#include <random>

#include "plot/drawn_plot.h"
#include "plot/progress.h"

namespace halvern {
namespace {

using test::Drew;
using test::ExpectLine;
using test::kNear;
using test::Mark;
using Story = std::vector<std::string>;

constexpr Colour kBlackOfTable = 0x000000, kRedOfTable = 0xFF0000;

struct PaintedPlot : test::DrawnPlot {
    // The table's red is colour 2.
    static constexpr std::int16_t kPen = -58, kBlackLine = -57 - 64, kRedLine = -57 - 128;
};

TEST_F(PaintedPlot, SetsThePageAndDrawsTheBoxFirst) {
    Paint({{10.0F, 10.0F, 1}, {20.0F, 20.0F, 1}});
    EXPECT_EQ(canvas.page[0], -25.0F);
    EXPECT_EQ(canvas.page[1], 120.0F);
    EXPECT_EQ(canvas.page[2], 110.0F);
    EXPECT_EQ(canvas.page[3], -25.0F);
    ASSERT_GE(canvas.marks.size(), 3U);
    EXPECT_EQ(canvas.marks[0].what, Drew::kCls);
    EXPECT_EQ(canvas.marks[1].what, Drew::kFilledBox);
    EXPECT_EQ(canvas.marks[1].colour, 0xFFFFFF);
    EXPECT_EQ(canvas.marks[2].what, Drew::kBox);
    EXPECT_EQ(canvas.marks[2].colour, 0x000000);
    EXPECT_EQ(canvas.marks[2].width, 2);
    EXPECT_EQ(canvas.marks[2].settings.fillStyle, FillStyle::kTransparent) << "else it would cover the box";
    for (int i : {1, 2}) {
        EXPECT_EQ(canvas.marks[static_cast<std::size_t>(i)].x1, 0.0F);
        EXPECT_EQ(canvas.marks[static_cast<std::size_t>(i)].y2, 100.0F);
    }
}

TEST_F(PaintedPlot, DrawsMarkersStrictlyInsideTheAxesOnly) {
    // The axes end at 120, not at the view's 100.
    Paint({{0.0F, 60.0F, 1},
           {120.0F, 60.0F, 1},
           {60.0F, 0.0F, 1},
           {60.0F, 120.0F, 1},
           {119.0F, 119.0F, 2},
           {110.0F, 60.0F, 1}});
    const auto circles = canvas.Of(Drew::kCircle);
    ASSERT_EQ(circles.size(), 2U);
    EXPECT_NEAR(circles[0].x1, 119.0F / 1.2F, kNear);
    EXPECT_NEAR(circles[0].y1, 119.0F / 1.2F, kNear);
    EXPECT_EQ(circles[0].colour, kRedOfTable);
    EXPECT_EQ(circles[1].colour, kBlackOfTable);
    EXPECT_EQ(circles[0].radius, 0.25F);
    EXPECT_EQ(circles[0].width, 1);
}

TEST_F(PaintedPlot, ColoursMarkersByTheirCodeModuloTen) {
    Paint({{10.0F, 10.0F, 7}, {10.0F, 10.0F, 10}, {10.0F, 10.0F, 499}});
    const auto circles = canvas.Of(Drew::kCircle);
    ASSERT_EQ(circles.size(), 3U);
    EXPECT_EQ(circles[0].colour, 0xFF7F00);
    EXPECT_EQ(circles[1].colour, 0x00DFDF);
    EXPECT_EQ(circles[2].colour, 0xDFDF00);
    for (const Mark& circle : circles) {
        EXPECT_EQ(circle.settings.fill, circle.colour);
        EXPECT_EQ(circle.settings.fore, circle.colour);
        EXPECT_EQ(circle.settings.fillStyle, FillStyle::kSolid);
    }
}

TEST_F(PaintedPlot, LeavesPenAndColoursAsItFoundThem) {
    const Colours before{0x123456, 0x654321, FillStyle::kTransparent};
    canvas.SetColours(before);
    Store().PickDataLimits = true;
    Store().PlotLnAxis = true;
    View(1.0F, 4.0F, 0.0F, 1.0F);
    Paint({{2.0F, 0.5F, 3}, {3.0F, 0.5F, 3}});
    ASSERT_FALSE(canvas.Of(Drew::kCircle).empty());
    EXPECT_EQ(canvas.CurrentColours().fore, before.fore);
    EXPECT_EQ(canvas.CurrentColours().fill, before.fill);
    EXPECT_EQ(canvas.CurrentColours().fillStyle, before.fillStyle);
}

TEST_F(PaintedPlot, LeavesMarkersOpenWhereTheyAreNotToBeFilled) {
    Store().FilledSymbols = false;
    Paint({{10.0F, 10.0F, 2}, {20.0F, 20.0F, 2}});
    EXPECT_EQ(canvas.Of(Drew::kCircle)[0].settings.fillStyle, FillStyle::kTransparent);
}

TEST_F(PaintedPlot, DrawsLargeSymbolsTwiceAsLarge) {
    plot.Menu.LargePoints.Click();
    Paint({{10.0F, 10.0F, 1}, {20.0F, 20.0F, 1}});
    EXPECT_EQ(canvas.Of(Drew::kCircle)[0].radius, 0.5F);
}

TEST_F(PaintedPlot, DrawsALinePointOnALimitWhereAMarkerIsNot) {
    Paint({{0.0F, 0.0F, kPen}, {120.0F, 120.0F, kRedLine}});
    const auto lines = ThinLines();
    ASSERT_EQ(lines.size(), 1U);
    ExpectLine(lines[0], 0.0F, 0.0F, 100.0F, 100.0F, kRedOfTable);
}

TEST_F(PaintedPlot, BeginsACurveFromTheLeftWithItsFirstPointInRange) {
    Paint({{-30.0F, 60.0F, kPen}, {-10.0F, 60.0F, kBlackLine}, {12.0F, 24.0F, kBlackLine}, {24.0F, 36.0F, kBlackLine}});
    const auto lines = ThinLines();
    ASSERT_EQ(lines.size(), 1U);
    ExpectLine(lines[0], 10.0F, 20.0F, 20.0F, 30.0F, kBlackOfTable);
}

TEST_F(PaintedPlot, DrawsNothingOfACurveLeftOfTheAxis) {
    Paint({{-30.0F, 60.0F, kPen}, {-10.0F, 60.0F, kBlackLine}, {-5.0F, 24.0F, kBlackLine}});
    EXPECT_TRUE(ThinLines().empty());
}

TEST_F(PaintedPlot, RunsAlongTheUpperAndTheLowerEdge) {
    Paint({{12.0F, 60.0F, kPen},
           {24.0F, 150.0F, kBlackLine},
           {36.0F, 500.0F, kBlackLine},
           {48.0F, 60.0F, kBlackLine},
           {60.0F, -1.0F, kBlackLine}});
    const auto lines = ThinLines();
    ASSERT_EQ(lines.size(), 4U);
    ExpectLine(lines[0], 10.0F, 50.0F, 20.0F, 100.0F, kBlackOfTable);
    ExpectLine(lines[1], 20.0F, 100.0F, 30.0F, 100.0F, kBlackOfTable);
    ExpectLine(lines[2], 30.0F, 100.0F, 40.0F, 50.0F, kBlackOfTable);
    ExpectLine(lines[3], 40.0F, 50.0F, 50.0F, 0.0F, kBlackOfTable);
}

TEST_F(PaintedPlot, EndsACurveWithItsLastPointLeftOfTheRightEdge) {
    Paint(
        {{108.0F, 60.0F, kPen}, {114.0F, 60.0F, kBlackLine}, {126.0F, 60.0F, kBlackLine}, {132.0F, 0.0F, kBlackLine}});
    const auto lines = ThinLines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NEAR(lines[0].x2, 95.0F, kNear);
}

TEST_F(PaintedPlot, DrawsACurveThatTurnsBackOutIntoTheLeftMargin) {
    Paint({{12.0F, 60.0F, kPen}, {-12.0F, 60.0F, kBlackLine}});
    const auto lines = ThinLines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NEAR(lines[0].x2, -10.0F, kNear);
}

TEST_F(PaintedPlot, LiftsThePenByTheLowBitsAlone) {
    // 64 * 3 + 58 is a pen-up whose colour has no effect.
    Paint({{12.0F, 60.0F, kPen}, {24.0F, 60.0F, kBlackLine}, {36.0F, 60.0F, -64 * 3 - 58}, {48.0F, 60.0F, kBlackLine}});
    const auto lines = ThinLines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NEAR(lines[1].x1, 30.0F, kNear);
}

TEST_F(PaintedPlot, ColoursALineByItsHighBitsModuloTen) {
    Paint({{12.0F, 60.0F, kPen}, {24.0F, 60.0F, -57 - 640}, {36.0F, 60.0F, -57 - 64 * 499}});
    const auto lines = ThinLines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].colour, 0x00DFDF);
    EXPECT_EQ(lines[1].colour, 0xDFDF00);
}

/// A drawing operation of a point: a circle, or a line from where the pen stood.
struct PointMark {
    bool isLine;
    float x1, y1, x, y;
    Colour colour;
    bool operator==(const PointMark&) const = default;
};

/// The rules of points, one after the other, for axes from 0 to 120.
std::vector<PointMark> ExpectedOf(const std::vector<test::CodedPoint>& points) {
    const auto page = [](float value) { return static_cast<float>(static_cast<double>(value) * (100.0F / 120.0F)); };
    const auto clampedPage = [&](float y) { return y < 0.0F ? 0.0F : y > 120.0F ? 100.0F : page(y); };
    std::vector<PointMark> marks;
    bool penUp = false;
    float penX = 0.0F, penY = 0.0F;
    for (const auto& [x, y, code] : points) {
        const int a = std::abs(code);
        if (code > 0 && x > 0.0F && x < 120.0F && y > 0.0F && y < 120.0F)
            marks.push_back({false, 0.0F, 0.0F, page(x), page(y), Store().PlotColor(code % 10)});
        if (code >= 0)
            continue;
        penUp = penUp || a % 64 == 58;
        if (penUp && x >= 0.0F && x <= 120.0F) {
            penUp = false;
            penX = page(x);
            penY = clampedPage(y);
        } else if (!penUp && x <= 120.0F) {
            marks.push_back({true, penX, penY, page(x), clampedPage(y), Store().PlotColor(a / 64 % 10)});
            penX = page(x);
            penY = clampedPage(y);
        }
    }
    return marks;
}

TEST_F(PaintedPlot, DrawsRunsOfAnyLengthPointByPoint) {
    std::mt19937 random(20261121);
    std::uniform_real_distribution<float> near(1.0F, 119.0F), far(-40.0F, 160.0F);
    std::vector<test::CodedPoint> points = {{50.0F, 50.0F, kPen}};
    for (int run = 0; run < 60; ++run) {
        const auto curve = static_cast<std::int16_t>(1 + random() % 30);
        const bool isLine = random() % 2 == 0, hasFar = random() % 3 != 0;
        const auto count = random() % 2 == 0 ? random() % 5 : random() % 700;
        if (isLine && random() % 4 != 0)
            points.push_back({far(random), far(random), -58});
        for (auto i = count; i > 0; --i)
            points.push_back({hasFar && random() % 4 == 0 ? far(random) : near(random),
                              hasFar && random() % 4 == 0 ? far(random) : near(random),
                              static_cast<std::int16_t>(isLine ? -57 - 64 * curve : curve)});
        if (random() % 5 == 0)
            points.push_back({50.0F, 50.0F, 0});
    }
    Paint(points);
    std::vector<PointMark> drawn;
    for (const Mark& mark : canvas.marks) {
        if (mark.what == Drew::kCircle)
            drawn.push_back({false, 0.0F, 0.0F, mark.x1, mark.y1, mark.colour});
        else if (mark.what == Drew::kLine && mark.width == 1)
            drawn.push_back({true, mark.x1, mark.y1, mark.x2, mark.y2, mark.colour});
    }
    ASSERT_GT(points.size(), 5000U);
    EXPECT_EQ(drawn, ExpectedOf(points));
}

TEST_F(PaintedPlot, PassesOverPointsOfCodeZero) {
    Paint({{12.0F, 60.0F, 0}, {24.0F, 60.0F, 0}});
    EXPECT_TRUE(canvas.Of(Drew::kCircle).empty());
    EXPECT_TRUE(ThinLines().empty());
}

TEST_F(PaintedPlot, LeavesOutLinesOrSymbols) {
    const auto both = {test::CodedPoint{12.0F, 60.0F, kPen}, {24.0F, 60.0F, kBlackLine}, {36.0F, 60.0F, 1}};
    plot.Menu.Nolines.Click();
    Paint(both);
    EXPECT_TRUE(ThinLines().empty());
    EXPECT_EQ(canvas.Of(Drew::kCircle).size(), 1U);
    plot.Menu.Nolines.Click();
    plot.Menu.NoSymbols.Click();
    Paint(both);
    EXPECT_EQ(ThinLines().size(), 1U);
    EXPECT_TRUE(canvas.Of(Drew::kCircle).empty());
}

struct PickLines : PaintedPlot {
    void PaintPick() { Paint({{10.0F, 10.0F, 0}, {20.0F, 20.0F, 0}}); }
};

TEST_F(PickLines, StandAtTheLimitsLowerFirst) {
    Store().PickDataLimits = true;
    Store().DataLimitMin = 12.0F;
    Store().DataLimitMax = 120.0F;  // on the edge, and so in range
    PaintPick();
    const auto lines = ThinLines();
    ASSERT_EQ(lines.size(), 2U);
    ExpectLine(lines[0], 10.0F, 2.5F, 10.0F, 97.5F, 0x000080);
    ExpectLine(lines[1], 100.0F, 97.5F, 100.0F, 2.5F, 0x000080);
}

TEST_F(PickLines, AreNotDrawnForLimitsOutOfView) {
    Store().PickDataLimits = true;
    Store().DataLimitMin = -1.0F;
    Store().DataLimitMax = 121.0F;
    PaintPick();
    EXPECT_TRUE(ThinLines().empty());
}

TEST_F(PickLines, StandAtTheMeniscusUprightAndAtALevelAcross) {
    Store().Meniscus = 60.0F;
    Store().PickMeniscus = true;
    PaintPick();
    ASSERT_EQ(ThinLines().size(), 1U);
    ExpectLine(ThinLines()[0], 50.0F, 2.5F, 50.0F, 97.5F, 0x000080);
    Store().PickMeniscus = false;
    Store().PickZeroLevel = true;
    Store().Meniscus = 24.0F;
    PaintPick();
    ASSERT_EQ(ThinLines().size(), 1U);
    ExpectLine(ThinLines()[0], 2.5F, 20.0F, 97.5F, 20.0F, 0xFF0000);
    Store().Meniscus = 121.0F;
    PaintPick();
    EXPECT_TRUE(ThinLines().empty());
}

TEST_F(PaintedPlot, ShowsTheProgressOfALongPlotInTenSteps) {
    auto& S = Store();
    S.PlotCount = 1000;
    S.PlotReady = true;
    struct Watch : ControlObserver {
        std::vector<int> values;
        void ControlChanged(Control& /*control*/) override { values.push_back(CmpltFrmForm().ProgressBar1.Value()); }
    } watch;
    CmpltFrmForm().ProgressBar1.SetValue(55);
    desktop.progress.clear();
    CmpltFrmForm().ProgressBar1.Observe(&watch);
    plot.Form_Paint();
    CmpltFrmForm().ProgressBar1.Observe(nullptr);
    // Every 101st point, and the end.
    EXPECT_EQ(watch.values, (std::vector<int>{0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 0}));
    EXPECT_EQ(CmpltFrmForm().Label3.Caption(), "Creating Plot");
    ASSERT_FALSE(desktop.progress.empty());
    EXPECT_EQ(desktop.progress[0], "show cmpltfrm");
    EXPECT_EQ(desktop.progress[1], "repaint cmpltfrm");
    EXPECT_EQ(desktop.progress.back(), "hide cmpltfrm");
    EXPECT_FALSE(CmpltFrmForm().IsShown());
}

TEST_F(PaintedPlot, DrawsNothingOnAMinimisedWindow) {
    Paint({{10.0F, 10.0F, 1}, {20.0F, 20.0F, 1}});
    canvas.marks.clear();
    desktop.progress.clear();
    plot.Resized(9000, 6000, true);
    plot.Form_Paint();
    for (const Mark& mark : canvas.marks)
        EXPECT_EQ(mark.what, Drew::kCls);
    EXPECT_TRUE(desktop.progress.empty());
}

TEST_F(PaintedPlot, TellsWhenThereIsNothingToDraw) {
    Store().PlotReady = false;
    canvas.marks.clear();
    desktop.progress.clear();
    plot.Form_Paint();
    EXPECT_TRUE(canvas.marks.empty());
    EXPECT_TRUE(desktop.progress.empty());
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "There Are No Data To Plot Yet!\r\n       Load a Data File 1st.");
}

TEST_F(PaintedPlot, SharesTheStripAtTheBottomBetweenItsLabels) {
    plot.Resized(9001, 6000, false);
    Paint({{10.0F, 10.0F, 1}, {20.0F, 20.0F, 1}});
    EXPECT_EQ(plot.XYLabel.Where().width, 4500);  // 4500.5, to the even neighbour
    EXPECT_EQ(plot.OutFileLbl.Where().width, 4275);
    EXPECT_EQ(plot.OutFileLbl.Where().left, 4500);
}

TEST_F(PaintedPlot, KeepsThePixelsOfItsSurfaceUpToDateWhileThereIsAPlot) {
    Store().PlotReady = false;
    const float before = Store().PlotPixelWidth;
    plot.Resized(3000, 1500, false);
    EXPECT_EQ(Store().PlotPixelWidth, before);
    Paint({{10.0F, 10.0F, 1}, {20.0F, 20.0F, 1}});
    plot.Resized(3000, 1500, false);
    EXPECT_EQ(Store().PlotPixelWidth, 200.0F);
    EXPECT_EQ(Store().PlotPixelHeight, 100.0F);
}

}  // namespace
}  // namespace halvern
