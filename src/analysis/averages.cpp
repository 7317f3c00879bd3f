#include "analysis/averages.h"

#include <cmath>

#include "analysis/interpolation.h"
#include "analysis/s_range.h"
#include "store/analysis_store.h"
#include "store/format.h"
#include "store/numeric.h"
#include "store/single.h"
#include "store/svedberg.h"

namespace halvern {

namespace {

/// Sums over the points within the limits: A of g times powers of s, B of squared errors times powers of s.
struct Sums {
    double A0 = 0.0, A1 = 0.0, A2 = 0.0, A3 = 0.0, A4 = 0.0;
    double BM2 = 0.0, B0 = 0.0, B2 = 0.0, B4 = 0.0, B6 = 0.0;
};

double Squared(double value) { return std::pow(value, 2.0); }

Sums SumOver(const Curve& distribution) {
    const auto& S = Store();
    Sums sums;
    for (std::int32_t I = FirstPointInUse(); I <= LastPointInUse(); ++I) {
        const double s = S.SStar(I) * kPerSvedberg;
        const double g = distribution(I) * kSvedberg;
        const double e2 = Squared(S.GStarSem(I));
        sums.A0 += Quotient(g, s);
        sums.A1 += g;
        sums.A2 += s * g;
        sums.A3 += Squared(s) * g;
        sums.A4 += std::pow(s, 3.0) * g;
        sums.B0 += e2;
        sums.BM2 += Quotient(e2, Squared(s));
        sums.B2 += Squared(s) * e2;
        sums.B4 += std::pow(s, 4.0) * e2;
        sums.B6 += std::pow(s, 6.0) * e2;
    }
    return sums;
}

DistributionAverages AveragesOver(const Curve& distribution) {
    const Sums m = SumOver(distribution);
    const auto error = [](double squared) { return SquareRoot(squared); };
    return {
        .Sn = {Quotient(m.A1, m.A0),
               error(Squared(Quotient(m.A1, Squared(m.A0))) * m.BM2 + Squared(Quotient(1.0, m.A0)) * m.B0)},
        .Sw = {Quotient(m.A2, m.A1),
               error(Squared(Quotient(m.A2, Squared(m.A1))) * m.B0 + Quotient(m.B2, Squared(m.A1)))},
        .Sz = {Quotient(m.A3, m.A2),
               error(Squared(Quotient(m.A3, Squared(m.A2))) * m.B2 + Squared(Quotient(1.0, m.A2)) * m.B4)},
        .SzPlus1 = {Quotient(m.A4, m.A3),
                    error(Squared(Quotient(m.A4, Squared(m.A3))) * m.B4 + Squared(Quotient(1.0, m.A3)) * m.B6)},
        .concentration = Store().DeltaS * m.A1,
    };
}

std::string AverageLine(std::string_view label, const Average& average) {
    static constexpr Pattern kValue{"###0.000"}, kError{"##0.000"};
    return Concat({label, Format(average.value, kValue), " +/-  ", Format(average.error, kError), " Svedbergs"});
}

std::array<std::string, 5> Lines(const DistributionAverages& averages, std::string_view label,
                                 std::string_view meaning) {
    static constexpr Pattern kConcentration{" ##0.000"};
    return {AverageLine("   Sn   =  ", averages.Sn), AverageLine("   Sw   =  ", averages.Sw),
            AverageLine("   Sz   =  ", averages.Sz), AverageLine("   Sz+1 =  ", averages.SzPlus1),
            Concat({label, Format(averages.concentration, kConcentration), meaning})};
}

}  // namespace

void BlankOutsideLimits() {
    auto& S = Store();
    const auto blank = [&](std::int32_t first, std::int32_t last) {
        for (std::int32_t I = first; I <= last; ++I) {
            S.GHat(I) = 0.0F;
            S.GStar(I) = 0.0F;
            S.GStarSem(I) = 0.0F;
        }
    };
    blank(1, S.SRangeFirst);
    blank(S.SRangeLast, S.SPoints);
}

DistributionAverages AveragesOfInteracting() { return AveragesOver(Store().GHat); }

DistributionAverages AveragesOfNonInteracting() { return AveragesOver(Store().GStar); }

std::array<std::string, 5> AverageLinesOfInteracting(const DistributionAverages& averages) {
    return Lines(averages, "   Cp   =  ", "  ( plateau concentration )");
}

std::array<std::string, 5> AverageLinesOfNonInteracting(const DistributionAverages& averages) {
    return Lines(averages, "   Co   =  ", "  ( loading concentration )");
}

}  // namespace halvern
