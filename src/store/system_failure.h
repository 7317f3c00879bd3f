#pragma once

#include <string_view>

namespace halvern {

/// The run-time failure that stands for an error of the system.
///
/// Given     error   a value of errno
///           name    the file that it happened to
[[noreturn]] void FailWithErrno(int error, std::string_view name);

}  // namespace halvern
