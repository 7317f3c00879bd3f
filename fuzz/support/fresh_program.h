#pragma once

namespace halvern::fuzz {

/// The program's state is the process's; these bring back what stands at the start of a process, so that one input knows
/// nothing of the one before.

/// Closes the files that failures have left open.
void CloseFiles();

/// The store as it is before the start of the program.
void FreshStore();

/// Besides those two the report, the menus and the windows that outlive a command.
void FreshProgram();

}  // namespace halvern::fuzz
