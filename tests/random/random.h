#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace halvern::random_user {

/// Numbers that a seed decides, the same on every machine: the distributions of the standard library are not.
class Random {
  public:
    Random(std::uint64_t seed, std::uint64_t session) : engine_(seed * 0x9E3779B97F4A7C15U + session) {}

    /// A number from 0 to one below `count`.
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    /// A number from least to most, both included.
    int Between(int least, int most) {
        return least + static_cast<int>(Below(static_cast<std::size_t>(most - least) + 1));
    }
    /// A number from 0 up to 1.
    double Share() { return static_cast<double>(engine_() >> 11) * 0x1p-53; }
    double Within(double least, double most) { return least + (most - least) * Share(); }
    bool Chance(double share) { return Share() < share; }

    template <class T, std::size_t N>
    const T& OneOf(const T (&choices)[N]) {
        return choices[Below(N)];
    }
    template <class T>
    const T& OneOf(const std::vector<T>& choices) {
        return choices[Below(choices.size())];
    }

  private:
    std::mt19937_64 engine_;
};

/// An event as a line of a session script has it, word by word.
using Words = std::vector<std::string>;

/// What has to become of an event: carried out, or refused as what a person can't do.
enum class Fate { kTaken, kRefused, kEither };

struct Event {
    Words words;
    Fate fate = Fate::kTaken;
};

}  // namespace halvern::random_user
