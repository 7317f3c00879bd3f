#include "store/numeric.h"

#include <cmath>

#include "store/failure.h"

namespace halvern {

// The comparisons are written so that NaN, which no store holds, would fail as well.
double Ln(double value) {
    if (!(value > 0.0))
        Fail(FailureCode::kInvalidProcedureCall);
    return std::log(value);
}

double SquareRoot(double value) {
    if (!(value >= 0.0))
        Fail(FailureCode::kInvalidProcedureCall);
    return std::sqrt(value);
}

double Exp(double value) {
    const double result = std::exp(value);
    if (!std::isfinite(result))
        Fail(FailureCode::kOverflow);
    return result;
}

}  // namespace halvern
