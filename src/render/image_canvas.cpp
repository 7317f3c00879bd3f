#include "render/image_canvas.h"

#include <QPen>

#include <array>
#include <cmath>
#include <cstdlib>

namespace halvern {

ImageCanvas::ImageCanvas() : PaintedCanvas({1, 1}), image_(1, 1, QImage::Format_RGB32) {
    image_.fill(Qt::white);
    WorkOutMapping();
}

bool ImageCanvas::SetSize(QSize size, double ratio) {
    const QSize pixels = (QSizeF(size) * ratio).toSize().expandedTo({1, 1});
    if (pixels == image_.size() && ratio == Ratio())
        return false;
    LetPictureGo();
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).drawImage(0, 0, image_);
    image_ = image;
    SetSurface(pixels, ratio);
    PenChanged();
    WorkOutMapping();
    return true;
}

const QImage& ImageCanvas::Image() {
    LetPictureGo();
    touched_ = false;
    return image_;
}

ImageCanvas::PagePoint ImageCanvas::PageAt(QPointF place) const {
    return {static_cast<float>(Across().from + place.x() * Ratio() / Across().scale),
            static_cast<float>(Down().from + place.y() * Ratio() / Down().scale)};
}

void ImageCanvas::LetPictureGo() {
    if (painter_.isActive())
        painter_.end();
    pixels_ = {};
    drawn_ = {};
}

void ImageCanvas::Touch() {
    if (touched_)
        return;
    touched_ = true;
    if (Touched)
        Touched();
}

QPainter& ImageCanvas::Painter() {
    if (!painter_.isActive()) {
        LetPictureGo();
        Touch();
        painter_.begin(&image_);
    }
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    return painter_;
}

QPainter& ImageCanvas::PainterForShapes() {
    QPainter& painter = Painter();
    if (drawMode_ == DrawMode::kExclusiveOr)
        painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    return painter;
}

void ImageCanvas::TakePixels() {
    LetPictureGo();
    Touch();
    pixels_ = {reinterpret_cast<std::uint32_t*>(image_.bits()),
               image_.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(std::uint32_t)), image_.width(),
               image_.height()};
}

void ImageCanvas::WorkOutMapping() {
    const auto mapping = [](const PageSide& side) { return Mapping{side.scale, -side.from * side.scale}; };
    toPixelX_ = mapping(Across());
    toPixelY_ = mapping(Down());
    current_ = PixelOf(currentX_, currentY_);
    stampFor_ = -1.0F;
    drawn_ = {};
}

Ink ImageCanvas::InkOf(Colour colour) const {
    if (drawMode_ == DrawMode::kExclusiveOr)
        return {static_cast<std::uint32_t>(colour), true};
    return {PixelBits(colour), false};
}

void ImageCanvas::Scale(float x1, float y1, float x2, float y2) {
    PaintedCanvas::Scale(x1, y1, x2, y2);
    WorkOutMapping();
}

void ImageCanvas::PenChanged() {
    thinCopy_ = PenWidth() == 1 && drawMode_ == DrawMode::kCopy;
    stampFor_ = -1.0F;
    drawn_ = {};
}

void ImageCanvas::SetDrawWidth(int pixels) {
    PaintedCanvas::SetDrawWidth(pixels);
    PenChanged();
}

void ImageCanvas::SetDrawMode(DrawMode mode) {
    drawMode_ = mode;
    PenChanged();
}

void ImageCanvas::Cls() {
    Painter().fillRect(image_.rect(), Qt::white);
    MoveTo(Across().from, Down().from);
}

void ImageCanvas::MoveTo(float x, float y) {
    currentX_ = x;
    currentY_ = y;
    current_ = PixelOf(x, y);
    drawn_.lineEnd = kNowhere;
}

void ImageCanvas::LineTo(float x, float y, Colour colour) {
    const PixelPoint from = current_;
    const PixelPoint to = PixelOf(x, y);
    currentX_ = x;
    currentY_ = y;
    current_ = to;
    const bool goesOn = drawn_.lineEnd.x != kNowhere.x && drawn_.colour == colour;
    if (goesOn && to.x == from.x && to.y == from.y)
        return;
    if (goesOn && AreNeighbours(from, to) && pixels_.Has(to)) {
        pixels_.Row(to.y)[to.x] = PixelBits(colour);
        drawn_.lineEnd = to;
        return;
    }
    DrawLine(from, to, colour);
}

void ImageCanvas::DrawLine(PixelPoint from, PixelPoint to, Colour colour) {
    if (!thinCopy_)
        return DrawWideLine(from, to, colour);
    DrawThinLine(Pixels(), from, to, {PixelBits(colour), false});
    drawn_.marker = kNowhere;
    drawn_.lineEnd = to;
    drawn_.colour = colour;
}

/// Along rows and columns a pen is a square. Elsewhere its ends are round.
void ImageCanvas::DrawWideLine(PixelPoint from, PixelPoint to, Colour colour) {
    const int width = PenWidth();
    if (width == 1)
        return DrawThinLine(Pixels(), from, to, InkOf(colour));
    if (from.x == to.x || from.y == to.y) {
        const int before = width / 2;
        const int behind = width - 1 - before;
        return FillRect({std::min(from.x, to.x) - before, std::min(from.y, to.y) - before},
                        {std::max(from.x, to.x) + behind, std::max(from.y, to.y) + behind}, colour);
    }
    QPainter& painter = PainterForShapes();
    painter.setPen(QPen(ColourOf(colour), width, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPoint(from.x, from.y), QPoint(to.x, to.y));
}

/// Both corners are part of it; with the corners the wrong way round there is nothing to fill.
void ImageCanvas::FillRect(PixelPoint corner, PixelPoint opposite, Colour colour) {
    const Raster& pixels = Pixels();
    const std::int32_t last = std::min(opposite.y, pixels.height - 1);
    for (std::int32_t y = std::max(corner.y, 0); y <= last; ++y)
        FillSpan(pixels, corner.x, opposite.x, y, InkOf(colour));
    drawn_ = {};
}

// No pixel of the outline is drawn twice: an exclusive-or would leave it out.
void ImageCanvas::Box(float x1, float y1, float x2, float y2, Colour colour) {
    const PixelPoint a = PixelOf(x1, y1), b = PixelOf(x2, y2);
    const int before = PenWidth() / 2;
    const int behind = PenWidth() - 1 - before;
    const std::int32_t left = std::min(a.x, b.x) - before, right = std::max(a.x, b.x) + behind;
    const std::int32_t top = std::min(a.y, b.y) - before, bottom = std::max(a.y, b.y) + behind;
    const int width = PenWidth();
    const PixelPoint innerFirst{left + width, top + width}, innerLast{right - width, bottom - width};
    if (innerFirst.x > innerLast.x || innerFirst.y > innerLast.y)
        return FillRect({left, top}, {right, bottom}, colour);
    FillRect({left, top}, {right, innerFirst.y - 1}, colour);
    FillRect({left, innerFirst.y}, {innerFirst.x - 1, innerLast.y}, colour);
    FillRect({innerLast.x + 1, innerFirst.y}, {right, innerLast.y}, colour);
    FillRect({left, innerLast.y + 1}, {right, bottom}, colour);
    if (CurrentColours().fillStyle == FillStyle::kSolid)
        FillRect(innerFirst, innerLast, CurrentColours().fill);
}

void ImageCanvas::FilledBox(float x1, float y1, float x2, float y2, Colour colour) {
    const PixelPoint a = PixelOf(x1, y1), b = PixelOf(x2, y2);
    FillRect({std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}, colour);
}

void ImageCanvas::Circle(float x, float y, float radius, Colour colour) {
    const PixelPoint middle = PixelOf(x, y);
    const Colours& colours = CurrentColours();
    if (middle.x == drawn_.marker.x && middle.y == drawn_.marker.y && colour == drawn_.colour &&
        radius == drawn_.radius && colours.fill == drawn_.colours.fill && colours.fillStyle == drawn_.colours.fillStyle)
        return;
    DrawCircle(middle, radius, colour);
}

void ImageCanvas::DrawCircle(PixelPoint middle, float radius, Colour colour) {
    if (radius != stampFor_)
        WorkOutStamp(radius);
    if (stampRadius_ > kFarthestStampReach)
        return DrawLargeCircle(middle, stampRadius_, colour);
    const Colours& colours = CurrentColours();
    const bool copies = drawMode_ == DrawMode::kCopy;
    if (copies && colours.fillStyle == FillStyle::kSolid && colours.fill == colour)
        PutDisc(Pixels(), stamp_, middle, PixelBits(colour));
    else
        PutStamp(middle, colour);
    if (copies)
        drawn_ = {middle, kNowhere, colour, colours, radius};
}

void ImageCanvas::WorkOutStamp(float radius) {
    const double pixels = std::abs(radius * Across().scale);
    stampRadius_ = static_cast<std::int32_t>(std::lround(std::min(pixels, static_cast<double>(kFarthestPixel))));
    stampFor_ = radius;
    drawn_ = {};
    if (stampRadius_ <= kFarthestStampReach)
        stamp_ = MakeCircle(stampRadius_, PenWidth());
}

void ImageCanvas::PutStamp(PixelPoint middle, Colour colour) {
    const Raster& pixels = Pixels();
    if (CurrentColours().fillStyle == FillStyle::kSolid)
        PutSpans(pixels, stamp_.inside, middle, InkOf(CurrentColours().fill));
    PutSpans(pixels, stamp_.outline, middle, InkOf(colour));
}

void ImageCanvas::DrawLargeCircle(PixelPoint middle, std::int32_t radius, Colour colour) {
    QPainter& painter = PainterForShapes();
    painter.setPen(QPen(ColourOf(colour), PenWidth()));
    painter.setBrush(Fill());
    painter.drawEllipse(QPoint(middle.x, middle.y), radius, radius);
}

void ImageCanvas::Polygon(std::span<const PixelPoint> corners) {
    QPolygon points;
    for (const auto& corner : corners)
        points.append({std::clamp(corner.x, -kFarthestPixel, kFarthestPixel),
                       std::clamp(corner.y, -kFarthestPixel, kFarthestPixel)});
    QPainter& painter = PainterForShapes();
    painter.setPen(QPen(ColourOf(CurrentColours().fore), PenWidth()));
    painter.setBrush(Fill());
    painter.drawPolygon(points);
}

void ImageCanvas::Print(std::string_view text) {
    PrintAt({toPixelX_.Place(currentX_), toPixelY_.Place(currentY_)}, text, Painter());
}

}  // namespace halvern
