#pragma once

#include "support/scratch.h"

namespace halvern::fuzz {

/// Writes three small data sets of a boundary that moves outwards: "a.LST" of absorbance scans, "i.LST" of interference
/// scans, "m.LST" of absorbance scans at two speeds; and "s.LST", whose scans are sparse or missing.
void WriteSmallDataSets(const Scratch& folder);

}  // namespace halvern::fuzz
