#include "simulate/lamm_solver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace halvern::simulate {
namespace {

constexpr Column kColumn{6.0, 7.2};
constexpr double kOmega2 = 45000.0 * 45000.0 * std::numbers::pi * std::numbers::pi / 900.0;  // 45000 rpm

/// A globular protein of 150 kDa in water.
constexpr Particle kProtein{6.5e-13, 3.966e-7};

/// The radius r_b of a sharp boundary that would hold the same amount below a radius r_p of the plateau:
/// c_p (r_p^2 - r_b^2) / 2 is what lies between the meniscus and r_p.
double BoundaryRadius(const LammSolver& solver, double plateauCm) {
    const double plateau = solver.Concentration(plateauCm);
    return std::sqrt(plateauCm * plateauCm - 2.0 * solver.AmountWithin(plateauCm) / plateau);
}

std::vector<double> Profile(const LammSolver& solver) {
    std::vector<double> profile;
    for (double radius = 6.0; radius < 7.15; radius += 0.001)
        profile.push_back(solver.Concentration(radius));
    return profile;
}

/// The profile when the boundary has reached 6.55 cm.
std::vector<double> ProfileAtMidway(Resolution resolution) {
    LammSolver solver(kColumn, kProtein, resolution);
    solver.Advance(kOmega2, std::log(6.55 / 6.0) / (kProtein.sSeconds * kOmega2));
    return Profile(solver);
}

double GreatestDifference(const std::vector<double>& a, const std::vector<double>& b) {
    double greatest = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        greatest = std::max(greatest, std::abs(a[i] - b[i]));
    return greatest;
}

TEST(LammSolver, StartsUniformAndKnowsNothingOutsideTheColumn) {
    const LammSolver solver(kColumn, kProtein);
    EXPECT_DOUBLE_EQ(solver.Concentration(6.0), 1.0);
    EXPECT_DOUBLE_EQ(solver.Concentration(6.6123), 1.0);
    EXPECT_DOUBLE_EQ(solver.Concentration(7.2), 1.0);
    EXPECT_EQ(solver.Concentration(5.9999), 0.0);
    EXPECT_EQ(solver.Concentration(7.2001), 0.0);
}

TEST(LammSolver, StaysUniformAtRest) {
    LammSolver solver(kColumn, kProtein, {400, 1e-8});
    solver.Advance(0.0, 10000.0);
    for (const double concentration : Profile(solver))
        EXPECT_NEAR(concentration, 1.0, 1e-12);
}

TEST(LammSolver, LosesNothing) {
    LammSolver solver(kColumn, kProtein);
    const double loaded = (7.2 * 7.2 - 6.0 * 6.0) / 2.0;
    EXPECT_NEAR(solver.Amount(), loaded, 1e-12 * loaded);
    for (int scan = 0; scan < 20; ++scan) {
        solver.Advance(kOmega2, 600.0);
        EXPECT_NEAR(solver.Amount(), loaded, 1e-9 * loaded) << "after scan " << scan;
    }
}

// What a plateau holds thins out as the sector widens and the field grows: c_p = c_0 exp(-2 s omega^2 t).
TEST(LammSolver, ThinsThePlateauOut) {
    LammSolver solver(kColumn, kProtein);
    for (double seconds = 1000.0; seconds <= 6000.0; seconds += 1000.0) {
        solver.Advance(kOmega2, 1000.0);
        const double theory = std::exp(-2.0 * kProtein.sSeconds * kOmega2 * seconds);
        EXPECT_NEAR(solver.Concentration(6.95) / theory, 1.0, 1e-6) << seconds << " s";
    }
}

// The boundary by the amount below it moves as a single particle would, r_m exp(s omega^2 t), however broad it is:
// nothing crosses the meniscus, and diffusion moves nothing in the plateau. What is left is the plateau's share of the
// error of the time steps.
TEST(LammSolver, MovesTheBoundaryAsAParticle) {
    LammSolver solver(kColumn, kProtein);
    for (double seconds = 1000.0; seconds <= 6000.0; seconds += 1000.0) {
        solver.Advance(kOmega2, 1000.0);
        const double theory = kColumn.meniscusCm * std::exp(kProtein.sSeconds * kOmega2 * seconds);
        EXPECT_NEAR(BoundaryRadius(solver, 6.95) / theory, 1.0, 1e-7) << seconds << " s";
    }
}

// Twice the cells, a quarter of the error.
TEST(LammSolver, IsOfSecondOrderInTheCells) {
    constexpr double kTolerance = 1e-9;
    const auto coarse = ProfileAtMidway({250, kTolerance});
    const auto middle = ProfileAtMidway({500, kTolerance});
    const auto fine = ProfileAtMidway({1000, kTolerance});
    const double ratio = GreatestDifference(coarse, middle) / GreatestDifference(middle, fine);
    EXPECT_NEAR(ratio, 4.0, 0.2);
}

// The error of a step goes with the third power of its length and that of the run with the second: a tolerance of a
// thousandth costs ten times the steps and gives a hundredth of the error.
TEST(LammSolver, IsOfSecondOrderInTime) {
    const auto exact = ProfileAtMidway({500, 1e-11});
    const double loose = GreatestDifference(ProfileAtMidway({500, 1e-5}), exact);
    const double tight = GreatestDifference(ProfileAtMidway({500, 1e-8}), exact);
    EXPECT_GT(loose / tight, 50.0);
    EXPECT_LT(loose / tight, 200.0);
}

// The usual resolution against one of twice the cells and a tenth of the tolerance. The errors are of second order, so
// the difference is most of the error.
TEST(LammSolver, IsGoodToATenThousandthAsItComes) {
    EXPECT_LT(GreatestDifference(ProfileAtMidway({}), ProfileAtMidway({8000, 1e-9})), 5e-5);
}

TEST(LammSolver, CarriesItsStateFromSpeedToSpeed) {
    constexpr double kSlow = kOmega2 / 9.0;
    LammSolver solver(kColumn, kProtein);
    solver.Advance(kSlow, 9000.0);
    solver.Advance(kOmega2, 2000.0);
    solver.Advance(kSlow, 4500.0);
    const double swept = kProtein.sSeconds * (kSlow * 13500.0 + kOmega2 * 2000.0);
    EXPECT_NEAR(solver.Concentration(6.9) / std::exp(-2.0 * swept), 1.0, 1e-6);
    EXPECT_NEAR(BoundaryRadius(solver, 6.9) / (6.0 * std::exp(swept)), 1.0, 1e-7);
}

// Scans interrupt the steps and change nothing else. Both runs are within some 1E-6 of the exact one.
TEST(LammSolver, DoesNotCareInHowManyPiecesTimeIsCut) {
    LammSolver whole(kColumn, kProtein, {1000, 1e-9}), cut(kColumn, kProtein, {1000, 1e-9});
    whole.Advance(kOmega2, 3000.0);
    for (int i = 0; i < 60; ++i)
        cut.Advance(kOmega2, 50.0);
    EXPECT_LT(GreatestDifference(Profile(whole), Profile(cut)), 5e-6);
}

// At the end of all sedimentation the flows balance: c is proportional to exp(s omega^2 r^2 / (2 D)), and the amount
// gives the factor. With cells of Peclet number P the slope of ln c is good to P^2 / 12.
TEST(LammSolver, ComesToSedimentationEquilibrium) {
    constexpr Column kShort{6.9, 7.2};
    constexpr Particle kSmall{1.5e-13, 10e-7};
    constexpr double kSlowOmega2 = kOmega2 / 4.0;
    LammSolver solver(kShort, kSmall, {1000, 1e-8});
    solver.Advance(kSlowOmega2, 1e6);  // sixty times L^2 / (pi^2 D), the time of diffusion from end to end, and more
    const double k = kSmall.sSeconds * kSlowOmega2 / (2.0 * kSmall.diffusionCm2PerS);
    const double amount = (7.2 * 7.2 - 6.9 * 6.9) / 2.0;
    const double factor = 2.0 * k * amount / (std::exp(k * 7.2 * 7.2) - std::exp(k * 6.9 * 6.9));
    for (const double radius : {6.9, 6.95, 7.05, 7.15, 7.2})
        EXPECT_NEAR(solver.Concentration(radius) / (factor * std::exp(k * radius * radius)), 1.0, 1e-5) << radius;
}

// A gradient left alone levels out. In a column much shorter than its radius the slowest part of it goes with
// exp(-pi^2 D t / L^2); the sector adds a correction of the order of (L / r)^2 / 10, some 2E-5.
TEST(LammSolver, LevelsOutByItsDiffusionCoefficient) {
    constexpr Column kShort{7.1, 7.2};
    constexpr double kLength = 0.1;
    LammSolver solver(kShort, kProtein, {500, 1e-10});
    solver.Advance(kOmega2 / 20.0, 2000.0);
    const auto difference = [&] { return solver.Concentration(7.2) - solver.Concentration(7.1); };
    solver.Advance(0.0, 3000.0);  // the faster parts are over
    const double before = difference();
    solver.Advance(0.0, 2000.0);
    const double rate = std::log(before / difference()) / 2000.0;
    const double theory = std::numbers::pi * std::numbers::pi * kProtein.diffusionCm2PerS / (kLength * kLength);
    EXPECT_NEAR(rate / theory, 1.0, 2e-4);
}

TEST(LammSolver, KeepsConcentrationsPositiveWhereCellsAreTooWide) {
    constexpr Particle kVirus{1000e-13, 1e-8};
    ASSERT_GT(CellPeclet(kColumn, kVirus, kOmega2 / 4.0, 400), 100.0);
    LammSolver solver(kColumn, kVirus, {400, 1e-6});
    solver.Advance(kOmega2 / 4.0, 150.0);
    for (const double concentration : Profile(solver)) {
        EXPECT_GT(concentration, -1e-5);  // the error of the time steps, a few times the tolerance
        EXPECT_LT(concentration, 1.0);
    }
    EXPECT_NEAR(BoundaryRadius(solver, 7.1) / (6.0 * std::exp(kVirus.sSeconds * kOmega2 / 4.0 * 150.0)), 1.0, 1e-4);
}

TEST(LammSolver, TellsThePecletNumberOfItsCells) {
    // s omega^2 / D times the width of a cell in r^2 / 2, (51.84 - 36) / 2 / 100
    EXPECT_NEAR(CellPeclet(kColumn, {1e-13, 1e-6}, 1e7, 100), 1e-13 * 1e7 / 1e-6 * 0.0792, 1e-12);
}

}  // namespace
}  // namespace halvern::simulate
