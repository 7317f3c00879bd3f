#include "simulate/scan_writer.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
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

bool IsAbsorbance(const Parameters& p) { return p.optics == Optics::kAbsorbance; }

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

void WriteFile(const std::filesystem::path& path, const std::string& content) {
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file)
        throw WriteError(path.string() + ": " + (errno != 0 ? std::strerror(errno) : "the file can't be written"));
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
