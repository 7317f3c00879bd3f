#pragma once

#include <cstdint>
#include <string_view>

namespace halvern {

/// Red, green and blue of a colour: 0xRRGGBB.
using Colour = std::int32_t;

/// How what is drawn meets what stands there.
enum class DrawMode { kExclusiveOr = 7, kCopy = 13 };

/// How circles are filled. Filled boxes are filled whatever it is.
enum class FillStyle { kSolid = 0, kTransparent = 1 };

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

    /// Pen: width in pixels, mode; fill of circles.
    virtual void SetDrawWidth(int pixels) = 0;
    virtual void SetDrawMode(DrawMode mode) = 0;
    virtual void SetFillStyle(FillStyle style) = 0;
    virtual FillStyle CurrentFillStyle() const = 0;
    virtual void SetFillColour(Colour colour) = 0;

    virtual void MoveTo(float x, float y) = 0;
    /// From the current point; the end becomes the current point.
    virtual void LineTo(float x, float y, Colour colour) = 0;
    virtual void Box(float x1, float y1, float x2, float y2, Colour colour) = 0;
    virtual void FilledBox(float x1, float y1, float x2, float y2, Colour colour) = 0;
    /// Given     radius   page units along x
    virtual void Circle(float x, float y, float radius, Colour colour) = 0;

    void Line(float x1, float y1, float x2, float y2, Colour colour) {
        MoveTo(x1, y1);
        LineTo(x2, y2, colour);
    }

    /// Font of a text to come, and its colour.
    virtual void SetFont(int points, bool bold) = 0;
    virtual void SetForeColour(Colour colour) = 0;
    /// Draws a text whose top left is the current point.
    virtual void Print(std::string_view text) = 0;
    /// Extent of a text, page units; the height is negative where y grows upwards.
    virtual float TextWidth(std::string_view text) const = 0;
    virtual float TextHeight(std::string_view text) const = 0;
};

/// The surface of a window that nobody sees: it has no pixels and takes everything.
class NullCanvas final : public Canvas {
  public:
    void Scale(float, float, float, float) override {}
    void Cls() override {}
    float PixelWidth() const override { return 0.0F; }
    float PixelHeight() const override { return 0.0F; }
    void SetDrawWidth(int) override {}
    void SetDrawMode(DrawMode) override {}
    void SetFillStyle(FillStyle style) override { fillStyle_ = style; }
    FillStyle CurrentFillStyle() const override { return fillStyle_; }
    void SetFillColour(Colour) override {}
    void MoveTo(float, float) override {}
    void LineTo(float, float, Colour) override {}
    void Box(float, float, float, float, Colour) override {}
    void FilledBox(float, float, float, float, Colour) override {}
    void Circle(float, float, float, Colour) override {}
    void SetFont(int, bool) override {}
    void SetForeColour(Colour) override {}
    void Print(std::string_view) override {}
    float TextWidth(std::string_view) const override { return 0.0F; }
    float TextHeight(std::string_view) const override { return 0.0F; }

  private:
    FillStyle fillStyle_ = FillStyle::kTransparent;
};

}  // namespace halvern
