#include "plot/legend.h"

#include <gtest/gtest.h>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using test::Drew;
using test::Mark;

struct Legend : ::testing::Test {
    test::TestDesktop desktop;
    test::RecordingCanvas& canvas = desktop.surface;
    PlotLegend& legend = PlotLegendForm();

    Legend() {
        PlotitForm().Load();
        PlotitForm().Menu.ShowIt.Click();
        legend.Form_Paint();
    }
    /// What was drawn for an entry: its symbol, and its number.
    Mark Symbol(int I) const { return canvas.marks.at(static_cast<std::size_t>(2 * I - 1)); }
    Mark Number(int I) const { return canvas.marks.at(static_cast<std::size_t>(2 * I)); }
    static bool SameCorners(const Mark& mark, std::initializer_list<PixelPoint> corners) {
        return std::equal(mark.corners.begin(), mark.corners.end(), corners.begin(), corners.end(),
                          [](PixelPoint a, PixelPoint b) { return a.x == b.x && a.y == b.y; });
    }
};

TEST_F(Legend, CanBeHadOnceWhileThePlotStands) {
    EXPECT_TRUE(legend.IsShown());
    EXPECT_FALSE(legend.IsModal());
    EXPECT_TRUE(Store().PlotLegendLoaded);
    EXPECT_EQ(legend.Caption(), "Plot Legend");
    auto& item = PlotitForm().Menu.ShowIt;
    EXPECT_FALSE(item.IsShown()) << "out of the user's reach";
    EXPECT_FALSE(item.IsEnabled());
    legend.Unload();
    EXPECT_FALSE(Store().PlotLegendLoaded);
    EXPECT_TRUE(item.IsEnabled());
}

TEST_F(Legend, StandsAtTheLeftLevelWithThePlot) {
    EXPECT_EQ(legend.Where().left, 768);  // 0.05 of 15360
    EXPECT_EQ(legend.Where().top, PlotitForm().Where().top);
    EXPECT_EQ(Store().LegendPixelWidth, 220.0F);
    EXPECT_EQ(Store().LegendPixelHeight, 398.0F);
}

TEST_F(Legend, GoesWithTheProgram) {
    UnloadPlotWindows();
    EXPECT_FALSE(legend.IsLoaded());
    EXPECT_FALSE(Store().PlotLegendLoaded);
}

TEST_F(Legend, HasAHundredNumberedSymbolsInFiveColumns) {
    EXPECT_EQ(canvas.page[0], 100.0F);
    EXPECT_EQ(canvas.page[1], 110.0F);
    EXPECT_EQ(canvas.page[2], 150.0F);
    EXPECT_EQ(canvas.page[3], -30.0F);
    ASSERT_EQ(canvas.marks.size(), 201U);
    EXPECT_EQ(Number(1).text, "1");
    EXPECT_EQ(Number(100).text, "100");
    EXPECT_EQ(Number(1).x1, 106.0F);
    EXPECT_EQ(Number(1).y1, 100.0F);
    // Entry 21 heads the second column; the lowest row is at -16.
    EXPECT_EQ(Number(21).x1, 115.0F);
    EXPECT_EQ(Number(21).y1, 100.0F);
    EXPECT_EQ(Number(20).y1, -14.0F);
    EXPECT_EQ(Number(7).colour, Symbol(7).colour);
}

TEST_F(Legend, GivesEachColumnAShapeInTwentyColours) {
    const auto& colour = Store().PlotColor;
    EXPECT_EQ(Symbol(1).what, Drew::kCircle);
    EXPECT_EQ(Symbol(1).colour, colour(1));
    EXPECT_EQ(Symbol(1).x1, 104.0F);
    EXPECT_EQ(Symbol(1).y1, 98.0F);
    EXPECT_FLOAT_EQ(Symbol(1).radius, 1.3F);
    EXPECT_EQ(Symbol(20).colour, colour(0));
    EXPECT_EQ(Symbol(21).what, Drew::kBox);
    EXPECT_EQ(Symbol(21).colour, colour(1));
    EXPECT_EQ(Symbol(41).what, Drew::kPolygon);
    EXPECT_EQ(Symbol(41).corners.size(), 3U);
    EXPECT_EQ(Symbol(61).corners.size(), 4U);
    EXPECT_EQ(Symbol(81).corners.size(), 3U);
    EXPECT_EQ(Symbol(100).colour, colour(0));
}

TEST_F(Legend, OrRunsThroughTheShapesAndThenTheColours) {
    PlotitForm().Menu.Col_Sym.Click();
    const auto& colour = Store().PlotColor;
    EXPECT_EQ(Symbol(1).what, Drew::kCircle);
    EXPECT_EQ(Symbol(2).what, Drew::kBox);
    EXPECT_EQ(Symbol(3).corners.size(), 3U);
    EXPECT_EQ(Symbol(4).corners.size(), 4U);
    EXPECT_EQ(Symbol(5).corners.size(), 3U);
    EXPECT_EQ(Symbol(5).colour, colour(1));
    EXPECT_EQ(Symbol(6).colour, colour(2));
    EXPECT_EQ(Symbol(100).colour, colour(20));
    ASSERT_EQ(Symbol(100).corners.size(), 3U);
    EXPECT_GT(Symbol(100).corners[1].y, Symbol(100).corners[0].y) << "its point is the lowest";
}

TEST_F(Legend, DrawsBoxesInItsOwnUnits) {
    const Mark box = Symbol(21);  // at (113, 98)
    EXPECT_FLOAT_EQ(box.x1, 113.0F - 1.3F);
    EXPECT_FLOAT_EQ(box.x2, 113.0F + 1.3F);
    EXPECT_NEAR(box.y1, 98.0 - 8.0 / 3.0 * 0.65, 1E-5);
    EXPECT_NEAR(box.y2, 98.0 + 8.0 / 3.0 * 0.65, 1E-5);
}

// 220 by 398 pixels for 50 by 140 units, Size 1.3: A = 5.72, B = 2.402, T = 4.805, D = 5.174.
TEST_F(Legend, DrawsPolygonsInPixels) {
    // Entry 41 at (122, 98): its centre is pixel (96.8, 34.11), rounded.
    EXPECT_TRUE(SameCorners(Symbol(41), {{103, 36}, {97, 29}, {91, 36}}));
    // Entry 61 at (131, 98): (136.4, 34.11).
    EXPECT_TRUE(SameCorners(Symbol(61), {{130, 34}, {136, 29}, {142, 34}, {136, 39}}));
    // Entry 81 at (140, 98): (176, 34.11).
    EXPECT_TRUE(SameCorners(Symbol(81), {{182, 32}, {176, 39}, {170, 32}}));
}

TEST_F(Legend, RoundsCentreAndCornersToTheEvenNeighbour) {
    Store().LegendPixelWidth = 50.0F;    // a pixel a unit: the centre is at X - 100
    Store().LegendPixelHeight = 140.0F;  // and at 110 - Y
    const float Size = 1.0F;             // A = 1, D = 1.4
    const auto diamond = [&](float X, float Y) {
        canvas.marks.clear();
        DrawLegendShape(canvas, X, Y, Size, 2);
        return canvas.marks.front();
    };
    EXPECT_TRUE(SameCorners(diamond(110.5F, 99.5F), {{9, 10}, {10, 9}, {11, 10}, {10, 11}}));
    EXPECT_TRUE(SameCorners(diamond(111.5F, 98.5F), {{11, 12}, {12, 11}, {13, 12}, {12, 13}}));
    EXPECT_FAILURE(6, (diamond(40000.0F, 0.0F), 0));
}

TEST_F(Legend, KeepsThePixelsOfItsPolygonsWhenItsSizeChanges) {
    legend.Resized(6600, 11940, false);
    EXPECT_EQ(canvas.PixelWidth(), 440.0F);
    EXPECT_TRUE(SameCorners(Symbol(41), {{103, 36}, {97, 29}, {91, 36}}));
    EXPECT_EQ(Symbol(1).x1, 104.0F);
}

TEST_F(Legend, FollowsTheFillStyleOfThePlot) {
    EXPECT_EQ(Symbol(21).settings.fillStyle, FillStyle::kSolid);
    EXPECT_EQ(Symbol(21).settings.fill, Symbol(21).colour);
    PlotitForm().Menu.UseFilled.Click();
    for (int I : {1, 21, 41, 61, 81})
        EXPECT_EQ(Symbol(I).settings.fillStyle, FillStyle::kTransparent);
    EXPECT_EQ(Symbol(21).colour, Store().PlotColor(1));
}

TEST_F(Legend, LeavesTheColoursOfItsWindowAsItFoundThem) {
    const Colours before{0x010203, 0x040506, FillStyle::kTransparent};
    canvas.SetColours(before);
    legend.Form_Paint();
    EXPECT_EQ(canvas.CurrentColours().fore, before.fore);
    EXPECT_EQ(canvas.CurrentColours().fill, before.fill);
    EXPECT_EQ(canvas.CurrentColours().fillStyle, before.fillStyle);
}

TEST_F(Legend, IsDrawnAnewByThreeStylesOnly) {
    const auto drawnBy = [&](MenuItem& item) {
        canvas.marks.clear();
        item.Click();
        return !canvas.marks.empty();
    };
    auto& menu = PlotitForm().Menu;
    EXPECT_TRUE(drawnBy(menu.LargePoints));
    EXPECT_TRUE(drawnBy(menu.UseFilled));
    EXPECT_TRUE(drawnBy(menu.Col_Sym));
    EXPECT_FALSE(drawnBy(menu.Nolines));
}

}  // namespace
}  // namespace halvern
