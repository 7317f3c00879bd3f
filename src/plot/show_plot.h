#pragma once

#include <cstdint>

#include "plot/plot_request.h"
#include "store/analysis_store.h"

namespace halvern {

using PlotCurve = BoundedArray<float, PlotPoints>;

/// Shows the request in the plot window, unzoomed. Called with the request complete.
///
/// Given     Modal   true waits until the window is hidden again
void ShowPlot(bool Modal);

/// Ends a request against a plain x axis, not Ln(s*), and shows it.
void ShowRequest(const RequestFiller& request);

/// Takes the range on view, `PlotXMin` to `PlotYMax`, over all points, whatever is drawn at them.
///
/// Note      with no points the range is that of the first, stale elements
void FindDataLimits(const PlotCurve& X, const PlotCurve& Y, std::int32_t Count);

}  // namespace halvern
