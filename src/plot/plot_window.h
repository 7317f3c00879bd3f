#pragma once

#include <cstdint>
#include <string>

#include "store/boolean.h"
#include "ui/bitmap.h"
#include "ui/canvas.h"
#include "ui/form.h"

namespace halvern {

struct PlotDrawing;
struct TextSizes;

/// The items of the plot window's menu, by the design's names.
struct PlotMenu {
    MenuItem Zoomout, ShowEm;
    MenuItem dummy1, Dummy0, PrnPlot;
    MenuItem PlotStyle, Nolines, NoSymbols, LargePoints, UseFilled, Col_Sym;
    MenuItem Copyit, ClipPrn, SaveBMP;
    MenuItem SavePlotNow, ShowIt, SetJitterLimits;

    PrinterItems PrnArray;  ///< elements 1 and up
};

/// The one plot window, "Plotit". It exists, hidden, from the start of the program to its end.
class PlotWindow : public Form {
  public:
    PlotWindow();

    MenuBar* MenuOf() override { return &bar_; }

    PlotMenu Menu;
    Button Command1{"Done"};
    Button TestIt{"Test"};
    Panel XYCoords;  ///< the strip at the bottom, with two labels
    Label XYLabel;   ///< the read-out of the mouse's position
    Label OutFileLbl;

    /// Data values at the edges of the plot box; 0 until a plot was drawn.
    float XAxisMin = 0.0F, XAxisMax = 0.0F, YAxisMin = 0.0F, YAxisMax = 0.0F;
    /// Page units per data unit.
    float XScale = 0.0F, YScale = 0.0F;

    BitmapPointer Picture1;  ///< the picture on its way to the printer
    /// Folder of the last plot data file, with a slash at its end; empty before the first.
    std::string PlotFileDir;

    /// Draws the request anew, whatever has changed; the only way to redraw.
    void Form_Paint();
    void Form_Resize() override;
    /// A window that comes up with nothing to draw says so.
    void BroughtUp() override;
    bool ClosesByFrame() const override { return false; }

    void Form_MouseDown(int Button, int Shift, float X, float Y) override;
    void Form_MouseMove(int Button, int Shift, float X, float Y) override;
    void Form_MouseUp(int Button, int Shift, float X, float Y) override;

  private:
    void Form_Load() override;
    void Form_Unload(bool& Cancel) override;
    void PlaceOnScreen();
    void SetReadOutFont(float points);
    void LoadProgressWindow();
    void TieHandlers();
    Canvas& Surface();

    void Command1_Click();
    void Zoomout_Click();
    void ShowEm_Click();
    void Nolines_Click();
    void NoSymbols_Click();
    void LargePoints_Click();
    void UseFilled_Click();
    void Col_Sym_Click();
    void ShowIt_Click();
    void RepaintWithLegend();
    void ToggleOmission(Boolean& omit, MenuItem& item, MenuItem& other);
    void RepaintIfReady();

    float DataX(float X) const;
    float DataY(float Y) const;
    void MoveLowerLimit(float V);
    void MoveUpperLimit(float V);
    void DrawZoomBox(Colour colour);
    void EndZoomDrag();
    void ZoomIn();

    void PlaceLabels(std::int32_t windowWidth);
    PlotDrawing WorkOutAxes(Canvas& canvas, const TextSizes& sizes);
    void DrawPlot(Canvas& canvas, const TextSizes& sizes);

    MenuBar bar_;
    Boolean ShowXY_;
    float SymbolScale_ = 0.5F;         ///< factor on the radius of markers
    float HelpFontFactor_ = 0.0014F;   ///< points of the titles per twip of the window's larger dimension
    float TitleFontFactor_ = 0.0024F;  ///< pixels of the rotated font per twip of that
    Boolean ZoomDragging_, ZoomFirstMove_;
    float ZoomX0_ = 0.0F, ZoomY0_ = 0.0F, ZoomX1_ = 0.0F, ZoomY1_ = 0.0F;  ///< page units
};

PlotWindow& PlotitForm();

/// Unloads what belongs to the plot, if it is loaded, the plot window last: what the program's end does before the main
/// window goes.
void UnloadPlotWindows();

}  // namespace halvern
