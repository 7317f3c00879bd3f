#pragma once

namespace halvern {

/// s* is kept in seconds and shown in Svedbergs of 1E-13 s; distributions are kept per second of s*. Both factors are
/// doubles, also where the work around them is wider: 1E-13 as a long double is another number.
inline constexpr double kSvedberg = 1E-13;  ///< seconds; to a distribution, the factor from per second to per Svedberg
inline constexpr double kPerSvedberg = 1E13;  ///< the way back

}  // namespace halvern
