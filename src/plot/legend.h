#pragma once

#include <cstdint>

#include "ui/canvas.h"
#include "ui/form.h"

namespace halvern {

/// The key to the numbers of the plot's symbols, "PlotLegend": 100 of them in five columns of twenty. It shows the colour
/// table and two of the plot's styles, and nothing of the request.
class PlotLegend : public Form {
  public:
    PlotLegend();

    /// Draws the legend anew.
    void Form_Paint();
    void BroughtUp() override { Form_Paint(); }

  private:
    void Form_Load() override;
    void Form_Unload(bool& Cancel) override;
    void Form_Resize() override;
    Canvas& Surface();
};

PlotLegend& PlotLegendForm();

/// One polygon of the legend, outline in the fore colour, filled by the fill settings.
///
/// Given     X, Y   centre, legend units
///           Size   legend units
///           Code   1 triangle, point upwards; 2 diamond; any other a triangle, point downwards
/// Reads     LegendPixelWidth, LegendPixelHeight
/// Rounding  the centre to 16 bits, then each corner, half to even; all else in double
/// Fails     6 with a centre beyond 16 bits
void DrawLegendShape(Canvas& canvas, const float& X, const float& Y, const float& Size, std::int16_t Code);

}  // namespace halvern
