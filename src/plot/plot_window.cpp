#include "plot/plot_window.h"

#include <iterator>

#include "plot/export.h"
#include "plot/legend.h"
#include "plot/progress.h"
#include "store/analysis_store.h"
#include "store/printer_menu.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

using M = PlotMenu;

constexpr MenuRow<PlotMenu> kPlotMenu[] = {
    {1, &M::Zoomout, "Zoomout", "&ZoomOut", kOff, kShown},
    {1, &M::ShowEm, "ShowEm", "&Hide (X,Y)", kOn, kShown},
    {1, &M::dummy1, "dummy1", "&Printer", kOn, kShown},
    {2, &M::Dummy0, "Dummy0", "-", kOn, kShown},
    {2, &M::PrnPlot, "PrnPlot", "Print", kOn, kShown},
    {1, &M::PlotStyle, "PlotStyle", "S&tyle", kOn, kShown},
    {2, &M::Nolines, "Nolines", "Omit Lines", kOn, kShown},
    {2, &M::NoSymbols, "NoSymbols", "Omit Symbols", kOn, kShown},
    {2, &M::LargePoints, "LargePoints", "Large Symbols", kOn, kShown},
    {2, &M::UseFilled, "UseFilled", "Filled Symbols", kOn, kShown},
    {2, &M::Col_Sym, "Col_Sym", "Cycle Symbols 1st", kOff, kHidden},
    {1, &M::Copyit, "Copyit", "&Copy", kOn, kShown},
    {2, &M::ClipPrn, "ClipPrn", "To Clipboard", kOn, kShown},
    {2, &M::SaveBMP, "SaveBMP", "To File (Bitmap)", kOn, kShown},
    {1, &M::SavePlotNow, "SavePlotNow", "S&avePlot", kOn, kShown},
    {1, &M::ShowIt, "ShowIt", "Show &Legend", kOn, kHidden},
    {1, &M::SetJitterLimits, "SetJitterLimits", "Done", kOn, kHidden},
};
static_assert(NamesDiffer(kPlotMenu));
static_assert(LevelsStepByOne(kPlotMenu));
static_assert(std::size(kPlotMenu) == (sizeof(PlotMenu) - sizeof(PrinterItems)) / sizeof(MenuItem));

/// Sizes of texts, points.
constexpr float kButtonText = 10.5F, kSmallReadOut = 9.75F, kReadOut = 12.0F;
constexpr double kSmallScreen = 640.0;  ///< pixels wide

constexpr Place kDesign{1095, 1485, 6210, 5685};
constexpr Place kDoneButton{0, 0, 852, 375};
constexpr Place kTestButton{840, 0, 852, 375};
constexpr Place kReadOutStrip{0, 5325, 6210, 361};
constexpr Place kReadOutLabel{0, 0, 3105, 361};
constexpr Place kFileLabel{3105, 0, 2950, 361};

// Entries 0 and 10, and 5 and 15, are alike: the plot takes colours by a code modulo 10, the legend from the whole
// table.
constexpr std::int32_t kColours[] = {
    0x00DFDF, 0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0x7F7F00, 0xDF00DF, 0xFF7F00, 0x7F7F7F, 0xDFDF00, 0x00DFDF,
    0x005F00, 0x5F0000, 0x3F009F, 0x7F005F, 0x7F7F00, 0xFF7F7F, 0x8080C0, 0xFF007F, 0x00FF80, 0x003F9F,
};

}  // namespace

PlotWindow::PlotWindow() : Form("Plotit", "Quillon V2.0", kDesign) {
    BuildMenu(bar_, Menu, kPlotMenu);
    Add("Command1", Command1, kDoneButton);
    Add("TestIt", TestIt, kTestButton);
    Add("XYCoords", XYCoords, kReadOutStrip);
    Add("XYLabel", XYLabel, kReadOutLabel);
    Add("OutFileLbl", OutFileLbl, kFileLabel);
    XYCoords.Hold(XYLabel);
    XYCoords.Hold(OutFileLbl);
    Command1.SetFont({kButtonText});
    TestIt.SetFont({kButtonText});
    SetReadOutFont(kSmallReadOut);
    SetSpokenName("Plot");
    XYLabel.SetSpokenName("X,Y read-out");
    Command1.Hide();
    TestIt.Hide();
    TieHandlers();
}

void PlotWindow::TieHandlers() {
    const auto tie = [this](auto& control, void (PlotWindow::*handler)()) {
        control.Click = [this, handler] { (this->*handler)(); };
    };
    tie(Command1, &PlotWindow::Command1_Click);
    tie(Menu.Zoomout, &PlotWindow::Zoomout_Click);
    tie(Menu.ShowEm, &PlotWindow::ShowEm_Click);
    tie(Menu.Nolines, &PlotWindow::Nolines_Click);
    tie(Menu.NoSymbols, &PlotWindow::NoSymbols_Click);
    tie(Menu.LargePoints, &PlotWindow::LargePoints_Click);
    tie(Menu.UseFilled, &PlotWindow::UseFilled_Click);
    tie(Menu.Col_Sym, &PlotWindow::Col_Sym_Click);
    tie(Menu.ShowIt, &PlotWindow::ShowIt_Click);
    Menu.PrnPlot.Click = PrnPlot_Click;
    Menu.ClipPrn.Click = ClipPrn_Click;
    Menu.SaveBMP.Click = SaveBMP_Click;
    Menu.SavePlotNow.Click = SavePlotNow_Click;
}

Canvas& PlotWindow::Surface() { return TheDesktop().SurfaceOf(*this); }

void PlotWindow::Form_Resize() {
    auto& S = Store();
    if (!S.PlotReady)
        return;
    Canvas& canvas = Surface();
    canvas.Cls();
    S.PlotPixelHeight = canvas.PixelHeight();
    S.PlotPixelWidth = canvas.PixelWidth();
    Form_Paint();
}

void PlotWindow::BroughtUp() {
    if (Store().PlotReady)
        return;
    Surface().Cls();
    Form_Paint();
}

void PlotWindow::Form_Load() {
    auto& S = Store();
    ShowXY_ = S.ShowXYDefault;
    PlaceOnScreen();
    if (static_cast<double>(TheDesktop().ScreenWidthTwips()) / kTwipsPerPixel > kSmallScreen)
        SetReadOutFont(kReadOut);
    S.PlotPixelHeight = Surface().PixelHeight();
    S.PlotPixelWidth = Surface().PixelWidth();
    SymbolScale_ = 0.5F;
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(std::size(kColours)); ++i)
        S.PlotColor(i) = kColours[i];

    LoadProgressWindow();

    S.OmitLines = false;
    S.OmitSymbols = false;
    Menu.NoSymbols.Untick();
    Menu.Nolines.Untick();
    S.LargeSymbols = true;
    S.FilledSymbols = true;
    S.CycleSymbolsFirst = true;
    Menu.UseFilled.Tick();
    HelpFontFactor_ = 0.0014F;
    TitleFontFactor_ = 0.0024F;
    S.PlotitLoaded = true;

    LoadPrinterItems(bar_, Menu.dummy1, Menu.PrnArray, "PrnArray", Menu.dummy1, 2, PrnArray_Click);
}

void PlotWindow::Form_Unload(bool& /*Cancel*/) {
    Store().PlotitLoaded = false;
    Surface().Cls();
    CmpltFrmForm().Unload();
}

void PlotWindow::SetReadOutFont(float points) {
    XYCoords.SetFont({points, true});
    XYLabel.SetFont({points});
    OutFileLbl.SetFont({points});
}

/// Two thirds of the screen, towards its lower right corner; `TestIt` right of `Command1`.
void PlotWindow::PlaceOnScreen() {
    const double screenWidth = TheDesktop().ScreenWidthTwips();
    const double screenHeight = TheDesktop().ScreenHeightTwips();
    const std::int32_t width = ToInteger32(0.65 * screenWidth);
    const std::int32_t height = ToInteger32(0.65 * screenHeight);
    SetPlace({ToInteger32(screenWidth - width * 1.05), ToInteger32(screenHeight - height * 1.05), width, height});

    const Place& done = Command1.Where();
    TestIt.SetPlace({ToInteger32(done.width * 1.05 + done.left), 0, kTestButton.width, kTestButton.height});
}

/// In the lower right corner, hidden until a plot is drawn.
void PlotWindow::LoadProgressWindow() {
    ProgressWindow& progress = CmpltFrmForm();
    progress.Load();
    const Place& design = progress.Where();
    progress.SetPlace({ToInteger32(TheDesktop().ScreenWidthTwips() - design.width * 1.25),
                       ToInteger32(TheDesktop().ScreenHeightTwips() - design.height * 1.5), design.width,
                       design.height});
    progress.Hide();
}

PlotWindow& PlotitForm() {
    static PlotWindow form;
    return form;
}

void UnloadPlotWindows() {
    if (Store().PlotLegendLoaded)
        PlotLegendForm().Unload();
    if (Store().PlotitLoaded)
        PlotitForm().Unload();
}

}  // namespace halvern
