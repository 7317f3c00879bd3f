#pragma once

namespace halvern {

/// "Correct for Interference Jitter": shows the first halves of three scans for a radius to be picked at which the signal
/// ought not to change.
void SetJitterLimits_Click();

/// The button Test: what the radius at hand would do to the three scans shown. The pick stays open.
///
/// Reads     Meniscus   the radius, cm, in the frame of scan 1; for the other scans it is moved by their meniscus
/// Writes    JitterRefRadius, and JitterPoint(K) and JitterOffset(K) of the three scans
/// Fails     9 with a radius within the first ten points of a scan, or beyond all of them
void TestIt_Click();

/// What Done does with the radius picked: every scan gets its offset.
void TakeJitterPoint();

/// The offset of every scan: the mean signal of 21 points around the reference radius.
///
/// Reads     JitterRefRadius   cm
/// Writes    JitterCorrected, JitterPoint(K), JitterOffset(K), K = 1 .. NumFiles
/// Rounding  the sum is a single, rounded at each addition; the mean is stored once
/// Fails     9 as TestIt_Click
void ApplyJitterCorrection();

/// "Remove Jitter Correction": all offsets go, those of whole fringes too, and what was worked out with them.
void NoJitterCorrection_Click();

}  // namespace halvern
