#include <cstdint>

#include "store/numeric.h"
#include "store/single.h"
#include "store/svedberg.h"
#include "wide/wide_distribution.h"

namespace halvern {

namespace {

/// Elements 0 to 500; element 0 stays 0.
using Series = BoundedArray<float, Bounds<0, kMostScans>>;

constexpr int kDilutionPasses = 3;

/// What the scans say at the radius, the last scan first.
struct Course {
    Series C;  ///< mean signal
    Series S;  ///< s*, seconds
    Series W;  ///< omega squared t
    Course() {
        C.Fill(0.0F);
        S.Fill(0.0F);
        W.Fill(0.0F);
    }
};

/// The first point of the grid at or beyond a radius, which moves there; 0 if there is none.
std::int32_t FindPoint(const BoundedArray<float, Points>& Radii, std::int16_t PointCount, float& Radius) {
    for (std::int32_t I = 1; I <= PointCount; ++I)
        if (Radii(I) >= Radius) {
            Radius = Radii(I);
            return I;
        }
    return 0;
}

// Kept: the eleven points are Idx - 6 .. Idx + 4, so that the block lies one point below the radius asked for.
float MeanSignal(const BoundedArray<float, Points, Scans>& Signal, std::int32_t Idx, std::int32_t Scan) {
    float Sum = 0.0F;
    for (std::int32_t M = -5; M <= 5; ++M)
        Sum = Single(static_cast<double>(Sum) + Signal(Idx + M - 1, Scan));
    return Single(Sum / 11.0);
}

float ApparentS(float Radius, std::int32_t Scan) {
    const auto& S = Store();
    const float ratio = Single(Quotient(static_cast<double>(Radius), static_cast<double>(S.ScanMeniscus(Scan))));
    return Single(Quotient(Ln(ratio), static_cast<double>(S.ScanW2t(Scan))));
}

/// The derivative of the signal with respect to s*, per Svedberg, and the s* midway.
void Differentiate(const Course& course, std::int16_t ScanCount, ScanCurve& SValues, ScanCurve& GValues) {
    const auto& [C, S, W] = course;
    GValues(1) = 0.0F;
    for (std::int32_t J = 2; J <= ScanCount; ++J) {
        GValues(J) = Single(Quotient(Extended{C(J)} - C(J - 1), Extended{S(J)} - S(J - 1)) * kSvedberg);
        SValues(J) = Single((Extended{S(J - 1)} + S(J)) * 0.5L * kPerSvedberg);
    }
}

/// The running integral of s* g(s*), as the dilution takes it.
void Integrate(const Series& Ss, const Series& Ga, std::int16_t ScanCount, Series& Integ) {
    const auto end = [&](std::int32_t J, std::int32_t low, std::int32_t high) {
        return Extended{Ss(J)} * 0.5L * Ga(J) * (Extended{Ss(high)} - Ss(low));
    };
    Integ(1) = Single(end(1, 1, 2));
    for (std::int32_t J = 2; J <= ScanCount - 1; ++J)
        Integ(J) = Single((Extended{Ss(J)} - Ss(J - 1)) * (Extended{Ss(J)} * Ga(J)) + Integ(J - 1));
    Integ(ScanCount) = Single(end(ScanCount, ScanCount - 1, ScanCount) + Integ(ScanCount - 1));
}

/// Undoes the radial dilution: the corrected g(s*) of one pass makes the integral of the next.
void CorrectForDilution(const Course& course, std::int16_t ScanCount, const ScanCurve& SValues, ScanCurve& GValues) {
    Series Ga, G0, Ss, Integ;
    for (Series* series : {&Ga, &G0, &Ss, &Integ})
        series->Fill(0.0F);
    for (std::int32_t J = 1; J <= ScanCount; ++J) {
        Ga(J) = G0(J) = Single(GValues(J) * kPerSvedberg);
        Ss(J) = Single(SValues(J) * kSvedberg);
    }
    for (int pass = 1; pass <= kDilutionPasses; ++pass) {
        Integrate(Ss, Ga, ScanCount, Integ);
        for (std::int32_t J = 1; J <= ScanCount; ++J)
            if (Ss(J) > 0.0F)
                Ga(J) = Single(G0(J) - (Extended{course.W(J)} / Ss(J)) * (Extended{Integ(J)} + Integ(J)));
    }
    for (std::int32_t J = 1; J <= ScanCount; ++J)
        GValues(J) = Single(Ga(J) * kSvedberg);
}

}  // namespace

void WideAtRadius(const BoundedArray<float, Points>& Radii, const BoundedArray<float, Points, Scans>& Signal,
                  std::int16_t ScanCount, std::int16_t PointCount, float& Radius, ScanCurve& SValues,
                  ScanCurve& GValues) {
    const std::int32_t Idx = FindPoint(Radii, PointCount, Radius);
    Course course;
    std::int32_t J = 0;
    for (std::int32_t Scan = ScanCount; Scan >= 1; --Scan) {
        ++J;
        course.C(J) = MeanSignal(Signal, Idx, Scan);
        course.S(J) = ApparentS(Radius, Scan);
        course.W(J) = Store().ScanW2t(Scan);
    }
    Differentiate(course, ScanCount, SValues, GValues);
    CorrectForDilution(course, ScanCount, SValues, GValues);
}

}  // namespace halvern
