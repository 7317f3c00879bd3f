// Markers and lines of many points at once. A plot has two million of them: what is done for each stands here in loops of
// which the compiler does several rounds at once.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

#include "render/image_canvas.h"
#include "ui/wide_loops.h"

namespace halvern {

namespace {

constexpr std::size_t kBlock = 256;

HALVERN_WIDE_LOOPS bool AreWithin(const float* positions, std::size_t count, float farthest) {
    int isAnyBeyond = 0;
    for (std::size_t i = 0; i < count; ++i)
        isAnyBeyond |= static_cast<int>(!(std::fabs(positions[i]) <= farthest));
    return isAnyBeyond == 0;
}

/// For positions whose pixels are none of the farthest.
HALVERN_WIDE_LOOPS void PutOnPixels(const float* positions, std::size_t count, double scale, double shift,
                                    std::int32_t* pixels) {
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = static_cast<std::int32_t>((positions[i] * scale + shift) + (kFarthestPixel + 0.5)) - kFarthestPixel;
}

}  // namespace

void ImageCanvas::Mapping::Pixels(std::span<const float> positions, std::int32_t* pixels) const {
    constexpr double kNotFar = kFarthestPixel / 2;
    const auto notFar = static_cast<float>((kNotFar - std::fabs(shift)) / std::fabs(scale));
    if (AreWithin(positions.data(), positions.size(), notFar))
        return PutOnPixels(positions.data(), positions.size(), scale, shift, pixels);
    for (std::size_t i = 0; i < positions.size(); ++i)
        pixels[i] = Pixel(positions[i]);
}

/// Hands out the pixels of many positions, block by block.
class ImageCanvas::PixelBlocks {
  public:
    PixelBlocks(const ImageCanvas& canvas, const Positions& positions) : canvas_(canvas), rest_(positions) {}

    /// Result: whether there was another block.
    bool Next() {
        size_ = std::min(rest_.x.size(), kBlock);
        canvas_.toPixelX_.Pixels(rest_.x.first(size_), x_.data());
        canvas_.toPixelY_.Pixels(rest_.y.first(size_), y_.data());
        rest_ = {rest_.x.subspan(size_), rest_.y.subspan(size_)};
        return size_ > 0;
    }
    std::size_t Size() const { return size_; }
    PixelPoint operator[](std::size_t i) const { return {x_[i], y_[i]}; }

  private:
    const ImageCanvas& canvas_;
    Positions rest_;
    std::size_t size_ = 0;
    std::array<std::int32_t, kBlock> x_, y_;
};

void ImageCanvas::Circles(const Positions& middles, float radius, Colour colour) {
    if (middles.x.empty())
        return;
    SetFillColour(colour);
    SetForeColour(colour);
    // The first one makes the stamp ready.
    Circle(middles.x[0], middles.y[0], radius, colour);
    const bool isPlain = drawMode_ == DrawMode::kCopy && CurrentColours().fillStyle == FillStyle::kSolid &&
                         stampRadius_ <= kFarthestStampReach;
    const Positions others{middles.x.subspan(1), middles.y.subspan(1)};
    if (isPlain)
        PutDiscs(others, PixelBits(colour));
    else
        Canvas::Circles(others, radius, colour);
}

/// Of markers on the same pixel, one behind the other, one is enough.
void ImageCanvas::PutDiscs(const Positions& middles, std::uint32_t bits) {
    const Raster pixels = Pixels();
    PixelPoint last = drawn_.marker;
    for (PixelBlocks blocks(*this, middles); blocks.Next();)
        for (std::size_t i = 0; i < blocks.Size(); ++i) {
            const PixelPoint middle = blocks[i];
            if (AreTheSame(middle, last))
                continue;
            PutDisc(pixels, stamp_, middle, bits);
            last = middle;
        }
    drawn_.marker = last;
}

void ImageCanvas::LinesTo(const Positions& ends, Colour colour) {
    if (!thinCopy_)
        return Canvas::LinesTo(ends, colour);
    if (ends.x.empty())
        return;
    const bool goesOn = drawn_.lineEnd.x != kNowhere.x && drawn_.colour == colour;
    DrawThinLines(ends, {PixelBits(colour), false}, goesOn);
    currentX_ = ends.x.back();
    currentY_ = ends.y.back();
    drawn_.marker = kNowhere;
    drawn_.lineEnd = current_;
    drawn_.colour = colour;
}

/// Given     goesOn   whether the pixel that the pen stands on is drawn already
void ImageCanvas::DrawThinLines(const Positions& ends, Ink ink, bool goesOn) {
    const Raster pixels = Pixels();
    PixelPoint from = current_;
    for (PixelBlocks blocks(*this, ends); blocks.Next();)
        for (std::size_t i = 0; i < blocks.Size(); ++i) {
            const PixelPoint to = blocks[i];
            if (goesOn && AreTheSame(from, to))
                continue;
            if (goesOn && AreNeighbours(from, to) && pixels.Has(to))
                pixels.Row(to.y)[to.x] = ink.bits;
            else
                DrawThinLine(pixels, from, to, ink);
            goesOn = true;
            from = to;
        }
    current_ = from;
}

}  // namespace halvern
