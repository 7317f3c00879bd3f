#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace halvern::bench {

/// The scans in the store as the table of raw data has them, a line for each point: what such tables are measured by, a
/// table of digits written out in place. Returns the bytes of its lines of points, which are those of the program.
///
/// Note      for signals of 6E-11 to 1E5 and 0, and radii of 1 to 10 cm; to_chars and sprintf round a tie to the even digit
std::int64_t WriteTableTightly(const std::string& path);
std::int64_t WriteTableByToChars(const std::string& path);
std::int64_t WriteTableBySprintf(const std::string& path);

/// The points of the plot request as the plot data file has them.
std::int64_t WritePlotTightly(const std::string& path);
std::int64_t WritePlotByToChars(const std::string& path);
std::int64_t WritePlotBySprintf(const std::string& path);

/// A text that stands ready.
void WriteBytes(const std::string& path, const std::string& text);

/// Whether both files end with the same so many bytes.
bool EndTheSame(const std::string& path, const std::string& other, std::int64_t bytes);

}  // namespace halvern::bench
