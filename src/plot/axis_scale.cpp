#include "plot/axis_scale.h"

#include <cmath>
#include <string_view>

#include "store/analysis_store.h"
#include "store/format.h"
#include "store/numeric.h"
#include "store/single.h"
#include "store/val.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

// Arithmetic of singles: each operation is rounded where it stands.
float Plus(float a, float b) { return Single(static_cast<double>(a) + b); }
float Minus(float a, float b) { return Single(static_cast<double>(a) - b); }
float Times(float a, float b) { return Single(static_cast<double>(a) * b); }
float Over(float a, float b) { return Single(Quotient(static_cast<double>(a), static_cast<double>(b))); }

float FirstStep(float Min, float Max) {
    const double third = Over(Minus(Max, Min), 3.0F);
    const float L = Single(Ln(third) / 2.3025851);
    return Single(std::pow(10.0, std::floor(static_cast<double>(L))));
}

float MultipleBelow(float value, float Step) { return Times(std::floor(Over(value, Step)), Step); }

/// Data within a fifth of a step of the limit get a whole step of margin, but not across zero.
float LowerLimit(float Min, float Step, float Slop) {
    float limit = MultipleBelow(Min, Step);
    for (;;) {
        if (Minus(Min, Slop) < limit && Times(Minus(limit, Step), limit) > 0.0F)
            limit = Minus(limit, Step);
        const float below = Minus(limit, Step);
        // Steps below the resolution of a single, as after zooming in on one point again and again, lead nowhere.
        if (limit <= Min || below == limit)
            return limit;
        limit = below;
    }
}

float UpperLimit(float Max, float Step, float Slop) {
    const float limit = MultipleBelow(Max, Step);
    if (Plus(Max, Slop) > limit && Times(Plus(Step, limit), limit) > 0.0F)
        return Plus(limit, Step);
    return limit;
}

}  // namespace

void NiceScale(float Min, float Max, float& ScaleMin, float& ScaleMax, std::int32_t& Intervals) {
    float Step = FirstStep(Min, Max);
    bool Doubled = false;
    bool Halved = false;
    for (;;) {
        const float Slop = Over(Step, 5.0F);
        ScaleMin = LowerLimit(Min, Step, Slop);
        ScaleMax = UpperLimit(Max, Step, Slop);
        Intervals = ToInteger32(Plus(Over(Minus(ScaleMax, ScaleMin), Step), 0.5F));
        if (Intervals < 5) {
            Step = Over(Step, 2.0F);
            Halved = true;
        } else if (Intervals >= 10 && !(Doubled && Halved)) {
            Step = Plus(Step, Step);
            Doubled = true;
        } else {
            break;
        }
    }
    if (ScaleMax < Max) {
        Intervals += 1;
        ScaleMax = Plus(ScaleMax, Step);
    }
}

void AxisExponent(float A, float B, std::string& ExpText) {
    static constexpr Pattern kMantissaAndExponent{"+0.00E+00;-0.00E+00"};
    constexpr std::size_t kMantissaCharacters = 6;
    float V = std::fabs(B) < std::fabs(A) ? B : A;
    if (A == 0.0F)
        V = B;
    else if (B == 0.0F)
        V = A;
    ExpText = Format(V, kMantissaAndExponent).View().substr(kMantissaCharacters);
    if (ExpText == "+01" || ExpText == "-01")
        ExpText = "+00";
}

namespace {

std::int16_t LabelsOf(std::int32_t Intervals) { return ToInteger16(Intervals + 1.0); }

/// Limits and labels of a range that may be no range at all.
///
/// Result    true if all values are the same
bool ScaleRange(float& viewMin, float& viewMax, Axis& axis) {
    const bool identical = viewMin == viewMax;
    if (identical && viewMin == 0.0F) {
        axis.Min = -2.0F;
        axis.Max = 2.0F;
        axis.Labels = 5;
        return true;
    }
    if (identical && viewMax < 0.0F) {
        viewMin = Single(2.0 * viewMax);
        viewMax = Single(viewMax / 2.0);
    } else if (identical) {
        viewMin = Single(viewMax / 2.0);
        viewMax = Single(2.0 * viewMax);
    }
    std::int32_t Intervals = 0;
    NiceScale(viewMin, viewMax, axis.Min, axis.Max, Intervals);
    axis.Labels = LabelsOf(Intervals);
    return identical;
}

Axis WorkOut(float& viewMin, float& viewMax, const char* warning, const char* suffixStart) {
    Axis axis;
    if (ScaleRange(viewMin, viewMax, axis))
        MsgBox(warning, kExclamation, "Data Error");
    axis.Step = Single(Quotient(static_cast<double>(axis.Max) - axis.Min, axis.Labels - 1.0));
    std::string ExpText;
    AxisExponent(axis.Min, axis.Max, ExpText);
    axis.Pow = Single(std::pow(10.0, Val(ExpText)));
    if (axis.Pow != 1.0F)
        axis.Suffix = Concat({suffixStart, ExpText, ")"});
    return axis;
}

}  // namespace

Axis WorkOutXAxis() {
    return WorkOut(Store().PlotXMin, Store().PlotXMax, "WARNING:  All X values are identical.", "  (10^");
}

// The suffixes of the two axes differ by a blank.
Axis WorkOutYAxis() {
    return WorkOut(Store().PlotYMin, Store().PlotYMax, "WARNING:  All Y values are identical.", " (10^");
}

}  // namespace halvern
