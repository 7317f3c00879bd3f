#include "format_by_hand.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace halvern::fuzz {

namespace {

// A section's characters, one by one: a place of digits, a literal, or the exponent as a whole.
struct Mark {
    enum Kind { kLiteral, kWholePlace, kDecimalPlace, kExponent, kPoint } kind;
    char character;
};

struct Layout {
    std::vector<Mark> marks;
    int wholePlaces = 0, decimals = 0;
    int wholeShown = 0, decimalsShown = 0;
    int exponentDigits = 0;
    bool plus = false;
};

bool IsPlace(char c) { return c == '0' || c == '#'; }

Layout LayoutOf(std::string_view section) {
    Layout layout;
    bool point = false, zeroSeen = false;
    for (std::size_t i = 0; i < section.size(); ++i) {
        const char c = section[i];
        const bool exponent = c == 'E' && i + 2 < section.size() && (section[i + 1] == '+' || section[i + 1] == '-') &&
                              section[i + 2] == '0';
        if (exponent) {
            layout.plus = section[i + 1] == '+';
            for (i += 2; i < section.size() && section[i] == '0'; ++i)
                ++layout.exponentDigits;
            --i;
            layout.marks.push_back({Mark::kExponent, c});
        } else if (c == '.' && !point) {
            point = true;
            layout.marks.push_back({Mark::kPoint, c});
        } else if (!IsPlace(c)) {
            layout.marks.push_back({Mark::kLiteral, c});
        } else if (point) {
            ++layout.decimals;
            if (c == '0')
                layout.decimalsShown = layout.decimals;
            layout.marks.push_back({Mark::kDecimalPlace, c});
        } else {
            ++layout.wholePlaces;
            zeroSeen = zeroSeen || c == '0';
            layout.wholeShown += zeroSeen ? 1 : 0;
            layout.marks.push_back({Mark::kWholePlace, c});
        }
    }
    return layout;
}

// A decimal number: its digits and how many of them stand in front of the point (which may lie outside of them).
struct Decimal {
    std::string digits;
    int point = 0;
};

Decimal FifteenDigits(double magnitude) {
    if (magnitude == 0.0)
        return {"0", 1};
    char text[40];
    std::snprintf(text, sizeof text, "%.14e", magnitude);
    Decimal decimal;
    for (const char* at = text; *at != 'e'; ++at)
        if (*at != '.')
            decimal.digits += *at;
    decimal.point = 1 + std::atoi(std::string(text).substr(std::string(text).find('e') + 1).c_str());
    return decimal;
}

// Rounds to so many digits behind the point, a half up, and gives the digits with the point behind all but those.
Decimal Rounded(Decimal number, int decimals) {
    while (number.point < 1) {
        number.digits.insert(number.digits.begin(), '0');
        ++number.point;
    }
    const auto kept = static_cast<std::size_t>(number.point + decimals);
    const bool up = kept < number.digits.size() && number.digits[kept] >= '5';
    number.digits.resize(kept, '0');
    if (!up)
        return number;
    std::size_t at = kept;
    while (at > 0 && number.digits[at - 1] == '9')
        number.digits[--at] = '0';
    if (at > 0) {
        ++number.digits[at - 1];
    } else {
        number.digits.insert(number.digits.begin(), '1');
        ++number.point;
    }
    return number;
}

std::string Exponent(int exponent, const Layout& layout) {
    std::string digits = exponent == 0 ? "" : std::to_string(std::abs(exponent));
    while (static_cast<int>(digits.size()) < layout.exponentDigits)
        digits.insert(digits.begin(), '0');
    return std::string("E") + (exponent < 0 ? "-" : layout.plus ? "+" : "") + digits;
}

// The digits that a pattern shows in front of the point and behind it.
struct Shown {
    std::string whole, fraction;
};

Shown ShownOf(const Decimal& number, const Layout& layout) {
    Shown shown{number.digits.substr(0, static_cast<std::size_t>(number.point)),
                number.digits.substr(static_cast<std::size_t>(number.point))};
    shown.whole.erase(0, std::min(shown.whole.find_first_not_of('0'), shown.whole.size()));
    while (static_cast<int>(shown.whole.size()) < layout.wholeShown)
        shown.whole.insert(shown.whole.begin(), '0');
    while (static_cast<int>(shown.fraction.size()) > layout.decimalsShown && shown.fraction.back() == '0')
        shown.fraction.pop_back();
    return shown;
}

std::string Written(const Shown& shown, const std::string& exponent, const Layout& layout) {
    std::string text;
    const auto whole = static_cast<int>(shown.whole.size());
    int wholePlace = 0;
    std::size_t decimalPlace = 0;
    for (const Mark& mark : layout.marks) {
        switch (mark.kind) {
            case Mark::kLiteral:
                text += mark.character;
                break;
            case Mark::kPoint:
                if (layout.wholePlaces == 0 && layout.decimals > 0)
                    text += shown.whole;
                text += '.';
                break;
            case Mark::kWholePlace: {
                // The last place has the last digit; the first one has all in front of its own too.
                const int last = whole - (layout.wholePlaces - 1 - wholePlace);
                const int first = wholePlace == 0 ? 0 : last - 1;
                for (int i = std::max(first, 0); i < last; ++i)
                    text += shown.whole[static_cast<std::size_t>(i)];
                ++wholePlace;
                break;
            }
            case Mark::kDecimalPlace:
                if (decimalPlace < shown.fraction.size())
                    text += shown.fraction[decimalPlace];
                ++decimalPlace;
                break;
            case Mark::kExponent:
                text += exponent;
                break;
        }
    }
    return text;
}

// As many digits in front of the point as there are places, whatever the power of ten.
std::string Scientific(Decimal number, const Layout& layout) {
    int exponent = 0;
    if (number.digits != "0") {
        exponent = number.point - layout.wholePlaces;
        number.point = layout.wholePlaces;
        // With no place in front of the point the first digit stands behind it.
        const Decimal rounded = Rounded(number, layout.decimals);
        const std::size_t first = rounded.digits.find_first_not_of('0');
        const auto leading = static_cast<int>(rounded.digits.size()) - static_cast<int>(first);
        if (leading > layout.wholePlaces + layout.decimals) {  // 9.99 went up to 10.0
            ++exponent;
            --number.point;
        }
    }
    return Written(ShownOf(Rounded(number, layout.decimals), layout), Exponent(exponent, layout), layout);
}

}  // namespace

std::string FormatByHand(double value, std::string_view pattern) {
    std::vector<std::string_view> sections;
    for (std::size_t begin = 0; begin <= pattern.size();) {
        const std::size_t end = std::min(pattern.find(';', begin), pattern.size());
        sections.push_back(pattern.substr(begin, end - begin));
        begin = end + 1;
    }
    sections.resize(3);
    std::string_view section = value < 0.0 ? sections[1] : value > 0.0 ? sections[0] : sections[2];
    const bool minus = value < 0.0 && section.empty();
    if (section.empty())
        section = sections[0];
    const Layout layout = LayoutOf(section);
    const Decimal number = FifteenDigits(std::fabs(value));
    const std::string text = layout.exponentDigits != 0
                                 ? Scientific(number, layout)
                                 : Written(ShownOf(Rounded(number, layout.decimals), layout), {}, layout);
    return (minus ? "-" : "") + text;
}

}  // namespace halvern::fuzz
