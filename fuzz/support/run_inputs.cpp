// Runs a fuzz target over files and over all files of folders, once each: what the fuzzer has found stays found.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "support/check.h"

extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> InputsIn(const fs::path& path) {
    if (!fs::is_directory(path))
        return {path};
    std::vector<fs::path> inputs;
    for (const auto& entry : fs::directory_iterator(path))
        if (entry.is_regular_file())
            inputs.push_back(entry.path());
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

bool RunInput(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "%s can't be read\n", path.c_str());
        return false;
    }
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    // A copy of the exact size: the sanitizers see what reads beyond it.
    const auto data = std::make_unique<std::uint8_t[]>(text.size());
    std::copy(text.begin(), text.end(), data.get());
    LLVMFuzzerTestOneInput(data.get(), text.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (LLVMFuzzerInitialize != nullptr)
        LLVMFuzzerInitialize(&argc, &argv);
    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i)
        for (auto& path : InputsIn(fs::absolute(argv[i])))
            inputs.push_back(std::move(path));
    std::size_t ran = 0;
    for (const auto& path : inputs) {
        // Told beforehand: the last line names the input that ends the process.
        std::printf("%s\n", path.c_str());
        std::fflush(stdout);
        ran += RunInput(path) ? 1 : 0;
    }
    std::printf("%zu of %zu inputs ran\n", ran, inputs.size());
    return ran == inputs.size() && ran != 0 ? 0 : 1;
}
