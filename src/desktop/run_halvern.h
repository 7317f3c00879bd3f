#pragma once

namespace halvern {

/// The whole program, from the application object to its exit status.
///
/// Given     programPath   by which the program was called; the toolkit takes the window's class from it
int RunHalvern(char* programPath);

}  // namespace halvern
