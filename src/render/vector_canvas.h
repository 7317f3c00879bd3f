#pragma once

#include <QBrush>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QSize>

#include <algorithm>
#include <span>
#include <string_view>

#include "render/text_printer.h"
#include "ui/canvas.h"

class QPaintDevice;

namespace halvern {

/// A page that keeps lines, circles and texts as such. It counts in the pixels that a window of its size has, 96 to an
/// inch; places between them stay what they are.
///
/// Lines that go on from each other in one colour are one line on the page.
class VectorCanvas final : public Canvas {
  public:
    /// Given     page   96 of its units to an inch; it has to outlive the canvas
    ///           size   of the page, pixels
    VectorCanvas(QPaintDevice& page, QSize size);
    ~VectorCanvas() override;
    VectorCanvas(const VectorCanvas&) = delete;
    VectorCanvas& operator=(const VectorCanvas&) = delete;

    /// Ends the page; nothing can be drawn on it any more. Result: whether the page has taken everything.
    bool Finish();

    void Scale(float x1, float y1, float x2, float y2) override;
    void Cls() override;
    float PixelWidth() const override { return static_cast<float>(size_.width()); }
    float PixelHeight() const override { return static_cast<float>(size_.height()); }
    float ScaleHeight() const override { return y2_ - y1_; }
    void SetDrawWidth(int pixels) override;
    /// Ink on a page can't be turned over: what is drawn stands over what was there.
    void SetDrawMode(DrawMode /*mode*/) override {}
    void MoveTo(float x, float y) override;
    void LineTo(float x, float y, Colour colour) override;
    void Box(float x1, float y1, float x2, float y2, Colour colour) override;
    void FilledBox(float x1, float y1, float x2, float y2, Colour colour) override;
    void Circle(float x, float y, float radius, Colour colour) override;
    void Polygon(std::span<const PixelPoint> corners) override;
    void SetFont(int points, bool bold) override { printer_.SetFont(points, bold, 1.0); }
    void SetRotatedFont(int cellPixels) override { printer_.SetRotatedFont(cellPixels, 1.0); }
    void Print(std::string_view text) override;
    int TextWidthPixels(std::string_view text) const override;
    float TextWidth(std::string_view text) const override;
    float TextHeight(std::string_view text) const override;

  private:
    double AcrossPerUnit() const { return size_.width() / (static_cast<double>(x2_) - x1_); }
    double DownPerUnit() const { return size_.height() / (static_cast<double>(y2_) - y1_); }
    QPointF PlaceOf(float x, float y) const;
    QPen PenOf(Colour colour) const;
    QBrush Fill() const;
    void DrawLineSoFar();

    QSize size_;
    QPainter painter_;
    float x1_ = 0.0F, y1_ = 0.0F, x2_ = 1.0F, y2_ = 1.0F;
    QPointF current_;
    int drawWidth_ = 1;
    QPolygonF line_;  ///< what LineTo has drawn in lineColour_ without a break
    Colour lineColour_ = 0;
    TextPrinter printer_;
};

}  // namespace halvern
