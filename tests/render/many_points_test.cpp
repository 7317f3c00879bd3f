// Many positions at once draw what they draw one by one, to the pixel.

#include <gtest/gtest.h>

#include <QImage>

#include <random>
#include <vector>

#include "render/image_canvas.h"

namespace halvern {
namespace {

struct Track {
    std::vector<float> x, y;
    Canvas::Positions All() const { return {x, y}; }
};

struct ManyPoints : ::testing::Test {
    ImageCanvas atOnce, oneByOne;

    ManyPoints() {
        for (ImageCanvas* canvas : {&atOnce, &oneByOne}) {
            canvas->SetSize({320, 240}, 1.0);
            canvas->Scale(-25.0F, 120.0F, 110.0F, -25.0F);
            canvas->Cls();
        }
    }
    /// A walk of short steps with a leap now and then, some of it far outside the picture.
    static Track Walk(unsigned seed, std::size_t count, float step) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> small(-step, step), anywhere(-60.0F, 160.0F);
        Track points;
        float x = 40.0F, y = 40.0F;
        for (std::size_t i = 0; i < count; ++i) {
            const bool leaps = random() % 50 == 0;
            x = leaps ? anywhere(random) : x + small(random);
            y = leaps ? anywhere(random) : y + small(random);
            points.x.push_back(random() % 500 == 0 ? 1E30F : x);
            points.y.push_back(random() % 500 == 0 ? -1E30F : y);
        }
        return points;
    }
    void ExpectTheSame() { EXPECT_EQ(atOnce.Image(), oneByOne.Image()); }
};

TEST_F(ManyPoints, AreTheSameCircles) {
    for (const FillStyle fill : {FillStyle::kSolid, FillStyle::kTransparent})
        for (const float radius : {0.0F, 0.25F, 0.5F, 3.0F})
            for (unsigned seed = 1; seed <= 4; ++seed) {
                const Track points = Walk(seed, 700, 0.4F);
                const Colour colour = static_cast<Colour>(0x102030 * seed);
                atOnce.SetFillStyle(fill);
                atOnce.Circles(points.All(), radius, colour);
                oneByOne.SetFillStyle(fill);
                oneByOne.SetFillColour(colour);
                oneByOne.SetForeColour(colour);
                for (std::size_t i = 0; i < points.x.size(); ++i)
                    oneByOne.Circle(points.x[i], points.y[i], radius, colour);
                ExpectTheSame();
            }
}

TEST_F(ManyPoints, AreTheSameLines) {
    for (const int width : {1, 2, 3})
        for (const DrawMode mode : {DrawMode::kCopy, DrawMode::kExclusiveOr})
            for (unsigned seed = 1; seed <= 4; ++seed) {
                const Track points = Walk(seed, 700, 0.7F);
                for (ImageCanvas* canvas : {&atOnce, &oneByOne}) {
                    canvas->SetDrawWidth(width);
                    canvas->SetDrawMode(mode);
                    canvas->MoveTo(3.0F, 4.0F);
                }
                const Colour colour = static_cast<Colour>(0x102030 * seed);
                atOnce.LinesTo(points.All(), colour);
                for (std::size_t i = 0; i < points.x.size(); ++i)
                    oneByOne.LineTo(points.x[i], points.y[i], colour);
                // Where it ends the next one goes on.
                atOnce.LineTo(50.0F, 50.0F, 0);
                oneByOne.LineTo(50.0F, 50.0F, 0);
                ExpectTheSame();
            }
}

TEST_F(ManyPoints, AreTheSameInTurnsOfLinesAndCircles) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const Track points = Walk(seed, 1 + seed * 37 % 300, 0.3F);
        const auto colour = static_cast<Colour>(seed % 3);
        atOnce.SetFillStyle(FillStyle::kSolid);
        oneByOne.SetFillStyle(FillStyle::kSolid);
        if (seed % 2 == 0) {
            atOnce.Circles(points.All(), 0.5F, colour);
            oneByOne.SetFillColour(colour);
            oneByOne.SetForeColour(colour);
            for (std::size_t i = 0; i < points.x.size(); ++i)
                oneByOne.Circle(points.x[i], points.y[i], 0.5F, colour);
        } else {
            atOnce.LinesTo(points.All(), colour);
            for (std::size_t i = 0; i < points.x.size(); ++i)
                oneByOne.LineTo(points.x[i], points.y[i], colour);
        }
        if (seed % 5 == 0)
            ExpectTheSame();
    }
    ExpectTheSame();
}

TEST_F(ManyPoints, MayBeNone) {
    int touched = 0;
    static_cast<void>(atOnce.Image());
    atOnce.Touched = [&] { ++touched; };
    atOnce.Circles({}, 1.0F, 0);
    atOnce.LinesTo({}, 0);
    EXPECT_EQ(touched, 0);
    ExpectTheSame();
}

}  // namespace
}  // namespace halvern
