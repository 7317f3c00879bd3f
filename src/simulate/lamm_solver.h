#pragma once

#include <cstddef>
#include <vector>

namespace halvern::simulate {

/// The column of solution in a sector-shaped cell, radii in cm, 0 < meniscus < base.
struct Column {
    double meniscusCm = 6.0;
    double baseCm = 7.2;
};

/// One ideal species: s in seconds, at or above 0, and D in cm^2/s, above 0. It knows nothing of the other species.
struct Particle {
    double sSeconds = 0.0;
    double diffusionCm2PerS = 0.0;
};

struct Resolution {
    std::size_t cells = 4000;  // at least 4
    double tolerance = 1e-8;   // error of one time step, as a share of (loading + local) concentration; above 0
};

/// Sedimentation and diffusion of one species, from a uniform column of concentration 1 at rest onwards.
///
/// Solves    dc/dt = (1/r) d/dr (r D dc/dr - s omega^2 r^2 c), with no flow through meniscus and base
/// Mesh      cells of equal volume: with x = r^2 / 2 the sector becomes a slab, dc/dt = d/dx (2x (D dc/dx - s omega^2
/// c)),
///           in which a cell's amount is c times its width. What leaves a cell enters the next, so the amount is
///           constant to rounding
/// Space     second order: central differences, as long as s omega^2 dx / D, the cell's Peclet number, is 2 or less.
///           Above, the diffusion is raised by the least that keeps concentrations positive, and the boundary broadens
/// Time      second order, one step made of a trapezium and a backward differentiation, stable for any step; the step's
///           length follows its own error estimate, which resolves the sudden start at both ends of the column
/// Source    O. Lamm, Ark. Mat. Astr. Fys. 21B (1929): the equation.
///           D. B. Spalding, Int. J. Numer. Meth. Eng. 4 (1972) 551: the flow through a face.
///           R. E. Bank et al., IEEE Trans. Comput.-Aided Des. 4 (1985) 436, and M. E. Hosea and L. F. Shampine,
///           Appl. Numer. Math. 20 (1996) 21: the time step and its error estimate
/// Rounding  double
class LammSolver {
  public:
    LammSolver(Column column, Particle particle, Resolution resolution = {});

    /// Lets the rotor turn on for some seconds, at or above 0, at omega^2 in rad^2/s^2, at or above 0.
    void Advance(double omega2, double seconds);

    /// Concentration at a radius in cm as a share of the loading concentration: a cubic through the four cells around
    /// it; 0 outside the column.
    double Concentration(double radiusCm) const;

    /// Integral of c r dr over the column, cm^2.
    double Amount() const;

    /// Integral of c r dr from the meniscus to a radius within the column, cm^2. The cell that the radius cuts counts
    /// with its share.
    double AmountWithin(double radiusCm) const;

  private:
    void SetSpeed(double omega2);
    void Factorise(double stepSeconds);
    void Solve(std::vector<double>& values) const;
    void Rates(const std::vector<double>& c, std::vector<double>& rates) const;
    double TryStep();

    Column column_;
    Particle particle_;
    Resolution resolution_;
    double firstX_;
    double widthX_;

    double omega2_ = -1.0;        // none yet
    double nextStepSeconds_ = 0;  // what the error of the last step allows
    double stepSeconds_ = 0;      // what the factors below are for

    std::vector<double> c_;
    std::vector<double> rate_;  // dc/dt of c_
    // Flow through the face in front of cell i, divided by the cell's width: outwards_[i] c[i-1] - inwards_[i] c[i].
    // The faces 0 and N are meniscus and base and let nothing through.
    std::vector<double> outwards_, inwards_;
    std::vector<double> below_, inversePivot_, above_;  // factors of 1 - kShare step A, where dc/dt = A c
    std::vector<double> middle_, middleRate_, end_, endRate_, error_;
};

/// The number s omega^2 dx / D for a column in that many cells: how far a species sediments within a cell, in units of
/// how far it diffuses. Above 2 the solver broadens the boundary.
double CellPeclet(Column column, Particle particle, double omega2, std::size_t cells);

}  // namespace halvern::simulate
