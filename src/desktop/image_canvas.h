#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QRectF>

#include <functional>
#include <string_view>

#include "ui/canvas.h"

namespace halvern {

/// A surface whose picture is kept, pixel by pixel, so that the window over it only has to be told which part it lost.
///
/// Pixels are those of the screen. On a screen of high resolution several of them make one of the window's, and pens and
/// texts are as many times as large.
class ImageCanvas final : public Canvas {
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
    float PixelWidth() const override { return static_cast<float>(image_.width()); }
    float PixelHeight() const override { return static_cast<float>(image_.height()); }
    void SetDrawWidth(int pixels) override { drawWidth_ = pixels; }
    void SetDrawMode(DrawMode mode) override { drawMode_ = mode; }
    void SetFillStyle(FillStyle style) override { fillStyle_ = style; }
    FillStyle CurrentFillStyle() const override { return fillStyle_; }
    void SetFillColour(Colour colour) override { fillColour_ = colour; }
    void MoveTo(float x, float y) override;
    void LineTo(float x, float y, Colour colour) override;
    void Box(float x1, float y1, float x2, float y2, Colour colour) override;
    void FilledBox(float x1, float y1, float x2, float y2, Colour colour) override;
    void Circle(float x, float y, float radius, Colour colour) override;
    void SetFont(int points, bool bold) override;
    void SetForeColour(Colour colour) override { foreColour_ = colour; }
    void Print(std::string_view text) override;
    float TextWidth(std::string_view text) const override;
    float TextHeight(std::string_view text) const override;

  private:
    QPainter& Painter();
    QPainter& PainterForShapes();
    void LetPainterGo();
    int PenWidth() const;
    /// Pixels in one page unit, with their sign.
    double AcrossPerUnit() const { return image_.width() / (static_cast<double>(x2_) - x1_); }
    double DownPerUnit() const { return image_.height() / (static_cast<double>(y2_) - y1_); }
    QPointF PlaceOf(float x, float y) const;
    QPoint PixelOf(float x, float y) const;

    QImage image_;
    double ratio_ = 1.0;
    QPainter painter_;
    bool touched_ = false;

    float x1_ = 0.0F, y1_ = 0.0F, x2_ = 1.0F, y2_ = 1.0F;
    float currentX_ = 0.0F, currentY_ = 0.0F;
    int drawWidth_ = 1;
    DrawMode drawMode_ = DrawMode::kCopy;
    FillStyle fillStyle_ = FillStyle::kTransparent;
    Colour fillColour_ = 0x000000;
    Colour foreColour_ = 0x000000;
    int points_ = 12;
    QFont font_;
};

}  // namespace halvern
