#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPointF>

#include <string_view>

namespace halvern {

/// The two fonts of a canvas, that of SetFont and the rotated one, and what is done with the one in use.
///
/// Sizes are nominal, 96 pixels to an inch; the ratio tells how many pixels of the surface make one of these.
class TextPrinter {
  public:
    TextPrinter();

    void SetFont(int points, bool bold, double ratio);
    void SetRotatedFont(int cellPixels, double ratio);
    /// The sizes on a surface of another ratio.
    void SetRatio(double ratio);

    /// Prints with the first character's top left at a place of the surface.
    void Print(QPainter& painter, QPointF topLeft, std::string_view text, QColor colour) const;

    /// Along the way that a text of the font in use runs, pixels of the surface.
    double Length(std::string_view text) const;
    /// In the font of SetFont, pixels of the surface.
    double Width(std::string_view text) const;
    double LineHeight() const;

    /// Letters are laid out without the rounding that pixels ask for.
    void LayOutFreely();

  private:
    const QFont& InUse() const { return rotatedInUse_ ? rotated_ : upright_; }

    int points_ = 12;
    int cellPixels_ = 1;
    bool rotatedInUse_ = false;
    QFont upright_;
    QFont rotated_;
};

}  // namespace halvern
