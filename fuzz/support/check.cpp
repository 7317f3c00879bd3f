#include "support/check.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace halvern::fuzz {

void Broken(std::string_view what, const std::string& details) {
    std::fprintf(stderr, "fuzz: does not hold: %.*s\n%s%s", static_cast<int>(what.size()), what.data(), details.c_str(),
                 details.empty() ? "" : "\n");
    std::abort();
}

std::string Visible(std::string_view text) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string shown = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F && c != '\\' && c != '"') {
            shown += c;
            continue;
        }
        shown += "\\x";
        shown += kHex[byte >> 4U];
        shown += kHex[byte & 0xFU];
    }
    return shown + '"';
}

std::string_view TakePart(std::string_view& input) {
    const std::size_t size = std::min(input.find(kSeparator), input.size());
    const std::string_view part = input.substr(0, size);
    input.remove_prefix(std::min(size + 1, input.size()));
    return part;
}

}  // namespace halvern::fuzz
