#include "simulate/experiment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "simulate/lamm_solver.h"
#include "simulate/parameter_text.h"

namespace halvern::simulate {
namespace {

Parameters Checked(const std::string& text) {
    Parameters parameters;
    ReadParameters(parameters, text, "p.txt");
    Check(parameters);
    return parameters;
}

constexpr const char* kCoarse =
    "optics = interference\nradial-step = 0.01\nread-from = 5.95\nread-to = 7.22\ncells = 400\ntolerance = 1e-6\n";

TEST(Moments, AddUpOmegaSquaredTOverTheSpeeds) {
    const auto moments =
        Moments(Checked("species = concentration:1 s:4.3 mass:66\n"
                        "speed = rpm:3000 until:300\n"
                        "speed = rpm:30000 at:300,400 until:1000\n"
                        "speed = rpm:60000 at:1500\n"));
    ASSERT_EQ(moments.size(), 3U);
    const double pi2 = 3.14159265358979324 * 3.14159265358979324;
    EXPECT_EQ(moments[0].rpm, 30000);
    EXPECT_EQ(moments[0].seconds, 300.0);
    EXPECT_NEAR(moments[0].omega2t / pi2, 300.0 * 1e4, 1e-6);  // 3000 rpm are 100 pi rad/s
    EXPECT_NEAR(moments[1].omega2t / pi2, 300.0 * 1e4 + 100.0 * 1e6, 1e-4);
    EXPECT_EQ(moments[2].rpm, 60000);
    EXPECT_NEAR(moments[2].omega2t / pi2, 300.0 * 1e4 + 700.0 * 1e6 + 500.0 * 4e6, 1e-3);
}

TEST(Experiment, ReadsTheSolverAtTheRadiiOfEachScan) {
    const auto scans =
        RunExperiment(Checked(std::string(kCoarse) + "species = concentration:0.5 s:6.5 mass:150\n"
                                                     "speed = rpm:20000 until:1000\nspeed = rpm:45000 at:2000,4000\n"));
    const auto parameters = Checked("species = concentration:1 s:6.5 mass:150\nspeed = rpm:45000 at:1\n");
    LammSolver solver({6.0, 7.2}, {6.5e-13, DiffusionCm2PerS(parameters.species[0], parameters)}, {400, 1e-6});
    solver.Advance(Omega2(20000), 1000.0);
    solver.Advance(Omega2(45000), 1000.0);
    ASSERT_EQ(scans.size(), 2U);
    for (std::size_t k = 0; k < 2; ++k) {
        const auto& trace = scans[k].trace;
        for (std::size_t i = 0; i < trace.radiusCm.size(); ++i)
            EXPECT_NEAR(trace.signal[i], 0.5 * solver.Concentration(trace.radiusCm[i]), 2e-4 * (1.0 + trace.signal[i]));
        solver.Advance(Omega2(45000), 2000.0);
    }
}

TEST(Experiment, SeesNothingInsideTheMeniscusAndBeyondTheBase) {
    const auto scans = RunExperiment(
        Checked(std::string(kCoarse) + "species = concentration:1 s:4.3 mass:66\nspeed = rpm:3000 at:1\n"));
    const auto& trace = scans[0].trace;
    for (std::size_t i = 0; i < trace.radiusCm.size(); ++i) {
        const bool inside = trace.radiusCm[i] >= 6.0 && trace.radiusCm[i] <= 7.2;
        EXPECT_NEAR(trace.signal[i], inside ? 1.0 : 0.0, 0.01) << trace.radiusCm[i];
    }
}

TEST(Experiment, AddsUpItsSpecies) {
    const std::string rest = std::string(kCoarse) + "speed = rpm:45000 at:2000\n";
    const std::string light = "species = concentration:0.6 s:4.3 mass:66\n",
                      heavy = "species = concentration:0.4 s:6.6 mass:132\n";
    const auto both = RunExperiment(Checked(rest + light + heavy))[0].trace.signal;
    const auto one = RunExperiment(Checked(rest + light))[0].trace.signal;
    const auto other = RunExperiment(Checked(rest + heavy))[0].trace.signal;
    for (std::size_t i = 0; i < both.size(); ++i)
        EXPECT_DOUBLE_EQ(both[i], one[i] + other[i]);
}

TEST(Experiment, TakesAsManyScansAsADataSetHolds) {
    const auto scans =
        RunExperiment(Checked("radial-step = 0.1\nradius-scatter = 0\ncells = 50\ntolerance = 1e-3\n"
                              "species = concentration:1 s:4.3 mass:66\n"
                              "speed = rpm:50000 from:10 to:5000 scans:500\n"));
    EXPECT_EQ(scans.size(), 500U);
    EXPECT_EQ(scans.back().moment.seconds, 5000.0);
}

}  // namespace
}  // namespace halvern::simulate
