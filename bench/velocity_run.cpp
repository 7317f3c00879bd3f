#include "bench/velocity_run.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <random>
#include <stdexcept>

namespace halvern::bench {

namespace {

constexpr double kFirstRadius = 5.85, kLastRadius = 7.18;  // cm
constexpr double kFirstOmega2t = 4E11, kLastOmega2t = 8E11;
constexpr double kOmega2 = 2.7415568E7;  // of 50000 rpm
constexpr double kNoise = 0.004;         // fringes

struct Species {
    double s;        ///< seconds
    double fringes;  ///< at the start
    double width;    ///< cm at omega squared t of 1E12
};
constexpr Species kSpecies[] = {{2.2E-13, 1.6, 0.05}, {1.4E-13, 0.9, 0.07}};

double Signal(double radius, double omega2t) {
    double fringes = 0.0;
    for (const auto& species : kSpecies) {
        const double moved = std::exp(species.s * omega2t);
        const double distance = radius - kRunMeniscus * moved;
        const double width = species.width * std::sqrt(omega2t / 1E12);
        fringes += species.fringes / (moved * moved) * 0.5 * (1.0 + std::erf(distance / width));
    }
    return fringes;
}

/// Share of the way from the first to the last of so many.
double Share(std::int32_t number, std::int32_t count) { return static_cast<double>(number - 1) / (count - 1); }

std::string ScanName(std::int32_t scan) {
    char name[16];
    std::snprintf(name, sizeof name, "%05d.IP1", scan);
    return name;
}

std::string ScanText(RunSize size, std::int32_t scan, std::mt19937& random) {
    std::normal_distribution<double> noise(0.0, kNoise);
    const double omega2t = kFirstOmega2t + (kLastOmega2t - kFirstOmega2t) * Share(scan, size.scans);
    char line[96];
    std::snprintf(line, sizeof line, "P 1 20.0 50000 %06.0f %.4E 675 0\r\n", omega2t / kOmega2, omega2t);
    std::string text = std::string("two boundaries\r\n") + line;
    for (std::int32_t point = 1; point <= size.points; ++point) {
        const double radius = kFirstRadius + (kLastRadius - kFirstRadius) * Share(point, size.points);
        std::snprintf(line, sizeof line, "%9.4f %14.5E\r\n", radius, Signal(radius, omega2t) + noise(random));
        text += line;
    }
    return text;
}

void WriteFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file)
        throw std::runtime_error(path.string() + " can't be written");
}

}  // namespace

std::string ListName(std::int32_t everyNth) { return "every" + std::to_string(everyNth) + ".LST"; }

void WriteRun(const std::filesystem::path& folder, RunSize size) {
    std::filesystem::create_directories(folder);
    std::mt19937 random(1);
    for (std::int32_t scan = 1; scan <= size.scans; ++scan)
        WriteFile(folder / ScanName(scan), ScanText(size, scan, random));
    for (const std::int32_t everyNth : kEveryNth) {
        std::string list;
        for (std::int32_t scan = 1; scan <= size.scans; scan += everyNth)
            list += ScanName(scan) + "\r\n";
        WriteFile(folder / ListName(everyNth), list);
    }
}

std::vector<std::string> ScanPaths(const std::filesystem::path& folder, RunSize size, std::int32_t everyNth) {
    std::vector<std::string> paths;
    for (std::int32_t scan = 1; scan <= size.scans; scan += everyNth)
        paths.push_back((folder / ScanName(scan)).string());
    return paths;
}

}  // namespace halvern::bench
