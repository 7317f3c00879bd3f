#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "render/image_canvas.h"

namespace halvern {
namespace {

constexpr int kAcross = 277, kDown = 203;

/// The pixel of a page position by the page's formula; the page is that of the plot.
PixelPoint PixelOf(float x, float y) {
    return {static_cast<std::int32_t>(std::lround((x + 25.0) * kAcross / 135.0)),
            static_cast<std::int32_t>(std::lround((120.0 - y) * kDown / 145.0))};
}

/// What the canvas should hold: each operation is drawn in full, whatever came before it.
struct Plain {
    std::vector<std::uint32_t> words = std::vector<std::uint32_t>(kAcross * kDown, 0xFFFFFFFF);
    Raster raster{words.data(), kAcross, kAcross, kDown};

    void Line(PixelPoint from, PixelPoint to, Colour colour) {
        DrawThinLine(raster, from, to, {0xFF000000U | static_cast<std::uint32_t>(colour), false});
    }
    void Circle(PixelPoint middle, std::int32_t radius, const Colours& colours, Colour colour) {
        const Stamp stamp = MakeCircle(radius, 1);
        if (colours.fillStyle == FillStyle::kSolid)
            PutSpans(raster, stamp.inside, middle, {0xFF000000U | static_cast<std::uint32_t>(colours.fill), false});
        PutSpans(raster, stamp.outline, middle, {0xFF000000U | static_cast<std::uint32_t>(colour), false});
    }
};

/// Markers and lines as a plot has them: the next point is mostly close to the last one, often in the same pixel, and
/// sometimes somewhere else or off the surface. Colours, fills and sizes change now and then, and other operations come
/// between.
struct Points : ::testing::Test {
    ImageCanvas canvas;
    Plain plain;
    std::mt19937 random{5};
    float x = 50.0F, y = 50.0F;
    PixelPoint pen{};
    Colours colours;
    Colour colour = 0x123456;
    float radius = 0.25F;

    Points() {
        canvas.SetSize({kAcross, kDown}, 1.0);
        canvas.Scale(-25.0F, 120.0F, 110.0F, -25.0F);
        canvas.Cls();
        pen = {0, 0};
    }

    int Dice(int sides) { return std::uniform_int_distribution<int>(0, sides - 1)(random); }
    float Between(float from, float to) { return std::uniform_real_distribution<float>(from, to)(random); }

    void Step() {
        if (Dice(3) == 0)
            return;
        const bool far = Dice(40) == 0;
        x = far ? Between(-60.0F, 150.0F) : x + Between(-0.4F, 0.4F);
        y = far ? Between(-60.0F, 150.0F) : y + Between(-0.4F, 0.4F);
    }
    /// Every so many points, for each of the settings.
    void ChangeSomething(int points) {
        if (Dice(points) == 0)
            colour = Dice(3) * 0x4080C0 & 0xFFFFFF;
        if (Dice(points) == 0)
            colours = {0x00FF00, Dice(2) == 0 ? colour : 0xC0FFEE,
                       Dice(2) == 0 ? FillStyle::kSolid : FillStyle::kTransparent};
        if (Dice(10 * points) == 0)
            radius = 0.5F * static_cast<float>(Dice(12));
        canvas.SetColours(colours);
    }
    void Draw(bool line) {
        const PixelPoint pixel = PixelOf(x, y);
        if (line) {
            canvas.LineTo(x, y, colour);
            plain.Line(pen, pixel, colour);
            pen = pixel;
        } else {
            canvas.Circle(x, y, radius, colour);
            plain.Circle(pixel, static_cast<std::int32_t>(std::lround(radius * kAcross / 135.0)), colours, colour);
        }
    }
    /// Things after which nothing may be taken for drawn.
    void DrawSomethingElse() {
        const int what = Dice(4);
        if (what == 0) {
            canvas.MoveTo(x, y);
            pen = PixelOf(x, y);
        } else if (what == 1) {
            static_cast<void>(canvas.Image());
        } else if (what == 2) {
            canvas.FilledBox(x, y, x + 1.0F, y + 1.0F, 0xAABBCC);
            const PixelPoint a = PixelOf(x, y + 1.0F), b = PixelOf(x + 1.0F, y);
            for (std::int32_t row = a.y; row <= b.y; ++row)
                FillSpan(plain.raster, a.x, b.x, row, {0xFFAABBCC, false});
        } else {
            canvas.Cls();
            std::fill(plain.words.begin(), plain.words.end(), 0xFFFFFFFF);
            pen = {0, 0};
        }
    }
    void ExpectSamePixels() {
        const QImage& image = canvas.Image();
        const auto words = [&](int row) { return reinterpret_cast<const QRgb*>(image.constScanLine(row)); };
        int differing = 0;
        for (int row = 0; row < kDown; ++row)
            for (int column = 0; column < kAcross; ++column)
                differing += words(row)[column] != plain.raster.Row(row)[column] ? 1 : 0;
        EXPECT_EQ(differing, 0);
    }
};

TEST_F(Points, AreDrawnAsIfEachWereDrawnInFull) {
    for (int round = 0; round < 400; ++round) {
        bool lines = round % 2 == 0;
        const int points = round < 200 ? 30 : 2;  // curves, and points that have little to do with each other
        for (int i = 0; i < 100; ++i) {
            Step();
            ChangeSomething(points);
            if (Dice(100) == 0)
                DrawSomethingElse();
            if (Dice(points) == 0)
                lines = !lines;
            Draw(lines);
        }
        ExpectSamePixels();
    }
}

TEST_F(Points, OfOneColourInOnePixelAreDrawnOverEachOther) {
    canvas.SetFillStyle(FillStyle::kSolid);
    canvas.SetFillColour(0xFF0000);
    canvas.Circle(50.0F, 50.0F, 2.0F, 0xFF0000);
    canvas.SetFillColour(0x0000FF);
    canvas.Circle(50.0F, 50.0F, 2.0F, 0xFF0000);
    const PixelPoint middle = PixelOf(50.0F, 50.0F);
    EXPECT_EQ(canvas.Image().pixel(middle.x, middle.y), 0xFF0000FF);
}

TEST_F(Points, FarOffTheSurfaceDrawNothingAndFailNowhere) {
    const float inf = HUGE_VALF, nan = std::nanf("");
    canvas.SetFillStyle(FillStyle::kSolid);
    for (const float far : {inf, -inf, nan, 3E38F, -3E38F}) {
        canvas.Circle(far, 50.0F, 0.25F, 0);
        canvas.Circle(50.0F, far, 0.25F, 0);
    }
    canvas.MoveTo(-3E38F, -40.0F);
    canvas.LineTo(inf, -40.0F, 0);
    canvas.LineTo(3E38F, nan, 0);
    ExpectSamePixels();
}

}  // namespace
}  // namespace halvern
