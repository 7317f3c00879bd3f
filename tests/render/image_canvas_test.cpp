#include "render/image_canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace halvern {
namespace {

constexpr QRgb kWhitePixel = 0xFFFFFFFF, kRedPixel = 0xFFFF0000, kBluePixel = 0xFF0000FF;
constexpr Colour kRedInk = 0xFF0000, kBlueInk = 0x0000FF, kBlackInk = 0x000000;

/// A surface of 270 by 290 pixels under the page of the plot: two pixels to a page unit, either way.
struct ImageCanvasTest : ::testing::Test {
    ImageCanvas canvas;

    ImageCanvasTest() {
        canvas.SetSize({270, 290}, 1.0);
        canvas.Scale(-25.0F, 120.0F, 110.0F, -25.0F);
        canvas.Cls();
    }

    QRgb At(int x, int y) { return canvas.Image().pixel(x, y); }
    int Count(QRgb colour) {
        const QImage& image = canvas.Image();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == colour ? 1 : 0;
        return count;
    }
};

TEST_F(ImageCanvasTest, PutsTheCornersOfABoxWhereThePageHasThem) {
    // (0, 0) is (0 + 25) / 135 x 270 = 50 from the left and (120 - 0) / 145 x 290 = 240 from the top; (100, 100) is
    // 250 and 40.
    canvas.Box(0.0F, 0.0F, 100.0F, 100.0F, kRedInk);
    for (const int x : {50, 250})
        for (const int y : {40, 240})
            EXPECT_EQ(At(x, y), kRedPixel) << x << ' ' << y;
    EXPECT_EQ(At(49, 240), kWhitePixel);
    EXPECT_EQ(At(51, 239), kWhitePixel);
    EXPECT_EQ(At(251, 40), kWhitePixel);
    EXPECT_EQ(Count(kRedPixel), 4 * 200);  // 201 pixels a side, the corners being shared
}

TEST_F(ImageCanvasTest, DrawsABoxWithAPenOfTwoPixels) {
    canvas.SetDrawWidth(2);
    canvas.Box(0.0F, 0.0F, 100.0F, 100.0F, kRedInk);
    EXPECT_EQ(At(49, 140), kRedPixel);
    EXPECT_EQ(At(50, 140), kRedPixel);
    EXPECT_EQ(At(48, 140), kWhitePixel);
    EXPECT_EQ(At(51, 140), kWhitePixel);
}

TEST_F(ImageCanvasTest, FillsABoxInTheColourOfItsLineWhateverTheFillIs) {
    canvas.SetFillStyle(FillStyle::kTransparent);
    canvas.SetFillColour(kBlackInk);
    canvas.FilledBox(10.0F, 10.0F, 0.0F, 0.0F, kBlueInk);
    EXPECT_EQ(Count(kBluePixel), 21 * 21);
    EXPECT_EQ(canvas.CurrentColours().fillStyle, FillStyle::kTransparent);
}

TEST_F(ImageCanvasTest, DrawsALineFromTheCurrentPointAndMovesItToTheEnd) {
    canvas.MoveTo(0.0F, 0.0F);
    canvas.LineTo(10.0F, 0.0F, kRedInk);
    canvas.LineTo(10.0F, 10.0F, kBlueInk);
    EXPECT_EQ(At(50, 240), kRedPixel);
    EXPECT_EQ(At(69, 240), kRedPixel);
    EXPECT_EQ(At(70, 240), kBluePixel);
    EXPECT_EQ(At(70, 220), kBluePixel);
    EXPECT_EQ(Count(kRedPixel) + Count(kBluePixel), 41);  // one pixel wide, none of them blended
}

TEST_F(ImageCanvasTest, CutsWhatLeavesTheSurface) {
    canvas.Line(-1E30F, 50.0F, 1E30F, 50.0F, kRedInk);
    EXPECT_EQ(Count(kRedPixel), 270);
    canvas.Line(0.0F, std::nanf(""), 10.0F, 1E38F, kBlueInk);
    EXPECT_EQ(Count(kRedPixel), 270 - Count(kBluePixel) / 290);
}

TEST_F(ImageCanvasTest, MeasuresTheRadiusOfACircleAlongX) {
    canvas.SetSize({540, 290}, 1.0);  // four pixels to a page unit along x, two along y
    canvas.Cls();
    canvas.Circle(50.0F, 50.0F, 5.0F, kRedInk);
    EXPECT_EQ(At(300 - 20, 140), kRedPixel);
    EXPECT_EQ(At(300 + 20, 140), kRedPixel);
    EXPECT_EQ(At(300, 140 - 20), kRedPixel);
    EXPECT_EQ(At(300, 140 + 20), kRedPixel);
    EXPECT_EQ(At(300 - 21, 140), kWhitePixel);
    EXPECT_EQ(At(300, 140 + 21), kWhitePixel);
    EXPECT_EQ(At(300, 140), kWhitePixel);
}

TEST_F(ImageCanvasTest, FillsACircleByFillStyleAndColour) {
    canvas.SetFillStyle(FillStyle::kSolid);
    canvas.SetFillColour(kBlueInk);
    canvas.Circle(50.0F, 50.0F, 5.0F, kRedInk);
    EXPECT_EQ(At(150, 140), kBluePixel);
    EXPECT_EQ(At(160, 140), kRedPixel);
    canvas.Cls();
    canvas.SetFillStyle(FillStyle::kTransparent);
    canvas.Circle(50.0F, 50.0F, 5.0F, kRedInk);
    EXPECT_EQ(Count(kBluePixel), 0);
}

TEST_F(ImageCanvasTest, ACircleTooSmallToBeSeenIsOnePixel) {
    canvas.Circle(50.0F, 50.0F, 0.2F, kRedInk);
    EXPECT_EQ(Count(kRedPixel), 1);
    EXPECT_EQ(At(150, 140), kRedPixel);
}

TEST_F(ImageCanvasTest, AnExclusiveOrBoxDrawnTwiceLeavesThePictureAsItWas) {
    canvas.FilledBox(0.0F, 0.0F, 60.0F, 60.0F, kBlueInk);
    canvas.Line(0.0F, 100.0F, 100.0F, 0.0F, kRedInk);
    const QImage before = canvas.Image().copy();
    canvas.SetDrawMode(DrawMode::kExclusiveOr);
    canvas.Box(20.0F, 20.0F, 80.0F, 90.0F, 0xFF0000);
    EXPECT_NE(canvas.Image(), before);
    EXPECT_EQ(At(90, 200), 0xFFFF00FF);  // the corner, blue with red turned over; drawn once like the sides
    EXPECT_EQ(At(210, 150), 0xFF00FFFF);
    canvas.Box(20.0F, 20.0F, 80.0F, 90.0F, 0xFF0000);
    EXPECT_EQ(canvas.Image(), before);
    canvas.Box(20.0F, 20.0F, 20.0F, 20.0F, 0xFF0000);
    canvas.Box(20.0F, 20.0F, 20.0F, 20.0F, 0xFF0000);
    EXPECT_EQ(canvas.Image(), before);
}

TEST_F(ImageCanvasTest, ClearsToWhiteInEveryModeAndGoesToTheTopLeft) {
    canvas.FilledBox(0.0F, 0.0F, 60.0F, 60.0F, kBlueInk);
    canvas.SetDrawMode(DrawMode::kExclusiveOr);
    canvas.Cls();
    EXPECT_EQ(Count(kWhitePixel), 270 * 290);
    canvas.SetDrawMode(DrawMode::kCopy);
    canvas.LineTo(-25.0F, 110.0F, kRedInk);
    EXPECT_EQ(At(0, 0), kRedPixel);
    EXPECT_EQ(At(0, 20), kRedPixel);
}

TEST_F(ImageCanvasTest, MeasuresTextsInPageUnitsTheHeightDownwards) {
    canvas.SetFont(12, false);
    const float width = canvas.TextWidth("XX");
    EXPECT_GT(width, 0.0F);
    EXPECT_FLOAT_EQ(width, 2.0F * canvas.TextWidth("X"));
    EXPECT_LT(canvas.TextHeight("X"), 0.0F);
    // 12 points are 16 pixels, the line a little more: at two pixels a unit 8 to 11 units.
    EXPECT_NEAR(canvas.TextHeight("X"), -9.5F, 1.5F);
    canvas.SetFont(24, false);
    EXPECT_NEAR(canvas.TextWidth("XX"), 2.0F * width, 0.6F);
    EXPECT_LT(canvas.TextWidth("i"), canvas.TextWidth("W"));
}

TEST_F(ImageCanvasTest, PrintsWithTheTopLeftAtTheCurrentPoint) {
    canvas.SetFont(24, true);
    canvas.SetForeColour(kBlackInk);
    canvas.MoveTo(0.0F, 50.0F);
    canvas.Print("X");
    const int width = static_cast<int>(std::ceil(2.0F * canvas.TextWidth("X")));
    const int height = static_cast<int>(std::ceil(-2.0F * canvas.TextHeight("X")));
    const QImage& image = canvas.Image();
    int inside = 0, outside = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != kWhitePixel)
                ++(QRect(50, 140, width, height).contains(x, y) ? inside : outside);
    EXPECT_GT(inside, 50);
    EXPECT_EQ(outside, 0);
}

TEST_F(ImageCanvasTest, PrintsPlainlyInEveryMode) {
    canvas.SetDrawMode(DrawMode::kExclusiveOr);
    canvas.SetForeColour(kRedInk);
    canvas.MoveTo(0.0F, 50.0F);
    canvas.SetFont(40, true);
    canvas.Print("I");
    EXPECT_GT(Count(kRedPixel), 20);
}

TEST_F(ImageCanvasTest, TurnsPlacesIntoPagePositions) {
    const auto [x, y] = canvas.PageAt({50.0, 240.0});
    EXPECT_EQ(x, 0.0F);
    EXPECT_EQ(y, 0.0F);
    // 101 / 270 x 135 - 25 and 120 - 33 / 290 x 145
    const auto [x1, y1] = canvas.PageAt({101.0, 33.0});
    EXPECT_EQ(x1, 25.5F);
    EXPECT_EQ(y1, 103.5F);
}

TEST_F(ImageCanvasTest, HasSeveralPixelsOfTheScreenInOneOfTheWindows) {
    EXPECT_TRUE(canvas.SetSize({270, 290}, 2.0));
    EXPECT_FALSE(canvas.SetSize({270, 290}, 2.0));
    EXPECT_EQ(canvas.PixelWidth(), 540.0F);
    EXPECT_EQ(canvas.PixelHeight(), 580.0F);
    const auto [x, y] = canvas.PageAt({50.0, 240.0});
    EXPECT_EQ(x, 0.0F);
    EXPECT_EQ(y, 0.0F);
    canvas.Cls();
    canvas.Line(0.0F, 0.0F, 100.0F, 0.0F, kRedInk);
    EXPECT_EQ(At(200, 480), kRedPixel);
    EXPECT_EQ(At(200, 479), kRedPixel);  // the pen is as many times as wide
    EXPECT_EQ(At(200, 477), kWhitePixel);
}

TEST_F(ImageCanvasTest, KeepsThePictureWhenItGrows) {
    canvas.FilledBox(0.0F, 0.0F, 10.0F, 10.0F, kBlueInk);
    EXPECT_TRUE(canvas.SetSize({300, 300}, 1.0));
    EXPECT_EQ(Count(kBluePixel), 21 * 21);
    EXPECT_EQ(At(299, 299), kWhitePixel);
}

TEST_F(ImageCanvasTest, FillsABoxByTheFillSettings) {
    canvas.SetFillStyle(FillStyle::kSolid);
    canvas.SetFillColour(kBlueInk);
    canvas.Box(0.0F, 0.0F, 10.0F, 10.0F, kRedInk);
    EXPECT_EQ(Count(kRedPixel), 4 * 20);
    EXPECT_EQ(Count(kBluePixel), 19 * 19);
    canvas.SetDrawWidth(3);
    canvas.Box(50.0F, 50.0F, 60.0F, 60.0F, kRedInk);
    EXPECT_EQ(Count(kRedPixel), 4 * 20 + 23 * 23 - 17 * 17);
    EXPECT_EQ(Count(kBluePixel), 19 * 19 + 17 * 17);
}

TEST_F(ImageCanvasTest, DrawsAWideLineAlongAnAxisAsARectangle) {
    canvas.SetDrawWidth(2);
    canvas.Line(10.0F, 0.0F, 10.0F, 2.0F, kRedInk);
    // From pixel (70, 240) to (70, 236), one more each to the left and upwards.
    EXPECT_EQ(Count(kRedPixel), 2 * 6);
    EXPECT_EQ(At(69, 235), kRedPixel);
    EXPECT_EQ(At(70, 240), kRedPixel);
}

TEST_F(ImageCanvasTest, DrawsALargeCircleToo) {
    canvas.SetSize({2700, 2900}, 1.0);  // 20 pixels to a page unit
    canvas.Cls();
    canvas.Circle(50.0F, 50.0F, 45.0F, kRedInk);
    EXPECT_EQ(At(1500 - 900, 1400), kRedPixel);
    EXPECT_EQ(At(1500, 1400 + 900), kRedPixel);
    EXPECT_EQ(At(1500, 1400), kWhitePixel);
}

TEST_F(ImageCanvasTest, DrawsAPolygonInPixelsInTheForeColour) {
    canvas.SetForeColour(kRedInk);
    canvas.SetFillStyle(FillStyle::kSolid);
    canvas.SetFillColour(kBlueInk);
    const PixelPoint corners[] = {{20, 10}, {40, 30}, {20, 50}, {0, 30}};
    canvas.Polygon(corners);
    for (const auto& corner : corners)
        EXPECT_EQ(At(corner.x, corner.y), kRedPixel);
    EXPECT_EQ(At(30, 20), kRedPixel);
    EXPECT_EQ(At(20, 30), kBluePixel);
    EXPECT_EQ(At(20, 15), kBluePixel);
    EXPECT_EQ(At(2, 12), kWhitePixel);
    canvas.Cls();
    canvas.SetFillStyle(FillStyle::kTransparent);
    canvas.Polygon(corners);
    EXPECT_EQ(Count(kBluePixel), 0);
}

TEST_F(ImageCanvasTest, AnExclusiveOrShapeDrawnTwiceLeavesThePictureAsItWas) {
    canvas.FilledBox(0.0F, 0.0F, 60.0F, 60.0F, kBlueInk);
    const QImage before = canvas.Image().copy();
    canvas.SetDrawMode(DrawMode::kExclusiveOr);
    canvas.SetFillStyle(FillStyle::kSolid);
    canvas.SetFillColour(0x00FF00);
    for (const int width : {1, 2, 3}) {
        canvas.SetDrawWidth(width);
        const auto draw = [&] {
            canvas.Line(10.0F, 0.0F, 70.0F, 45.0F, 0xFF0000);
            canvas.Line(10.0F, 20.0F, 70.0F, 20.0F, 0xFF0000);
            canvas.Circle(50.0F, 50.0F, 12.0F, 0xFF0000);
            canvas.Box(30.0F, 30.0F, 90.0F, 70.0F, 0xFF0000);
        };
        draw();
        EXPECT_NE(canvas.Image(), before) << width;
        draw();
        EXPECT_EQ(canvas.Image(), before) << width;
    }
    // The same marker twice in a row is drawn twice.
    canvas.Circle(50.0F, 50.0F, 0.5F, 0xFF0000);
    canvas.Circle(50.0F, 50.0F, 0.5F, 0xFF0000);
    EXPECT_EQ(canvas.Image(), before);
}

TEST_F(ImageCanvasTest, PrintsARotatedTextFromBottomToTop) {
    canvas.SetForeColour(kBlackInk);
    canvas.MoveTo(0.0F, 0.0F);
    canvas.SetRotatedFont(40);
    const int length = canvas.TextWidthPixels("LL");
    canvas.Print("LL");
    // The text starts at (50, 240), runs upwards, and has 40 pixels from there to the right.
    const QImage& image = canvas.Image();
    int inside = 0, outside = 0, foot = 0, head = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != kWhitePixel) {
                ++(QRect(50, 240 - length, 40, length).contains(x, y) ? inside : outside);
                ++(x < 70 ? head : foot);
            }
    EXPECT_GT(inside, 200);
    EXPECT_EQ(outside, 0);
    // The tops of the letters are on the left. An L has its bar at the foot, and none at the head.
    EXPECT_GT(foot, head);
}

TEST_F(ImageCanvasTest, SizesARotatedFontByItsCell) {
    canvas.SetFont(12, true);
    const float upright = canvas.TextWidth("Fringes");
    canvas.SetRotatedFont(24);
    const int length = canvas.TextWidthPixels("Fringes");
    canvas.SetRotatedFont(48);
    EXPECT_NEAR(canvas.TextWidthPixels("Fringes"), 2 * length, 0.1 * length);
    // Widths in page units stay those of the font of SetFont.
    EXPECT_EQ(canvas.TextWidth("Fringes"), upright);
    canvas.SetRotatedFont(1);
    const int smallest = canvas.TextWidthPixels("Fringes");
    EXPECT_GT(smallest, 0);
    canvas.SetRotatedFont(-3);
    EXPECT_EQ(canvas.TextWidthPixels("Fringes"), smallest);
    canvas.SetFont(12, true);
    EXPECT_EQ(canvas.TextWidthPixels("Fringes"), std::lround(2.0F * upright));
}

TEST_F(ImageCanvasTest, TakesASizeOfAFontBelowOneForOne) {
    canvas.SetFont(1, false);
    const float smallest = canvas.TextWidth("XX");
    EXPECT_GT(smallest, 0.0F);
    canvas.SetFont(0, false);
    EXPECT_EQ(canvas.TextWidth("XX"), smallest);
    canvas.SetFont(-32768, false);
    EXPECT_EQ(canvas.TextWidth("XX"), smallest);
}

TEST_F(ImageCanvasTest, HasFontsAsManyTimesAsLargeOnADenseScreen) {
    canvas.SetRotatedFont(40);
    const int length = canvas.TextWidthPixels("Fringes");
    canvas.SetFont(20, true);
    const float width = canvas.TextWidth("Fringes");
    canvas.SetSize({270, 290}, 2.0);
    // As many page units, of twice as many pixels each.
    EXPECT_NEAR(canvas.TextWidth("Fringes"), width, 0.05F * width);
    canvas.SetRotatedFont(40);
    EXPECT_NEAR(canvas.TextWidthPixels("Fringes"), 2 * length, 0.1 * length);
}

TEST_F(ImageCanvasTest, TellsTheHeightOfItsPage) { EXPECT_EQ(canvas.ScaleHeight(), -145.0F); }

TEST_F(ImageCanvasTest, TellsOfManyOperationsOnce) {
    static_cast<void>(canvas.Image());
    int told = 0;
    canvas.Touched = [&] { ++told; };
    canvas.SetDrawMode(DrawMode::kExclusiveOr);
    canvas.MoveTo(0.0F, 0.0F);
    EXPECT_EQ(told, 0);
    canvas.LineTo(1.0F, 1.0F, kRedInk);
    canvas.Box(0.0F, 0.0F, 1.0F, 1.0F, kRedInk);
    EXPECT_EQ(told, 1);
    static_cast<void>(canvas.Image());
    canvas.Circle(0.0F, 0.0F, 1.0F, kRedInk);
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace halvern
