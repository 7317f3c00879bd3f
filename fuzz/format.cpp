// Format: a value and a pattern. Input: the eight bytes of a double, then the pattern.
#include "store/format.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

#include "format_by_hand.h"
#include "store/val.h"
#include "support/check.h"

namespace {

using namespace halvern;
using namespace halvern::fuzz;

std::string Told(double value, std::string_view pattern, std::string_view text) {
    char shown[40];
    std::snprintf(shown, sizeof shown, "%.17g", value);
    return std::string(shown) + " in " + Visible(pattern) + " is " + Visible(text);
}

/// The text in room of exactly the size that is promised to be enough.
std::string Written(double value, const Pattern& pattern) {
    const auto room = std::make_unique<char[]>(kFormatRoom);
    return {room.get(), FormatTo(room.get(), value, pattern)};
}

bool IsPlain(std::string_view pattern) {
    return pattern.find_first_not_of(" 0#.") == std::string_view::npos && pattern.find('0') != std::string_view::npos &&
           pattern.find_last_of(' ') + 1 == pattern.find_first_not_of(' ') && pattern.find('.') == pattern.rfind('.');
}

/// Of a pattern of nothing but places the text is a number again, at most half a unit of its last decimal away, and half
/// a unit of the fifteenth digit.
void CheckReadBack(double value, std::string_view pattern, const std::string& text) {
    std::string digits = text;
    digits.erase(0, digits.find_first_not_of("- "));
    const double back = Val(digits);
    const std::size_t point = std::min(pattern.find('.'), pattern.size());
    const auto decimals = static_cast<int>(pattern.size() - std::min(point + 1, pattern.size()));
    const double magnitude = std::fabs(value);
    const double allowed = 0.5 * std::pow(10.0, -decimals) * (1 + 1E-12) + magnitude * 5.1E-15;
    if (magnitude < 1E300 && !(std::fabs(back - magnitude) <= allowed))
        Broken("the number read back lies within half a unit", Told(value, pattern, text));
    Check((text.find('-') != std::string::npos) == (value < 0.0), "the sign is that of the number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    double value = 0.0;
    if (size < sizeof value)
        return 0;
    std::memcpy(&value, data, sizeof value);
    const std::string_view text = TextOf(data + sizeof value, size - sizeof value);
    std::unique_ptr<Pattern> pattern;
    try {
        pattern = std::make_unique<Pattern>(text);
    } catch (const std::invalid_argument&) {
        return 0;
    }
    const std::string written = Written(value, *pattern);
    Check(written.size() <= kFormatRoom, "the text has room");
    Check(Format(value, *pattern).View() == written, "the object holds the same text");
    if (!std::isfinite(value)) {
        Check(written == (std::isnan(value) ? (value < 0.0 ? "-NAN" : "NAN")
                          : value < 0.0     ? "-INF"
                                            : "INF"),
              "what is no number has a name");
        return 0;
    }
    if (const std::string byHand = FormatByHand(value, text); byHand != written)
        Broken("Format is the text by hand", Told(value, text, written) + ", by hand " + Visible(byHand));
    if (IsPlain(text))
        CheckReadBack(value, text, written);
    if (std::fabs(value) < 2147483647.0 && value == std::trunc(value) && !std::signbit(value))
        Check(Format(static_cast<std::int32_t>(value), *pattern).View() == written, "an integer is its double");
    return 0;
}
