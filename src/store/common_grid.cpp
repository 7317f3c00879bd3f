#include "store/common_grid.h"

#include "store/analysis_store.h"
#include "store/single.h"

namespace halvern {

std::int16_t TakeGridOfFirstScan() {
    auto& S = Store();
    const std::int16_t N = S.ScanPoints(1);
    for (std::int32_t I = 1; I <= N; ++I)
        S.GridRadius(I) = S.ScanData(I, 1, 1);
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        for (std::int32_t I = 1; I <= N; ++I)
            S.GridSignal(I, K) = Single(static_cast<double>(S.ScanData(I, 2, K)) - S.JitterOffset(K));
    return N;
}

}  // namespace halvern
