#pragma once

namespace halvern {

/// "ReAdd Fringes (recommended)": makes each scan of the data set a continuous curve again.
void DoReAddNow_Click();

/// Rebuilds the whole fringes of every scan: of each signal the fraction is kept, and whole fringes are added point by
/// point, outwards, until the point continues the curve.
///
/// Reads     NumFiles, ScanPoints(K)
/// Writes    ScanData(I, 2, K)   fringes, for all points of all scans
/// Rounding  each store is a single: the fraction, the point at each step, the value predicted, and their difference
/// Note      points 1 to 3 stay fractions, they seed the prediction. A point that needs 30 fringes keeps them, but does
///           not hand them on; where 31 steps do not close a gap, the scan's later points stay fractions
void ReAddFringes();

}  // namespace halvern
