#pragma once

#include <vector>

#include "simulate/parameters.h"
#include "simulate/scan_writer.h"

namespace halvern::simulate {

/// When the scans are taken, in order. The rotor takes on each speed at once: omega squared t is the sum, over the
/// speeds, of omega^2 times the time at it.
std::vector<Moment> Moments(const Parameters& parameters);

/// Runs the experiment: each species sediments on its own through all speeds, and their signals add up.
///
/// Given     parameters that have passed Check
std::vector<Scan> RunExperiment(const Parameters& parameters);

}  // namespace halvern::simulate
