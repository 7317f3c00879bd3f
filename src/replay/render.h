#pragma once

#include <cstdint>
#include <string>

#include "replay/replay_desktop.h"

namespace halvern::replay {

/// Writes the plot as it stands into a file: the plot window's paint handler draws it, in the window's size.
///
/// Given     path   ends in .png, .svg or .pdf; from the current directory
/// Throws    ScriptError when there is no plot, or no such file can be written; a file of that name stays as it was
void RenderPlot(ReplayDesktop& desktop, const std::string& path);

/// The picture of the plot window as a Windows bitmap. Without a plot it is white.
///
/// Fails     with the number of what kept the file from being written; a file of that name stays as it was
void WritePlotBitmap(ReplayDesktop& desktop, const std::string& path);

/// Pixels of a length in twips, at least one.
int PixelsOf(std::int32_t twips);

}  // namespace halvern::replay
