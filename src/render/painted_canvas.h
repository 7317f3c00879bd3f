#pragma once

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <QPointF>
#include <QSize>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "render/text_printer.h"
#include "ui/canvas.h"

namespace halvern {

/// What the canvas of an image and that of a page have in common: where page positions lie on the surface, how wide the pen
/// is, what shapes are filled with, the fonts.
class PaintedCanvas : public Canvas {
  public:
    void Scale(float x1, float y1, float x2, float y2) override;
    float PixelWidth() const override { return static_cast<float>(size_.width()); }
    float PixelHeight() const override { return static_cast<float>(size_.height()); }
    float ScaleHeight() const override { return down_.to - down_.from; }
    void SetDrawWidth(int pixels) override { drawWidth_ = pixels; }
    void SetFont(int points, bool bold) override { printer_.SetFont(points, bold, ratio_); }
    void SetRotatedFont(int cellPixels) override { printer_.SetRotatedFont(cellPixels, ratio_); }
    int TextWidthPixels(std::string_view text) const override;
    float TextWidth(std::string_view text) const override;
    float TextHeight(std::string_view text) const override;

  protected:
    /// The page along one side of the surface.
    struct PageSide {
        float from = 0.0F;   ///< page position at the left or at the top
        float to = 1.0F;     ///< at the right or at the bottom
        double scale = 1.0;  ///< pixels in one page unit, with their sign
    };

    /// Given     size   pixels of the surface
    explicit PaintedCanvas(QSize size) : size_(size) { WorkOutScales(); }

    /// Given     size    pixels of the surface
    ///           ratio   how many of them make one of the pixels that pens and fonts are told in
    void SetSurface(QSize size, double ratio);
    QSize Size() const { return size_; }
    double Ratio() const { return ratio_; }

    const PageSide& Across() const { return across_; }
    const PageSide& Down() const { return down_; }

    /// Pixels of the surface, at least one.
    int PenWidth() const { return std::max(1, static_cast<int>(std::lround(drawWidth_ * ratio_))); }
    static QColor ColourOf(Colour colour) { return QColor::fromRgb(static_cast<QRgb>(colour)); }
    QBrush Fill() const;

    /// Prints in the fore colour, the first character's top left at a place of the surface.
    void PrintAt(QPointF topLeft, std::string_view text, QPainter& painter) const;
    /// Letters are laid out without the rounding that pixels ask for.
    void LayOutFreely() { printer_.LayOutFreely(); }

  private:
    void WorkOutScales();

    QSize size_;
    double ratio_ = 1.0;
    PageSide across_, down_;
    int drawWidth_ = 1;
    TextPrinter printer_;
};

}  // namespace halvern
