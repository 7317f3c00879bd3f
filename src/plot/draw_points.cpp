#include <cstdint>
#include <cstdlib>

#include "plot/plot_drawing.h"
#include "plot/progress.h"
#include "store/analysis_store.h"
#include "store/single.h"

namespace halvern {

namespace {

constexpr int kPenUpCommand = 58;
constexpr std::int32_t kColoursOfPoints = 10;

constexpr Colour kPickLine = 0x000080, kLevelLine = 0xFF0000;
constexpr float kLineFrom = 2.5F, kLineTo = 97.5F;

/// The progress bar of the drawing: it moves about ten times, and costs the other points one comparison.
class Progress {
  public:
    explicit Progress(std::int32_t count) : step_(ToInteger32(count / 10.0 + 1.0)), next_(step_) {}

    void Reached(std::int32_t i) {
        if (i < next_)
            return;
        tenths_ += 10;
        next_ += step_;
        CmpltFrmForm().ProgressBar1.SetValue(tenths_);
        CmpltFrmForm().Refresh();
    }

  private:
    std::int32_t step_;
    std::int32_t next_;
    int tenths_ = 0;
};

/// Draws the points of one picture one after the other.
///
/// The clipping of lines is rough on purpose: beyond top and bottom a line runs along the edge, at the right it ends with
/// its last point inside, and to the left it goes out into the margin once the pen is down.
class PointPen {
  public:
    PointPen(const PlotDrawing& drawing, float markerRadius)
        : drawing_(drawing), canvas_(drawing.canvas), plot_(drawing.plot), markerRadius_(markerRadius) {}

    void Marker(float x, float y, std::int32_t code) {
        const bool inside = plot_.XAxisMin < x && x < plot_.XAxisMax && plot_.YAxisMin < y && y < plot_.YAxisMax;
        if (!inside)
            return;
        const Colour colour = Store().PlotColor(code % kColoursOfPoints);
        canvas_.SetFillColour(colour);
        canvas_.SetForeColour(colour);
        canvas_.Circle(drawing_.PageX(x), drawing_.PageY(y), markerRadius_, colour);
    }

    void LinePoint(float x, float y, std::int32_t code) {
        const std::int32_t a = std::abs(code);
        if ((a & 63) == kPenUpCommand)
            PenUp_ = true;
        if (!PenUp_) {
            if (x <= plot_.XAxisMax)
                canvas_.LineTo(drawing_.PageX(x), ClampedY(y), Store().PlotColor((a / 64) % kColoursOfPoints));
        } else if (drawing_.OnXAxis(x)) {
            PenUp_ = false;
            canvas_.MoveTo(drawing_.PageX(x), ClampedY(y));
        }
    }

  private:
    float ClampedY(float y) const {
        if (y < plot_.YAxisMin)
            return 0.0F;
        return y > plot_.YAxisMax ? kBox : drawing_.PageY(y);
    }

    const PlotDrawing& drawing_;
    Canvas& canvas_;
    const PlotWindow& plot_;
    float markerRadius_;
    bool PenUp_ = false;
};

}  // namespace

void DrawPoints(const PlotDrawing& drawing, float markerRadius) {
    const auto& S = Store();
    const bool symbols = !S.OmitSymbols;
    const bool lines = !S.OmitLines;
    Progress progress(S.PlotCount);
    PointPen pen(drawing, markerRadius);
    for (std::int32_t i = 1; i <= S.PlotCount; ++i) {
        progress.Reached(i);
        const std::int32_t c = S.PlotSym(i);
        if (c > 0 && symbols)
            pen.Marker(S.PlotX(i), S.PlotY(i), c);
        else if (c < 0 && lines)
            pen.LinePoint(S.PlotX(i), S.PlotY(i), c);
    }
}

void DrawPickLines(const PlotDrawing& drawing) {
    const auto& S = Store();
    const auto upright = [&](float value, float from, float to) {
        if (drawing.OnXAxis(value))
            drawing.canvas.Line(drawing.PageX(value), from, drawing.PageX(value), to, kPickLine);
    };
    if (S.PickDataLimits) {
        upright(S.DataLimitMin, kLineFrom, kLineTo);
        upright(S.DataLimitMax, kLineTo, kLineFrom);
    }
    if (S.PickMeniscus)
        upright(S.Meniscus, kLineFrom, kLineTo);
    if (S.PickZeroLevel && drawing.OnYAxis(S.Meniscus)) {
        const float level = drawing.PageY(S.Meniscus);
        drawing.canvas.Line(kLineFrom, level, kLineTo, level, kLevelLine);
    }
}

}  // namespace halvern
