#pragma once

#include <array>
#include <string>

namespace halvern {

/// An average of s* with its standard error, Svedbergs.
struct Average {
    double value;
    double error;
};

/// The averages over a distribution within the s* limits, and its area.
struct DistributionAverages {
    Average Sn, Sw, Sz, SzPlus1;
    double concentration;  ///< signal
};

/// Sets `GHat`, `GStar` and `GStarSem` to 0 at the s* limits and outside them, where no plot, file or average looks.
void BlankOutsideLimits();

/// From g^(s*): its area is the plateau concentration.
///
/// Fails     11 with no point between the limits, or with s* of 0 among them
DistributionAverages AveragesOfInteracting();

/// From g(s*): its area is the loading concentration. Both cases use the same standard errors.
DistributionAverages AveragesOfNonInteracting();

/// The five lines that tell them: Sn, Sw, Sz, Sz+1 and the concentration, which is "Cp" of an interacting system, "Co"
/// of a non-interacting one.
std::array<std::string, 5> AverageLinesOfInteracting(const DistributionAverages& averages);
std::array<std::string, 5> AverageLinesOfNonInteracting(const DistributionAverages& averages);

}  // namespace halvern
