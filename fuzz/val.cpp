// Val and IsNumeric on any text, held against a reading of their grammar that is written anew here, with the C library's
// conversion behind it, which shares no code with the one in use.
#include "store/val.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

#include "support/check.h"

namespace {

using namespace halvern;
using namespace halvern::fuzz;

struct Reading {
    double value = 0.0;
    bool isWhole = false;  // the text is one number from end to end
    std::size_t end = 0;   // behind the last character of the number; 0 with none
};

std::size_t DigitsAt(std::string_view text, std::size_t at) {
    std::size_t count = 0;
    while (at + count < text.size() && text[at + count] >= '0' && text[at + count] <= '9')
        ++count;
    return count;
}

bool IsOneOf(std::string_view text, std::size_t at, std::string_view set) {
    return at < text.size() && set.find(text[at]) != std::string_view::npos;
}

Reading ReadByHand(std::string_view text) {
    std::size_t at = 0;
    while (IsOneOf(text, at, " "))
        ++at;
    std::string number;
    if (IsOneOf(text, at, "+-"))
        number += text[at++];
    const std::size_t whole = DigitsAt(text, at);
    number += text.substr(at, whole);
    at += whole;
    std::size_t decimals = 0;
    if (IsOneOf(text, at, ".")) {
        decimals = DigitsAt(text, at + 1);
        number += text.substr(at, decimals + 1);
        at += decimals + 1;
    }
    if (whole + decimals == 0)
        return {};
    if (IsOneOf(text, at, "EeDd")) {
        const std::size_t sign = IsOneOf(text, at + 1, "+-") ? 1 : 0;
        const std::size_t digits = DigitsAt(text, at + 1 + sign);
        if (digits != 0) {
            number += 'e';
            number += text.substr(at + 1, sign + digits);
            at += 1 + sign + digits;
        }
    }
    Reading reading;
    reading.value = std::strtod(number.c_str(), nullptr);
    reading.end = at;
    while (IsOneOf(text, at, " "))
        ++at;
    reading.isWhole = at == text.size();
    return reading;
}

void CheckNumber(std::string_view text) {
    const Reading reading = ReadByHand(text);
    const double value = Val(text);
    if (!SameBits(value, reading.value) || !SameBits(ValGeneral(text), reading.value))
        Broken("Val is the number by hand", Visible(text) + ": " + std::to_string(value));
    Check(IsNumeric(text) == reading.isWhole, "IsNumeric takes the texts that are one number");
    Check(!std::isnan(value), "Val gives a number");
    // What stands behind the number and blanks before it say nothing.
    Check(SameBits(Val(text.substr(0, reading.end)), value), "the number ends where its text does");
    Check(SameBits(Val("  " + std::string(text)), value), "blanks in front say nothing");
    Check(SameBits(Val(std::string(text.substr(0, reading.end)) + "\tx"), value), "a letter behind says nothing");
}

/// The shortest text of a double reads as that double.
void CheckBack(double value) {
    if (!std::isfinite(value))
        return;
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value).ptr;
    Check(SameBits(Val({text, static_cast<std::size_t>(end - text)}), value), "a number written is read again");
    Check(IsNumeric({text, static_cast<std::size_t>(end - text)}), "a number written is one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = TextOf(data, size);
    CheckNumber(text);
    CheckBack(Val(text));
    if (double bits = 0.0; size >= sizeof bits) {
        std::memcpy(&bits, data, sizeof bits);
        CheckBack(bits);
    }
    return 0;
}
