#include "wide/integral.h"

#include "store/analysis_store.h"
#include "store/numeric.h"
#include "store/single.h"
#include "wide/smooth.h"
#include "wide/wide_distribution.h"

namespace halvern {

namespace {

/// s* g(s*) and Ln(s*) of one radius.
struct LnCurve {
    ScanCurve A;
    ScanCurve B;
};

void TakeCurve(std::int32_t K, LnCurve& curve) {
    for (std::int32_t J = 2; J <= Store().NumFiles; ++J) {
        curve.A(J) = STimesG(J, K);
        curve.B(J) = Single(LnOfS(J, K));
    }
}

void IntegrateRadius(std::int32_t K, const LnCurve& curve) {
    auto& S = Store();
    const auto& [A, B] = curve;
    const std::int32_t N = S.NumFiles;
    const auto end = [&](std::int32_t J, std::int32_t low, std::int32_t high) {
        return Extended{B(J)} * 0.5L * A(J) * (Extended{B(high)} - B(low));
    };
    S.WDIntegral(2, K, 1) = Single(end(2, 2, 3));
    for (std::int32_t J = 3; J <= N - 1; ++J)
        S.WDIntegral(J, K, 1) =
            Single((Extended{B(J)} - B(J - 1)) * (Extended{B(J)} * A(J)) + S.WDIntegral(J - 1, K, 1));
    S.WDIntegral(N, K, 1) = Single(end(N, N - 1, N) + S.WDIntegral(N - 1, K, 1));
}

void PutAxis(std::int32_t K, const ScanCurve& B, IntegralAxis axis) {
    auto& S = Store();
    const auto middle = [&](std::int32_t J) { return Single((Extended{B(J - 1)} + B(J)) / 2.0L); };
    for (std::int32_t J = 2; J <= S.NumFiles; ++J)
        S.WDIntegral(J, K, 2) = axis == IntegralAxis::kPoints ? B(J) : middle(J == 2 ? 3 : J);
}

}  // namespace

double LnOfS(std::int32_t J, std::int32_t K) { return Ln(Store().WDSValue(J, K)); }

float STimesG(std::int32_t J, std::int32_t K) {
    const auto& S = Store();
    return Single(Extended{S.WDGofS(J, K)} * S.WDSValue(J, K));
}

void IntegrateWideDistribution(IntegralAxis axis) {
    auto& S = Store();
    for (std::int32_t Plane = 1; Plane <= 2; ++Plane)
        for (std::int32_t K = 1; K <= kWideRadii; ++K)
            for (std::int32_t J = 2; J <= S.NumFiles; ++J)
                S.WDIntegral(J, K, Plane) = 0.0F;
    LnCurve curve;
    curve.A.Fill(0.0F);
    curve.B.Fill(0.0F);
    for (std::int32_t K = 1; K <= kWideRadii; ++K) {
        if (!S.WDRadiusValid(K))
            continue;
        TakeCurve(K, curve);
        IntegrateRadius(K, curve);
        PutAxis(K, curve.B, axis);
    }
}

}  // namespace halvern
