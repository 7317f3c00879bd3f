#include "simulate/lamm_solver.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace halvern::simulate {

namespace {

// A step goes to its middle point by the trapezium rule and from there to its end by the backward differentiation
// formula of second order. The middle point at 2 - sqrt(2) of the step gives both halves the same matrix.
constexpr double kShare = 1.0 - std::numbers::sqrt2 / 2.0;
constexpr double kWeight = std::numbers::sqrt2 / 4.0;
// Weights of the three rates in the difference to the embedded formula of third order.
constexpr double kError0 = (1.0 - kWeight) / 3.0 - kWeight;
constexpr double kError1 = (3.0 * kWeight + 1.0) / 3.0 - kWeight;
constexpr double kError2 = kShare / 3.0 - kShare;

constexpr double kFirstStepSeconds = 1e-3;  // the start is sudden; the step grows from here as its error allows
constexpr double kSafety = 0.9;
constexpr double kMostGrowth = 2.0;
constexpr double kMostShrinking = 0.2;

double HalfSquare(double radius) { return 0.5 * radius * radius; }

}  // namespace

LammSolver::LammSolver(Column column, Particle particle, Resolution resolution)
    : column_(column),
      particle_(particle),
      resolution_(resolution),
      firstX_(HalfSquare(column.meniscusCm)),
      widthX_((HalfSquare(column.baseCm) - firstX_) / static_cast<double>(resolution.cells)) {
    const std::size_t cells = resolution.cells;
    c_.assign(cells, 1.0);
    for (auto* values : {&rate_, &below_, &inversePivot_, &above_, &middle_, &middleRate_, &end_, &endRate_, &error_})
        values->resize(cells);
    outwards_.resize(cells + 1);
    inwards_.resize(cells + 1);
}

void LammSolver::SetSpeed(double omega2) {
    if (omega2 == omega2_)
        return;
    omega2_ = omega2;
    const double sedimentation = particle_.sSeconds * omega2 / widthX_;
    const double diffusion = particle_.diffusionCm2PerS / (widthX_ * widthX_);
    const double inwards = std::max(diffusion - 0.5 * sedimentation, 0.0);
    const double outwards = inwards + sedimentation;
    for (std::size_t i = 1; i < c_.size(); ++i) {
        const double twoX = 2.0 * (firstX_ + static_cast<double>(i) * widthX_);
        outwards_[i] = twoX * outwards;
        inwards_[i] = twoX * inwards;
    }
    Rates(c_, rate_);
    nextStepSeconds_ = kFirstStepSeconds;
    stepSeconds_ = 0.0;
}

void LammSolver::Rates(const std::vector<double>& c, std::vector<double>& rates) const {
    double in = 0.0;
    for (std::size_t i = 0; i + 1 < c.size(); ++i) {
        const double out = outwards_[i + 1] * c[i] - inwards_[i + 1] * c[i + 1];
        rates[i] = in - out;
        in = out;
    }
    rates.back() = in;
}

void LammSolver::Factorise(double stepSeconds) {
    if (stepSeconds == stepSeconds_)
        return;
    stepSeconds_ = stepSeconds;
    const double theta = kShare * stepSeconds;
    for (std::size_t i = 0; i < c_.size(); ++i) {
        const double diagonal = 1.0 + theta * (inwards_[i] + outwards_[i + 1]);
        above_[i] = -theta * inwards_[i + 1];
        below_[i] = i == 0 ? 0.0 : -theta * outwards_[i] * inversePivot_[i - 1];
        inversePivot_[i] = 1.0 / (i == 0 ? diagonal : diagonal - below_[i] * above_[i - 1]);
    }
}

void LammSolver::Solve(std::vector<double>& values) const {
    for (std::size_t i = 1; i < values.size(); ++i)
        values[i] -= below_[i] * values[i - 1];
    values.back() *= inversePivot_.back();
    for (std::size_t i = values.size() - 1; i-- > 0;)
        values[i] = (values[i] - above_[i] * values[i + 1]) * inversePivot_[i];
}

/// Works out one step of stepSeconds_ into end_ and endRate_ and returns its error in units of what is tolerated.
double LammSolver::TryStep() {
    const double h = stepSeconds_;
    const std::size_t cells = c_.size();
    for (std::size_t i = 0; i < cells; ++i)
        middle_[i] = c_[i] + h * kShare * rate_[i];
    Solve(middle_);
    Rates(middle_, middleRate_);
    for (std::size_t i = 0; i < cells; ++i)
        end_[i] = c_[i] + h * kWeight * (rate_[i] + middleRate_[i]);
    Solve(end_);
    Rates(end_, endRate_);
    for (std::size_t i = 0; i < cells; ++i)
        error_[i] = h * (kError0 * rate_[i] + kError1 * middleRate_[i] + kError2 * endRate_[i]);
    // The bare estimate overstates what decays within the step; the matrix of the step takes this back.
    Solve(error_);
    double worst = 0.0;
    for (std::size_t i = 0; i < cells; ++i)
        worst = std::max(worst, std::abs(error_[i]) / (1.0 + std::abs(end_[i])));
    return worst / resolution_.tolerance;
}

void LammSolver::Advance(double omega2, double seconds) {
    SetSpeed(omega2);
    for (double left = seconds; left > 0.0;) {
        const double steps = std::ceil(left / nextStepSeconds_);
        Factorise(steps > 1.0 ? left / steps : left);
        const double error = TryStep();
        const double factor = std::clamp(kSafety / std::cbrt(std::max(error, 1e-30)), kMostShrinking, kMostGrowth);
        if (error <= 1.0) {
            std::swap(c_, end_);
            std::swap(rate_, endRate_);
            left = steps > 1.0 ? left - stepSeconds_ : 0.0;
        }
        // A step cut short by the end of the time says little about how long the next one may be.
        if (error > 1.0 || steps > 1.0 || stepSeconds_ * factor > nextStepSeconds_)
            nextStepSeconds_ = stepSeconds_ * factor;
    }
}

double LammSolver::Concentration(double radiusCm) const {
    if (radiusCm < column_.meniscusCm || radiusCm > column_.baseCm)
        return 0.0;
    const double place = (HalfSquare(radiusCm) - firstX_) / widthX_ - 0.5;  // in cells, from the first one's centre
    const auto last = static_cast<double>(c_.size() - 4);
    const double first = std::clamp(std::floor(place) - 1.0, 0.0, last);
    const auto* c = &c_[static_cast<std::size_t>(first)];
    const double u = place - first;  // the four cells lie at 0, 1, 2, 3
    return -c[0] * (u - 1.0) * (u - 2.0) * (u - 3.0) / 6.0 + c[1] * u * (u - 2.0) * (u - 3.0) / 2.0 -
           c[2] * u * (u - 1.0) * (u - 3.0) / 2.0 + c[3] * u * (u - 1.0) * (u - 2.0) / 6.0;
}

double LammSolver::Amount() const { return AmountWithin(column_.baseCm); }

double LammSolver::AmountWithin(double radiusCm) const {
    const double place = (HalfSquare(radiusCm) - firstX_) / widthX_;
    double sum = 0.0;
    for (std::size_t i = 0; i < c_.size(); ++i)
        sum += c_[i] * std::clamp(place - static_cast<double>(i), 0.0, 1.0);
    return sum * widthX_;
}

double CellPeclet(Column column, Particle particle, double omega2, std::size_t cells) {
    const double width = (HalfSquare(column.baseCm) - HalfSquare(column.meniscusCm)) / static_cast<double>(cells);
    return particle.sSeconds * omega2 * width / particle.diffusionCm2PerS;
}

}  // namespace halvern::simulate
