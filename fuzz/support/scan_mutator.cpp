#include "support/scan_mutator.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace halvern::fuzz {

namespace {

using Random = std::minstd_rand;

std::size_t Below(Random& random, std::size_t end) { return end == 0 ? 0 : random() % end; }

struct Field {
    std::size_t column, length;
};

// Of a head line speed and omega squared t, of a point's line radius and signal, the latter as two instruments place it,
// and what lies around them.
constexpr Field kFields[] = {{1, 1}, {9, 6}, {23, 10}, {4, 7}, {11, 15}, {11, 14}, {13, 12}, {11, 2}, {21, 5}, {25, 1}};

constexpr std::string_view kTexts[] = {"5.9007",
                                       "-5.09242E-03",
                                       " 4.57670E-0002",
                                       "0",
                                       "-0",
                                       "1E38",
                                       "3.402823466E38",
                                       "3.4028236E38",
                                       "1E-46",
                                       "NaN",
                                       "Inf",
                                       "42000",
                                       "1E10",
                                       "9.9D9",
                                       "&H5",
                                       "5,9",
                                       "+1.5",
                                       "1.5x",
                                       "42000.5",
                                       "2147483648",
                                       "E09",
                                       "1E999",
                                       " ",
                                       "\t1.0",
                                       "9.999999999",
                                       ".",
                                       "00000000"};

std::string NumberOfLayout(Random& random) {
    const auto digits = [&](int count) {
        std::string text;
        for (; count > 0; --count)
            text += static_cast<char>('0' + Below(random, 10));
        return text;
    };
    switch (Below(random, 3)) {
        case 0:
            return digits(1) + "." + digits(4);
        case 1:
            return (Below(random, 2) == 0 ? "-" : " ") + digits(1) + "." + digits(5) + "E" +
                   (Below(random, 2) == 0 ? "-" : "+") + digits(2);
        default:
            return (Below(random, 2) == 0 ? "-" : " ") + digits(1) + "." + digits(5) + "E" +
                   (Below(random, 2) == 0 ? "-" : "+") + "00" + digits(2);
    }
}

struct Line {
    std::size_t begin, size;
};

Line SomeLine(const std::string& text, Random& random) {
    const std::size_t at = Below(random, text.size() + 1);
    const std::size_t before = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
    const std::size_t begin = before == std::string::npos ? 0 : before + 1;
    return {begin, std::min(text.find('\n', begin), text.size()) - begin};
}

void ChangeField(std::string& text, Random& random) {
    const Line line = SomeLine(text, random);
    const Field field = kFields[Below(random, std::size(kFields))];
    std::string changed = text.substr(line.begin, line.size);
    if (changed.size() < field.column - 1 + field.length)
        changed.resize(field.column - 1 + field.length, ' ');
    std::string number =
        Below(random, 2) == 0 ? std::string(kTexts[Below(random, std::size(kTexts))]) : NumberOfLayout(random);
    if (Below(random, 4) != 0 && number.size() < field.length)
        number.insert(0, field.length - number.size(), ' ');
    number.resize(field.length, ' ');
    changed.replace(field.column - 1, field.length, number);
    text.replace(line.begin, line.size, changed);
}

void RepeatLine(std::string& text, Random& random) {
    const Line line = SomeLine(text, random);
    const std::string copy = text.substr(line.begin, line.size) + (Below(random, 2) == 0 ? "\n" : "\r\n");
    text.insert(line.begin, copy);
}

void CutLine(std::string& text, Random& random) {
    const Line line = SomeLine(text, random);
    const std::size_t kept = Below(random, line.size + 1);
    text.erase(line.begin + kept, line.size - kept);
}

}  // namespace

std::size_t MutateScanText(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed) {
    Random random(seed);
    std::string text(reinterpret_cast<const char*>(data), size);
    constexpr void (*kWays[])(std::string&, Random&) = {ChangeField, ChangeField, ChangeField, RepeatLine, CutLine};
    kWays[Below(random, std::size(kWays))](text, random);
    if (text.size() > most || text.empty())
        return 0;
    std::copy(text.begin(), text.end(), data);
    return text.size();
}

}  // namespace halvern::fuzz
