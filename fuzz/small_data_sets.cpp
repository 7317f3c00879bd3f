#include "small_data_sets.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace halvern::fuzz {

namespace {

struct Kind {
    char type;
    const char* list;
    int scans, points;
    bool twoSpeeds;
};

constexpr Kind kKinds[] = {
    {'R', "a", 8, 60, false}, {'P', "i", 6, 80, false}, {'R', "m", 32, 20, true}, {'R', "s", 5, 3, false}};

/// Radii from 5.95 cm on, and a boundary that scan after scan lies farther out.
std::string PointLine(const Kind& kind, int scan, int point) {
    const double radius = 5.95 + 1.2 * point / kind.points;
    const double middle = 6.1 + 0.08 * scan;
    const double signal = 0.5 * (1.0 + std::tanh((radius - middle) / 0.05)) + 0.001 * ((point * 7 + scan * 3) % 5);
    char line[80];
    if (kind.type == 'P')
        std::snprintf(line, sizeof line, "%10.4f%14.5E\r\n", radius, signal);
    else
        std::snprintf(line, sizeof line, "%10.4f%11.5E%15.5E\r\n", radius, signal, 0.005);
    return line;
}

std::string ScanText(const Kind& kind, int scan) {
    char head[80];
    const int speed = kind.twoSpeeds && scan >= kind.scans / 2 ? 30000 : 42000;
    std::snprintf(head, sizeof head, "%c 1 20.0%6d %07d%10.4E 280 1\r\n", kind.type, speed, 600 * scan,
                  1.0E10 + 1.0E9 * scan);
    std::string text = std::string("simulated\r\n") + head;
    for (int point = 0; point < kind.points; ++point)
        text += PointLine(kind, scan, point);
    return text;
}

using Files = std::vector<std::pair<std::string, std::string>>;

Files SmallDataSets() {
    Files files;
    for (const auto& kind : kKinds) {
        std::string list;
        for (int scan = 0; scan < kind.scans; ++scan) {
            char name[40];
            std::snprintf(name, sizeof name, "%s%05d.%c%c1", kind.list, scan + 1, kind.type, 'A');
            files.emplace_back(name, ScanText(kind, scan));
            list += std::string(name) + "\r\n";
        }
        files.emplace_back(std::string(kind.list) + ".LST", list + (kind.points < 10 ? "missing\r\n" : ""));
    }
    return files;
}

}  // namespace

void WriteSmallDataSets(const Scratch& folder) {
    static const Files files = SmallDataSets();
    for (const auto& [name, text] : files)
        folder.Write(name, text);
}

}  // namespace halvern::fuzz
