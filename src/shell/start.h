#pragma once

namespace halvern {

/// Starts the program: defaults, second-instance test, splash window, main window with the two opening lines.
///
/// Ends      the program, when another instance runs already
/// Note      called once, with the desktop in use; afterwards the program is its events
void Main();

}  // namespace halvern
