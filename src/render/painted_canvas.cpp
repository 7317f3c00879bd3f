#include "render/painted_canvas.h"

namespace halvern {

void PaintedCanvas::SetSurface(QSize size, double ratio) {
    size_ = size;
    ratio_ = ratio;
    printer_.SetRatio(ratio);
    WorkOutScales();
}

void PaintedCanvas::Scale(float x1, float y1, float x2, float y2) {
    across_.from = x1;
    across_.to = x2;
    down_.from = y1;
    down_.to = y2;
    WorkOutScales();
}

void PaintedCanvas::WorkOutScales() {
    across_.scale = size_.width() / (static_cast<double>(across_.to) - across_.from);
    down_.scale = size_.height() / (static_cast<double>(down_.to) - down_.from);
}

QBrush PaintedCanvas::Fill() const {
    const Colours& colours = CurrentColours();
    return colours.fillStyle == FillStyle::kSolid ? QBrush(ColourOf(colours.fill)) : QBrush(Qt::NoBrush);
}

void PaintedCanvas::PrintAt(QPointF topLeft, std::string_view text, QPainter& painter) const {
    printer_.Print(painter, topLeft, text, ColourOf(CurrentColours().fore));
}

int PaintedCanvas::TextWidthPixels(std::string_view text) const {
    return static_cast<int>(std::lround(printer_.Length(text)));
}

float PaintedCanvas::TextWidth(std::string_view text) const {
    return static_cast<float>(printer_.Width(text) / std::abs(across_.scale));
}

float PaintedCanvas::TextHeight(std::string_view /*text*/) const {
    return static_cast<float>(printer_.LineHeight() / down_.scale);
}

}  // namespace halvern
