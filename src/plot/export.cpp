#include "plot/export.h"

#include <algorithm>
#include <string>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/files.h"
#include "store/menus.h"
#include "store/printer_menu.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

/// Hundredths of a millimetre and twips in an inch.
constexpr double kHiMetricPerInch = 2540.0, kTwipsPerInch = 1440.0;

/// Of the largest picture that fits on the page.
constexpr double kPrintedPart = 0.8;

double HiMetric(double twips) { return twips * kHiMetricPerInch / kTwipsPerInch; }
double TwipsOf(double hiMetric) { return hiMetric * kTwipsPerInch / kHiMetricPerInch; }

FileDialog BitmapDialog() {
    return {.title = {},
            .filter = "Bitmap | *.bmp",
            .flags = kAskBeforeOverwriting,
            .defaultExtension = "bmp",
            .fileName = {}};
}

}  // namespace

void ClipPrn_Click() {
    TheDesktop().ClearClipboard();
    TheDesktop().SetClipboardPicture(*TheDesktop().ImageOf(PlotitForm()));
}

void SaveBMP_Click() {
    try {
        const std::string chosen = ChooseNewFile(BitmapDialog());
        TheDesktop().SavePicture(*TheDesktop().ImageOf(PlotitForm()), chosen);
    } catch (const RuntimeFailure&) {
        // The user has cancelled, or the file can't be written: nobody is told.
    }
}

void PrnPlot_Click() {
    PlotWindow& plot = PlotitForm();
    MousePointer(kPointerHourglass);
    plot.Picture1 = CaptureClient(plot);
    Printer& printer = TheDesktop().CurrentPrinter();
    PrintPictureFit(printer, *plot.Picture1);
    printer.EndDocument();
    plot.Picture1.reset();
    MousePointer(kPointerNormal);
}

void PrnArray_Click(std::int16_t Index) {
    if (Store().PlotitLoaded)
        TickPrinter(PlotitForm().Menu.PrnArray, Index);
    TickPrinter(Menus().Prn2Array, Index);
    UsePrinter(Index);
}

BitmapPointer CaptureArea(Form& window, bool ClientOnly, std::int32_t Left, std::int32_t Top, std::int32_t Width,
                          std::int32_t Height) {
    return TheDesktop().CaptureArea(window, ClientOnly, Left, Top, Width, Height);
}

BitmapPointer CaptureClient(Form& form) {
    const Canvas& client = TheDesktop().SurfaceOf(form);
    return CaptureArea(form, true, 0, 0, ToInteger32(client.PixelWidth()), ToInteger32(client.PixelHeight()));
}

// The products are exact; of the quotients, two that are equal could come out different in their last bit.
bool FillsWidth(const Bitmap& picture, float pageWidth, float pageHeight) {
    return static_cast<double>(picture.PixelWidth()) * pageHeight >=
           static_cast<double>(picture.PixelHeight()) * pageWidth;
}

void PrintPictureFit(Printer& printer, const Bitmap& picture) {
    const double width = picture.PixelWidth(), height = picture.PixelHeight();
    printer.SetOrientation(height >= width ? Orientation::kPortrait : Orientation::kLandscape);
    const double PicRatio = width / height;
    const double PrnWidth = HiMetric(printer.ScaleWidth());
    const double PrnHeight = HiMetric(printer.ScaleHeight());
    const bool fillsWidth = FillsWidth(picture, printer.ScaleWidth(), printer.ScaleHeight());
    const double PrintWidth = TwipsOf(fillsWidth ? PrnWidth : PrnHeight * PicRatio);
    const double PrintHeight = TwipsOf(fillsWidth ? PrnWidth / PicRatio : PrnHeight);
    const double Left = std::max(0.0, (printer.ScaleWidth() - PrintWidth * kPrintedPart) / 2.0);
    const double Top = std::max(0.0, (printer.ScaleHeight() - PrintHeight * kPrintedPart) / 2.0);
    printer.PaintPicture(picture, Left, Top, PrintWidth * kPrintedPart, PrintHeight * kPrintedPart);
}

}  // namespace halvern
