#pragma once

namespace halvern {

/// "Raw Data": every N-th scan as it was read. Kept: its markers are less the jitter offset, its lines are not, and the
/// lines take their colour from the scan's number, the markers from its place among those plotted.
void PlotRaw_Click();

/// "Corrected for Jitter": every N-th scan less its offset.
void PlotCorrected_Click();

/// "Interpolated Data": every N-th scan on the common radial grid, lines alone. Its item is out of the user's reach.
void PlotInterp_Click();

/// Turns `SavePlotFiles` over, which nothing reads; the caption tells the mode. Its item is out of the user's reach.
void SavePlots_Click();

}  // namespace halvern
