#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace halvern {

/// Red, green and blue of a colour: 0xRRGGBB.
using Colour = std::int32_t;

/// How what is drawn meets what stands there.
enum class DrawMode { kExclusiveOr = 7, kCopy = 13 };

/// How circles, boxes and polygons are filled. A box drawn by FilledBox is filled whatever it is.
enum class FillStyle { kSolid = 0, kTransparent = 1 };

/// The settings of a canvas that a drawing leaves as it found them.
struct Colours {
    Colour fore = 0x000000;  ///< texts, and outlines of polygons
    Colour fill = 0x000000;
    FillStyle fillStyle = FillStyle::kTransparent;
};

/// A place in the pixels of a surface, from its top left corner.
struct PixelPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// The surface that a window draws on, in page coordinates: what `Scale` makes of its client area.
///
/// A canvas has a current point, a pen and a fill. Nothing is drawn outside the surface.
class Canvas {
  public:
    virtual ~Canvas() = default;

    /// (x1, y1) comes to stand at the top left of the surface, (x2, y2) at the bottom right.
    virtual void Scale(float x1, float y1, float x2, float y2) = 0;
    /// Clears to white; the current point goes to the top left.
    virtual void Cls() = 0;
    /// Size of the surface, pixels.
    virtual float PixelWidth() const = 0;
    virtual float PixelHeight() const = 0;
    /// Height of the surface, page units: negative where y grows upwards.
    virtual float ScaleHeight() const = 0;

    /// Pen: width in pixels, mode.
    virtual void SetDrawWidth(int pixels) = 0;
    virtual void SetDrawMode(DrawMode mode) = 0;

    void SetColours(const Colours& colours) { colours_ = colours; }
    const Colours& CurrentColours() const { return colours_; }
    void SetFillStyle(FillStyle style) { colours_.fillStyle = style; }
    void SetFillColour(Colour colour) { colours_.fill = colour; }
    void SetForeColour(Colour colour) { colours_.fore = colour; }

    virtual void MoveTo(float x, float y) = 0;
    /// From the current point; the end becomes the current point.
    virtual void LineTo(float x, float y, Colour colour) = 0;
    /// Outline in the colour, filled by the fill settings.
    virtual void Box(float x1, float y1, float x2, float y2, Colour colour) = 0;
    virtual void FilledBox(float x1, float y1, float x2, float y2, Colour colour) = 0;
    /// Outline in the colour, filled by the fill settings.
    ///
    /// Given     radius   page units along x
    virtual void Circle(float x, float y, float radius, Colour colour) = 0;
    /// Outline in the fore colour, filled by the fill settings; three corners or more.
    virtual void Polygon(std::span<const PixelPoint> corners) = 0;

    /// Positions on the page, x and y apart, as many of one as of the other.
    struct Positions {
        std::span<const float> x, y;
    };

    /// A circle at each position: the same as the fore and the fill colour set and Circle called for each.
    virtual void Circles(const Positions& middles, float radius, Colour colour) {
        SetFillColour(colour);
        SetForeColour(colour);
        for (std::size_t i = 0; i < middles.x.size(); ++i)
            Circle(middles.x[i], middles.y[i], radius, colour);
    }
    /// A line to each position: the same as LineTo called for each.
    virtual void LinesTo(const Positions& ends, Colour colour) {
        for (std::size_t i = 0; i < ends.x.size(); ++i)
            LineTo(ends.x[i], ends.y[i], colour);
    }

    void Line(float x1, float y1, float x2, float y2, Colour colour) {
        MoveTo(x1, y1);
        LineTo(x2, y2, colour);
    }

    /// Font of the texts to come. A size below 1 counts as 1.
    virtual void SetFont(int points, bool bold) = 0;
    /// A bold font whose texts run from bottom to top, until the next SetFont.
    ///
    /// Given     cellPixels   height of a line of it, pixels; below 1 counts as 1
    virtual void SetRotatedFont(int cellPixels) = 0;
    /// Draws a text in the fore colour, its first character's top left at the current point.
    virtual void Print(std::string_view text) = 0;
    /// Extent of a text along the way that it runs, pixels.
    virtual int TextWidthPixels(std::string_view text) const = 0;
    /// Extent of a text in the font of SetFont, page units; the height is negative where y grows upwards.
    virtual float TextWidth(std::string_view text) const = 0;
    virtual float TextHeight(std::string_view text) const = 0;

  private:
    Colours colours_;
};

/// The surface of a window that nobody sees: it has a size, takes everything, and texts have no extent on it.
class NullCanvas final : public Canvas {
  public:
    /// Given     width, height   pixels
    void SetSize(float width, float height) {
        width_ = width;
        height_ = height;
    }

    void Scale(float, float y1, float, float y2) override { scaleHeight_ = y2 - y1; }
    void Cls() override {}
    float PixelWidth() const override { return width_; }
    float PixelHeight() const override { return height_; }
    float ScaleHeight() const override { return scaleHeight_; }
    void SetDrawWidth(int) override {}
    void SetDrawMode(DrawMode) override {}
    void MoveTo(float, float) override {}
    void LineTo(float, float, Colour) override {}
    void Box(float, float, float, float, Colour) override {}
    void FilledBox(float, float, float, float, Colour) override {}
    void Circle(float, float, float, Colour) override {}
    void Circles(const Positions&, float, Colour) override {}
    void LinesTo(const Positions&, Colour) override {}
    void Polygon(std::span<const PixelPoint>) override {}
    void SetFont(int, bool) override {}
    void SetRotatedFont(int) override {}
    void Print(std::string_view) override {}
    int TextWidthPixels(std::string_view) const override { return 0; }
    float TextWidth(std::string_view) const override { return 0.0F; }
    float TextHeight(std::string_view) const override { return 0.0F; }

  private:
    float width_ = 0.0F;
    float height_ = 0.0F;
    float scaleHeight_ = 0.0F;
};

}  // namespace halvern
