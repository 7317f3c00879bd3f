#pragma once

namespace halvern {

/// "Correct for Integral Fringe Shift": puts the scans, less their offsets, on the radii of scan 1 and shows three of them
/// for a radius to be picked at which neighbouring scans ought to agree.
void DoIntShift_Click();

/// What Done does with the radius picked.
void TakeFringePoint();

/// Walks from the last scan back to the first and moves each by whole fringes until it lies within half a fringe of its
/// successor at the reference, five points averaged. Then it plots the corrected scans.
///
/// Reads     FringeRefRadius   cm
///           GridRadius(I)     radii of scan 1
/// Writes    GridSignal(I, K)  fringes, I = 1 .. ScanPoints(1)
///           JitterOffset(K)   the opposite change: ScanData(I, 2, K) less it stays GridSignal(I, K)
///           FringeCorrected
/// Rounding  the sum of five is a single, rounded at each addition; the mean and the difference are singles
/// Fails     9 with a radius within the first points of scan 1, or beyond all of them
/// Note      the five points are centred one below the first point at or beyond the radius
void CorrectIntegerFringes();

}  // namespace halvern
