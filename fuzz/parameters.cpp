// The text of a parameter file of the simulation, and what is worked out of the parameters before anything runs.
#include "simulate/parameters.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "simulate/parameter_text.h"
#include "support/check.h"

namespace {

using namespace halvern::simulate;
using halvern::fuzz::Broken;
using halvern::fuzz::Check;
using halvern::fuzz::Visible;

constexpr const char* kName = "rack";

/// A complaint names the file and a line that there is, unless it is about all parameters together.
void CheckComplaint(const std::string& complaint, std::string_view text) {
    Check(!complaint.empty(), "a complaint says something");
    const std::string prefix = std::string(kName) + ":";
    if (!complaint.starts_with(prefix))
        return;
    const long line = std::strtol(complaint.c_str() + prefix.size(), nullptr, 10);
    const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
    if (line < 1 || line > lines)
        Broken("a complaint names a line of the file", Visible(complaint));
}

bool Within(double value, double low, double high) { return value >= low && value <= high; }

void CheckBounds(const Parameters& parameters) {
    Check(Within(parameters.temperatureCelsius, 0, 60) && Within(parameters.meniscusCm, 1, 9.9) &&
              Within(parameters.baseCm, 1, 9.9) && Within(parameters.tolerance, 1e-12, 0.01) &&
              Within(parameters.cell, 1, 8) && Within(parameters.signalDecimals, 1, 8),
          "a parameter lies within its bounds");
    for (const auto& species : parameters.species)
        Check(std::isfinite(species.sSvedberg) && species.massKDa.has_value() != species.diffusionFick.has_value(),
              "a species has a mass or a diffusion");
    for (const auto& run : parameters.speeds) {
        Check(Within(run.rpm, 1, 100000) && Within(run.endSeconds, 0, 9999999), "a speed lies within its bounds");
        Check(run.scanSeconds.empty() || run.endSeconds >= run.scanSeconds.back(), "a speed ends behind its last scan");
    }
    for (const auto& [key, where] : parameters.where)
        Check(IsKey(key) && where.starts_with(kName), "what is set is known, and from where");
}

void WorkOut(const Parameters& parameters) {
    Check(parameters);
    Check(RadialPoints(parameters) >= kFewestPoints && RadialPoints(parameters) <= kMostPoints,
          "checked parameters give scans that can be analysed");
    for (const auto& species : parameters.species) {
        Check(DiffusionCm2PerS(species, parameters) > 0.0, "a species of checked parameters diffuses");
        Check(SolverCells(species, parameters) >= 50 && SolverCells(species, parameters) <= 40000,
              "the solver has cells within bounds");
    }
    for (const auto& warning : Warnings(parameters))
        Check(!warning.empty(), "a warning says something");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = halvern::fuzz::TextOf(data, size);
    Parameters parameters;
    try {
        ReadParameters(parameters, text, kName);
        CheckBounds(parameters);
        WorkOut(parameters);
    } catch (const ParameterError& error) {
        CheckComplaint(error.what(), text);
    }
    return 0;
}
