#pragma once

#include <span>
#include <string>

#include "replay/replay_desktop.h"

namespace halvern::replay {

using Arguments = std::span<const std::string>;

/// The events of the mouse on the plot window. A position is in data units of the current axes or, with an `@` before
/// it, in page units.
///
/// Throws    ScriptError when the plot window is not shown, a dialog keeps the events from it, or a word is none
void MouseEvent(ReplayDesktop& desktop, Arguments arguments);
void DragEvent(ReplayDesktop& desktop, Arguments arguments);
void HoverEvent(ReplayDesktop& desktop, Arguments arguments);

}  // namespace halvern::replay
