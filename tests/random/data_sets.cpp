#include "random/data_sets.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <system_error>

namespace halvern::random_user {

namespace {

/// A data set: so many scans of so many points each, at so many speeds, and what is wrong with it.
struct Kind {
    int weight;
    char type;
    int scans, points, speeds;
    double firstRadius, lastRadius;
    void (*spoil)(struct Series&, Random&) = nullptr;
};

struct Scan {
    std::string name;
    char type;
    double speed, omega2t;
    int points;
    double firstRadius, lastRadius;
    double offset = 0.0, gain = 1.0;
    bool isThere = true;
    std::string lineInPlace = {};  ///< stands for one of the data lines
    std::string tail = {};         ///< behind the last line
};

struct Series {
    std::vector<Scan> scans;
    std::string listTail;
};

std::string Printed(const char* format, auto... values) {
    char text[400];
    const int size = std::snprintf(text, sizeof text, format, values...);
    return {text, static_cast<std::size_t>(size)};
}

Scan& AnyOf(Series& plan, Random& random) { return plan.scans[random.Below(plan.scans.size())]; }

void DropSome(Series& plan, Random& random) {
    for (int i = random.Between(1, 4); i > 0; --i)
        AnyOf(plan, random).isThere = false;
}

void SparseSome(Series& plan, Random& random) {
    for (int i = random.Between(1, 3); i > 0; --i)
        AnyOf(plan, random).points = random.Between(0, 9);
}

void SparseButOne(Series& plan, Random& random) {
    const std::size_t kept = random.Below(plan.scans.size());
    for (std::size_t i = 0; i < plan.scans.size(); ++i)
        if (i != kept)
            plan.scans[i].points = random.Between(0, 9);
}

void SparseButTwo(Series& plan, Random& random) {
    SparseButOne(plan, random);
    AnyOf(plan, random).points = 40;
}

void SparseLastButOne(Series& plan, Random& /*random*/) { plan.scans[plan.scans.size() - 2].points = 5; }

void EqualOmega2t(Series& plan, Random& random) {
    const std::size_t i = 1 + random.Below(plan.scans.size() - 1);
    plan.scans[i].omega2t = plan.scans[i - 1].omega2t;
}

void OddOmega2t(Series& plan, Random& random) {
    constexpr double kOdd[] = {0.0, -1E10, 1E-30, 9.99E37, 1E38, 5.0};
    AnyOf(plan, random).omega2t = random.OneOf(kOdd);
}

void OddSpeed(Series& plan, Random& random) {
    constexpr double kOdd[] = {0.0, -5000.0, 999999.0, 1.0, 42000.5, 3E5};
    const double speed = random.OneOf(kOdd);
    for (Scan& scan : plan.scans)
        if (random.Chance(0.5))
            scan.speed = speed;
}

void OddColumns(Series& plan, Random& random) {
    constexpr const char* kOdd[] = {"",
                                    "   NaN        NaN      ",
                                    "   6.0000        nonsense",
                                    "    6.1e3   -1.0E+30",
                                    "   -6.5000   1.0E+38",
                                    "   6.2000  1.00000E+400",
                                    "abc",
                                    "   0.0000   0.000000E+00",
                                    "\t6.1\t0.5",
                                    "   6.3000   1.234567E-44"};
    for (int i = random.Between(1, 5); i > 0; --i)
        AnyOf(plan, random).lineInPlace = random.OneOf(kOdd);
}

void OddTails(Series& plan, Random& random) {
    const std::string kOdd[] = {"\n", "   7.1000   1.0", "\r\n\r\n", std::string(300, 'x') + "\n", "\x1A"};
    AnyOf(plan, random).tail = random.OneOf(kOdd);
    plan.listTail = random.Chance(0.5) ? "\n\n" : "   \n00001.RA1 ";
}

void AllTheSame(Series& plan, Random& random) {
    const double offset = random.Chance(0.5) ? 0.0 : 0.5;
    for (Scan& scan : plan.scans) {
        scan.gain = 0.0;
        scan.offset = offset;
    }
}

void Huge(Series& plan, Random& random) {
    constexpr double kGains[] = {1E4, 1E20, 3E38, -1E20, 1E-30};
    const double gain = random.OneOf(kGains);
    for (Scan& scan : plan.scans)
        scan.gain = scan.type == 'P' ? 300.0 : gain;
}

void DifferentRanges(Series& plan, Random& random) {
    for (Scan& scan : plan.scans) {
        scan.firstRadius += random.Within(0.0, 0.5);
        scan.lastRadius -= random.Within(0.0, 0.5);
        scan.points = random.Between(10, 40);
    }
}

void Backwards(Series& plan, Random& /*random*/) {
    for (Scan& scan : plan.scans)
        std::swap(scan.firstRadius, scan.lastRadius);
}

void LastOfInterference(Series& plan, Random& random) {
    plan.scans.back().type = 'P';
    if (random.Chance(0.5))
        plan.scans.back().points = 3;
}

constexpr Kind kKinds[] = {
    {30, 'R', 8, 40, 1, 5.85, 7.15},
    {30, 'P', 8, 40, 1, 5.65, 7.15},
    {6, 'I', 7, 40, 1, 5.85, 7.15},
    {14, 'R', 32, 40, 1, 5.85, 7.15},
    {10, 'P', 65, 40, 1, 5.65, 7.15},
    {8, 'R', 9, 40, 3, 5.85, 7.15},
    {8, 'P', 32, 40, 3, 5.65, 7.15},
    {5, 'R', 12, 40, 12, 5.85, 7.15},
    {4, 'P', 14, 40, 14, 5.65, 7.15},
    {2, 'P', 4, 40, 2, 5.65, 7.15},
    {3, 'R', 20, 40, 1, 6.5, 6.5004},
    {2, 'P', 20, 40, 1, 6.1, 6.9},
    {2, 'R', 6, 10, 1, 5.9, 7.1},
    {2, 'R', 5, 40, 1, 7.1, 7.3},
    {2, 'R', 3, 40, 1, 5.85, 7.15},
    {1, 'R', 0, 40, 1, 5.85, 7.15},
    {3, 'P', 5, 40, 1, 5.65, 7.15, SparseButTwo},
    {3, 'R', 5, 40, 1, 5.85, 7.15, SparseButTwo},
    {3, 'R', 4, 40, 1, 5.85, 7.15, SparseButOne},
    {3, 'P', 4, 40, 1, 5.65, 7.15, SparseButOne},
    {4, 'R', 9, 40, 1, 5.85, 7.15, DropSome},
    {4, 'P', 9, 40, 1, 5.65, 7.15, SparseSome},
    {3, 'P', 6, 40, 1, 5.65, 7.15, SparseLastButOne},
    {5, 'R', 8, 40, 1, 5.85, 7.15, EqualOmega2t},
    {3, 'P', 8, 40, 1, 5.65, 7.15, OddOmega2t},
    {3, 'R', 8, 40, 1, 5.85, 7.15, OddSpeed},
    {4, 'R', 6, 40, 1, 5.85, 7.15, OddColumns},
    {4, 'P', 6, 40, 1, 5.65, 7.15, OddColumns},
    {3, 'R', 6, 40, 1, 5.85, 7.15, OddTails},
    {3, 'R', 6, 40, 1, 5.85, 7.15, AllTheSame},
    {3, 'P', 6, 40, 1, 5.65, 7.15, AllTheSame},
    {3, 'R', 6, 40, 1, 5.85, 7.15, Huge},
    {2, 'P', 6, 40, 1, 5.65, 7.15, Huge},
    {4, 'R', 9, 40, 1, 5.75, 7.15, DifferentRanges},
    {4, 'P', 9, 40, 1, 5.65, 7.15, DifferentRanges},
    {1, 'R', 6, 40, 1, 5.85, 7.15, Backwards},
    {3, 'R', 6, 40, 1, 5.85, 7.15, LastOfInterference},
    {1, 'R', 40, 700, 1, 5.85, 7.15},
    {1, 'P', 60, 900, 1, 5.75, 7.15},
    {1, 'R', 4, 2049, 1, 5.85, 7.15},
    {1, 'P', 4, 2048, 1, 5.85, 7.15},
};

const Kind& AKind(Random& random) {
    int all = 0;
    for (const Kind& kind : kKinds)
        all += kind.weight;
    int left = random.Between(0, all - 1);
    for (const Kind& kind : kKinds) {
        left -= kind.weight;
        if (left < 0)
            return kind;
    }
    return kKinds[0];
}

Series SeriesOf(const Kind& kind, Random& random) {
    Series plan;
    const int first = random.Chance(0.9) ? random.Between(1, 300) : random.Between(99990, 99998);
    double omega2t = 4E10;
    for (int I = 1; I <= kind.scans; ++I) {
        const int run = (I - 1) * kind.speeds / kind.scans;
        const double speed = 50000.0 - 2000.0 * run;
        omega2t += 600.0 * std::pow(speed * 0.1047, 2.0) / kind.scans * 8.0;
        Scan scan{Printed("%05d.%s%d", first + I - 1, kind.type == 'P' ? "IP" : "RA", 1),
                  kind.type,
                  speed,
                  omega2t,
                  kind.points,
                  kind.firstRadius,
                  kind.lastRadius};
        if (kind.type == 'P')
            scan.offset = random.Within(-0.3, 0.3) + random.Between(-2, 2);
        plan.scans.push_back(scan);
    }
    if (kind.spoil != nullptr)
        kind.spoil(plan, random);
    return plan;
}

/// A boundary of 5 Svedbergs that starts at 6.0 cm, the plateau behind it, and noise.
double SignalAt(const Scan& scan, double radius, Random& random) {
    const double boundary = 6.0 * std::exp(5E-13 * scan.omega2t);
    const double step = 1.0 / (1.0 + std::exp(-40.0 * (radius - boundary)));
    return scan.gain * (step + random.Within(-0.01, 0.01)) + scan.offset;
}

std::string TextOf(const Scan& scan, Random& random) {
    std::string text = "random user\r\n";
    text += Printed("%c 1 20.0%6.6s 0000600%10s 280 5\r\n", scan.type, Printed("%6g", scan.speed).c_str(),
                    Printed("%.4E", scan.omega2t).c_str());
    const int odd = random.Between(1, std::max(scan.points, 1));
    const double step = (scan.lastRadius - scan.firstRadius) / std::max(scan.points - 1, 1);
    for (int J = 1; J <= scan.points; ++J) {
        const double radius = scan.firstRadius + step * (J - 1);
        if (J == odd && !scan.lineInPlace.empty())
            text += scan.lineInPlace + "\r\n";
        else
            text += Printed("   %7.4f%15.6E\r\n", radius, SignalAt(scan, radius, random));
    }
    return text + scan.tail;
}

}  // namespace

DataSets::DataSets(Random& random, std::filesystem::path folder, std::filesystem::path copies)
    : random_(random), folder_(std::move(folder)), copies_(std::move(copies)) {
    Provide(folder_);
    if (!copies_.empty())
        Provide(copies_);
}

/// What lies in the folder from the beginning.
void DataSets::Provide(const std::filesystem::path& folder) const {
    // A link to the device that is always full: what is written to it fails at the first flush.
    for (const char* name : {"full.txt", "full.dat", "full.bmp"}) {
        std::error_code ignored;
        std::filesystem::create_symlink("/dev/full", folder / name, ignored);
    }
    std::filesystem::create_directory(folder / "folder.txt");
}

/// Given     name   counted from the session's folder
void DataSets::Write(const std::string& name, const std::string& text) const {
    for (const auto& folder : {folder_, copies_})
        if (!folder.empty()) {
            std::filesystem::create_directories((folder / name).parent_path());
            std::ofstream(folder / name, std::ios::binary) << text;
        }
}

std::string DataSets::NewList() {
    const std::string set = "set" + std::to_string(++sets_) + '/';
    const Series plan = SeriesOf(AKind(random_), random_);
    std::string list;
    for (const Scan& scan : plan.scans) {
        if (scan.isThere) {
            Write(set + scan.name, TextOf(scan, random_));
            scans_.push_back((folder_ / set / scan.name).string());
        }
        list += scan.name + (random_.Chance(0.02) ? "  " : "") + (random_.Chance(0.1) ? "\n" : "\r\n");
    }
    // The same few scans many times over: the limits of a list.
    if (plan.scans.size() >= 4 && random_.Chance(0.004)) {
        constexpr std::size_t kCounts[] = {500, 501, 502};
        const std::size_t count = random_.OneOf(kCounts);
        for (std::size_t i = plan.scans.size(); i < count; ++i)
            list += plan.scans[i % plan.scans.size()].name + "\r\n";
    }
    lists_.push_back((folder_ / set / "scans.LST").string());
    Write(set + "scans.LST", list + plan.listTail);
    return lists_.back();
}

std::string DataSets::SomeList() {
    if (!outputs_.empty() && random_.Chance(0.02))
        return random_.OneOf(outputs_);
    if (!scans_.empty() && random_.Chance(0.02))
        return random_.OneOf(scans_);
    return lists_.empty() || random_.Chance(0.6) ? NewList() : random_.OneOf(lists_);
}

std::string DataSets::SomeScan() {
    if (random_.Chance(0.06)) {
        constexpr const char* kNames[] = {"a.RA1",     "99999.RA1",      "noDotAtAll",
                                          "12ab5.RA1", "scan00007.v1.2", "00000.IP2"};
        const std::string name = random_.OneOf(kNames);
        Write(name, "no scan\n");
        return (folder_ / name).string();
    }
    if (scans_.empty())
        NewList();
    return scans_.empty() ? lists_.back() : random_.OneOf(scans_);
}

std::string DataSets::NewFile() {
    constexpr const char* kEndings[] = {".txt", ".dat", ".bmp", ""};
    const double kind = random_.Share();
    if (kind < 0.08)
        return (folder_ / (std::string("full") + kEndings[random_.Below(3)])).string();
    if (kind < 0.12)
        return (folder_ / "nowhere" / "out.txt").string();
    if (kind < 0.15)
        return (folder_ / "folder.txt").string();
    if (kind < 0.18)
        return (folder_ / (std::string(300, 'n') + ".txt")).string();
    if (kind < 0.20 && !scans_.empty())
        return random_.OneOf(scans_);
    if (kind < 0.21 && !lists_.empty())
        return random_.OneOf(lists_);
    if (kind < 0.35 && !outputs_.empty())
        return random_.OneOf(outputs_);
    outputs_.push_back((folder_ / ("out" + std::to_string(outputs_.size()) + random_.OneOf(kEndings))).string());
    return outputs_.back();
}

}  // namespace halvern::random_user
