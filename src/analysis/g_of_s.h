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

/// Turns the limits of s* into indices of the s* grid. The points in use are those strictly between the two.
///
/// Reads     DataLimitMin, DataLimitMax   Svedbergs; a limit in seconds is a single
///           SStar(1 .. SPoints)
/// Writes    SRangeFirst   the first point at or beyond the lower limit, 1 without one
///           SRangeLast    from there on the same of the upper limit, SPoints without one
///           SLimitsSet
void FindSRange();

/// Standard error of the mean of dc/dt over the pairs, and the harmonic mean time of all scans in use.
///
/// Reads     RatePairs, ScanSkip, SPoints, ScanTime(1 .. 2 ScanSkip)
/// Writes    RateSem   signal per second
///           SedTime   seconds
/// Rounding  sums over the pairs are doubles; variance and error are singles, each term of the harmonic sum is
/// Fails     11 with a single pair or a scan at time 0, 5 where rounding makes a sum of squares negative
void PairStatistics();

/// g^(s*) and g(s*) from the average dc/dt, with Plateau between them, and the standard error of g(s*).
///
/// Reads     AveRate, RateSem, SStar(1 .. SPoints), SedTime, ScanSpeed(1)
/// Writes    GHat, PlateauRate   as Plateau leaves them
///           GStar      signal per second of s*; 0 up to 0.05 Svedberg
///           GStarSem   signal per Svedberg
/// Rounding  each element once; omega squared is a single
/// Fails     11 with s* of 0, 6 where exp(2 omega squared s* t) or a value leaves its range
void CalculateDistributions();

/// Takes from dc/dt the part that the plateau's dilution adds, in three passes, and rebuilds g^(s*) from what is left.
///
/// Reads     AveRate, SStar(1 .. SPoints), SedTime, ScanSpeed(1); GHat to begin with
/// Writes    GHat          above 0.1 Svedberg, signal per second of s*
///           PlateauRate   dc/dt less the plateau part, signal per second
/// Rounding  omega squared is a double; each term of the running integral is stored as a single, t / s* is one
/// Fails     9 with fewer than two points of s*, 6 where a value leaves the range of a single
void Plateau();

}  // namespace halvern
