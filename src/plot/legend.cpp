#include "plot/legend.h"

#include <array>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/format.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr Place kDesign{0, 0, 3300, 5970};
constexpr float kLeft = 100.0F, kTop = 110.0F, kRight = 150.0F, kBottom = -30.0F;

constexpr std::int32_t kEntries = 100, kRows = 20, kShapes = 5;
constexpr float kSize = 0.65F;

enum Shape { kCircle, kBox, kTriangleUp, kDiamond, kTriangleDown };

struct Entry {
    Colour colour;
    std::int32_t shape;
};

/// Kept: the two rules count colours from different bases, the first from 0 to 19, the second from 1 to 20.
Entry EntryOf(std::int32_t I, std::int32_t column) {
    const auto& S = Store();
    if (S.CycleSymbolsFirst)
        return {S.PlotColor(I % 20), column};
    return {S.PlotColor((I - 1) / kShapes + 1), (I - 1) % kShapes};
}

void DrawSymbol(Canvas& canvas, float X, float Y, const Entry& entry) {
    const double size = kSize;
    const float twice = Single(2.0 * size);
    switch (entry.shape) {
        case kCircle:
            return canvas.Circle(X, Y, twice, entry.colour);
        case kBox: {
            const double left = X - 2.0 * size, bottom = Y - (8.0 / 3.0) * size;
            return canvas.Box(Single(left), Single(bottom), Single(left + 4.0 * size),
                              Single(bottom + (16.0 / 3.0) * size), entry.colour);
        }
        default:
            return DrawLegendShape(canvas, X, Y, twice, static_cast<std::int16_t>(entry.shape - kTriangleUp + 1));
    }
}

void DrawEntry(Canvas& canvas, std::int32_t I) {
    const std::int32_t C = (I - 1) / kRows;
    const std::int32_t R = I - kRows * C;
    const float X = Single(104.0 + 9.0 * C);
    const float Y = Single(104.0 - 6.0 * R);
    const Entry entry = EntryOf(I, C);
    canvas.SetForeColour(entry.colour);
    canvas.SetFillColour(entry.colour);
    DrawSymbol(canvas, X, Y, entry);
    canvas.MoveTo(X + 2.0F, Y + 2.0F);
    canvas.Print(Format(I, "###"));
}

}  // namespace

PlotLegend::PlotLegend() : Form("PlotLegend", "Plot Legend", kDesign) {}

Canvas& PlotLegend::Surface() { return TheDesktop().SurfaceOf(*this); }

void PlotLegend::Form_Load() {
    auto& S = Store();
    S.LegendPixelWidth = Surface().PixelWidth();
    S.LegendPixelHeight = Surface().PixelHeight();
    S.PlotLegendLoaded = true;
    const std::int32_t left = ToInteger32(TheDesktop().ScreenWidthTwips() * 0.05);
    SetPlace({left, PlotitForm().Where().top, Where().width, Where().height});
}

void PlotLegend::Form_Unload(bool& /*Cancel*/) {
    Store().PlotLegendLoaded = false;
    if (Store().PlotitLoaded)
        PlotitForm().Menu.ShowIt.Enable();
}

/// The polygons keep the pixels of the size that the window was loaded with.
void PlotLegend::Form_Resize() { Form_Paint(); }

void PlotLegend::Form_Paint() {
    Canvas& canvas = Surface();
    canvas.Scale(kLeft, kTop, kRight, kBottom);
    canvas.Cls();
    const Colours kept = canvas.CurrentColours();
    if (Store().FilledSymbols)
        canvas.SetFillStyle(FillStyle::kSolid);
    for (std::int32_t I = 1; I <= kEntries; ++I)
        DrawEntry(canvas, I);
    canvas.SetColours(kept);
}

void DrawLegendShape(Canvas& canvas, const float& X, const float& Y, const float& Size, std::int16_t Code) {
    const double width = Store().LegendPixelWidth;
    const double height = Store().LegendPixelHeight;
    const std::int16_t Cx = ToInteger16((X - 100.0) * width / 50.0);
    const std::int16_t Cy = ToInteger16((110.0 - Y) * height / 140.0);
    const double A = width * Size / 50.0;
    const double B = height * 0.65 * Size / 140.0;
    const double T = height * 1.3 * Size / 140.0;
    const double D = height * Size / 100.0;
    const auto corner = [&](double right, double down) {
        return PixelPoint{ToInteger32(Cx + right), ToInteger32(Cy + down)};
    };
    if (Code == 1)
        canvas.Polygon(std::array{corner(A, B), corner(0.0, -T), corner(-A, B)});
    else if (Code == 2)
        canvas.Polygon(std::array{corner(-A, 0.0), corner(0.0, -D), corner(A, 0.0), corner(0.0, D)});
    else
        canvas.Polygon(std::array{corner(A, -B), corner(0.0, T), corner(-A, -B)});
}

PlotLegend& PlotLegendForm() {
    static PlotLegend form;
    return form;
}

}  // namespace halvern
