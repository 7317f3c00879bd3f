#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "replay/replay_desktop.h"

namespace halvern::replay {

/// Carries out one event of the script.
///
/// Given     words   the event's word and its arguments; at least one
/// Throws    ScriptError when it can't be carried out; besides, whatever the program's handlers let through
void CarryOut(ReplayDesktop& desktop, const std::vector<std::string>& words);

/// The events with their arguments, one a line.
void PrintEvents(std::ostream& out);

}  // namespace halvern::replay
