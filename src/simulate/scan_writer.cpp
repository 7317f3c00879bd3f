#include "simulate/scan_writer.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <string_view>

namespace halvern::simulate {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr int kSpreadDecimals = 5;

std::string Written(double value, std::chars_format format, int decimals) {
    std::array<char, 64> text{};
    const double shown = value == 0.0 ? 0.0 : value;  // no sign in front of a zero
    const auto end = std::to_chars(text.data(), text.data() + text.size(), shown, format, decimals).ptr;
    std::string result(text.data(), end);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return result;
}

std::string Fixed(double value, int decimals) { return Written(value, std::chars_format::fixed, decimals); }

std::string Exponential(double value, int decimals) { return Written(value, std::chars_format::scientific, decimals); }

std::string Filled(const std::string& text, std::size_t width, char filling) {
    return text.size() < width ? std::string(width - text.size(), filling) + text : text;
}

std::string Right(const std::string& text, std::size_t width) { return Filled(text, width, ' '); }

std::string FirstLine(const Parameters& p) {
    constexpr int kStepDecimals = 11;
    return IsAbsorbance(p) ? p.title : "cm/pixel:  " + Fixed(RadialStepCm(p), kStepDecimals) + ", " + p.title;
}

std::string SecondLine(const Parameters& p, const Moment& moment) {
    std::string line = IsAbsorbance(p) ? "R " : "P ";
    line += std::to_string(p.cell) + ' ';
    line += Right(Fixed(p.temperatureCelsius, 1), 4);
    line += Right(std::to_string(moment.rpm), 6);
    line += ' ' + Filled(Fixed(moment.seconds, 0), 7, '0');
    line += Right(Omega2tText(moment.omega2t, p.omega2tDigits), 10);
    line += ' ' + std::to_string(WavelengthNm(p)) + ' ' + std::to_string(Readings(p));
    return line;
}

void AppendPoint(std::string& text, const Parameters& p, const Trace& trace, std::size_t point) {
    constexpr std::size_t kRadiusEnd = 10;
    std::string line = "   " + Fixed(trace.radiusCm[point], p.radiusDecimals);
    line.resize(kRadiusEnd, ' ');
    line += Right(Exponential(trace.signal[point], p.signalDecimals), 15);
    if (IsAbsorbance(p))
        line += Right(Exponential(trace.spread[point], kSpreadDecimals), 15);
    text.append(line).append(kLineEnd);
}

[[noreturn]] void FailToWrite(const std::filesystem::path& path, int error) {
    throw WriteError(path.string() + ": " + std::strerror(error));
}

/// Result    a value of errno, 0 when all of it has been written
int WriteAll(int descriptor, std::string_view rest) {
    while (!rest.empty()) {
        const ssize_t count = ::write(descriptor, rest.data(), rest.size());
        if (count > 0)
            rest.remove_prefix(static_cast<std::size_t>(count));
        else if (count == 0)
            return EIO;
        else if (errno != EINTR)
            return errno;
    }
    return 0;
}

/// Makes a file under its name only when it is whole: half a scan can be read like a whole one.
void WriteFile(const std::filesystem::path& path, std::string_view content) {
    const std::string growing = path.string() + ".part";
    const int descriptor = ::open(growing.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0)
        FailToWrite(path, errno);
    int error = WriteAll(descriptor, content);
    if (::close(descriptor) != 0 && error == 0 && errno != EINTR)
        error = errno;
    if (error == 0 && ::rename(growing.c_str(), path.c_str()) != 0)
        error = errno;
    if (error != 0) {
        ::unlink(growing.c_str());
        FailToWrite(path, error);
    }
}

}  // namespace

std::string Omega2tText(double omega2t, int digits) {
    std::string text = Exponential(omega2t, digits - 1);
    const auto plus = text.find('+');
    if (plus == std::string::npos)  // a rotor that hardly turned: the exponent's minus would take a column too many
        return Fixed(omega2t, digits - 1);
    return text.erase(plus, 1);
}

double WrittenRadius(double radiusCm, int decimals) {
    const double unit = std::pow(10.0, decimals);
    return std::round(radiusCm * unit) / unit;
}

std::string ScanText(const Parameters& parameters, const Scan& scan) {
    std::string text = FirstLine(parameters);
    text.append(kLineEnd).append(SecondLine(parameters, scan.moment)).append(kLineEnd);
    for (std::size_t point = 0; point < scan.trace.radiusCm.size(); ++point)
        AppendPoint(text, parameters, scan.trace, point);
    return text;
}

std::string ScanFileName(const Parameters& parameters, std::size_t number) {
    const std::string extension = IsAbsorbance(parameters) ? ".RA" : ".IP";
    return Filled(std::to_string(number), 5, '0') + extension + std::to_string(parameters.cell);
}

void WriteScans(const Parameters& parameters, const std::vector<Scan>& scans, const std::string& folder) {
    const std::filesystem::path path(folder);
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error)
        throw WriteError(folder + ": " + error.message());
    std::string list;
    for (std::size_t i = 0; i < scans.size(); ++i) {
        const std::string name = ScanFileName(parameters, i + 1);
        WriteFile(path / name, ScanText(parameters, scans[i]));
        list.append(name).append(kLineEnd);
    }
    WriteFile(path / parameters.listFile, list);
}

}  // namespace halvern::simulate
