#include "render/text_printer.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

#include "render/serif_font.h"
#include "render/shown_text.h"
#include "ui/control.h"

namespace halvern {

namespace {

constexpr double kTwipsPerPoint = 20.0;

/// The largest size whose lines are no higher than a cell. The font's own measure of its height is proportional.
int SizeFor(QFont font, double cell) {
    constexpr int kLarge = 1000;
    font.setPixelSize(kLarge);
    return std::max(1, static_cast<int>(cell / QFontMetricsF(font).height() * kLarge));
}

double WidthIn(const QFont& font, std::string_view text) {
    return QFontMetricsF(font).horizontalAdvance(ShownLine(text));
}

}  // namespace

TextPrinter::TextPrinter() : upright_(SerifFont()), rotated_(SerifFont()) {
    rotated_.setBold(true);
    SetRatio(1.0);
}

/// A point is a seventy-second of an inch, and twips know how many pixels that are.
void TextPrinter::SetFont(int points, bool bold, double ratio) {
    rotatedInUse_ = false;
    points_ = std::max(1, points);
    upright_.setBold(bold);
    const double pixels = points_ * kTwipsPerPoint / kTwipsPerPixel * ratio;
    upright_.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
}

void TextPrinter::SetRotatedFont(int cellPixels, double ratio) {
    rotatedInUse_ = true;
    cellPixels_ = std::max(1, cellPixels);
    rotated_.setPixelSize(SizeFor(rotated_, cellPixels_ * ratio));
}

void TextPrinter::SetRatio(double ratio) {
    const bool rotatedInUse = rotatedInUse_;
    SetRotatedFont(cellPixels_, ratio);
    SetFont(points_, upright_.bold(), ratio);
    rotatedInUse_ = rotatedInUse;
}

void TextPrinter::LayOutFreely() {
    upright_.setHintingPreference(QFont::PreferNoHinting);
    rotated_.setHintingPreference(QFont::PreferNoHinting);
}

void TextPrinter::Print(QPainter& painter, QPointF topLeft, std::string_view text, QColor colour) const {
    painter.save();
    painter.setFont(InUse());
    painter.setPen(colour);
    painter.translate(topLeft);
    // From bottom to top the letters' tops point to the left: the line then reaches from the place to the right.
    if (rotatedInUse_)
        painter.rotate(-90.0);
    painter.drawText(QPointF(0.0, QFontMetricsF(InUse()).ascent()), ShownLine(text));
    painter.restore();
}

double TextPrinter::Length(std::string_view text) const { return WidthIn(InUse(), text); }

double TextPrinter::Width(std::string_view text) const { return WidthIn(upright_, text); }

double TextPrinter::LineHeight() const { return QFontMetricsF(upright_).height(); }

}  // namespace halvern
