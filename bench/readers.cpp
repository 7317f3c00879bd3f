#include "bench/readers.h"

#include <fcntl.h>
#include <unistd.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>

namespace halvern::bench {

namespace {

constexpr std::size_t kLongestFile = 1 << 16;

struct Bytes {
    const char* begin;
    const char* end;
};

/// The file in a buffer that serves for all; what is read of it ends with zeros.
Bytes ReadFile(const char* path) {
    static char buffer[kLongestFile + 8];
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    const auto size = read(file, buffer, kLongestFile);
    close(file);
    return {buffer, buffer + (size > 0 ? size : 0)};
}

const char* BehindLine(const char* at, const char* end) {
    const auto* const found = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    return found == nullptr ? end : found + 1;
}

Bytes BehindHeader(const Bytes& file) { return {BehindLine(BehindLine(file.begin, file.end), file.end), file.end}; }

std::uint64_t EightBytes(const char* at) {
    std::uint64_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
}

/// Four digits, the first one in the lowest byte.
std::uint32_t FourDigits(std::uint64_t bytes) {
    const std::uint64_t digits = bytes & 0x0F0F0F0F;
    const std::uint64_t pairs = (digits * 10 + (digits >> 8)) & 0x00FF00FF;
    return static_cast<std::uint32_t>((pairs * 100 + (pairs >> 16)) & 0xFFFF);
}

constexpr double kPowers[] = {1E0,  1E1,  1E2,  1E3,  1E4,  1E5,  1E6,  1E7,  1E8,  1E9,  1E10,
                              1E11, 1E12, 1E13, 1E14, 1E15, 1E16, 1E17, 1E18, 1E19, 1E20, 1E21};

/// "d.dddd"
float Radius(const char* at) {
    const std::uint64_t bytes = EightBytes(at);
    const std::uint32_t digits = static_cast<std::uint32_t>(bytes & 0xF) * 10000 + FourDigits(bytes >> 16);
    return static_cast<float>(static_cast<std::int32_t>(digits) / 1E4);
}

/// "-d.dddddE-dd"; a blank is an even character, the minus sign an odd one.
float Signal(const char* at) {
    const std::uint64_t bytes = EightBytes(at + 1);
    const auto digits =
        static_cast<std::int32_t>((bytes & 0xF) * 100000 + FourDigits(bytes >> 16) * 10 + ((bytes >> 48) & 0xF));
    const int size = (at[10] - '0') * 10 + (at[11] - '0');
    const int decimals = 5 - (',' - at[9]) * size;  // the comma stands between plus and minus
    const double value = decimals >= 0 ? digits / kPowers[decimals] : digits * kPowers[-decimals];
    const std::uint32_t sign = static_cast<std::uint32_t>(at[0] & 1) << 31;
    return std::bit_cast<float>(std::bit_cast<std::uint32_t>(static_cast<float>(value)) | sign);
}

/// Any number behind blanks.
const char* NumberByFromChars(const char* at, const char* end, float& number) {
    while (at < end && *at == ' ')
        ++at;
    double value = 0.0;
    at = std::from_chars(at, end, value).ptr;
    number = static_cast<float>(value);
    return at;
}

}  // namespace

std::size_t ReadScanByColumns(const char* path, const PointArrays& points) {
    constexpr std::ptrdiff_t kLine = 26, kRadius = 3, kSignal = 12;
    const Bytes lines = BehindHeader(ReadFile(path));
    const auto count = static_cast<std::size_t>((lines.end - lines.begin) / kLine);
    const char* line = lines.begin;
    for (std::size_t i = 0; i < count; ++i, line += kLine) {
        points.radius[i] = Radius(line + kRadius);
        points.signal[i] = Signal(line + kSignal);
    }
    return count;
}

std::size_t ReadScanByFromChars(const char* path, const PointArrays& points) {
    const Bytes lines = BehindHeader(ReadFile(path));
    std::size_t count = 0;
    for (const char* at = lines.begin; at < lines.end; at = BehindLine(at, lines.end)) {
        at = NumberByFromChars(at, lines.end, points.radius[count]);
        at = NumberByFromChars(at, lines.end, points.signal[count]);
        ++count;
    }
    return count;
}

std::size_t ReadScanByGetline(const char* path, const PointArrays& points) {
    constexpr std::size_t kRadius = 3, kRadiusLength = 7, kSignal = 10, kSignalLength = 15;
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    std::getline(file, line);
    std::size_t count = 0;
    while (std::getline(file, line)) {
        points.radius[count] = static_cast<float>(std::stod(line.substr(kRadius, kRadiusLength)));
        points.signal[count] = static_cast<float>(std::stod(line.substr(kSignal, kSignalLength)));
        ++count;
    }
    return count;
}

std::size_t ReadBytes(const char* path) {
    const Bytes file = ReadFile(path);
    return static_cast<std::size_t>(file.end - file.begin);
}

}  // namespace halvern::bench
