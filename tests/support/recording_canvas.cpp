#include "support/recording_canvas.h"

#include <algorithm>
#include <iterator>

namespace halvern::test {

std::vector<Mark> RecordingCanvas::Of(Drew what) const {
    std::vector<Mark> found;
    std::copy_if(marks.begin(), marks.end(), std::back_inserter(found), [=](const Mark& m) { return m.what == what; });
    return found;
}

std::vector<Mark> RecordingCanvas::Texts(std::string_view text) const {
    std::vector<Mark> found;
    std::copy_if(marks.begin(), marks.end(), std::back_inserter(found),
                 [=](const Mark& m) { return m.what == Drew::kText && m.text == text; });
    return found;
}

Mark& RecordingCanvas::Put(Drew what, Colour colour) {
    Mark mark{what};
    mark.colour = colour;
    mark.width = drawWidth_;
    mark.mode = drawMode_;
    mark.settings = CurrentColours();
    marks.push_back(mark);
    return marks.back();
}

void RecordingCanvas::Scale(float x1, float y1, float x2, float y2) {
    page[0] = x1;
    page[1] = y1;
    page[2] = x2;
    page[3] = y2;
    ++scales;
}

void RecordingCanvas::Cls() {
    marks.clear();
    Put(Drew::kCls, 0xFFFFFF);
    MoveTo(page[0], page[1]);
}

void RecordingCanvas::MoveTo(float x, float y) {
    currentX_ = x;
    currentY_ = y;
}

void RecordingCanvas::LineTo(float x, float y, Colour colour) {
    Mark& mark = Put(Drew::kLine, colour);
    mark.x1 = currentX_;
    mark.y1 = currentY_;
    mark.x2 = x;
    mark.y2 = y;
    MoveTo(x, y);
}

void RecordingCanvas::Box(float x1, float y1, float x2, float y2, Colour colour) {
    Mark& mark = Put(Drew::kBox, colour);
    mark.x1 = x1;
    mark.y1 = y1;
    mark.x2 = x2;
    mark.y2 = y2;
}

void RecordingCanvas::FilledBox(float x1, float y1, float x2, float y2, Colour colour) {
    Box(x1, y1, x2, y2, colour);
    marks.back().what = Drew::kFilledBox;
}

void RecordingCanvas::Circle(float x, float y, float radius, Colour colour) {
    Mark& mark = Put(Drew::kCircle, colour);
    mark.x1 = x;
    mark.y1 = y;
    mark.radius = radius;
}

void RecordingCanvas::Polygon(std::span<const PixelPoint> corners) {
    Put(Drew::kPolygon, CurrentColours().fore).corners.assign(corners.begin(), corners.end());
}

void RecordingCanvas::SetFont(int points, bool bold) {
    points_ = points;
    bold_ = bold;
    cell_ = 0;
}

void RecordingCanvas::SetRotatedFont(int cellPixels) {
    points_ = 0;
    bold_ = true;
    cell_ = cellPixels;
}

void RecordingCanvas::Print(std::string_view text) {
    Mark& mark = Put(Drew::kText, CurrentColours().fore);
    mark.x1 = currentX_;
    mark.y1 = currentY_;
    mark.text = text;
    mark.points = points_;
    mark.bold = bold_;
    mark.cell = cell_;
}

int RecordingCanvas::TextWidthPixels(std::string_view text) const { return static_cast<int>(text.size()) * cell_ / 2; }

float RecordingCanvas::TextWidth(std::string_view text) const {
    return kCharacter * static_cast<float>(text.size()) * static_cast<float>(points_);
}

float RecordingCanvas::TextHeight(std::string_view /*text*/) const { return -kLine * static_cast<float>(points_); }

}  // namespace halvern::test
