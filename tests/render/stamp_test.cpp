#include "render/stamp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

namespace halvern {
namespace {

constexpr std::int32_t kSide = 61;
constexpr std::uint32_t kAround = 0xFFFFFFFF, kStamped = 0xFF112233;

/// A disc by its definition: along the axis on which a pixel is farther out, it has to be no farther than the pixel
/// nearest to the circle.
bool DiscHas(std::int32_t radius, std::int32_t x, std::int32_t y) {
    const int a = std::max(std::abs(x), std::abs(y)), b = std::min(std::abs(x), std::abs(y));
    return b <= radius && a <= static_cast<int>(std::floor(std::sqrt(1.0 * radius * radius - 1.0 * b * b) + 0.5));
}

/// Whether the pen has a pixel of the disc: within so many steps along rows and columns one is outside.
bool OutlineHas(std::int32_t outer, std::int32_t penWidth, std::int32_t x, std::int32_t y) {
    for (std::int32_t dx = -penWidth; dx <= penWidth; ++dx)
        for (std::int32_t dy = -penWidth; dy <= penWidth; ++dy)
            if (std::abs(dx) + std::abs(dy) <= penWidth && !DiscHas(outer, x + dx, y + dy))
                return DiscHas(outer, x, y);
    return false;
}

struct Square {
    std::vector<std::uint32_t> words = std::vector<std::uint32_t>(kSide * kSide, kAround);
    Raster raster{words.data(), kSide, kSide, kSide};

    template <class Has>
    Square& Put(PixelPoint middle, Has has) {
        for (std::int32_t y = 0; y < kSide; ++y)
            for (std::int32_t x = 0; x < kSide; ++x)
                if (has(x - middle.x, y - middle.y))
                    raster.Row(y)[x] = kStamped;
        return *this;
    }
};

constexpr PixelPoint kMiddle{30, 30};

TEST(Stamp, OfRadiusOneIsAPlusAndOfRadiusTwoASquareWithoutCorners) {
    Square one, two;
    PutDisc(one.raster, MakeCircle(1, 1), kMiddle, kStamped);
    PutDisc(two.raster, MakeCircle(2, 1), kMiddle, kStamped);
    EXPECT_EQ(std::count(one.words.begin(), one.words.end(), kStamped), 5);
    EXPECT_EQ(std::count(two.words.begin(), two.words.end(), kStamped), 25 - 4);
    EXPECT_EQ(one.raster.Row(30)[29], kStamped);
    EXPECT_EQ(one.raster.Row(29)[29], kAround);
    EXPECT_EQ(two.raster.Row(28)[29], kStamped);
    EXPECT_EQ(two.raster.Row(28)[28], kAround);
}

TEST(Stamp, IsThePlainCircleOfItsRadius) {
    for (std::int32_t radius = 0; radius < 28; ++radius) {
        const Stamp stamp = MakeCircle(radius, 1);
        Square disc, outline, inside;
        PutDisc(disc.raster, stamp, kMiddle, kStamped);
        PutSpans(outline.raster, stamp.outline, kMiddle, {kStamped, false});
        PutSpans(inside.raster, stamp.inside, kMiddle, {kStamped, false});
        const auto has = [&](int x, int y) { return DiscHas(radius, x, y); };
        const auto edge = [&](int x, int y) { return OutlineHas(radius, 1, x, y); };
        EXPECT_EQ(disc.words, Square().Put(kMiddle, has).words) << radius;
        EXPECT_EQ(outline.words, Square().Put(kMiddle, edge).words) << radius;
        EXPECT_EQ(inside.words, Square().Put(kMiddle, [&](int x, int y) { return has(x, y) && !edge(x, y); }).words);
    }
}

TEST(Stamp, HasAnOutlineAsWideAsThePen) {
    for (const std::int32_t penWidth : {2, 3, 4})
        for (std::int32_t radius = 0; radius < 20; ++radius) {
            // The middle of the pen runs along the circle; of an even width the smaller half lies outside.
            const std::int32_t outer = radius + (penWidth - 1) / 2;
            const Stamp stamp = MakeCircle(radius, penWidth);
            Square outline, disc;
            PutSpans(outline.raster, stamp.outline, kMiddle, {kStamped, false});
            PutDisc(disc.raster, stamp, kMiddle, kStamped);
            const auto edge = [&](int x, int y) { return OutlineHas(outer, penWidth, x, y); };
            EXPECT_EQ(outline.words, Square().Put(kMiddle, edge).words) << radius << ' ' << penWidth;
            EXPECT_EQ(disc.words, Square().Put(kMiddle, [&](int x, int y) { return DiscHas(outer, x, y); }).words);
        }
}

TEST(Stamp, HasEachPixelOnceInOutlineOrInside) {
    for (const std::int32_t penWidth : {1, 2, 3})
        for (std::int32_t radius = 0; radius < 20; ++radius) {
            const Stamp stamp = MakeCircle(radius, penWidth);
            Square turned, disc;
            PutSpans(turned.raster, stamp.outline, kMiddle, {kAround ^ kStamped, true});
            PutSpans(turned.raster, stamp.inside, kMiddle, {kAround ^ kStamped, true});
            PutDisc(disc.raster, stamp, kMiddle, kStamped);
            EXPECT_EQ(turned.words, disc.words) << radius << ' ' << penWidth;
        }
}

TEST(Stamp, IsCutAtTheEdges) {
    std::mt19937 random(3);
    std::uniform_int_distribution<std::int32_t> place(-12, kSide + 12), radius(0, 10);
    for (int i = 0; i < 2000; ++i) {
        const PixelPoint middle{place(random), place(random)};
        const std::int32_t r = radius(random);
        Square drawn;
        PutDisc(drawn.raster, MakeCircle(r, 1), middle, kStamped);
        ASSERT_EQ(drawn.words, Square().Put(middle, [&](int x, int y) { return DiscHas(r, x, y); }).words)
            << middle.x << ' ' << middle.y << ' ' << r;
    }
}

TEST(Stamp, FarOffTouchesNothing) {
    Square drawn;
    for (const std::int32_t x : {-kFarthestPixel, kFarthestPixel})
        PutDisc(drawn.raster, MakeCircle(3, 1), {x, 20}, kStamped);
    EXPECT_EQ(drawn.words, Square().words);
}

}  // namespace
}  // namespace halvern
