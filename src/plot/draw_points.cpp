#include <array>
#include <cstddef>
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

/// One axis as the points need it, at hand for each of two million.
struct AxisView {
    AxisView(float axisMin, float axisMax, float scale) : min(axisMin), max(axisMax), origin(axisMin), perUnit(scale) {}

    float PageAt(float value) const { return Single((value - origin) * perUnit); }
    bool HasInside(float value) const { return min < value && value < max; }
    bool Has(float value) const { return min <= value && value <= max; }

    float min, max;
    double origin, perUnit;
};

/// Draws the points of one picture one after the other.
///
/// The clipping of lines is rough on purpose: beyond top and bottom a line runs along the edge, at the right it ends with
/// its last point inside, and to the left it goes out into the margin once the pen is down.
class PointPen {
  public:
    PointPen(const PlotDrawing& drawing, float markerRadius)
        : canvas_(drawing.canvas),
          x_(drawing.plot.XAxisMin, drawing.plot.XAxisMax, drawing.plot.XScale),
          y_(drawing.plot.YAxisMin, drawing.plot.YAxisMax, drawing.plot.YScale),
          markerRadius_(markerRadius) {
        for (std::int32_t i = 0; i < kColoursOfPoints; ++i)
            colours_[static_cast<std::size_t>(i)] = Store().PlotColor(i);
    }

    void Marker(float x, float y, std::int32_t code) {
        if (!x_.HasInside(x) || !y_.HasInside(y))
            return;
        const Colour colour = ColourOf(code);
        canvas_.SetFillColour(colour);
        canvas_.SetForeColour(colour);
        canvas_.Circle(x_.PageAt(x), y_.PageAt(y), markerRadius_, colour);
    }

    void LinePoint(float x, float y, std::int32_t code) {
        const std::int32_t a = std::abs(code);
        if ((a & 63) == kPenUpCommand)
            PenUp_ = true;
        if (!PenUp_) {
            if (x <= x_.max)
                canvas_.LineTo(x_.PageAt(x), ClampedY(y), ColourOf(a / 64));
        } else if (x_.Has(x)) {
            PenUp_ = false;
            canvas_.MoveTo(x_.PageAt(x), ClampedY(y));
        }
    }

  private:
    Colour ColourOf(std::int32_t number) const { return colours_[static_cast<std::size_t>(number % kColoursOfPoints)]; }

    float ClampedY(float y) const {
        if (y < y_.min)
            return 0.0F;
        return y > y_.max ? kBox : y_.PageAt(y);
    }

    Canvas& canvas_;
    AxisView x_, y_;
    std::array<Colour, kColoursOfPoints> colours_{};
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
    const auto count = static_cast<std::size_t>(S.PlotCount);
    const auto X = S.PlotX.Elements().first(count), Y = S.PlotY.Elements().first(count);
    const auto Sym = S.PlotSym.Elements().first(count);
    for (std::size_t i = 0; i < count; ++i) {
        progress.Reached(static_cast<std::int32_t>(i) + 1);
        const std::int32_t c = Sym[i];
        if (c > 0 && symbols)
            pen.Marker(X[i], Y[i], c);
        else if (c < 0 && lines)
            pen.LinePoint(X[i], Y[i], c);
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
