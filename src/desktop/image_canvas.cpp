#include "desktop/image_canvas.h"

#include <QFontMetricsF>
#include <QPen>
#include <QRegion>

#include <algorithm>
#include <cmath>

#include "desktop/shown_text.h"
#include "ui/control.h"

namespace halvern {

namespace {

constexpr double kTwipsPerPoint = 20.0;

// Places further off can't be told apart on any screen, and the toolkit's integers stay in their range.
constexpr double kFarthestPixel = 1E6;

QColor ColourOf(Colour colour) { return QColor::fromRgb(static_cast<QRgb>(colour)); }

int NearestPixel(double place) {
    if (!(place > -kFarthestPixel))
        return static_cast<int>(-kFarthestPixel);
    return static_cast<int>(std::lround(std::min(place, kFarthestPixel)));
}

/// Both corners are part of the box, whichever they are.
QRect RectOf(QPoint corner, QPoint opposite) {
    return {QPoint(std::min(corner.x(), opposite.x()), std::min(corner.y(), opposite.y())),
            QPoint(std::max(corner.x(), opposite.x()), std::max(corner.y(), opposite.y()))};
}

}  // namespace

ImageCanvas::ImageCanvas() : image_(1, 1, QImage::Format_RGB32) {
    image_.fill(Qt::white);
    font_.setFamilies({QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif")});
    font_.setStyleHint(QFont::Serif);
    SetFont(points_, false);
}

bool ImageCanvas::SetSize(QSize size, double ratio) {
    const QSize pixels = (QSizeF(size) * ratio).toSize().expandedTo({1, 1});
    if (pixels == image_.size() && ratio == ratio_)
        return false;
    LetPainterGo();
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).drawImage(0, 0, image_);
    image_ = image;
    ratio_ = ratio;
    SetFont(points_, font_.bold());
    return true;
}

const QImage& ImageCanvas::Image() {
    LetPainterGo();
    touched_ = false;
    return image_;
}

ImageCanvas::PagePoint ImageCanvas::PageAt(QPointF place) const {
    return {static_cast<float>(x1_ + place.x() * ratio_ / AcrossPerUnit()),
            static_cast<float>(y1_ + place.y() * ratio_ / DownPerUnit())};
}

void ImageCanvas::LetPainterGo() {
    if (painter_.isActive())
        painter_.end();
}

QPainter& ImageCanvas::Painter() {
    if (!touched_) {
        touched_ = true;
        if (Touched)
            Touched();
    }
    if (!painter_.isActive())
        painter_.begin(&image_);
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    return painter_;
}

QPainter& ImageCanvas::PainterForShapes() {
    QPainter& painter = Painter();
    if (drawMode_ == DrawMode::kExclusiveOr)
        painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    return painter;
}

int ImageCanvas::PenWidth() const { return std::max(1, NearestPixel(drawWidth_ * ratio_)); }

QPointF ImageCanvas::PlaceOf(float x, float y) const {
    return {(static_cast<double>(x) - x1_) * AcrossPerUnit(), (static_cast<double>(y) - y1_) * DownPerUnit()};
}

QPoint ImageCanvas::PixelOf(float x, float y) const {
    const QPointF place = PlaceOf(x, y);
    return {NearestPixel(place.x()), NearestPixel(place.y())};
}

void ImageCanvas::Scale(float x1, float y1, float x2, float y2) {
    x1_ = x1;
    y1_ = y1;
    x2_ = x2;
    y2_ = y2;
}

void ImageCanvas::Cls() {
    Painter().fillRect(image_.rect(), Qt::white);
    MoveTo(x1_, y1_);
}

void ImageCanvas::MoveTo(float x, float y) {
    currentX_ = x;
    currentY_ = y;
}

void ImageCanvas::LineTo(float x, float y, Colour colour) {
    QPainter& painter = PainterForShapes();
    const int width = PenWidth();
    painter.setPen(QPen(ColourOf(colour), width, Qt::SolidLine, width == 1 ? Qt::SquareCap : Qt::RoundCap));
    painter.drawLine(PixelOf(currentX_, currentY_), PixelOf(x, y));
    MoveTo(x, y);
}

// No pixel of the outline is drawn twice: an exclusive-or would leave it out.
void ImageCanvas::Box(float x1, float y1, float x2, float y2, Colour colour) {
    QPainter& painter = PainterForShapes();
    const QRect middle = RectOf(PixelOf(x1, y1), PixelOf(x2, y2));
    const int before = PenWidth() / 2;
    const int behind = PenWidth() - 1 - before;
    const QRect outer = middle.adjusted(-before, -before, behind, behind);
    const QRect inner = middle.adjusted(behind + 1, behind + 1, -before - 1, -before - 1);
    const QRegion outline = inner.isValid() ? QRegion(outer) - QRegion(inner) : QRegion(outer);
    for (const QRect& part : outline)
        painter.fillRect(part, ColourOf(colour));
}

void ImageCanvas::FilledBox(float x1, float y1, float x2, float y2, Colour colour) {
    PainterForShapes().fillRect(RectOf(PixelOf(x1, y1), PixelOf(x2, y2)), ColourOf(colour));
}

void ImageCanvas::Circle(float x, float y, float radius, Colour colour) {
    QPainter& painter = PainterForShapes();
    const QPoint centre = PixelOf(x, y);
    const int r = NearestPixel(std::abs(radius * AcrossPerUnit()));
    painter.setPen(QPen(ColourOf(colour), PenWidth()));
    painter.setBrush(fillStyle_ == FillStyle::kSolid ? QBrush(ColourOf(fillColour_)) : QBrush(Qt::NoBrush));
    if (r == 0)
        painter.drawPoint(centre);
    else
        painter.drawEllipse(centre, r, r);
}

/// A point is a seventy-second of an inch, and twips know how many pixels that are.
void ImageCanvas::SetFont(int points, bool bold) {
    points_ = points;
    font_.setBold(bold);
    font_.setPixelSize(std::max(1, NearestPixel(points * kTwipsPerPoint / kTwipsPerPixel * ratio_)));
}

void ImageCanvas::Print(std::string_view text) {
    QPainter& painter = Painter();
    painter.setFont(font_);
    painter.setPen(ColourOf(foreColour_));
    const QPointF topLeft = PlaceOf(currentX_, currentY_);
    painter.drawText(topLeft + QPointF(0.0, QFontMetricsF(font_).ascent()), ShownLine(text));
}

float ImageCanvas::TextWidth(std::string_view text) const {
    return static_cast<float>(QFontMetricsF(font_).horizontalAdvance(ShownLine(text)) / std::abs(AcrossPerUnit()));
}

float ImageCanvas::TextHeight(std::string_view /*text*/) const {
    return static_cast<float>(QFontMetricsF(font_).height() / DownPerUnit());
}

}  // namespace halvern
