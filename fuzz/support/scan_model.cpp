#include "support/scan_model.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "store/val.h"

namespace halvern::fuzz {

namespace {

constexpr std::size_t kLongestLine = 127, kMostPoints = 2048;

/// The lines, without LF and CR LF; the last one may lack its end, and then keeps a CR. Lines behind the first one that is
/// a point too many are left out.
std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty() && lines.size() < kMostPoints + 3) {
        const std::size_t size = std::min(text.find('\n'), text.size());
        const bool hasEnd = size < text.size();
        std::string_view line = text.substr(0, size);
        if (hasEnd && line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line.substr(0, kLongestLine));
        text.remove_prefix(hasEnd ? size + 1 : size);
    }
    return lines;
}

/// The number in so many columns from one on, counted from 1, as if blanks went on behind the line.
template <std::size_t kLength>
double Number(std::string_view line, std::size_t column) {
    std::array<char, kLength> field;
    for (std::size_t i = 0; i < kLength; ++i)
        field[i] = column - 1 + i < line.size() ? line[column - 1 + i] : ' ';
    return Val({field.data(), kLength});
}

bool ToSingle(double value, float& single) {
    const auto rounded = static_cast<float>(value);
    if (!std::isfinite(rounded))
        return false;
    single = rounded;
    return true;
}

/// Half to even, by the processor's rounding, which is that.
bool ToSpeed(double value, std::int32_t& speed) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max()))
        return false;
    speed = static_cast<std::int32_t>(rounded);
    return true;
}

bool ReadHead(std::string_view line, float before, ReadScanText& scan) {
    scan.isInterference = line.starts_with('P');
    if (!ToSpeed(Number<6>(line, 9), scan.speed) || !ToSingle(Number<10>(line, 23), scan.omega2t))
        return false;
    scan.askedNothing = scan.omega2t != before;
    const double omega = scan.speed * 0.1047196;
    return scan.speed != 0 && ToSingle(scan.omega2t / (omega * omega), scan.seconds);
}

}  // namespace

ReadScanText ReadScanByHand(std::string_view text, float before) {
    ReadScanText scan;
    const std::vector<std::string_view> lines = LinesOf(text);
    if (lines.size() < 2) {
        scan.lastLine = lines.empty() ? std::string_view{} : lines[0];
        return scan;
    }
    scan.lastLine = lines[1];
    if (!ReadHead(lines[1], before, scan))
        return scan;
    for (std::size_t i = 2; i < lines.size(); ++i) {
        scan.lastLine = lines[i];
        float number = 0.0F;
        if (scan.radii.size() == kMostPoints || !ToSingle(Number<7>(lines[i], 4), number))
            return scan;
        scan.radii.push_back(number);
        if (!ToSingle(Number<15>(lines[i], 11), number))
            return scan;
        scan.signals.push_back(number);
    }
    scan.cameToTheEnd = true;
    return scan;
}

}  // namespace halvern::fuzz
