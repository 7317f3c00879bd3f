#include "render/vector_canvas.h"

#include <QPaintDevice>

#include <algorithm>
#include <cmath>

namespace halvern {

namespace {

// What lies further off than this is not on the page, and page formats have no numbers for everything.
constexpr double kFarthest = 1E6;

// A line of many points is drawn in parts, so that a page need not hold all of it twice.
constexpr qsizetype kLongestLine = 4096;

}  // namespace

VectorCanvas::VectorCanvas(QPaintDevice& page, QSize size) : PaintedCanvas(size) {
    painter_.begin(&page);
    painter_.setRenderHint(QPainter::Antialiasing);
    LayOutFreely();
}

VectorCanvas::~VectorCanvas() { Finish(); }

bool VectorCanvas::Finish() {
    if (!painter_.isActive())
        return false;
    DrawLineSoFar();
    return painter_.end();
}

QPointF VectorCanvas::PlaceOf(float x, float y) const {
    const auto bounded = [](double place) { return std::min(std::max(-kFarthest, place), kFarthest); };
    return {bounded((static_cast<double>(x) - Across().from) * Across().scale),
            bounded((static_cast<double>(y) - Down().from) * Down().scale)};
}

QPen VectorCanvas::PenOf(Colour colour) const {
    return {ColourOf(colour), static_cast<double>(PenWidth()), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin};
}

void VectorCanvas::Cls() {
    DrawLineSoFar();
    painter_.fillRect(QRectF(QPointF(), QSizeF(Size())), Qt::white);
    MoveTo(Across().from, Down().from);
}

void VectorCanvas::SetDrawWidth(int pixels) {
    DrawLineSoFar();
    PaintedCanvas::SetDrawWidth(pixels);
}

void VectorCanvas::MoveTo(float x, float y) {
    DrawLineSoFar();
    current_ = PlaceOf(x, y);
}

void VectorCanvas::LineTo(float x, float y, Colour colour) {
    if (colour != lineColour_ || line_.size() >= kLongestLine)
        DrawLineSoFar();
    if (line_.isEmpty())
        line_.append(current_);
    lineColour_ = colour;
    current_ = PlaceOf(x, y);
    line_.append(current_);
}

/// The joins of a curve with noise would have spikes, were they not bevelled.
void VectorCanvas::DrawLineSoFar() {
    if (line_.isEmpty())
        return;
    QPen pen = PenOf(lineColour_);
    pen.setJoinStyle(Qt::BevelJoin);
    painter_.setPen(pen);
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPolyline(line_);
    line_.clear();
}

void VectorCanvas::Box(float x1, float y1, float x2, float y2, Colour colour) {
    DrawLineSoFar();
    painter_.setPen(PenOf(colour));
    painter_.setBrush(Fill());
    painter_.drawRect(QRectF(PlaceOf(x1, y1), PlaceOf(x2, y2)).normalized());
}

void VectorCanvas::FilledBox(float x1, float y1, float x2, float y2, Colour colour) {
    DrawLineSoFar();
    painter_.fillRect(QRectF(PlaceOf(x1, y1), PlaceOf(x2, y2)).normalized(), ColourOf(colour));
}

void VectorCanvas::Circle(float x, float y, float radius, Colour colour) {
    DrawLineSoFar();
    const double r = std::min(std::abs(radius * Across().scale), kFarthest);
    painter_.setPen(PenOf(colour));
    painter_.setBrush(Fill());
    painter_.drawEllipse(PlaceOf(x, y), r, r);
}

void VectorCanvas::Polygon(std::span<const PixelPoint> corners) {
    DrawLineSoFar();
    QPolygonF points;
    for (const auto& corner : corners)
        points.append({static_cast<double>(corner.x), static_cast<double>(corner.y)});
    painter_.setPen(PenOf(CurrentColours().fore));
    painter_.setBrush(Fill());
    painter_.drawPolygon(points);
}

void VectorCanvas::Print(std::string_view text) {
    DrawLineSoFar();
    PrintAt(current_, text, painter_);
}

}  // namespace halvern
