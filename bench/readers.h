#pragma once

#include <cstddef>

namespace halvern::bench {

/// The points of one scan file, in arrays of the caller's. Each way returns how many they are.
struct PointArrays {
    float* radius;
    float* signal;
};

/// What reading is measured by: the file in one piece, and the digits where the layout has them, several at a time.
/// Nothing is checked.
///
/// Note      the numbers are those of the program, to the bit: one division in double, rounded to single
std::size_t ReadScanByColumns(const char* path, const PointArrays& points);

/// The same piece, each field by std::from_chars.
std::size_t ReadScanByFromChars(const char* path, const PointArrays& points);

/// Line by line with std::getline, each field by std::stod.
std::size_t ReadScanByGetline(const char* path, const PointArrays& points);

/// The bytes alone. Returns how many they are.
std::size_t ReadBytes(const char* path);

}  // namespace halvern::bench
