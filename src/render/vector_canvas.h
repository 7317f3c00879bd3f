#pragma once

#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QSize>

#include <span>
#include <string_view>

#include "render/painted_canvas.h"

class QPaintDevice;

namespace halvern {

/// A page that keeps lines, circles and texts as such. It counts in the pixels that a window of its size has, 96 to an
/// inch; places between them stay what they are.
///
/// Lines that go on from each other in one colour are one line on the page.
class VectorCanvas final : public PaintedCanvas {
  public:
    /// Given     page   96 of its units to an inch; it has to outlive the canvas
    ///           size   of the page, pixels
    VectorCanvas(QPaintDevice& page, QSize size);
    ~VectorCanvas() override;
    VectorCanvas(const VectorCanvas&) = delete;
    VectorCanvas& operator=(const VectorCanvas&) = delete;

    /// Ends the page; nothing can be drawn on it any more. Result: whether the page has taken everything.
    bool Finish();

    void Cls() override;
    void SetDrawWidth(int pixels) override;
    /// Ink on a page can't be turned over: what is drawn stands over what was there.
    void SetDrawMode(DrawMode /*mode*/) override {}
    void MoveTo(float x, float y) override;
    void LineTo(float x, float y, Colour colour) override;
    void Box(float x1, float y1, float x2, float y2, Colour colour) override;
    void FilledBox(float x1, float y1, float x2, float y2, Colour colour) override;
    void Circle(float x, float y, float radius, Colour colour) override;
    void Polygon(std::span<const PixelPoint> corners) override;
    void Print(std::string_view text) override;

  private:
    QPointF PlaceOf(float x, float y) const;
    QPen PenOf(Colour colour) const;
    void DrawLineSoFar();

    QPainter painter_;
    QPointF current_;
    QPolygonF line_;  ///< what LineTo has drawn in lineColour_ without a break
    Colour lineColour_ = 0;
};

}  // namespace halvern
