#pragma once

namespace halvern {

/// dc/dt of each scan of the first half with its partner of the second, over s*, and the mean of the pairs. The report
/// tells of the spacing of s*.
///
/// Fails     as KeldIt_Click
void CalculateRates();

/// "Calculate dc/dt": the time derivative of the signal on a uniform s* grid, from pairs of scans.
///
/// Scan P of the first half of the data set is paired with scan P + ScanSkip of the second half; with an odd number of
/// scans the last takes no part. Needs a meniscus and a data set of one speed.
///
/// Reads     ScanData, ScanPoints, ScanTime, JitterOffset (interference), Meniscus, ScanSpeed(1), ScanW2t(1)
/// Writes    GridRadius, GridSignal, GridPoints   the common radial grid: that of scan 1 for interference data, else
///                                0.001 cm from the meniscus on
///           FirstGridPoint       first grid point at or beyond the meniscus
///           DeltaS               Svedbergs; the smallest round step of which 2000 reach the s* of 7.2 cm at scan 1
///           SStar, SPoints       the s* grid, seconds; as long as the last pair's curve, the shortest
///           RatePairs, AveRateRaw, AveRate, RateWork   signal per second; earlier less later scan: positive where the
///                                signal falls
///           SedTime              harmonic mean time of the last pair, seconds
/// Fails     11 or 5 with equal or impossible times, 9 without a grid point at or beyond the meniscus, as long
///           as no dc/dt has found one: an earlier FirstGridPoint stays, also of another data set
void KeldIt_Click();

/// The plot request for the dc/dt of all pairs; the caller has set its texts.
void PlotRawRate();

}  // namespace halvern
