#pragma once

#include <cstddef>
#include <vector>

#include "simulate/parameters.h"
#include "simulate/scan_writer.h"

namespace halvern::simulate {

/// The optics: where they read the cell, and what they add to what they see.
///
/// Radii     every radial step from the first on, as the file will hold them, so that a signal belongs to the radius
///           beside it. The stepping monochromator of the absorbance optics misses each step by up to the scatter,
///           another amount in each scan; the camera of the interference optics has the same radii for all
/// Signal    the concentrations, a peak at the meniscus, cut at the ceiling; then, with interference optics, a pattern
///           that is the same in all scans, an offset of each scan and jumps by whole fringes; then noise
/// Chance    a scan's numbers depend on the seed and the scan's number alone
class Instrument {
  public:
    Instrument(const Parameters& parameters, std::size_t scans);

    /// Radii of a scan, from 0, in cm, rising.
    std::vector<double> Radii(std::size_t scan) const;

    /// Turns the concentrations in a trace into the signal that the instrument reports, and adds the spread.
    void Read(std::size_t scan, Trace& trace) const;

  private:
    void AddMeniscusSpike(Trace& trace) const;
    void CutAtCeiling(Trace& trace) const;
    void AddInterferenceIlls(std::size_t scan, Trace& trace) const;
    void AddJumpsWithin(std::size_t scan, Trace& trace) const;
    void AddNoise(std::size_t scan, Trace& trace) const;

    const Parameters& p_;
    std::uint64_t seed_;
    std::vector<double> timeInvariant_;  // fringes at each point
    std::vector<int> fringeLevel_;       // fringes that each scan has jumped by, with all scans before it
};

}  // namespace halvern::simulate
