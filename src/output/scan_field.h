#pragma once

#include <cstddef>

#include "store/format.h"

namespace halvern {

/// Room for one field, whatever the number.
inline constexpr std::size_t kScanFieldRoom = kFormatRoom;

/// The two fields of a scan's point, written as Format writes them, without ceremony: a table of the instrument's full
/// size has two million. Both return the end of the text.
///
/// RadiusField   "  0.0000"
/// SignalField   "  0.0000E+00; -0.0000E+00"
char* RadiusField(char* out, float radius) noexcept;
char* SignalField(char* out, float signal) noexcept;

}  // namespace halvern
