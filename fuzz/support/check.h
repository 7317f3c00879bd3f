#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace halvern::fuzz {

/// Ends the process with a word about what does not hold, as a sanitizer's report does: the fuzzer keeps the input.
[[noreturn]] void Broken(std::string_view what, const std::string& details = {});

inline void Check(bool holds, std::string_view what) {
    if (!holds)
        Broken(what);
}

/// Texts in quotes, bytes that are no plain characters as \xHH.
std::string Visible(std::string_view text);

inline bool SameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }
inline bool SameBits(float a, float b) { return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b); }

/// The input as text.
inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return size == 0 ? std::string_view{} : std::string_view{reinterpret_cast<const char*>(data), size};
}

/// Takes a text of its own from the front of an input, up to the separator, which is dropped; all of it without one.
inline constexpr char kSeparator = '\x1E';
std::string_view TakePart(std::string_view& input);

}  // namespace halvern::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
