#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace halvern::bench {

/// How much an experiment has measured.
struct RunSize {
    std::int32_t scans;
    std::int32_t points;
};

/// What the instrument gives at most, and what it gives of a usual cell.
inline constexpr RunSize kFullSize{500, 2048}, kUsualCell{60, 800};

inline constexpr float kRunMeniscus = 5.95F;  // cm

/// Of the full size and of a half, a quarter and an eighth of it: every scan, every second, fourth, eighth.
inline constexpr std::int32_t kEveryNth[] = {1, 2, 4, 8};

/// Writes a run of interference scans into a folder, and lists of every scan, every second, every fourth, every eighth.
///
/// Note      two boundaries, 2.2 and 1.4 S, go outwards through the middle of the cell; the fringes have the noise of a
///           camera, the same in every run
void WriteRun(const std::filesystem::path& folder, RunSize size);

/// The name of a list within the folder.
std::string ListName(std::int32_t everyNth);

/// The paths of the scans of such a list.
std::vector<std::string> ScanPaths(const std::filesystem::path& folder, RunSize size, std::int32_t everyNth);

}  // namespace halvern::bench
