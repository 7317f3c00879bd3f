#pragma once

#include <string>

#include "replay/replay_desktop.h"

namespace halvern::replay {

/// Writes the plot as it stands into a file: the plot window's paint handler draws it, in the window's size.
///
/// Given     path   ends in .png, .svg or .pdf; from the current directory
/// Throws    ScriptError when there is no plot, or no such file can be written
void RenderPlot(ReplayDesktop& desktop, const std::string& path);

}  // namespace halvern::replay
