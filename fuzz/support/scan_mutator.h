#pragma once

#include <cstddef>
#include <cstdint>

namespace halvern::fuzz {

/// Changes one field of a text of scan lines, in its columns, so that the others stay where they are; or a line as a whole.
///
/// Given     size, most   of the text and of the room for it
/// Returns   the new size; 0 if there is nothing to change
std::size_t MutateScanText(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed);

}  // namespace halvern::fuzz
