#pragma once

#include <array>
#include <cstdint>

#include "store/analysis_store.h"

namespace halvern {

/// The scans that a correction's pick shows: the first, one in the middle, the last.
inline std::array<std::int32_t, 3> ScansOfPick() { return {1, Store().NumFiles / 2, Store().NumFiles}; }

}  // namespace halvern
