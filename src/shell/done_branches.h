#pragma once

namespace halvern {

/// Hands the plot window what its Done button goes on with, in the order of the tests.
void TieDoneBranches();

}  // namespace halvern
