#include "analysis/small_run.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>

#include "store/menus.h"

namespace halvern::test {

namespace {

float Rounded(double value) { return static_cast<float>(value); }

std::int32_t Integer(std::size_t value) { return static_cast<std::int32_t>(value); }

}  // namespace

void Give(const SmallRun& run) {
    auto& S = Store();
    S.IsInterference = run.interference;
    S.NumFiles = run.Scans();
    S.NumSpeeds = 1;
    S.Meniscus = run.meniscus;
    S.ScanW2t(1) = run.omega2t;
    S.ScanSpeed(1) = run.speed;
    for (std::size_t k = 0; k < run.times.size(); ++k) {
        const std::int32_t K = Integer(k) + 1;
        S.ScanTime(K) = run.times[k];
        S.JitterOffset(K) = run.offsets.empty() ? 0.0F : run.offsets[k];
        S.ScanMeniscus(K) = run.meniscus;
        S.ScanPoints(K) = static_cast<std::int16_t>(run.radii[k].size());
        for (std::size_t i = 0; i < run.radii[k].size(); ++i) {
            S.ScanData(Integer(i) + 1, 1, K) = run.radii[k][i];
            S.ScanData(Integer(i) + 1, 2, K) = run.signals[k][i];
        }
    }
}

SmallRun MovingBoundary(std::int32_t scans, std::int32_t points, std::uint32_t seed) {
    SmallRun run;
    std::uint32_t state = seed;
    for (std::int32_t k = 0; k < scans; ++k) {
        run.times.push_back(static_cast<float>(600 + 300 * k));
        std::vector<float> radii, signals;
        for (std::int32_t i = 0; i < points; ++i) {
            // Lengths in micrometres: the boundary starts at 6.15 cm and goes 0.05 cm a scan; half-width 0.05 cm.
            const std::int32_t radius = 59500 + 13000 * i / (points - 1);
            const double x = (radius - 61500 - 500 * k) / 500.0;
            state = state * 1664525U + 1013904223U;
            const double noise = (static_cast<double>(state >> 16) - 32768.0) / 16777216.0;
            const double size = x < 0.0 ? -x : x;
            radii.push_back(Rounded(radius / 10000.0));
            signals.push_back(Rounded(0.5 + x / (2.0 + 2.0 * size) + noise));
        }
        run.radii.push_back(radii);
        run.signals.push_back(signals);
    }
    return run;
}

namespace {

/// Linear between the points of a curve, flat in front of it; every operation of the value in singles.
struct OnGrid {
    std::vector<float> x, y;
};

template <class GridAt>
OnGrid Interpolated(const std::vector<float>& x, const std::vector<float>& y, GridAt gridAt) {
    OnGrid out;
    for (int i = 1; i <= 2000; ++i) {
        const float g = gridAt(i);
        if (g > x.front() && g > x.back())
            break;
        float value = y.front();
        if (g > x.front()) {
            std::size_t j = 0;
            while (!(x[j] < g && g <= x[j + 1]))
                ++j;
            const float slope =
                Rounded((static_cast<double>(y[j + 1]) - y[j]) / (static_cast<double>(x[j + 1]) - x[j]));
            const float beyond = g - x[j];
            const float rise = beyond * slope;
            value = rise + y[j];
        }
        out.x.push_back(g);
        out.y.push_back(value);
    }
    return out;
}

void PutOnOneGrid(const SmallRun& run, LongHand& w) {
    if (run.interference) {
        w.gridRadius = run.radii[0];
        for (std::size_t k = 0; k < run.times.size(); ++k) {
            w.gridSignal.emplace_back();
            for (std::size_t i = 0; i < w.gridRadius.size(); ++i)
                w.gridSignal[k].push_back(run.signals[k][i] - (run.offsets.empty() ? 0.0F : run.offsets[k]));
        }
        return;
    }
    for (std::size_t k = 0; k < run.times.size(); ++k) {
        std::vector<float> fromMeniscus;
        for (const float radius : run.radii[k])
            fromMeniscus.push_back(radius - run.meniscus);
        const OnGrid on =
            Interpolated(fromMeniscus, run.signals[k], [](int i) { return static_cast<float>(i) * 0.001F; });
        w.gridSignal.push_back(on.y);
        w.gridRadius.clear();
        for (const float distance : on.x)
            w.gridRadius.push_back(run.meniscus + distance);
    }
    // The grid is that of the last scan. One that ends in front of it has nothing there.
    for (auto& signal : w.gridSignal)
        signal.resize(std::max(signal.size(), w.gridRadius.size()));
}

void ChooseSpacing(const SmallRun& run, LongHand& w) {
    std::size_t first = 0;
    while (w.gridRadius[first] < run.meniscus)
        ++first;
    const double most = std::log(7.2 / w.gridRadius[first]) / run.omega2t;
    const float bases[] = {1E-4F, 1E-3F, 1E-2F, 0.1F, 1.0F, 10.0F, 100.0F, 1000.0F, 10000.0F, 100000.0F};
    w.deltaS = 500000.0F;
    for (const float base : bases)
        for (const double step : {1.0, 1.5, 2.0, 3.0, 4.0, 5.0})
            if (most <= base * step * 2000.0 * 1E-13) {
                w.deltaS = Rounded(base * step);
                return;
            }
}

void WorkOutPairs(const SmallRun& run, double radian, LongHand& w) {
    const std::size_t skip = run.times.size() / 2;
    const float omega2 = Rounded((run.speed * radian) * (run.speed * radian));
    for (std::size_t p = 0; p < skip; ++p) {
        const double early = run.times[p], late = run.times[p + skip];
        w.lastPairTime = Rounded(2.0 / (1.0 / late + 1.0 / early));
        const float apart = run.times[p + skip] - run.times[p];
        std::vector<float> s, rate;
        for (std::size_t i = 0; i < w.gridRadius.size(); ++i) {
            const float fall = w.gridSignal[p][i] - w.gridSignal[p + skip][i];
            rate.push_back(fall / apart);
            const double logarithm = std::log(static_cast<double>(w.gridRadius[i]) / run.meniscus);
            s.push_back(Rounded(logarithm / w.lastPairTime / omega2));
            if (w.gridRadius[i] > 7.2F)
                break;
        }
        const float deltaS = w.deltaS;
        const OnGrid on = Interpolated(s, rate, [deltaS](int i) {
            const float svedbergs = static_cast<float>(i) * deltaS;
            return Rounded(1E-13 * static_cast<double>(svedbergs));
        });
        w.s = on.x;
        w.pairs.push_back(on.y);
    }
    for (std::size_t i = 0; i < w.s.size(); ++i) {
        float sum = 0.0F;
        for (const auto& pair : w.pairs)
            sum = sum + pair[i];
        w.raw.push_back(sum / static_cast<float>(skip));
    }
}

void WorkOutErrors(const SmallRun& run, LongHand& w) {
    const double pairs = static_cast<double>(w.pairs.size());
    for (std::size_t i = 0; i < w.s.size(); ++i) {
        double sum = 0.0, squares = 0.0;
        for (const auto& pair : w.pairs) {
            sum += pair[i];
            squares += static_cast<double>(pair[i]) * pair[i];
        }
        const float variance = Rounded((squares - sum * sum / pairs) / (pairs - 1.0));
        w.sem.push_back(Rounded(std::sqrt(variance / pairs)));
    }
    for (std::size_t k = 0; k < 2 * w.pairs.size(); ++k)
        w.time = Rounded(w.time + 1.0 / run.times[k]);
    w.time = Rounded(2.0 * pairs / w.time);
}

void WorkOutDistributions(const SmallRun& run, double radian, LongHand& w) {
    const double exact = (run.speed * radian) * (run.speed * radian);
    const double omega2 = Rounded(exact);
    const double t = w.time;
    const std::size_t n = w.s.size();
    for (std::size_t i = 0; i < n; ++i) {
        const double s = w.s[i];
        w.gHat.push_back(Rounded(t * w.average[i] / s));
        w.gStarSem.push_back(Rounded(t / s * w.sem[i] * std::exp(s * (omega2 * -2.0) * t) * 1E-13));
    }
    std::vector<float> integral(n);
    for (int pass = 0; pass < 3; ++pass) {
        integral[0] = Rounded((static_cast<double>(w.s[1]) - w.s[0]) * (w.s[0] * 0.5 * w.gHat[0]));
        for (std::size_t i = 1; i < n; ++i) {
            const double width = static_cast<double>(w.s[i]) - w.s[i - 1];
            if (i + 1 < n)
                integral[i] = Rounded(width * (static_cast<double>(w.gHat[i]) * w.s[i]) + integral[i - 1]);
            else
                integral[i] = Rounded((w.s[i] * 0.5 * w.gHat[i]) * width + integral[i - 1]);
        }
        for (std::size_t i = 0; i < n; ++i)
            if (w.s[i] > 1E-14F) {
                const float perS = Rounded(t / w.s[i]);
                w.gHat[i] = Rounded(perS * (w.average[i] - (exact * 2.0) * integral[i]));
            }
    }
    for (std::size_t i = 0; i < n; ++i) {
        w.plateauRate.push_back(Rounded(w.average[i] - (exact * 2.0) * integral[i]));
        w.gStar.push_back(w.s[i] > 5E-15F ? Rounded(w.gHat[i] * std::exp(w.s[i] * (2.0 * omega2) * t)) : 0.0F);
    }
}

}  // namespace

LongHand WorkOut(const SmallRun& run, float level, double rateRadian, double gRadian) {
    LongHand w;
    PutOnOneGrid(run, w);
    ChooseSpacing(run, w);
    WorkOutPairs(run, rateRadian, w);
    for (const float rate : w.raw)
        w.average.push_back(rate - level);
    WorkOutErrors(run, w);
    WorkOutDistributions(run, gRadian, w);
    return w;
}

std::vector<float> GridSignalOf(std::int32_t K, std::size_t count) {
    std::vector<float> values;
    for (std::int32_t I = 1; I <= Integer(count); ++I)
        values.push_back(Store().GridSignal(I, K));
    return values;
}

std::vector<float> RatesOfPair(std::int32_t P, std::size_t count) {
    std::vector<float> values;
    for (std::int32_t I = 1; I <= Integer(count); ++I)
        values.push_back(Store().RatePairs(I, P));
    return values;
}

std::vector<Entry> Request() {
    const auto& S = Store();
    std::vector<Entry> entries;
    for (std::int32_t i = 1; i <= S.PlotCount; ++i)
        entries.push_back({S.PlotX(i), S.PlotY(i), S.PlotSym(i)});
    return entries;
}

std::vector<Entry> LineOf(const std::vector<float>& x, const std::vector<float>& y, int code) {
    std::vector<Entry> entries;
    for (std::size_t i = 0; i < x.size(); ++i)
        entries.push_back({x[i], y[i], i == 0 ? -58 : code});
    return entries;
}

std::vector<Entry> SymbolsOf(const std::vector<float>& x, const std::vector<float>& y, int code) {
    std::vector<Entry> entries;
    for (std::size_t i = 0; i < x.size(); ++i)
        entries.push_back({x[i], y[i], code});
    return entries;
}

std::vector<Entry> Joined(std::vector<Entry> first, const std::vector<Entry>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::vector<float> AsSvedbergs(const std::vector<float>& s) {
    std::vector<float> x;
    for (const float seconds : s)
        x.push_back(Rounded(seconds * 1E13));
    return x;
}

std::vector<std::string> RequestTextsNow() {
    const auto& S = Store();
    return {S.PlotHelp1, S.PlotHelp2, S.PlotXTitle, S.PlotYTitle};
}

std::vector<std::string> FlagsUp() {
    const auto& S = Store();
    const std::pair<const char*, bool> kFlags[] = {
        {"PickDataLimits", S.PickDataLimits},
        {"PickFringePoint", S.PickFringePoint},
        {"PickJitterPoint", S.PickJitterPoint},
        {"PickMeniscus", S.PickMeniscus},
        {"PickSLimits", S.PickSLimits},
        {"PickZeroLevel", S.PickZeroLevel},
        {"PlotDialogOK", S.PlotDialogOK},
        {"PlotLnAxis", S.PlotLnAxis},
        {"PlotReady", S.PlotReady},
        {"PlotitLoaded", S.PlotitLoaded},
    };
    std::vector<std::string> names;
    for (const auto& [name, up] : kFlags)
        if (up)
            names.emplace_back(name);
    return names;
}

std::map<std::string, std::string> MenuStates() {
    std::map<std::string, std::string> states;
    for (const auto& entry : MainMenuBar().Entries()) {
        const MenuItem& item = *entry.item;
        states[item.Name()] = std::string(item.IsEnabled() ? "on " : "off ") + (item.IsShown() ? "shown" : "hidden") +
                              (item.IsTicked() ? " ticked " : " ") + item.Caption();
    }
    return states;
}

std::map<std::string, std::string> MenuChanges(const std::map<std::string, std::string>& before) {
    std::map<std::string, std::string> changes;
    for (const auto& [name, state] : MenuStates()) {
        const auto old = before.find(name);
        if (old == before.end() || old->second != state)
            changes[name] = state;
    }
    return changes;
}

std::map<std::string, std::string> Only(const std::map<std::string, std::string>& before,
                                        const std::vector<std::string>& enabled,
                                        const std::vector<std::string>& disabled) {
    const auto rest = [&](const std::string& name) { return before.at(name).substr(before.at(name).find(' ')); };
    std::map<std::string, std::string> changes;
    for (const auto& name : enabled)
        changes[name] = "on" + rest(name);
    for (const auto& name : disabled)
        changes[name] = "off" + rest(name);
    return changes;
}

std::uint64_t Digest(const std::vector<float>& values, std::uint64_t start) {
    std::uint64_t hash = start;
    for (const float value : values) {
        const auto bits = std::bit_cast<std::uint32_t>(value);
        for (int shift = 0; shift < 32; shift += 8) {
            hash ^= (bits >> shift) & 0xFFU;
            hash *= 0x100000001B3U;
        }
    }
    return hash;
}

}  // namespace halvern::test
