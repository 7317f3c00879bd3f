#pragma once

#include <cstdint>

#include "ui/printer.h"

namespace halvern {

class Form;

/// What takes a finished plot out of the program: commands of the plot window's menu. A clipboard or a printer that
/// fails is a run-time failure, which ends the program.

/// The picture of the plot, whatever covers the window, onto the clipboard.
void ClipPrn_Click();

/// The picture of the plot into a bitmap file. A cancel and a failure end it without a word.
void SaveBMP_Click();

/// What the screen shows of the plot window, on a page of the current printer.
void PrnPlot_Click();

/// Makes a printer the current one.
///
/// Given     Index   1 .. number of installed printers, as the menus count them
/// Note      both windows have a menu of printers; their ticks move together
void PrnArray_Click(std::int16_t Index);

/// The picture of a rectangle of a window, in pixels.
BitmapPointer CaptureArea(Form& window, bool ClientOnly, std::int32_t Left, std::int32_t Top, std::int32_t Width,
                          std::int32_t Height);

/// The picture of the whole client area.
BitmapPointer CaptureClient(Form& form);

/// Whether a picture in its own proportions meets the sides of a page first, not its top and bottom; true also where both
/// have the same proportions.
bool FillsWidth(const Bitmap& picture, float pageWidth, float pageHeight);

/// Lays a picture on a page: in its own proportions, in the middle, at 80 % of the largest size that fits.
///
/// Note      the document is not ended
void PrintPictureFit(Printer& printer, const Bitmap& picture);

/// Writes the points of the plot request into a text file of the user's choice. A cancel and a failure end it without a
/// word; a file that a failure interrupted stays open. In any case the current directory ends as `ProgramDir`.
///
/// Fails     76 when that folder, or the one of the last plot data file, is there no more
void SavePlotNow_Click();

}  // namespace halvern
