#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "plot/axis_scale.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr float kPageLeft = -25.0F, kPageTop = 120.0F, kPageRight = 110.0F, kPageBottom = -25.0F;
constexpr float kBox = 100.0F;

constexpr Colour kBlackInk = 0x000000, kWhite = 0xFFFFFF;
constexpr Colour kPickLine = 0x000080, kLevelLine = 0xFF0000;
constexpr float kLineFrom = 2.5F, kLineTo = 97.5F;

constexpr int kPenUpCommand = 58;

/// The fill style of a canvas as it was, given back at the end of the drawing.
class KeptFill {
  public:
    explicit KeptFill(Canvas& canvas) : canvas_(canvas), style_(canvas.CurrentFillStyle()) {}
    ~KeptFill() { canvas_.SetFillStyle(style_); }
    KeptFill(const KeptFill&) = delete;
    KeptFill& operator=(const KeptFill&) = delete;

  private:
    Canvas& canvas_;
    FillStyle style_;
};

}  // namespace

void PlotWindow::WorkOutAxes() {
    const Axis x = WorkOutXAxis();
    const Axis y = WorkOutYAxis();
    XAxisMin = x.Min;
    XAxisMax = x.Max;
    YAxisMin = y.Min;
    YAxisMax = y.Max;
    XScale = Single(Quotient(100.0, static_cast<double>(XAxisMax) - XAxisMin));
    YScale = Single(Quotient(100.0, static_cast<double>(YAxisMax) - YAxisMin));
}

void PlotWindow::Form_Paint() {
    if (IsMinimised())
        return;
    if (!Store().PlotReady) {
        MsgBox("There Are No Data To Plot Yet!\r\n       Load a Data File 1st.", kExclamation, "Load Data");
        return;
    }
    WorkOutAxes();
    Canvas& canvas = Surface();
    canvas.Scale(kPageLeft, kPageTop, kPageRight, kPageBottom);
    canvas.Cls();
    canvas.SetDrawWidth(2);
    canvas.FilledBox(0.0F, 0.0F, kBox, kBox, kWhite);
    canvas.Box(0.0F, 0.0F, kBox, kBox, kBlackInk);
    canvas.SetDrawWidth(1);
    {
        const KeptFill kept(canvas);
        if (Store().FilledSymbols)
            canvas.SetFillStyle(FillStyle::kSolid);
        DrawPoints(canvas);
        DrawPickLines(canvas);
    }
    PrintTitles(canvas);
}

float PlotWindow::PageX(float x) const { return Single((static_cast<double>(x) - XAxisMin) * XScale); }

float PlotWindow::PageY(float y) const { return Single((static_cast<double>(y) - YAxisMin) * YScale); }

void PlotWindow::DrawMarker(Canvas& canvas, float x, float y, std::int32_t code) const {
    const bool inside = XAxisMin < x && x < XAxisMax && YAxisMin < y && y < YAxisMax;
    if (!inside)
        return;
    const Colour colour = Store().PlotColor(code % 10);
    canvas.SetFillColour(colour);
    canvas.SetForeColour(colour);
    canvas.Circle(PageX(x), PageY(y), Single(0.5 * SymbolScale_), colour);
}

/// The clipping is rough on purpose: beyond top and bottom a line runs along the edge, at the right it ends with its last
/// point inside, and to the left it goes out into the margin once the pen is down.
void PlotWindow::DrawLinePoint(Canvas& canvas, float x, float y, std::int32_t code, bool& PenUp) const {
    const std::int32_t a = std::abs(code);
    const float clampedY = y < YAxisMin ? 0.0F : y > YAxisMax ? kBox : PageY(y);
    const bool lift = (a & 63) == kPenUpCommand;
    if (lift)
        PenUp = true;
    if (PenUp) {
        if (XAxisMin <= x && x <= XAxisMax) {
            PenUp = false;
            canvas.MoveTo(PageX(x), clampedY);
        }
        return;
    }
    if (x <= XAxisMax)
        canvas.LineTo(PageX(x), clampedY, Store().PlotColor((a / 64) % 10));
}

void PlotWindow::DrawPoints(Canvas& canvas) const {
    const auto& S = Store();
    bool PenUp = false;
    for (std::int32_t i = 1; i <= S.PlotCount; ++i) {
        const std::int32_t c = S.PlotSym(i);
        if (c > 0 && !S.OmitSymbols)
            DrawMarker(canvas, S.PlotX(i), S.PlotY(i), c);
        else if (c < 0 && !S.OmitLines)
            DrawLinePoint(canvas, S.PlotX(i), S.PlotY(i), c, PenUp);
    }
}

void PlotWindow::DrawPickLines(Canvas& canvas) const {
    const auto& S = Store();
    const auto onXAxis = [&](float value) { return XAxisMin <= value && value <= XAxisMax; };
    if (S.PickDataLimits) {
        if (onXAxis(S.DataLimitMin))
            canvas.Line(PageX(S.DataLimitMin), kLineFrom, PageX(S.DataLimitMin), kLineTo, kPickLine);
        if (onXAxis(S.DataLimitMax))
            canvas.Line(PageX(S.DataLimitMax), kLineTo, PageX(S.DataLimitMax), kLineFrom, kPickLine);
    }
    if (S.PickMeniscus && onXAxis(S.Meniscus))
        canvas.Line(PageX(S.Meniscus), kLineFrom, PageX(S.Meniscus), kLineTo, kPickLine);
    if (S.PickZeroLevel && YAxisMin <= S.Meniscus && S.Meniscus <= YAxisMax)
        canvas.Line(kLineFrom, PageY(S.Meniscus), kLineTo, PageY(S.Meniscus), kLevelLine);
}

/// The lines above the box and the x title, centred.
void PlotWindow::PrintTitles(Canvas& canvas) const {
    const auto& S = Store();
    constexpr int kPoints = 10;
    canvas.SetFont(kPoints, true);
    canvas.SetForeColour(kBlackInk);
    const auto centred = [&](std::string_view text, float top) {
        canvas.MoveTo(50.0F - canvas.TextWidth(text) / 2.0F, top);
        canvas.Print(text);
    };
    centred(S.PlotXTitle, Single(-12.5 - canvas.TextHeight("X")));
    centred(S.PlotHelp1, 118.0F);
    centred(S.PlotHelp2, 110.0F);
}

}  // namespace halvern
