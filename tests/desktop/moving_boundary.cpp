#include "desktop/moving_boundary.h"

#include <cmath>
#include <cstdio>
#include <vector>

namespace halvern::test {

namespace {

constexpr double kSvedbergs = 4.2E-13;

double meniscus = 0.0, boundary = 0.0;
bool spiked = false;

/// Half the step and its broadening; the plateau is diluted as the square of the boundary's radius.
double SignalAt(int J) {
    const double radius = 5.9 + 0.001 * (J - 1);
    const double spike = spiked ? 0.6 * std::exp(-std::pow((radius - meniscus) / 0.003, 2.0)) : 0.0;
    const double plateau = 0.8 * (meniscus / boundary) * (meniscus / boundary);
    return spike + (radius < meniscus ? 0.0 : plateau * 0.5 * (1.0 + std::erf((radius - boundary) / 0.04)));
}

struct Writer {
    const DataFolder& folder;
    std::vector<std::string> names;

    void Write(int speed, double omega2t) {
        boundary = meniscus * std::exp(kSvedbergs * omega2t);
        char text[32];
        std::snprintf(text, sizeof text, "%.4E", omega2t);
        const ScanFile file{.speed = speed, .omega2t = text, .points = 1300, .signal = SignalAt};
        std::snprintf(text, sizeof text, "%05d.RA1", static_cast<int>(names.size()) + 1);
        names.push_back(text);
        folder.Write(names.back(), file.Text());
    }
};

}  // namespace

std::string WriteMovingBoundary(const DataFolder& folder) {
    meniscus = 5.98;
    spiked = false;
    Writer writer{folder, {}};
    for (int scan = 1; scan <= kMovingScans; ++scan)
        writer.Write(42000, 1.6E11 + 0.06E11 * scan);
    return folder.Write("moving.LST", ListText(writer.names));
}

std::string WriteThreeSpeeds(const DataFolder& folder) {
    spiked = true;
    Writer writer{folder, {}};
    double omega2t = 0.0;
    for (const auto& run : kSpeedRuns) {
        meniscus = run.meniscus;
        for (int scan = 0; scan < kScansOfSpeed; ++scan)
            writer.Write(run.speed, omega2t += 1.5E10);
    }
    return folder.Write("speeds.LST", ListText(writer.names));
}

}  // namespace halvern::test
