#include "simulate/random.h"

#include <cmath>
#include <numbers>

namespace halvern::simulate {

namespace {

std::uint64_t Mixed(std::uint64_t z) {
    z += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
}

}  // namespace

Random::Random(std::uint64_t seed, Chance chance, std::uint64_t scan)
    : bits_(Mixed(Mixed(Mixed(seed) + static_cast<std::uint64_t>(chance)) + scan)) {}

double Random::Uniform() {
    constexpr unsigned kDroppedBits = 64 - 53;
    return static_cast<double>(bits_() >> kDroppedBits) * 0x1p-53;
}

double Random::Normal() {
    const double radius = std::sqrt(-2.0 * std::log(1.0 - Uniform()));  // 1 - Uniform() is never 0
    return radius * std::cos(2.0 * std::numbers::pi * Uniform());
}

int Random::Sign() { return Uniform() < 0.5 ? -1 : 1; }

}  // namespace halvern::simulate
