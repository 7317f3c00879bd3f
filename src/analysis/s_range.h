#pragma once

#include <algorithm>
#include <cstdint>

#include "store/analysis_store.h"

namespace halvern {

/// The points of the s* grid that averages and files use: those strictly between the limits, as far as the grid goes. It
/// may have become shorter since the limits were taken.
inline std::int32_t FirstPointInUse() { return Store().SRangeFirst + 1; }
inline std::int32_t LastPointInUse() { return std::min<std::int32_t>(Store().SRangeLast - 1, Store().SPoints); }

}  // namespace halvern
