#pragma once

namespace halvern {

/// "Average dc/dt": the average over the pairs, less the zero level, on the s* grid.
void PlotAvekeld_Click();

/// "Raw dc/dt data": the curves of all pairs.
void PlotRawkeld_Click();

/// Fills the request with the average dc/dt, a black line, then its symbols, and shows it. The caller has set the texts
/// and flags.
void ShowAverageRate();

}  // namespace halvern
