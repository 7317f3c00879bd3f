#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <span>

#include "plot/plot_drawing.h"
#include "plot/progress.h"
#include "store/analysis_store.h"
#include "store/single.h"
#include "ui/wide_loops.h"

namespace halvern {

namespace {

constexpr int kPenUpCommand = 58;
constexpr std::int32_t kColoursOfPoints = 10;

constexpr Colour kPickLine = 0x000080, kLevelLine = 0xFF0000;
constexpr float kLineFrom = 2.5F, kLineTo = 97.5F;

/// The progress bar of the drawing: it moves about ten times.
class Progress {
  public:
    explicit Progress(std::int32_t count) : step_(ToInteger32(count / 10.0 + 1.0)), next_(step_) {}

    /// Points up to number i are being drawn.
    void Reached(std::int32_t i) {
        for (; next_ <= i; next_ += step_) {
            tenths_ += 10;
            CmpltFrmForm().ProgressBar1.SetValue(tenths_);
            CmpltFrmForm().Refresh();
        }
    }

  private:
    std::int32_t step_;
    std::int32_t next_;
    int tenths_ = 0;
};

/// Points are drawn in blocks of this size at most, all of one code.
constexpr std::size_t kBlock = 256;

using Values = std::span<const float>;

HALVERN_WIDE_LOOPS void PutOnPage(const float* values, std::size_t count, double origin, double perUnit, float* page) {
    for (std::size_t i = 0; i < count; ++i)
        page[i] = static_cast<float>((values[i] - origin) * perUnit);
}

/// Beyond either end of the axis a position is that of the box's edge.
HALVERN_WIDE_LOOPS void Clamp(const float* values, std::size_t count, float min, float max, float* page) {
    for (std::size_t i = 0; i < count; ++i) {
        const float upTo = values[i] > max ? kBox : page[i];
        page[i] = values[i] < min ? 0.0F : upTo;
    }
}

HALVERN_WIDE_LOOPS std::int32_t CountInside(const float* values, std::size_t count, float min, float max) {
    std::int32_t inside = 0;
    for (std::size_t i = 0; i < count; ++i)
        inside += static_cast<int>(min < values[i]) & static_cast<int>(values[i] < max);
    return inside;
}

HALVERN_WIDE_LOOPS std::int32_t CountUpTo(const float* values, std::size_t count, float max) {
    std::int32_t upTo = 0;
    for (std::size_t i = 0; i < count; ++i)
        upTo += static_cast<int>(values[i] <= max);
    return upTo;
}

HALVERN_WIDE_LOOPS bool AreFinite(const float* values, std::size_t count) {
    int isAnyNot = 0;
    for (std::size_t i = 0; i < count; ++i)
        isAnyNot |= static_cast<int>(!(std::fabs(values[i]) <= std::numeric_limits<float>::max()));
    return isAnyNot == 0;
}

/// One axis as the points need it, at hand for each of two million.
struct AxisView {
    AxisView(float axisMin, float axisMax, float scale) : min(axisMin), max(axisMax), origin(axisMin), perUnit(scale) {}

    float PageAt(float value) const { return static_cast<float>((value - origin) * perUnit); }
    void PageAt(Values values, float* page) const { PutOnPage(values.data(), values.size(), origin, perUnit, page); }
    float ClampedPageAt(float value) const {
        float page = PageAt(value);
        Clamp(&value, 1, min, max, &page);
        return page;
    }
    void ClampedPageAt(Values values, float* page) const {
        PageAt(values, page);
        Clamp(values.data(), values.size(), min, max, page);
    }

    bool HasInside(float value) const { return min < value && value < max; }
    std::size_t Inside(Values values) const {
        return static_cast<std::size_t>(CountInside(values.data(), values.size(), min, max));
    }
    bool Has(float value) const { return min <= value && value <= max; }
    std::size_t UpToEnd(Values values) const {
        return static_cast<std::size_t>(CountUpTo(values.data(), values.size(), max));
    }

    float min, max;
    double origin, perUnit;
};

/// Page positions of a block of points.
class PageBlock {
  public:
    float* X() { return x_.data(); }
    float* Y() { return y_.data(); }
    Canvas::Positions First(std::size_t count) const {
        return {std::span(x_).first(count), std::span(y_).first(count)};
    }

    /// Keeps of the first positions those that a condition on their index holds for. Returns how many they are.
    template <class IsKept>
    std::size_t Keep(std::size_t count, IsKept isKept) {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < count; ++i) {
            x_[kept] = x_[i];
            y_[kept] = y_[i];
            kept += isKept(i) ? 1U : 0U;
        }
        return kept;
    }

    /// A position too far off for a single ends the program.
    void Check(std::size_t count) const {
        if (!AreFinite(x_.data(), count) || !AreFinite(y_.data(), count))
            Fail(FailureCode::kOverflow);
    }

  private:
    std::array<float, kBlock> x_, y_;
};

/// Draws the points of one picture, block after block.
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

    void Markers(Values X, Values Y, std::int32_t code) {
        std::size_t count = X.size();
        const std::size_t insideX = x_.Inside(X);
        if (insideX == 0)
            return;
        x_.PageAt(X, page_.X());
        y_.PageAt(Y, page_.Y());
        if (insideX != count || y_.Inside(Y) != count)
            count = page_.Keep(
                count, [&](std::size_t i) { return unsigned{x_.HasInside(X[i])} & unsigned{y_.HasInside(Y[i])}; });
        if (count > 0)
            canvas_.Circles(page_.First(count), markerRadius_, ColourOf(code));
    }

    void LinePoints(Values X, Values Y, std::int32_t code) {
        const std::int32_t a = std::abs(code);
        std::size_t i = 0;
        while (i < X.size() && (PenUp_ || (a & 63) == kPenUpCommand)) {
            PutPenDown(X[i], Y[i]);
            ++i;
        }
        if (i < X.size())
            DrawLines(X.subspan(i), Y.subspan(i), ColourOf(a / 64));
    }

  private:
    Colour ColourOf(std::int32_t number) const { return colours_[static_cast<std::size_t>(number % kColoursOfPoints)]; }

    /// The pen comes down at the first point that the x axis has.
    void PutPenDown(float x, float y) {
        PenUp_ = !x_.Has(x);
        if (!PenUp_)
            canvas_.MoveTo(x_.PageAt(x), y_.ClampedPageAt(y));
    }

    void DrawLines(Values X, Values Y, Colour colour) {
        std::size_t count = X.size();
        const std::size_t upToEnd = x_.UpToEnd(X);
        if (upToEnd == 0)
            return;
        x_.PageAt(X, page_.X());
        y_.ClampedPageAt(Y, page_.Y());
        if (upToEnd != count)
            count = page_.Keep(count, [&](std::size_t i) { return X[i] <= x_.max; });
        page_.Check(count);
        if (count > 0)
            canvas_.LinesTo(page_.First(count), colour);
    }

    Canvas& canvas_;
    AxisView x_, y_;
    std::array<Colour, kColoursOfPoints> colours_{};
    float markerRadius_;
    bool PenUp_ = false;
    PageBlock page_;
};

/// How many points from the first on have its code, kBlock at most.
std::size_t SameCode(std::span<const std::int16_t> codes) {
    const auto block = codes.first(std::min(codes.size(), kBlock));
    if (std::equal(block.begin() + 1, block.end(), block.begin()))
        return block.size();
    const auto other = std::find_if(block.begin(), block.end(), [&](std::int16_t code) { return code != block[0]; });
    return static_cast<std::size_t>(other - block.begin());
}

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
    for (std::size_t i = 0, block = 0; i < count; i += block) {
        block = SameCode(Sym.subspan(i));
        progress.Reached(static_cast<std::int32_t>(i + block));
        const std::int32_t c = Sym[i];
        if (c > 0 && symbols)
            pen.Markers(X.subspan(i, block), Y.subspan(i, block), c);
        else if (c < 0 && lines)
            pen.LinePoints(X.subspan(i, block), Y.subspan(i, block), c);
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
