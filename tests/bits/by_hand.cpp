#include "bits/by_hand.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace halvern::test {

namespace {

using Series = std::vector<float>;

float Rounded(double value) { return static_cast<float>(value); }
float Rounded(long double value) { return static_cast<float>(value); }

std::vector<std::string> LinesOf(const std::string& path) {
    std::ifstream in(path);
    if (!in)
        throw std::runtime_error("cannot read " + path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

double Number(const std::string& line, std::size_t column, std::size_t length) {
    return std::strtod(line.substr(column - 1, length).c_str(), nullptr);
}

}  // namespace

ScansByHand ReadByHand(const std::string& folder, const std::string& list) {
    ScansByHand scans;
    for (const std::string& name : LinesOf(folder + "/" + list)) {
        const auto lines = LinesOf(folder + "/" + name);
        const std::string& head = lines.at(1);
        scans.interference = scans.interference || head[0] == 'P';
        scans.speeds.push_back(static_cast<std::int32_t>(Number(head, 9, 6)));
        scans.omega2t.push_back(Rounded(Number(head, 23, 10)));
        const double omega = scans.speeds.back() * 0.1047196;
        scans.times.push_back(Rounded(static_cast<double>(scans.omega2t.back()) / (omega * omega)));
        Series radii, signals;
        for (std::size_t i = 2; i < lines.size(); ++i) {
            radii.push_back(Rounded(Number(lines[i], 4, 7)));
            signals.push_back(Rounded(Number(lines[i], 11, 15)));
        }
        scans.radii.push_back(radii);
        scans.signals.push_back(signals);
    }
    return scans;
}

std::vector<Series> FringesAddedAgain(std::vector<Series> signals) {
    for (Series& w : signals) {
        for (float& value : w)
            value = Rounded(static_cast<double>(value) - std::floor(static_cast<double>(value)));
        int carried = 0;
        for (std::size_t i = 3; i < w.size(); ++i) {
            w[i] = w[i] + static_cast<float>(carried);
            const double before = w[i - 1], second = w[i - 2], third = w[i - 3];
            const float predicted = Rounded(before * 4.0 / 3.0 + second / 3.0 - (third + third) / 3.0);
            int added = 0;
            // These scans have no jump that more than thirty fringes would close.
            for (float off = w[i] - predicted; std::fabs(off) > 0.9F; off = w[i] - predicted) {
                const int step = off < 0.0F ? 1 : -1;
                w[i] = w[i] + static_cast<float>(step);
                added += step;
                if (std::abs(added) >= 30)
                    throw std::runtime_error("a jump that is not to be closed");
            }
            carried += added;
        }
    }
    return signals;
}

Series JitterAt(const ScansByHand& scans, float radiusCm) {
    Series offsets;
    for (std::size_t k = 0; k < scans.radii.size(); ++k) {
        const auto& radii = scans.radii[k];
        const auto centre = std::lower_bound(radii.begin(), radii.end(), radiusCm) - radii.begin();
        float sum = 0.0F;
        for (auto i = centre - 10; i <= centre + 10; ++i)
            sum = sum + scans.signals[k].at(static_cast<std::size_t>(i));
        offsets.push_back(Rounded(static_cast<double>(sum) / 21.0));
    }
    return offsets;
}

Series WholeFringesAt(const ScansByHand& scans, Series offsets, float radiusCm) {
    const auto& radii = scans.radii[0];
    const auto centre = std::lower_bound(radii.begin(), radii.end(), radiusCm) - radii.begin() - 1;
    const auto meanOf = [&](std::size_t k, float moved) {
        float sum = 0.0F;
        for (auto i = centre - 2; i <= centre + 2; ++i)
            sum = sum + (scans.signals[k].at(static_cast<std::size_t>(i)) - offsets[k] + moved);
        return Rounded(static_cast<double>(sum) / 5.0);
    };
    float behind = meanOf(scans.signals.size() - 1, 0.0F);
    for (std::size_t k = scans.signals.size() - 1; k-- > 0;) {
        float moved = 0.0F;
        while (std::fabs(meanOf(k, moved) - behind) > 0.5F)
            moved += meanOf(k, moved) > behind ? -1.0F : 1.0F;
        behind = meanOf(k, moved);
        offsets[k] = offsets[k] - moved;
    }
    return offsets;
}

namespace {

constexpr std::size_t kGrid = 2000;

Series WideGrid() {
    Series grid;
    for (std::size_t j = 1; j <= kGrid; ++j)
        grid.push_back(Rounded(static_cast<double>(static_cast<float>(j) * 0.001F) + 5.8));
    return grid;
}

/// A scan on the grid, as far as it reaches; every operation in singles.
Series OnWideGrid(const Series& grid, const Series& x, const Series& y) {
    Series values;
    for (const float g : grid) {
        if (g > x.front() && g > x.back())
            break;
        if (g <= x.front()) {
            values.push_back(y.front());
            continue;
        }
        const auto j = static_cast<std::size_t>(std::lower_bound(x.begin(), x.end(), g) - x.begin()) - 1;
        const float rise = y[j + 1] - y[j], run = x[j + 1] - x[j];
        const float slope = rise / run;
        const float beyond = (g - x[j]) * slope;
        values.push_back(beyond + y[j]);
    }
    return values;
}

Series Smoothed(Series values, std::size_t window) {
    const std::size_t n = values.size();
    const auto mean = [](float sum, std::size_t points) {
        return Rounded(static_cast<double>(sum) / static_cast<double>(points));
    };
    for (int pass = 0; pass < 3; ++pass) {
        const Series y = values;
        float fromFront = y[0], fromBack = y[n - 1];
        for (std::size_t half = 1; 2 * half + 1 < window; ++half) {
            fromFront = Rounded(static_cast<double>(fromFront) + static_cast<double>(y[2 * half - 1]) +
                                static_cast<double>(y[2 * half]));
            values[half] = mean(fromFront, 2 * half + 1);
            fromBack = Rounded(static_cast<double>(fromBack) + static_cast<double>(y[n - 2 * half]) +
                               static_cast<double>(y[n - 1 - 2 * half]));
            values[n - 1 - half] = mean(fromBack, 2 * half + 1);
        }
        float sum = 0.0F;
        for (std::size_t i = 0; i < window; ++i)
            sum = sum + y[i];
        values[window / 2] = mean(sum, window);
        for (std::size_t i = 1; i + window <= n; ++i) {
            sum = Rounded(static_cast<double>(sum) - static_cast<double>(y[i - 1]) +
                          static_cast<double>(y[i + window - 1]));
            values[i + window / 2] = mean(sum, window);
        }
    }
    return values;
}

/// Signal, s* and omega squared t of the scans at one radius, the last scan first.
struct Course {
    Series c, s, w;
};

/// g(s*) in seconds and s* in Svedbergs, undiluted.
void Undilute(const Course& course, const Series& sSvedbergs, Series& g) {
    using Wide = long double;
    const std::size_t n = g.size();
    Series g0, s;
    for (std::size_t j = 0; j < n; ++j) {
        g0.push_back(Rounded(static_cast<double>(g[j]) * 1E13));
        s.push_back(Rounded(static_cast<double>(sSvedbergs[j]) * 1E-13));
    }
    Series corrected = g0, integral(n);
    for (int pass = 0; pass < 3; ++pass) {
        const auto width = [&](std::size_t j) { return Wide{s[j]} - s[j - 1]; };
        integral[0] = Rounded(Wide{s[0]} * 0.5L * corrected[0] * width(1));
        for (std::size_t j = 1; j + 1 < n; ++j)
            integral[j] = Rounded(width(j) * (Wide{s[j]} * corrected[j]) + integral[j - 1]);
        integral[n - 1] = Rounded(Wide{s[n - 1]} * 0.5L * corrected[n - 1] * width(n - 1) + integral[n - 2]);
        for (std::size_t j = 0; j < n; ++j)
            if (s[j] > 0.0F)
                corrected[j] = Rounded(g0[j] - Wide{course.w[j]} / s[j] * (Wide{integral[j]} + integral[j]));
    }
    for (std::size_t j = 0; j < n; ++j)
        g[j] = Rounded(static_cast<double>(corrected[j]) * 1E-13);
}

void DistributionOf(const Course& course, Series& g, Series& s) {
    using Wide = long double;
    g = {0.0F};
    s = {0.0F};
    for (std::size_t j = 1; j < course.c.size(); ++j) {
        const Wide slope = (Wide{course.c[j]} - course.c[j - 1]) / (Wide{course.s[j]} - course.s[j - 1]);
        g.push_back(Rounded(slope * Wide{1E-13}));
        s.push_back(Rounded((Wide{course.s[j - 1]} + course.s[j]) * 0.5L * Wide{1E13}));
    }
    Undilute(course, s, g);
}

}  // namespace

WideByHand WorkOutWide(const ScansByHand& scans, const std::vector<float>& menisci, std::size_t window) {
    const Series grid = WideGrid();
    std::vector<Series> onGrid;
    std::size_t reach = kGrid;
    float first = 0.0F, last = 10.0F;
    for (std::size_t k = 0; k < scans.radii.size(); ++k) {
        onGrid.push_back(OnWideGrid(grid, scans.radii[k], scans.signals[k]));
        reach = std::min(reach, onGrid[k].size());
        first = std::max(first, scans.radii[k].front());
        last = std::min(last, scans.radii[k].back());
    }
    WideByHand wide;
    std::size_t number = 0;
    for (float radius = 6.0F; radius <= 7.0F; radius = radius + 0.1F, ++number) {
        wide.g.emplace_back();
        wide.s.emplace_back();
        if (!(radius > menisci.at(number) && radius > first && radius < last))
            continue;
        const auto at = std::lower_bound(grid.begin(), grid.begin() + static_cast<std::ptrdiff_t>(reach), radius);
        const auto place = static_cast<std::size_t>(at - grid.begin());
        Course course;
        for (std::size_t k = scans.radii.size(); k-- > 0;) {
            float sum = 0.0F;
            for (std::size_t i = place - 6; i <= place + 4; ++i)
                sum = sum + onGrid[k].at(i);
            course.c.push_back(Rounded(static_cast<double>(sum) / 11.0));
            const float ratio = *at / menisci[k];
            course.s.push_back(Rounded(std::log(static_cast<double>(ratio)) / static_cast<double>(scans.omega2t[k])));
            course.w.push_back(scans.omega2t[k]);
        }
        DistributionOf(course, wide.g.back(), wide.s.back());
        if (window > 0)
            wide.g.back() = Smoothed(wide.g.back(), window);
    }
    return wide;
}

}  // namespace halvern::test
