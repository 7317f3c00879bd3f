#pragma once

#include <cstdint>
#include <string>

namespace halvern {

/// The program's version record. The build takes its version number from here.
inline constexpr std::int32_t kVersionMajor = 0;
inline constexpr std::int32_t kVersionMinor = 99;
inline constexpr std::int32_t kVersionRevision = 55;

/// The three numbers as the program shows them: "0.99.0055".
std::string RevisionNumbers();

}  // namespace halvern
