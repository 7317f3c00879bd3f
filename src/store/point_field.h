#pragma once

#include <cstddef>

#include "store/format.h"

namespace halvern {

/// Room for one field, whatever the number.
inline constexpr std::size_t kPointFieldRoom = kFormatRoom;

/// The fields of a point, written as Format writes them, without ceremony: a table of the instrument's full size has two
/// million. All return the end of the text.
///
/// RadiusField   "  0.0000"
/// SignalField   "  0.0000E+00; -0.0000E+00"
/// PlotField     "    0.0000E+00;   -0.0000E+00"
char* RadiusField(char* out, float radius) noexcept;
char* SignalField(char* out, float signal) noexcept;
char* PlotField(char* out, float value) noexcept;

}  // namespace halvern
