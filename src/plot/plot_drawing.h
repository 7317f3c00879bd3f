#pragma once

#include <string>

#include "plot/axis_scale.h"
#include "plot/plot_window.h"
#include "store/single.h"
#include "ui/canvas.h"

namespace halvern {

/// The page that the plot window's client area shows, whatever its size; the plot box is (0, 0) to (100, 100).
inline constexpr float kPageLeft = -25.0F, kPageTop = 120.0F, kPageRight = 110.0F, kPageBottom = -25.0F;
inline constexpr float kBox = 100.0F;

inline constexpr Colour kBlackInk = 0x000000, kWhite = 0xFFFFFF;
inline constexpr Colour kSStarInk = 0x800000;  ///< the scale of s* over an axis of Ln(s*)

/// Sizes of the texts of one picture.
struct TextSizes {
    int titles;      ///< help lines, x title and pick messages, points
    int tickLabels;  ///< points
    int yTitle;      ///< height of a line of the rotated font, pixels
};

/// One picture in the making: where it is drawn, and what its parts share.
struct PlotDrawing {
    Canvas& canvas;
    const PlotWindow& plot;
    Axis x, y;
    TextSizes sizes;

    /// Page position of a data value, single. It may lie outside the box.
    float PageX(float value) const { return Single((static_cast<double>(value) - plot.XAxisMin) * plot.XScale); }
    float PageY(float value) const { return Single((static_cast<double>(value) - plot.YAxisMin) * plot.YScale); }
    /// Both ends of the axis are part of it.
    bool OnXAxis(float value) const { return plot.XAxisMin <= value && value <= plot.XAxisMax; }
    bool OnYAxis(float value) const { return plot.YAxisMin <= value && value <= plot.YAxisMax; }
};

/// Ticks inside the box, none at its corners.
void DrawTicks(const PlotDrawing& drawing);

/// The points of the request in their order, markers with a radius of `markerRadius` page units; the progress bar follows.
void DrawPoints(const PlotDrawing& drawing, float markerRadius);

/// The lines of an open pick, as far as its positions are on view.
void DrawPickLines(const PlotDrawing& drawing);

/// The help lines and the x title; the font shrinks until the longer help line fits, and stays so.
void PrintTitles(const PlotDrawing& drawing);

/// What to do in an open pick, and which of its limits is which.
void PrintPickMessages(const PlotDrawing& drawing);

void PrintXLabels(const PlotDrawing& drawing);
void PrintYLabels(const PlotDrawing& drawing);

/// The labels of s* along the upper edge of a plot against Ln(s*).
void PrintSStarScale(const PlotDrawing& drawing);

/// The y title, from bottom to top left of the box; its font shrinks until it is shorter than the box.
void PrintYTitle(const PlotDrawing& drawing);

/// Prints a text with its middle at x = 50.
void PrintCentred(Canvas& canvas, std::string_view text, float top);

}  // namespace halvern
