#include <cstdint>
#include <string_view>

#include "plot/plot_drawing.h"
#include "store/analysis_store.h"
#include "store/format.h"
#include "store/numeric.h"
#include "store/single.h"

namespace halvern {

namespace {

constexpr float kTick = 2.0F;

float TickAt(std::int32_t i, std::int16_t N) { return Single(100.0 / (N - 1.0) * i); }

/// Page position of label i of N along its axis; the product is one of 16 bits.
double LabelAt(std::int32_t i, std::int16_t N) { return ToInteger16(i * 100.0) / (N - 1.0); }

/// Data value at label i.
double ValueAt(std::int32_t i, const Axis& axis) { return i * static_cast<double>(axis.Step) + axis.Min; }

double Scaled(double value, const Axis& axis) { return Quotient(value, static_cast<double>(axis.Pow)); }

/// Three decimals whatever the step: with a fine one neighbours read alike. Product, sum and quotient are singles; so the
/// middle of an axis from -1.2 to 1.2 is 0, and not a little less.
std::string LabelText(std::int32_t i, const Axis& axis) {
    static constexpr Pattern kLabel{"0.000"};
    const float product = Single(i * static_cast<double>(axis.Step));
    const float value = Single(static_cast<double>(product) + axis.Min);
    return std::string(Format(Single(Scaled(value, axis)), kLabel));
}

void PrintAt(Canvas& canvas, double left, double top, std::string_view text) {
    canvas.MoveTo(Single(left), Single(top));
    canvas.Print(text);
}

}  // namespace

void DrawTicks(const PlotDrawing& drawing) {
    Canvas& canvas = drawing.canvas;
    const bool sStarScale = Store().PlotLnAxis;
    const auto ticks = [](std::int16_t N, auto&& draw) {
        for (std::int32_t i = 1; i <= N - 2; ++i)
            draw(TickAt(i, N));
    };
    ticks(drawing.x.Labels, [&](float p) { canvas.Line(p, 0.0F, p, kTick, kBlackInk); });
    if (sStarScale)
        ticks(drawing.x.Labels, [&](float p) { canvas.Line(p, kBox, p, kBox - kTick, kSStarInk); });
    ticks(drawing.y.Labels, [&](float p) { canvas.Line(0.0F, p, kTick, p, kBlackInk); });
}

void PrintXLabels(const PlotDrawing& drawing) {
    Canvas& canvas = drawing.canvas;
    for (std::int32_t i = 0; i < drawing.x.Labels; ++i) {
        const std::string T = LabelText(i, drawing.x);
        PrintAt(canvas, LabelAt(i, drawing.x.Labels) - canvas.TextWidth(T) / 2.0, -1.0, T);
    }
}

void PrintYLabels(const PlotDrawing& drawing) {
    Canvas& canvas = drawing.canvas;
    const double h = canvas.TextHeight("Y");
    for (std::int32_t j = 0; j < drawing.y.Labels; ++j) {
        const std::string T = LabelText(j, drawing.y);
        const double left = -static_cast<double>(canvas.TextWidth(T)) - canvas.TextWidth(" ");
        PrintAt(canvas, left, LabelAt(j, drawing.y.Labels) - (h + h) / 3.0, T);
    }
}

// Kept: the label's width is that of a text whose power of ten is taken out inside the exponential, the text printed has
// it taken out behind. With a power other than 1 the labels stand a little off their ticks.
void PrintSStarScale(const PlotDrawing& drawing) {
    Canvas& canvas = drawing.canvas;
    static constexpr Pattern kSStar{"0.00E+00"};
    const Axis& x = drawing.x;
    const Colour kept = canvas.CurrentColours().fore;
    canvas.SetForeColour(kSStarInk);
    for (std::int32_t i = 1; i <= x.Labels - 2; ++i) {
        const double LnS = ValueAt(i, x);
        const double W = canvas.TextWidth(Format(Exp(Scaled(LnS, x)), kSStar));
        const double sStar = Quotient(Exp(LnS), static_cast<double>(x.Pow));
        PrintAt(canvas, LabelAt(i, x.Labels) - W / 2.0, 97.0, Format(sStar, kSStar));
    }
    PrintCentred(canvas, "(s*)", Single(100.0 - canvas.TextHeight("()")));
    canvas.SetForeColour(kept);
}

}  // namespace halvern
