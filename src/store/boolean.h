#pragma once

#include <cstdint>

namespace halvern {

/// A truth value of the store: a 16-bit integer holding 0 (false) or -1 (true).
class Boolean {
  public:
    constexpr Boolean(bool value = false) : value_(value ? std::int16_t{-1} : std::int16_t{0}) {}
    constexpr operator bool() const { return value_ != 0; }

    /// 0 or -1.
    constexpr std::int16_t Number() const { return value_; }

  private:
    std::int16_t value_;
};

static_assert(sizeof(Boolean) == 2);

}  // namespace halvern
