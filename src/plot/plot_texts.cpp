#include <string>
#include <string_view>

#include "plot/plot_drawing.h"
#include "store/analysis_store.h"
#include "store/fixed_text.h"
#include "store/single.h"

namespace halvern {

namespace {

constexpr float kWidestHelp = 110.0F;
constexpr float kYTitleLeft = -18.0F;
constexpr int kLimitsInk = 2, kPickInk = 4;  // entries of the colour table

/// The end of a pick line to which its name is written: where it stands on the axis, or beyond which edge.
struct LimitName {
    std::string_view inside, below, above;
};

/// The name of one limit. `left` is the page x of the name where the limit is on view.
void PrintLimit(const PlotDrawing& drawing, float value, float top, float left, const LimitName& name) {
    Canvas& canvas = drawing.canvas;
    std::string_view text = name.inside;
    if (value < drawing.plot.XAxisMin) {
        text = name.below;
        left = 0.0F;
    } else if (value > drawing.plot.XAxisMax) {
        text = name.above;
        left = Single(100.0 - canvas.TextWidth(text));
    }
    canvas.MoveTo(left, top);
    canvas.Print(text);
}

void PrintLimits(const PlotDrawing& drawing) {
    const auto& S = Store();
    Canvas& canvas = drawing.canvas;
    const auto pageX = [&](float value) { return static_cast<double>(drawing.PageX(value)); };
    PrintLimit(drawing, S.DataLimitMin, 97.5F, Single(pageX(S.DataLimitMin) + 0.01), {"min", "<<min", "min>>"});
    PrintLimit(drawing, S.DataLimitMax, Single(2.5 - canvas.TextHeight("X")),
               Single(pageX(S.DataLimitMax) - 0.01 - canvas.TextWidth("max")), {"max", "<<max", "max>>"});
}

}  // namespace

void PrintCentred(Canvas& canvas, std::string_view text, float top) {
    canvas.MoveTo(Single(50.0 - canvas.TextWidth(text) / 2.0), top);
    canvas.Print(text);
}

void PrintTitles(const PlotDrawing& drawing) {
    const auto& S = Store();
    Canvas& canvas = drawing.canvas;
    const bool secondIsLonger = Trimmed(S.PlotHelp2).size() > Trimmed(S.PlotHelp1).size();
    const std::string& longer = secondIsLonger ? S.PlotHelp2 : S.PlotHelp1;
    // In a window of a few pixels nothing fits, and the smallest font has to do.
    for (int points = drawing.sizes.titles; canvas.TextWidth(longer) >= kWidestHelp && points > 1;)
        canvas.SetFont(--points, true);
    PrintCentred(canvas, S.PlotXTitle + drawing.x.Suffix, Single(-12.5 - canvas.TextHeight("X")));
    PrintCentred(canvas, S.PlotHelp1, 118.0F);
    PrintCentred(canvas, S.PlotHelp2, 110.0F);
}

void PrintPickMessages(const PlotDrawing& drawing) {
    const auto& S = Store();
    Canvas& canvas = drawing.canvas;
    const Colour kept = canvas.CurrentColours().fore;
    const auto message = [&](int ink, std::string_view text) {
        canvas.SetForeColour(S.PlotColor(ink));
        PrintCentred(canvas, text, Single(100.0 - canvas.TextHeight("X")));
    };
    if (S.PickDataLimits) {
        message(kLimitsInk, "Click on [Done] when finished");
        PrintLimits(drawing);
    }
    if (S.PickMeniscus)
        message(kPickInk, S.PickFringePoint || S.PickJitterPoint
                              ? "Click on [Done] when finished defining position"
                              : "Click on [Done] when finished defining meniscus position");
    if (S.PickZeroLevel)
        message(kPickInk, "Click on [Done] when finished defining zero position");
    canvas.SetForeColour(kept);
}

void PrintYTitle(const PlotDrawing& drawing) {
    const auto& S = Store();
    Canvas& canvas = drawing.canvas;
    const std::string title = S.PlotYTitle + drawing.y.Suffix;
    // Page y at which the title starts, for its middle to stand at 50. The height of the page is negative.
    const auto start = [&] {
        const double W = canvas.TextWidthPixels(title);
        return Single(Quotient(W * canvas.ScaleHeight(), static_cast<double>(S.PlotPixelHeight)) / 2.0 + 50.0);
    };
    int height = drawing.sizes.yTitle;
    canvas.SetRotatedFont(height);
    float top = start();
    while (!(top > 0.0F) && height > 1) {
        canvas.SetRotatedFont(--height);
        top = start();
    }
    canvas.MoveTo(kYTitleLeft, top);
    canvas.Print(title);
}

}  // namespace halvern
