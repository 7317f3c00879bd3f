#pragma once

#include <exception>
#include <string>
#include <vector>

namespace halvern {

/// What standard error gets of a failure that ends the program, so that it can be reported: the failure, the file or
/// printer that it happened to if one is known, the events that were running, the program and its version. Each line
/// ends with a line feed, and holds no control characters besides.
///
/// Given     failure   a RuntimeFailure, or any other exception, which is a defect of the program
///           running   as session scripts have them, the outermost first: "click GetListNow", "answer yes"
///           program   "halvern"
std::string FailureReport(const std::exception& failure, const std::vector<std::string>& running,
                          const std::string& program);

}  // namespace halvern
