#pragma once

namespace halvern {

/// Makes ready what fonts and pictures need, in a process that has no display and no windows. Only the first call counts.
///
/// Note      the process's locale stays what it is, and standard error is left to the program
void StartGraphics();

}  // namespace halvern
