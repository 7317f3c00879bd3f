#include "simulate/instrument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "simulate/parameter_text.h"

namespace halvern::simulate {
namespace {

constexpr std::size_t kScans = 40;

Parameters Given(const std::string& text) {
    Parameters parameters;
    ReadParameters(parameters, text, "p.txt");
    return parameters;
}

/// What the instrument makes of a scan in which the cell shows the same signal everywhere.
Trace ReadLevel(const Parameters& parameters, std::size_t scan, double level) {
    const Instrument instrument(parameters, kScans);
    Trace trace;
    trace.radiusCm = instrument.Radii(scan);
    trace.signal.assign(trace.radiusCm.size(), level);
    instrument.Read(scan, trace);
    return trace;
}

struct Statistics {
    double mean, deviation;
};

Statistics Of(const std::vector<double>& values) {
    double sum = 0.0, squares = 0.0;
    for (const double value : values)
        sum += value;
    const double mean = sum / static_cast<double>(values.size());
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    return {mean, std::sqrt(squares / static_cast<double>(values.size()))};
}

/// Signal of one trace less that of another, point by point.
std::vector<double> Difference(const Trace& a, const Trace& b) {
    std::vector<double> difference;
    for (std::size_t i = 0; i < a.signal.size(); ++i)
        difference.push_back(a.signal[i] - b.signal[i]);
    return difference;
}

TEST(Instrument, StepsWithAScatterOfItsOwnInEachScan) {
    const auto parameters = Given("read-from = 5.9\nread-to = 7.1\nradial-step = 0.003\nradius-scatter = 0.0006\n");
    const Instrument instrument(parameters, kScans);
    const auto first = instrument.Radii(0), second = instrument.Radii(1);
    ASSERT_EQ(first.size(), 401U);
    ASSERT_EQ(second.size(), 401U);
    EXPECT_NE(first, second);
    EXPECT_EQ(first, instrument.Radii(0));
    for (const auto& radii : {first, second}) {
        EXPECT_TRUE(std::is_sorted(radii.begin(), radii.end(), std::less_equal<>()));
        double farthest = 0.0;
        for (std::size_t i = 0; i < radii.size(); ++i)
            farthest = std::max(farthest, std::abs(radii[i] - (5.9 + 0.003 * static_cast<double>(i))));
        EXPECT_LE(farthest, 0.00065 + 1e-12);  // the scatter and half of the last written decimal
        EXPECT_GT(farthest, 0.0005);
    }
}

TEST(Instrument, HasCommonRadiiWithInterferenceOptics) {
    const auto parameters = Given("optics = interference\nread-from = 5.9\nread-to = 7.1\nradial-step = 0.001\n");
    const Instrument instrument(parameters, kScans);
    const auto radii = instrument.Radii(0);
    ASSERT_EQ(radii.size(), 1201U);
    EXPECT_EQ(radii.front(), 5.9);
    EXPECT_EQ(radii[123], 6.023);
    EXPECT_EQ(radii.back(), 7.1);
    EXPECT_EQ(radii, instrument.Radii(39));
}

TEST(Instrument, AddsNothingThatIsNotAskedFor) {
    for (const auto* optics : {"optics = absorbance\n", "optics = interference\n"}) {
        const auto trace = ReadLevel(Given(optics), 7, 0.75);
        EXPECT_EQ(std::set<double>(trace.signal.begin(), trace.signal.end()), std::set<double>{0.75});
        EXPECT_EQ(std::set<double>(trace.spread.begin(), trace.spread.end()), std::set<double>{0.0});
    }
}

TEST(Instrument, CutsAtItsCeiling) {
    EXPECT_EQ(ReadLevel(Given(""), 0, 50.0).signal[100], 3.0);
    EXPECT_EQ(ReadLevel(Given("ceiling = 2.5\n"), 0, 50.0).signal[100], 2.5);
    EXPECT_EQ(ReadLevel(Given("ceiling = 0\n"), 0, 50.0).signal[100], 50.0);
    EXPECT_EQ(ReadLevel(Given("optics = interference\n"), 0, 50.0).signal[100], 50.0);
}

TEST(Instrument, ShowsAPeakAtTheMeniscus) {
    const auto trace = ReadLevel(
        Given("optics = interference\nradial-step = 0.001\nread-from = 5.95\nmeniscus = 6.02\nmeniscus-spike = 0.4\n"),
        0, 1.0);
    const auto peak = std::max_element(trace.signal.begin(), trace.signal.end()) - trace.signal.begin();
    EXPECT_EQ(trace.radiusCm[static_cast<std::size_t>(peak)], 6.02);
    EXPECT_NEAR(*std::max_element(trace.signal.begin(), trace.signal.end()), 1.4, 1e-12);
    EXPECT_NEAR(trace.signal[static_cast<std::size_t>(peak) + 3], 1.0 + 0.4 * std::exp(-0.5), 1e-9);  // 0.003 cm on
    EXPECT_NEAR(trace.signal.back(), 1.0, 1e-12);
}

// 1800 points: the bounds are four standard deviations of a mean, 4 / sqrt(1800), and of a standard deviation.
TEST(Instrument, AddsNoiseOfTheSizeAskedFor) {
    const auto parameters = Given("optics = interference\nnoise = 0.02\nreadings = 5\n");
    const auto trace = ReadLevel(parameters, 3, 0.5);
    ASSERT_GT(trace.signal.size(), 1800U);
    const auto signal = Of(trace.signal);
    EXPECT_NEAR(signal.mean, 0.5, 0.02 * 4.0 / std::sqrt(1800.0));
    EXPECT_NEAR(signal.deviation, 0.02, 0.02 * 4.0 / std::sqrt(3600.0));
    EXPECT_NE(trace.signal, ReadLevel(parameters, 4, 0.5).signal);
}

// The spread is that of the five readings: their variance is five times that of their mean, on the average over the
// points, and has four degrees of freedom.
TEST(Instrument, TellsTheSpreadOfItsReadings) {
    const auto parameters = Given("noise = 0.02\nradial-step = 0.001\nradius-scatter = 0.0001\n");
    const auto trace = ReadLevel(parameters, 3, 0.5);
    double squares = 0.0;
    for (const double spread : trace.spread)
        squares += spread * spread;
    const double points = static_cast<double>(trace.spread.size());
    ASSERT_GT(points, 1200.0);
    EXPECT_NEAR(squares / points / (0.02 * 0.02 * 5.0), 1.0, 4.0 * std::sqrt(2.0 / 4.0 / points));
    const auto once = ReadLevel(Given("noise = 0.02\nreadings = 1\n"), 3, 0.5);
    EXPECT_EQ(once.spread[10], 0.0);
    EXPECT_NE(once.signal[10], 0.5);
}

TEST(Instrument, HasTimeInvariantNoiseThatIsTheSameInAllScans) {
    const auto parameters = Given("optics = interference\nti-noise = 0.05\n");
    const auto first = ReadLevel(parameters, 0, 1.0), last = ReadLevel(parameters, 39, 1.0);
    EXPECT_EQ(first.signal, last.signal);
    // Half of its power is in eight waves, of which the longest fit twice into a scan: the figure is rough.
    EXPECT_NEAR(Of(first.signal).deviation, 0.05, 0.01);
    EXPECT_NE(first.signal, ReadLevel(Given("optics = interference\nti-noise = 0.05\nseed = 2\n"), 0, 1.0).signal);
}

TEST(Instrument, OffsetsEachScanByItsJitter) {
    const auto parameters = Given("optics = interference\njitter = 0.3\n");
    std::vector<double> offsets;
    for (std::size_t scan = 0; scan < kScans; ++scan) {
        const auto trace = ReadLevel(parameters, scan, 1.0);
        EXPECT_EQ(std::set<double>(trace.signal.begin(), trace.signal.end()).size(), 1U);
        offsets.push_back(trace.signal[0] - 1.0);
    }
    EXPECT_EQ(std::set<double>(offsets.begin(), offsets.end()).size(), kScans);
    EXPECT_NEAR(Of(offsets).deviation, 0.3, 0.3 * 4.0 / std::sqrt(2.0 * kScans));
}

TEST(Instrument, JumpsBetweenScansByWholeFringes) {
    const std::string noisy = "optics = interference\nnoise = 0.01\njitter = 0.1\nti-noise = 0.02\n";
    const auto without = Given(noisy), with = Given(noisy + "jumps-between = 0.5\n");
    double level = 0.0;
    int jumps = 0;
    for (std::size_t scan = 0; scan < kScans; ++scan) {
        const auto difference = Difference(ReadLevel(with, scan, 1.0), ReadLevel(without, scan, 1.0));
        const double whole = std::round(difference[0]);
        for (const double value : difference)
            EXPECT_NEAR(value, whole, 1e-12);
        EXPECT_LE(std::abs(whole - level), 1.0);
        jumps += whole != level ? 1 : 0;
        level = whole;
    }
    // 39 chances of 1/2: 19.5, and four standard deviations of sqrt(39) / 2
    EXPECT_NEAR(jumps, 19.5, 12.5);
    EXPECT_EQ(ReadLevel(Given("optics = interference\njumps-between = 1\n"), 0, 1.0).signal[0], 1.0);
}

TEST(Instrument, JumpsWithinScansByWholeFringes) {
    const std::string noisy = "optics = interference\nnoise = 0.01\njitter = 0.1\nti-noise = 0.02\n";
    const auto without = Given(noisy), with = Given(noisy + "jumps-within = 3\n");
    std::set<double> places;
    for (std::size_t scan = 0; scan < 10; ++scan) {
        const auto trace = ReadLevel(with, scan, 1.0);
        const auto difference = Difference(trace, ReadLevel(without, scan, 1.0));
        EXPECT_NEAR(difference[0], 0.0, 1e-12);
        double steps = 0.0;
        for (std::size_t i = 1; i < difference.size(); ++i) {
            EXPECT_NEAR(difference[i], std::round(difference[i]), 1e-12);
            const double step = std::abs(std::round(difference[i] - difference[i - 1]));
            steps += step;
            if (step != 0.0)
                places.insert(trace.radiusCm[i]);
        }
        // three steps; two of them between the same two points can show as none
        EXPECT_TRUE(steps == 3.0 || steps == 1.0) << steps;
    }
    EXPECT_GT(places.size(), 20U);  // each scan has jumps of its own
    EXPECT_GE(*places.begin(), 6.0);
    EXPECT_LE(*places.rbegin(), 7.2 + 0.0007);
}

}  // namespace
}  // namespace halvern::simulate
