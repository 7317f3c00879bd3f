#include <algorithm>
#include <cstdint>

#include "plot/plot_drawing.h"
#include "plot/plot_window.h"
#include "plot/progress.h"
#include "store/analysis_store.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr double kTickLabelFactor = 0.0012;

/// Sizes for a window of this larger dimension, twips.
TextSizes SizesFor(std::int32_t D, float HelpFontFactor, float TitleFontFactor) {
    const auto twips = static_cast<double>(D);
    return {ToInteger16(Single(twips * HelpFontFactor)), ToInteger16(twips * kTickLabelFactor),
            ToInteger32(Single(twips * TitleFontFactor))};
}

void DrawBox(Canvas& canvas) {
    canvas.FilledBox(0.0F, 0.0F, kBox, kBox, kWhite);
    canvas.Box(0.0F, 0.0F, kBox, kBox, kBlackInk);
}

}  // namespace

void PlotWindow::Form_Paint() {
    const Place& window = Where();
    PlaceLabels(window.width);
    if (IsMinimised())
        return;
    ProgressWindow& progress = CmpltFrmForm();
    progress.ProgressBar1.SetValue(0);
    progress.Label3.SetCaption("Creating Plot");
    const TextSizes sizes = SizesFor(std::max(window.width, window.height), HelpFontFactor_, TitleFontFactor_);
    if (!Store().PlotReady) {
        MsgBox("There Are No Data To Plot Yet!\r\n       Load a Data File 1st.", kExclamation, "Load Data");
        return;
    }
    progress.Show();
    progress.Refresh();
    DrawPlot(Surface(), sizes);
    progress.ProgressBar1.SetValue(0);
    progress.Hide();
}

/// The read-out has the left half of the strip.
void PlotWindow::PlaceLabels(std::int32_t windowWidth) {
    const double width = windowWidth;
    Place readOut = XYLabel.Where();
    Place file = OutFileLbl.Where();
    readOut.width = ToInteger32(width / 2.0);
    file.width = ToInteger32(width * 0.95 / 2.0);
    file.left = ToInteger32(width / 2.0);
    XYLabel.SetPlace(readOut);
    OutFileLbl.SetPlace(file);
}

PlotDrawing PlotWindow::WorkOutAxes(Canvas& canvas, const TextSizes& sizes) {
    const Axis x = WorkOutXAxis();
    const Axis y = WorkOutYAxis();
    XAxisMin = x.Min;
    XAxisMax = x.Max;
    YAxisMin = y.Min;
    YAxisMax = y.Max;
    return {canvas, *this, x, y, sizes};
}

void PlotWindow::DrawPlot(Canvas& canvas, const TextSizes& sizes) {
    const PlotDrawing drawing = WorkOutAxes(canvas, sizes);
    canvas.Scale(kPageLeft, kPageTop, kPageRight, kPageBottom);
    canvas.Cls();
    canvas.SetDrawWidth(2);
    XScale = Single(Quotient(100.0, static_cast<double>(XAxisMax) - XAxisMin));
    YScale = Single(Quotient(100.0, static_cast<double>(YAxisMax) - YAxisMin));
    DrawBox(canvas);
    DrawTicks(drawing);
    canvas.SetDrawWidth(1);
    const Colours kept = canvas.CurrentColours();
    if (Store().FilledSymbols)
        canvas.SetFillStyle(FillStyle::kSolid);
    DrawPoints(drawing, Single(0.5 * SymbolScale_));
    DrawPickLines(drawing);
    canvas.SetColours(kept);

    canvas.SetFont(sizes.titles, true);
    PrintTitles(drawing);
    PrintPickMessages(drawing);
    canvas.SetFont(sizes.tickLabels, true);
    PrintXLabels(drawing);
    if (Store().PlotLnAxis)
        PrintSStarScale(drawing);
    PrintYTitle(drawing);
    canvas.SetFont(sizes.tickLabels, true);
    PrintYLabels(drawing);
}

}  // namespace halvern
