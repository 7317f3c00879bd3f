#include "bench/writers.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string_view>
#include <vector>

#include "store/analysis_store.h"

namespace halvern::bench {

namespace {

/// A file that takes large pieces.
class Output {
  public:
    explicit Output(const std::string& path)
        : file_(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644)) {}
    ~Output() { close(file_); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Put(const char* text, std::size_t size) {
        if (write(file_, text, size) == static_cast<ssize_t>(size))
            bytes_ += static_cast<std::int64_t>(size);
    }
    std::int64_t Bytes() const { return bytes_; }

  private:
    int file_;
    std::int64_t bytes_ = 0;
};

/// "0000" to "9999", one behind the other, as numbers whose lowest byte is the first character.
const std::vector<std::uint32_t> kFours = [] {
    std::vector<std::uint32_t> fours;
    for (std::uint32_t i = 0; i < 10000; ++i)
        fours.push_back(0x30303030 + i / 1000 + (i / 100 % 10 << 8) + (i / 10 % 10 << 16) + (i % 10 << 24));
    return fours;
}();

/// "d.dddd"
char* PutDigits(char* out, std::uint32_t digits) {
    const std::uint32_t first = digits / 10000;
    out[0] = static_cast<char>('0' + first);
    out[1] = '.';
    std::memcpy(out + 2, &kFours[digits - first * 10000], 4);
    return out + 6;
}

/// The decade that a power of two lies in, and where the next one begins; by binary exponents from -34 to 16.
struct Decade {
    float next;
    double scale;  ///< makes five digits of a number
    double scaleOfNext;
    int exponent;
};
constexpr int kLeastBinary = -34, kMostBinary = 16;
constexpr float kLeastSize = 5.9E-11F;
constexpr auto kDecades = [] {
    constexpr double kPowers[] = {1E-11, 1E-10, 1E-9, 1E-8, 1E-7, 1E-6, 1E-5, 1E-4, 1E-3,
                                  1E-2,  1E-1,  1E0,  1E1,  1E2,  1E3,  1E4,  1E5};
    constexpr double kScales[] = {1E15, 1E14, 1E13, 1E12, 1E11, 1E10, 1E9, 1E8, 1E7,
                                  1E6,  1E5,  1E4,  1E3,  1E2,  1E1,  1E0, 1E-1};
    std::array<Decade, kMostBinary - kLeastBinary + 1> decades{};
    double least = 1.0 / (std::int64_t{1} << -kLeastBinary);
    for (auto& decade : decades) {
        int k = 0;
        while (k + 2 < 17 && kPowers[k + 1] <= least)
            ++k;
        decade = {static_cast<float>(kPowers[k + 1]), kScales[k], kScales[k + 1], k - 11};
        least *= 2.0;
    }
    return decades;
}();

/// "E-12" to "E+11"
constexpr auto kExponents = [] {
    std::array<std::array<char, 4>, 24> exponents{};
    for (int i = -12; i < 12; ++i) {
        const int size = i < 0 ? -i : i;
        exponents[static_cast<std::size_t>(i + 12)] = {'E', i < 0 ? '-' : '+', static_cast<char>('0' + size / 10),
                                                       static_cast<char>('0' + size % 10)};
    }
    return exponents;
}();

/// "-d.ddddE-dd"
char* PutExponential(char* out, float value) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const float size = std::fabs(value);
    std::uint32_t digits = 0;
    int exponent = 0;
    if (size >= kLeastSize) {
        const Decade& decade = kDecades[((bits >> 23) & 0xFF) - static_cast<std::uint32_t>(127 + kLeastBinary)];
        const bool isNext = size >= decade.next;
        exponent = decade.exponent + isNext;
        digits = static_cast<std::uint32_t>(size * (isNext ? decade.scaleOfNext : decade.scale) + 0.5);
        if (digits == 100000) {
            digits = 10000;
            ++exponent;
        }
    }
    *out = (bits >> 31) != 0 ? '-' : ' ';
    out = PutDigits(out + 1, digits);
    std::memcpy(out, kExponents[static_cast<std::size_t>(exponent + 12)].data(), 4);
    return out + 4;
}

struct TightFields {
    static constexpr bool kKeepsRadius = true;
    static char* Radius(char* out, float radius) {
        out[0] = out[1] = ' ';
        return PutDigits(out + 2, static_cast<std::uint32_t>(static_cast<double>(radius) * 1E4 + 0.5));
    }
    static char* Exponential(char* out, float value) { return PutExponential(out, value); }
    static char* Integer(char* out, int number) { return std::to_chars(out, out + 12, number).ptr; }
};

struct ToCharsFields {
    static constexpr bool kKeepsRadius = false;
    static char* Radius(char* out, float radius) {
        out[0] = out[1] = ' ';
        return std::to_chars(out + 2, out + 32, static_cast<double>(radius), std::chars_format::fixed, 4).ptr;
    }
    static char* Exponential(char* out, float value) {
        if (!std::signbit(value))
            *out++ = ' ';
        char* const end =
            std::to_chars(out, out + 32, static_cast<double>(value), std::chars_format::scientific, 4).ptr;
        end[-4] = 'E';
        return end;
    }
    static char* Integer(char* out, int number) { return std::to_chars(out, out + 12, number).ptr; }
};

struct SprintfFields {
    static constexpr bool kKeepsRadius = false;
    static char* Radius(char* out, float radius) {
        return out + std::sprintf(out, "  %.4f", static_cast<double>(radius));
    }
    static char* Exponential(char* out, float value) {
        return out + std::sprintf(out, "% .4E", static_cast<double>(value));
    }
    static char* Integer(char* out, int number) { return out + std::sprintf(out, "%d", number); }
};

constexpr std::int32_t kLinesAtATime = 16;
constexpr std::size_t kMostOfLine = 10240;

/// The scans of one point lie far apart in memory, its neighbours close by: some lines are made side by side.
template <class Fields>
std::int64_t WriteTable(const std::string& path) {
    const auto& S = Store();
    const float* const data = S.ScanData.Elements().data();
    const std::int32_t scans = S.NumFiles, points = S.ScanPoints(1);
    static char lines[kLinesAtATime][kMostOfLine + 64];
    Output output(path);
    for (std::int32_t first = 0; first < points; first += kLinesAtATime) {
        const std::int32_t count = points - first < kLinesAtATime ? points - first : kLinesAtATime;
        std::array<char*, kLinesAtATime> ends;
        std::array<float, kLinesAtATime> kept{};
        char texts[kLinesAtATime][8];
        for (std::int32_t i = 0; i < count; ++i)
            ends[static_cast<std::size_t>(i)] = lines[i];
        for (std::int32_t scan = 0; scan < scans; ++scan) {
            const float* const radii = data + std::ptrdiff_t{scan} * 2 * kMostPoints + first;
            for (std::int32_t i = 0; i < count; ++i) {
                char*& end = ends[static_cast<std::size_t>(i)];
                if (Fields::kKeepsRadius) {  // the scans mostly have the same radii
                    if (radii[i] != kept[static_cast<std::size_t>(i)]) {
                        kept[static_cast<std::size_t>(i)] = radii[i];
                        Fields::Radius(texts[i], radii[i]);
                    }
                    std::memcpy(end, texts[i], sizeof texts[i]);
                    end += sizeof texts[i];
                } else {
                    end = Fields::Radius(end, radii[i]);
                }
                *end++ = ' ';
                end = Fields::Exponential(end, radii[kMostPoints + i]);
            }
        }
        for (std::int32_t i = 0; i < count; ++i) {
            char* const end = ends[static_cast<std::size_t>(i)];
            end[0] = '\r';
            end[1] = '\n';
            output.Put(lines[i], static_cast<std::size_t>(end + 2 - lines[i]));
        }
    }
    return output.Bytes();
}

template <class Fields>
std::int64_t WritePlot(const std::string& path) {
    constexpr std::string_view kThird = "    0.0000E+00";
    constexpr std::size_t kPiece = 1 << 16, kLongestLine = 128;
    const auto& S = Store();
    static char piece[kPiece + kLongestLine];
    Output output(path);
    const float* const xs = S.PlotX.Elements().data();
    const float* const ys = S.PlotY.Elements().data();
    const std::int16_t* const codes = S.PlotSym.Elements().data();
    // The end of a line is the same for all points of a curve.
    std::int32_t codeOfEnd = 0;
    char lineEnd[16];
    std::ptrdiff_t sizeOfEnd = 0;
    char* end = piece;
    for (std::int32_t i = 0; i < S.PlotCount; ++i) {
        const std::int32_t code = codes[i];
        if (code != codeOfEnd || i == 0) {
            std::memcpy(lineEnd, code < 0 ? "  -" : "   ", 3);
            char* const number = Fields::Integer(lineEnd + 3, code < 0 ? -code : code);
            number[0] = '\r';
            number[1] = '\n';
            sizeOfEnd = number + 2 - lineEnd;
            codeOfEnd = code;
        }
        std::memset(end, ' ', 5);
        end = Fields::Exponential(end + 5, xs[i]);
        std::memset(end, ' ', 3);
        end = Fields::Exponential(end + 3, ys[i]);
        std::memcpy(end, kThird.data(), kThird.size());
        end += kThird.size();
        std::memcpy(end, lineEnd, sizeof lineEnd);
        end += sizeOfEnd;
        if (end - piece > static_cast<std::ptrdiff_t>(kPiece)) {
            output.Put(piece, static_cast<std::size_t>(end - piece));
            end = piece;
        }
    }
    output.Put(piece, static_cast<std::size_t>(end - piece));
    return output.Bytes();
}

std::string TextOf(const std::string& path, std::int64_t lastBytes) {
    std::ifstream file(path, std::ios::binary);
    file.seekg(-lastBytes, std::ios::end);
    std::string text(static_cast<std::size_t>(lastBytes), '\0');
    file.read(text.data(), lastBytes);
    return file.gcount() == lastBytes ? text : std::string();
}

}  // namespace

std::int64_t WriteTableTightly(const std::string& path) { return WriteTable<TightFields>(path); }
std::int64_t WriteTableByToChars(const std::string& path) { return WriteTable<ToCharsFields>(path); }
std::int64_t WriteTableBySprintf(const std::string& path) { return WriteTable<SprintfFields>(path); }

std::int64_t WritePlotTightly(const std::string& path) { return WritePlot<TightFields>(path); }
std::int64_t WritePlotByToChars(const std::string& path) { return WritePlot<ToCharsFields>(path); }
std::int64_t WritePlotBySprintf(const std::string& path) { return WritePlot<SprintfFields>(path); }

void WriteBytes(const std::string& path, const std::string& text) {
    constexpr std::size_t kPiece = 1 << 16;
    Output output(path);
    for (std::size_t at = 0; at < text.size(); at += kPiece)
        output.Put(text.data() + at, text.size() - at < kPiece ? text.size() - at : kPiece);
}

bool EndTheSame(const std::string& path, const std::string& other, std::int64_t bytes) {
    const std::string text = TextOf(path, bytes);
    return !text.empty() && text == TextOf(other, bytes);
}

}  // namespace halvern::bench
