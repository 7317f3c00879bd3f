#include <gtest/gtest.h>

#include <cmath>

#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "render/image_canvas.h"
#include "store/analysis_store.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kBlack = 0xFF000000, kRed = 0xFFFF0000, kGreen = 0xFF00FF00;

/// The plot window's picture, in pixels. What stands where is told by the formula of its page: (-25, 120) is the top left
/// and (110, -25) the bottom right.
struct PlotPicture : ::testing::Test {
    struct Desktop : test::TestDesktop {
        ImageCanvas canvas;
        Canvas& SurfaceOf(Form& /*form*/) override { return canvas; }
    } desktop;
    RequestFiller request;

    PlotPicture() {
        desktop.canvas.SetSize({675, 580}, 1.0);  // 5 and 4 pixels to a page unit
        PlotitForm().SetPlace({0, 0, 675 * kTwipsPerPixel, 580 * kTwipsPerPixel});
        PlotitForm().Load();
        PlotitForm().SetPlace({0, 0, 675 * kTwipsPerPixel, 580 * kTwipsPerPixel});
        auto& S = Store();
        S.PlotXMin = 6.0F;
        S.PlotXMax = 7.0F;
        S.PlotYMin = 0.0F;
        S.PlotYMax = 2.0F;
        SetRequestTexts({"help", "more help", "radius", "fringes"});
    }

    void Paint() {
        request.Finish();
        PlotitForm().Form_Paint();
    }

    QRgb At(int x, int y) { return desktop.canvas.Image().pixel(x, y); }
    static int Column(double pageX) { return static_cast<int>(std::lround((pageX + 25.0) * 675 / 135.0)); }
    static int Row(double pageY) { return static_cast<int>(std::lround((120.0 - pageY) * 580 / 145.0)); }
    /// The pixel of a data position, in the axes of the picture.
    QPoint PixelOf(double x, double y) {
        const auto& plot = PlotitForm();
        return {Column((x - plot.XAxisMin) * 100.0 / (static_cast<double>(plot.XAxisMax) - plot.XAxisMin)),
                Row((y - plot.YAxisMin) * 100.0 / (static_cast<double>(plot.YAxisMax) - plot.YAxisMin))};
    }
    QRgb At(QPoint pixel) { return At(pixel.x(), pixel.y()); }
};

TEST_F(PlotPicture, HasItsBoxFromZeroToAHundred) {
    request.Symbols(1, 2, 1, [](std::int32_t) { return PlotPoint{6.5F, 1.0F}; });
    Paint();
    // 125 and 625 from the left, 80 and 480 from the top; the pen of two pixels reaches one to the left and upwards.
    ASSERT_EQ(Column(0.0), 125);
    ASSERT_EQ(Row(100.0), 80);
    for (const int x : {124, 125, 624, 625})
        EXPECT_EQ(At(x, 300), kBlack) << x;
    for (const int y : {79, 80, 479, 480})
        EXPECT_EQ(At(300, y), kBlack) << y;
    for (const int x : {123, 126, 623, 626})
        EXPECT_EQ(At(x, 310), kWhite) << x;
    for (const int y : {78, 81, 478, 481})
        EXPECT_EQ(At(310, y), kWhite) << y;
}

TEST_F(PlotPicture, HasTicksOfTwoUnitsInsideTheBox) {
    request.Symbols(1, 2, 1, [](std::int32_t) { return PlotPoint{6.5F, 1.0F}; });
    Paint();
    // From 5.8 to 7.2 in steps of 0.2, and from 0 to 2.4 in steps of 0.4.
    ASSERT_NEAR(PlotitForm().XAxisMin, 5.8, 1E-5);
    ASSERT_NEAR(PlotitForm().XAxisMax, 7.2, 1E-5);
    ASSERT_NEAR(PlotitForm().YAxisMax, 2.4, 1E-5);
    for (int i = 1; i <= 6; ++i) {
        const int column = Column(100.0 / 7.0 * i);
        EXPECT_EQ(At(column, Row(2.0)), kBlack) << i;
        EXPECT_EQ(At(column - 1, Row(1.0)), kBlack) << i;
        EXPECT_EQ(At(column + 1, Row(1.0)), kWhite) << i;
        EXPECT_EQ(At(column, Row(2.5)), kWhite) << i;
    }
    for (int i = 1; i <= 5; ++i) {
        const int row = Row(100.0 / 6.0 * i);
        EXPECT_EQ(At(Column(2.0), row), kBlack) << i;
        EXPECT_EQ(At(Column(1.0), row - 1), kBlack) << i;
        EXPECT_EQ(At(Column(1.0), row + 1), kWhite) << i;
        EXPECT_EQ(At(Column(2.5), row), kWhite) << i;
    }
}

TEST_F(PlotPicture, PutsMarkersOnTheirPoints) {
    const auto place = [](std::int32_t i) {
        return PlotPoint{6.0F + 0.07F * static_cast<float>(i), 0.13F * static_cast<float>(i)};
    };
    request.Symbols(1, 13, 2, place);
    Paint();
    for (std::int32_t i = 1; i <= 13; ++i) {
        // A quarter of a page unit is 1.25 pixels: the radius is one.
        const QPoint pixel = PixelOf(place(i).x, place(i).y);
        EXPECT_EQ(At(pixel), kRed) << i;
        for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
            EXPECT_EQ(At(pixel + step), kRed) << i;
            EXPECT_NE(At(pixel + 2 * step), kRed) << i;
        }
        EXPECT_NE(At(pixel + QPoint(1, 1)), kRed) << i;
    }
}

TEST_F(PlotPicture, LeavesMarkersOpenThatAreNotFilled) {
    Store().FilledSymbols = false;
    request.Symbols(1, 2, 2, [](std::int32_t) { return PlotPoint{6.43F, 1.21F}; });
    Paint();
    const QPoint pixel = PixelOf(6.43F, 1.21F);
    EXPECT_EQ(At(pixel), kWhite);
    EXPECT_EQ(At(pixel + QPoint(1, 0)), kRed);
}

TEST_F(PlotPicture, LeadsLinesThroughTheirPoints) {
    const auto place = [](std::int32_t i) {
        return PlotPoint{6.0F + 0.07F * static_cast<float>(i), 1.0F + 0.8F * std::sin(static_cast<float>(i))};
    };
    request.Line(1, 13, 3, place);
    Paint();
    for (std::int32_t i = 1; i <= 13; ++i)
        EXPECT_EQ(At(PixelOf(place(i).x, place(i).y)), kGreen) << i;
    // Half way between two points, one pixel more or less for the rounding.
    for (std::int32_t i = 1; i < 13; ++i) {
        const QPoint half = PixelOf((place(i).x + place(i + 1).x) / 2.0, (place(i).y + place(i + 1).y) / 2.0);
        bool found = false;
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy)
                found = found || At(half + QPoint(dx, dy)) == kGreen;
        EXPECT_TRUE(found) << i;
    }
}

}  // namespace
}  // namespace halvern
