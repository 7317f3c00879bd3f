#include "simulate/experiment.h"

#include "simulate/instrument.h"
#include "simulate/lamm_solver.h"

namespace halvern::simulate {

namespace {

/// A stretch of time at one speed, up to a scan or to the end of the speed.
struct Leg {
    int rpm;
    double seconds;  // length
    double endSeconds;
    bool endsInScan;
};

std::vector<Leg> Legs(const Parameters& p) {
    std::vector<Leg> legs;
    double now = 0.0;
    for (const auto& run : p.speeds) {
        for (const double scan : run.scanSeconds) {
            legs.push_back({run.rpm, scan - now, scan, true});
            now = scan;
        }
        legs.push_back({run.rpm, run.endSeconds - now, run.endSeconds, false});
        now = run.endSeconds;
    }
    return legs;
}

void AddConcentrations(const LammSolver& solver, double loaded, Trace& trace) {
    for (std::size_t i = 0; i < trace.signal.size(); ++i)
        trace.signal[i] += loaded * solver.Concentration(trace.radiusCm[i]);
}

void AddSpecies(const Parameters& p, const Species& species, std::vector<Scan>& scans) {
    LammSolver solver({p.meniscusCm, p.baseCm}, ParticleOf(species, p), {SolverCells(species, p), p.tolerance});
    std::size_t scan = 0;
    for (const auto& leg : Legs(p)) {
        solver.Advance(Omega2(leg.rpm), leg.seconds);
        if (leg.endsInScan)
            AddConcentrations(solver, species.concentration, scans[scan++].trace);
        if (scan == scans.size())
            break;  // nobody looks at what is left of the run
    }
}

}  // namespace

std::vector<Moment> Moments(const Parameters& parameters) {
    std::vector<Moment> moments;
    double omega2t = 0.0;
    for (const auto& leg : Legs(parameters)) {
        omega2t += Omega2(leg.rpm) * leg.seconds;
        if (leg.endsInScan)
            moments.push_back({leg.rpm, leg.endSeconds, omega2t});
    }
    return moments;
}

std::vector<Scan> RunExperiment(const Parameters& parameters) {
    std::vector<Scan> scans;
    for (const auto& moment : Moments(parameters))
        scans.push_back({moment, {}});
    const Instrument instrument(parameters, scans.size());
    for (std::size_t i = 0; i < scans.size(); ++i) {
        scans[i].trace.radiusCm = instrument.Radii(i);
        scans[i].trace.signal.assign(scans[i].trace.radiusCm.size(), 0.0);
    }
    for (const auto& species : parameters.species)
        AddSpecies(parameters, species, scans);
    for (std::size_t i = 0; i < scans.size(); ++i)
        instrument.Read(i, scans[i].trace);
    return scans;
}

}  // namespace halvern::simulate
