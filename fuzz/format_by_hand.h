#pragma once

#include <string>
#include <string_view>

namespace halvern::fuzz {

/// The text of a finite number by a pattern, worked on decimal digits one by one as the description of patterns has it:
/// slow, and without a line in common with Format.
///
/// Given     pattern   one that Pattern takes
std::string FormatByHand(double value, std::string_view pattern);

}  // namespace halvern::fuzz
