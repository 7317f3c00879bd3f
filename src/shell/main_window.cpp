#include "shell/main_window.h"

#include <algorithm>

#include "plot/plot_window.h"
#include "shell/done_branches.h"
#include "shell/menu_handlers.h"
#include "shell/report_commands.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "store/printer_menu.h"
#include "store/report.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr Place kDesign{0, 0, 9600, 6600};
constexpr std::int32_t kSmallest = 3500;

// What the window keeps around the report: its menu above, a margin at the sides.
constexpr std::int32_t kReportMargin = 250;
constexpr std::int32_t kBesideReport = 500, kAboveAndBelowReport = 1000;

}  // namespace

MainWindow::MainWindow() : Form("Keld", "Halvern V0.99", kDesign) {
    Add("OutFileBox", OutFileBox(), {kReportMargin, kReportMargin, 0, 0});
    TieMenuHandlers();
    TieDoneBranches();
}

MenuBar* MainWindow::MenuOf() { return &MainMenuBar(); }

void MainWindow::Form_Load() {
    auto& S = Store();
    FitReport();
    SetReportExtent();
    auto& M = Menus();
    LoadPrinterItems(MainMenuBar(), M.PrintDummy1, M.Prn2Array, "Prn2Array", M.Prn2Array0, 2, Prn2Array_Click);
    const auto twentieth = [](std::int32_t twips) { return ToInteger32(twips / 20.0); };
    SetPlace({twentieth(TheDesktop().ScreenWidthTwips()), twentieth(TheDesktop().ScreenHeightTwips()), Where().width,
              Where().height});

    S.UseSmoothing = false;
    M.UseWSSmoothing.Untick();
    S.SmoothWindow = kDefaultSmoothWindow;

    if (!S.PlotitLoaded)
        PlotitForm().Load();
    PlotitForm().Hide();
}

void MainWindow::Form_Resize() {
    if (IsMinimised())
        return;
    const Place& now = Where();
    SetPlace({now.left, now.top, std::max(now.width, kSmallest), std::max(now.height, kSmallest)});
    FitReport();
}

void MainWindow::Form_Unload(bool& Cancel) {
    if (MsgBox("Exit Program?", kYesNo + kQuestion) == Answer::kNo) {
        Cancel = true;
        return;
    }
    UnloadPlotWindows();
}

void MainWindow::FitReport() {
    OutFileBox().SetPlace(
        {kReportMargin, kReportMargin, Where().width - kBesideReport, Where().height - kAboveAndBelowReport});
}

/// The report can be scrolled sideways over twice its width at start.
void MainWindow::SetReportExtent() {
    const double widthPixels = static_cast<double>(OutFileBox().Where().width) / kTwipsPerPixel;
    OutFileBox().SetHorizontalExtent(ToInteger32(widthPixels) * 2);
}

MainWindow& MainForm() {
    static MainWindow form;
    return form;
}

void AllDone_Click() { MainForm().Unload(); }

}  // namespace halvern
