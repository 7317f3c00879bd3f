#pragma once

#include <cstdint>

namespace halvern {

/// What stands beside the integral in plane 2 of WDIntegral. The plot has the logarithm of s* at each point; the file the
/// middle between two, of which the first two are alike. Whichever ran last leaves its own.
enum class IntegralAxis { kPoints, kMiddles };

/// The running integral of s* g(s*) over Ln(s*), at every valid radius.
///
/// Reads     WDGofS, WDSValue, WDRadiusValid, NumFiles
/// Writes    WDIntegral(J, K, 1) the integral, WDIntegral(J, K, 2) its axis, J = 2 .. NumFiles, K = 1 .. 11
/// Rounding  worked in extended precision, each store a single
/// Fails     5 with an s* that is not positive
/// Note      each term has Ln(s*) itself as a factor, as the integral of the dilution has s*
void IntegrateWideDistribution(IntegralAxis axis);

/// Ln(s*) at point J of radius K, s* in Svedbergs; a double.
///
/// Fails     5 with an s* that is not positive
double LnOfS(std::int32_t J, std::int32_t K);

/// s* g(s*) there, single.
float STimesG(std::int32_t J, std::int32_t K);

}  // namespace halvern
