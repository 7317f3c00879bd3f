#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace halvern::simulate {

inline constexpr int kWritten = 0;
inline constexpr int kNotWritten = 1;
inline constexpr int kBadParameters = 2;

/// The program: reads the parameters, runs the experiment, writes the files.
///
/// Given     arguments   those of the command line, without the program's name
///           out, err    what it prints, and what it complains of
/// Returns   the exit status
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace halvern::simulate
