#include "store/point_field.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "store/format.h"

namespace halvern {
namespace {

using Field = char* (*)(char*, float) noexcept;

std::string Text(Field field, float value) {
    char text[kPointFieldRoom];
    return {text, field(text, value)};
}

std::string RadiusByFormat(float value) { return std::string(Format(value, "  0.0000")); }
std::string SignalByFormat(float value) { return std::string(Format(value, "  0.0000E+00; -0.0000E+00")); }
std::string PlotByFormat(float value) { return std::string(Format(value, "    0.0000E+00;   -0.0000E+00")); }

void ExpectAsFormat(float value) {
    if (!std::isfinite(value))
        return;
    ASSERT_EQ(Text(RadiusField, value), RadiusByFormat(value)) << value;
    ASSERT_EQ(Text(SignalField, value), SignalByFormat(value)) << value;
    ASSERT_EQ(Text(PlotField, value), PlotByFormat(value)) << value;
}

TEST(PointField, HasBlanksOrAMinusInPlaceOfTheLast) {
    EXPECT_EQ(Text(RadiusField, 6.0F), "  6.0000");
    EXPECT_EQ(Text(SignalField, 0.0F), "  0.0000E+00");
    EXPECT_EQ(Text(SignalField, -0.5F), " -5.0000E-01");
    EXPECT_EQ(Text(SignalField, 12345.0F), "  1.2345E+04");
    EXPECT_EQ(Text(SignalField, 99999.5F), "  1.0000E+05");
    EXPECT_EQ(Text(PlotField, 1.5F), "    1.5000E+00");
    EXPECT_EQ(Text(PlotField, -0.25F), "   -2.5000E-01");
    EXPECT_EQ(Text(PlotField, 0.0F), "    0.0000E+00");
}

TEST(PointField, RoundsATieAwayFromZero) {
    // Halves of the last digit that a single holds exactly: 1.03125 is 33/32.
    EXPECT_EQ(Text(RadiusField, 1.03125F), "  1.0313");
    EXPECT_EQ(Text(SignalField, 1.03125F), "  1.0313E+00");
    EXPECT_EQ(Text(SignalField, -1.03125F), " -1.0313E+00");
    EXPECT_EQ(Text(SignalField, 10000.5F), "  1.0001E+04");
}

TEST(PointField, IsWhatFormatMakesAtEveryPowerOfTenAndItsNeighbours) {
    for (float power = 1E-12F; power < 1E12F; power *= 10.0F)
        for (const float factor : {1.0F, 2.0F, 5.0F, 9.9999F, 9.99995F, 9.99994F}) {
            const float value = power * factor;
            for (const float near : {value, std::nextafter(value, 0.0F), std::nextafter(value, 1E30F)}) {
                ExpectAsFormat(near);
                ExpectAsFormat(-near);
            }
        }
    for (const float value : {0.0F, -0.0F, std::numeric_limits<float>::max(), std::numeric_limits<float>::min(),
                              std::numeric_limits<float>::denorm_min()})
        ExpectAsFormat(value);
}

TEST(PointField, IsWhatFormatMakesOfAMillionSignalsAndRadii) {
    std::mt19937 random(20261121);
    std::uniform_real_distribution<float> radius(0.9F, 10.5F), exponent(-6.0F, 6.0F);
    for (int i = 0; i < 500000; ++i) {
        ExpectAsFormat(radius(random));
        const float size = std::pow(10.0F, exponent(random));
        ExpectAsFormat(i % 2 == 0 ? size : -size);
    }
}

TEST(PointField, IsWhatFormatMakesOfAnySingle) {
    std::mt19937 random(19280417);
    for (int i = 0; i < 100000; ++i)
        ExpectAsFormat(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
}

TEST(PointField, IsWhatFormatMakesOfFiveDigitNumbersAndTies) {
    for (int digits = 10000; digits < 100000; ++digits)
        for (const double power : {1E-9, 1E-8, 1E-7, 1E-6, 1E-5, 1E-4, 1E-3, 1E-2, 1E-1, 1E0})
            ExpectAsFormat(static_cast<float>((digits + 0.5) * power));
}

}  // namespace
}  // namespace halvern
