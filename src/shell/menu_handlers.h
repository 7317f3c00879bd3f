#pragma once

namespace halvern {

/// Ties every item of the main window's menu to its handler, and what the plot window hands on to the conditioning.
void TieMenuHandlers();

}  // namespace halvern
