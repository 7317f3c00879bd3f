#include "render/raster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

namespace halvern {
namespace {

constexpr std::uint32_t kPaper = 0xFFFFFFFF, kInk = 0xFF112233;

/// Rows with words before, between and behind them that no drawing may touch.
struct Picture {
    static constexpr std::int32_t kMargin = 3;
    std::int32_t width, height;
    std::vector<std::uint32_t> words;
    Raster raster;

    Picture(std::int32_t w, std::int32_t h)
        : width(w), height(h), words(static_cast<std::size_t>((w + kMargin) * (h + 2)), kPaper) {
        raster = {words.data() + (w + kMargin), w + kMargin, w, h};
    }
    void PutIfInside(std::int64_t x, std::int64_t y) {
        if (x >= 0 && x < width && y >= 0 && y < height)
            raster.Row(static_cast<std::int32_t>(y))[x] = kInk;
    }
};

/// The line by its definition, point by point: so many across after i steps along, rounded, a half towards the end.
void DrawPlainly(Picture& picture, PixelPoint from, PixelPoint to) {
    const std::int64_t dx = std::int64_t{to.x} - from.x, dy = std::int64_t{to.y} - from.y;
    const bool flat = std::abs(dx) >= std::abs(dy);
    const double along = static_cast<double>(std::max(std::abs(dx), std::abs(dy)));
    const double across = static_cast<double>(std::min(std::abs(dx), std::abs(dy)));
    const std::int64_t stepX = dx < 0 ? -1 : 1, stepY = dy < 0 ? -1 : 1;
    for (std::int64_t i = 0; i <= static_cast<std::int64_t>(along); ++i) {
        const double exact = along == 0.0 ? 0.0 : static_cast<double>(i) * across / along;
        const auto gone = static_cast<std::int64_t>(std::floor(exact + 0.5));
        picture.PutIfInside(from.x + stepX * (flat ? i : gone), from.y + stepY * (flat ? gone : i));
    }
}

void ExpectPlainLine(PixelPoint from, PixelPoint to) {
    Picture drawn(40, 30), plain(40, 30);
    DrawThinLine(drawn.raster, from, to, {kInk, false});
    DrawPlainly(plain, from, to);
    ASSERT_EQ(drawn.words, plain.words) << from.x << ' ' << from.y << " to " << to.x << ' ' << to.y;
}

TEST(ThinLine, IsThePlainOneWithinThePicture) {
    for (std::int32_t x = 0; x < 40; ++x)
        for (std::int32_t y = 0; y < 30; ++y) {
            ExpectPlainLine({20, 15}, {x, y});
            ExpectPlainLine({x, y}, {20, 15});
        }
}

TEST(ThinLine, IsThePlainOneWhereverItEntersAndLeavesThePicture) {
    std::mt19937 random(7);
    std::uniform_int_distribution<std::int32_t> place(-60, 100);
    for (int i = 0; i < 20000; ++i)
        ExpectPlainLine({place(random), place(random)}, {place(random), place(random)});
}

TEST(ThinLine, KeepsItsWayFromFarOff) {
    std::mt19937 random(8);
    std::uniform_int_distribution<std::int32_t> far(-kFarthestPixel, kFarthestPixel), near(-20, 60);
    for (int i = 0; i < 60; ++i) {
        ExpectPlainLine({far(random), far(random)}, {near(random), near(random)});
        // Through the picture and away: the end lies opposite, a little aside.
        const PixelPoint from{far(random), far(random)};
        ExpectPlainLine(from, {-from.x + near(random), -from.y + near(random)});
    }
    ExpectPlainLine({-kFarthestPixel, -kFarthestPixel}, {kFarthestPixel, kFarthestPixel});
    ExpectPlainLine({kFarthestPixel, 4}, {-kFarthestPixel, 5});
}

TEST(ThinLine, TurnsEachOfItsPixelsOverOnce) {
    Picture drawn(40, 30), plain(40, 30);
    DrawThinLine(drawn.raster, {-5, 3}, {60, 28}, {kPaper ^ kInk, true});
    DrawPlainly(plain, {-5, 3}, {60, 28});
    EXPECT_EQ(drawn.words, plain.words);
    DrawThinLine(drawn.raster, {-5, 3}, {60, 28}, {kPaper ^ kInk, true});
    EXPECT_EQ(drawn.words, Picture(40, 30).words);
}

TEST(Span, EndsAtTheEdges) {
    Picture drawn(10, 5), plain(10, 5);
    FillSpan(drawn.raster, -100, 3, 2, {kInk, false});
    FillSpan(drawn.raster, 8, 100, 4, {kInk, false});
    FillSpan(drawn.raster, 0, 9, -1, {kInk, false});
    FillSpan(drawn.raster, 0, 9, 5, {kInk, false});
    FillSpan(drawn.raster, 6, 5, 1, {kInk, false});
    FillSpan(drawn.raster, 12, 15, 1, {kInk, false});
    for (const std::int32_t x : {0, 1, 2, 3})
        plain.PutIfInside(x, 2);
    for (const std::int32_t x : {8, 9})
        plain.PutIfInside(x, 4);
    EXPECT_EQ(drawn.words, plain.words);
}

}  // namespace
}  // namespace halvern
