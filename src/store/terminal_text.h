#pragma once

#include <string>
#include <string_view>

namespace halvern {

/// A complaint as a terminal can show it: the bytes of control characters, of what turns the direction of a line, and of
/// what is no UTF-8 stand as `\xHH`. The name of a file can hold any of them.
std::string OnTerminal(std::string_view text);

}  // namespace halvern
