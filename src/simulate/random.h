#pragma once

#include <cstdint>
#include <random>

namespace halvern::simulate {

/// Which of the instrument's accidents a random number is for. Each has numbers of its own in each scan, so that to ask
/// for one more kind of noise leaves all the others as they were. The values are part of what a seed means.
enum class Chance : std::uint64_t {
    kRadii = 1,
    kReadings = 2,
    kTimeInvariant = 3,
    kJitter = 4,
    kJumpsBetween = 5,
    kJumpsWithin = 6,
};

/// Random numbers that are the same for the same seed, whatever compiler or standard library built the program.
///
/// Given     seed, chance, scan   each different triple begins a series of its own
/// Source    G. E. P. Box and M. E. Muller, Ann. Math. Statist. 29 (1958) 610: normal from uniform numbers.
///           G. L. Steele et al., Proc. OOPSLA 2014, 453: the mixing of the triple
/// Note      the standard lays down every number of std::mt19937_64, but leaves its distributions to the library; these
///           are written out for this reason. Normal takes a logarithm and a cosine, whose last bit is the C library's:
///           six digits of a file do not see it
class Random {
  public:
    Random(std::uint64_t seed, Chance chance, std::uint64_t scan);

    /// Evenly distributed, 0 up to but not including 1, in steps of 2^-53.
    double Uniform();

    /// Normally distributed, mean 0, standard deviation 1.
    double Normal();

    /// 1 or -1, each as likely as the other.
    int Sign();

  private:
    std::mt19937_64 bits_;
};

}  // namespace halvern::simulate
