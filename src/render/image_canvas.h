#pragma once

#include <QImage>
#include <QPainter>
#include <QPointF>

#include <cmath>
#include <functional>
#include <span>
#include <string_view>

#include "render/painted_canvas.h"
#include "render/raster.h"
#include "render/stamp.h"
#include "ui/canvas.h"

namespace halvern {

/// A surface whose picture is kept, pixel by pixel, so that the window over it only has to be told which part it lost.
///
/// Pixels are those of the screen. On a screen of high resolution several of them make one of the window's, and pens and
/// texts are as many times as large.
///
/// A plot has two million points. What it draws for each of them, a filled circle or a line of one pixel, goes straight
/// into the picture, and a point that would leave the picture as it is costs a comparison.
class ImageCanvas final : public PaintedCanvas {
  public:
    ImageCanvas();

    /// Called at the first drawing operation since the picture was last looked at.
    std::function<void()> Touched;

    /// Takes over another size; the picture is kept as far as it goes.
    ///
    /// Given     size    size in the window's pixels
    ///           ratio   pixels of the screen in one of the window's
    /// Result    whether the size is another one
    bool SetSize(QSize size, double ratio);

    /// The picture as it is now.
    const QImage& Image();

    /// The page position of a place in the window's pixels.
    struct PagePoint {
        float x;
        float y;
    };
    PagePoint PageAt(QPointF place) const;

    void Scale(float x1, float y1, float x2, float y2) override;
    void Cls() override;
    void SetDrawWidth(int pixels) override;
    void SetDrawMode(DrawMode mode) override;
    void MoveTo(float x, float y) override;
    void LineTo(float x, float y, Colour colour) override;
    void Box(float x1, float y1, float x2, float y2, Colour colour) override;
    void FilledBox(float x1, float y1, float x2, float y2, Colour colour) override;
    void Circle(float x, float y, float radius, Colour colour) override;
    void Circles(const Positions& middles, float radius, Colour colour) override;
    void LinesTo(const Positions& ends, Colour colour) override;
    void Polygon(std::span<const PixelPoint> corners) override;
    void Print(std::string_view text) override;

  private:
    /// From a page position along one side to pixels, at most kFarthestPixel away.
    struct Mapping {
        double scale = 1.0;  ///< pixels in one page unit, with their sign
        double shift = 0.0;  ///< pixel of page position 0
        double Place(float position) const;
        std::int32_t Pixel(float position) const;
        /// Pixels of many positions, the same as of each.
        void Pixels(std::span<const float> positions, std::int32_t* pixels) const;
    };
    class PixelBlocks;
    /// Where the last operation has drawn a marker, or has ended a thin line: the same once more would change nothing.
    struct Drawn {
        PixelPoint marker = kNowhere;
        PixelPoint lineEnd = kNowhere;
        Colour colour = 0;
        Colours colours;
        float radius = 0.0F;
    };
    /// No page position has this pixel.
    static constexpr PixelPoint kNowhere{2 * kFarthestPixel, 2 * kFarthestPixel};

    void WorkOutMapping();
    PixelPoint PixelOf(float x, float y) const { return {toPixelX_.Pixel(x), toPixelY_.Pixel(y)}; }
    void PenChanged();

    void Touch();
    /// The two ways to draw exclude each other. What goes straight into the picture has no painter on it.
    QPainter& Painter();
    QPainter& PainterForShapes();
    const Raster& Pixels() {
        if (pixels_.pixels == nullptr)
            TakePixels();
        return pixels_;
    }
    void TakePixels();
    void LetPictureGo();

    Ink InkOf(Colour colour) const;
    void FillRect(PixelPoint corner, PixelPoint opposite, Colour colour);
    void DrawLine(PixelPoint from, PixelPoint to, Colour colour);
    void DrawWideLine(PixelPoint from, PixelPoint to, Colour colour);
    void DrawCircle(PixelPoint middle, float radius, Colour colour);
    void PutDiscs(const Positions& middles, std::uint32_t bits);
    void DrawThinLines(const Positions& ends, Ink ink, bool goesOn);
    void DrawLargeCircle(PixelPoint middle, std::int32_t radius, Colour colour);
    void PutStamp(PixelPoint middle, Colour colour);
    void WorkOutStamp(float radius);

    QImage image_;
    Raster pixels_;  ///< of the image, while nothing else has it; without a size while something has
    QPainter painter_;
    bool touched_ = false;

    Mapping toPixelX_, toPixelY_;
    float currentX_ = 0.0F, currentY_ = 0.0F;
    PixelPoint current_;
    DrawMode drawMode_ = DrawMode::kCopy;
    bool thinCopy_ = true;  ///< pen of one pixel, plain copy
    Drawn drawn_;

    Stamp stamp_;
    std::int32_t stampRadius_ = 0;
    float stampFor_ = -1.0F;  ///< radius of the circle that the stamp is of, page units; below 0 for none
};

// A position that is no number is as far off as one can be.
inline double ImageCanvas::Mapping::Place(float position) const {
    constexpr double kFarthest = kFarthestPixel;
    const double place = position * scale + shift;
    if (std::abs(place) < kFarthest) [[likely]]
        return place;
    return place > 0.0 ? kFarthest : -kFarthest;
}

// To the nearest; a conversion to an integer drops the fraction of what is positive.
inline std::int32_t ImageCanvas::Mapping::Pixel(float position) const {
    return static_cast<std::int32_t>(Place(position) + (kFarthestPixel + 0.5)) - kFarthestPixel;
}

}  // namespace halvern
