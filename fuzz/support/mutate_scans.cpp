// Makes one change in three one that knows the columns of a scan file.
#include "support/scan_mutator.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed) {
    if (seed % 3 == 0)
        if (const std::size_t changed = halvern::fuzz::MutateScanText(data, size, most, seed / 3); changed != 0)
            return changed;
    return LLVMFuzzerMutate(data, size, most);
}
