#include "store/common_grid.h"

#include <cstddef>
#include <cstdint>
#include <span>

#include "store/analysis_store.h"
#include "store/single.h"

namespace halvern {

std::int16_t TakeGridOfFirstScan() {
    auto& S = Store();
    const std::int16_t N = S.ScanPoints(1);
    for (std::int32_t I = 1; I <= N; ++I)
        S.GridRadius(I) = S.ScanData(I, 1, 1);
    const auto count = static_cast<std::size_t>(N);
    for (std::int32_t K = 1; K <= S.NumFiles; ++K) {
        const std::span<const float> signals(&S.ScanData(1, 2, K), count);
        const std::span<float> corrected(&S.GridSignal(1, K), count);
        const float offset = S.JitterOffset(K);
        for (std::size_t i = 0; i < count; ++i)
            corrected[i] = signals[i] - offset;
        FailUnlessFinite(corrected);
    }
    return N;
}

}  // namespace halvern
