#pragma once

#include <functional>
#include <string_view>

namespace halvern {

/// Runs a file command with its one failure exit.
///
/// A failure other than the user's cancel shows the message, titled "Output File Error". The file that it interrupted
/// stays open and holds what was written until then; the mouse pointer is normal again.
void RunFileCommand(const std::function<void()>& command, std::string_view message);

}  // namespace halvern
