#pragma once

namespace halvern {

/// "Set Range and calculate g(s*)": shows the average dc/dt and lets the user pick the limits of s*.
void DoGofS_Click();

/// What Done does with the limits picked: calculates g^(s*), g(s*) and their errors, opens what follows, plots g^(s*).
void TakeSLimits();

/// "g(s*)" with its error lines, within the limits.
void PlotGS();

/// "g^(s*)", within the limits.
void PlotGShat();

/// Turns `DataLimitMin` and `DataLimitMax`, Svedbergs, into the indices `SRangeFirst` and `SRangeLast` of the s* grid.
/// The points in use are those strictly between the two.
void FindSRange();

/// Standard error of the mean of dc/dt, `RateSem`, and the harmonic mean time of all scans in use, `SedTime`, seconds.
///
/// Fails     11 with a single pair, 5 where rounding makes a sum of squares negative
void PairStatistics();

/// `GHat`, `GStar`, both signal per second of s*, and `GStarSem`, signal per Svedberg, from `AveRate`.
///
/// Fails     11 with s* of 0, 6 where exp(2 omega squared s* t) leaves the range
void CalculateDistributions();

/// Takes from dc/dt the part that the plateau's dilution adds, in three passes, and rebuilds `GHat` from what is left.
///
/// Writes    GHat          above 0.1 Svedberg
///           PlateauRate   dc/dt less the plateau part, signal per second
void Plateau();

}  // namespace halvern
