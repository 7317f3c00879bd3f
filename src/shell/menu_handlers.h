#pragma once

namespace halvern {

/// Ties every item of the main window's menu to its handler.
void TieMenuHandlers();

}  // namespace halvern
