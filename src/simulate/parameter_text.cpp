#include "simulate/parameter_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <ostream>
#include <set>
#include <variant>

namespace halvern::simulate {

namespace {

using P = Parameters;
using Member = std::variant<Optics P::*, std::string P::*, int P::*, std::optional<int> P::*, double P::*,
                            std::optional<double> P::*, std::vector<Species> P::*, std::vector<SpeedRun> P::*>;

struct Key {
    std::string_view name;
    Member member;
    double low, high;            // bounds of a number, both ends included
    std::string_view byDefault;  // empty: the member's first value
    std::string_view meaning;
};

constexpr double kMostSeconds = 9999999.0;  // the file has seven columns for them

constexpr Key kKeys[] = {
    {"optics", &P::optics, 0, 0, "", "absorbance or interference"},
    {"species", &P::species, 0, 0, "", "a species, see below; once for each"},
    {"speed", &P::speeds, 0, 0, "", "a time at one speed, see below; once for each, in order"},
    {"temperature", &P::temperatureCelsius, 0, 60, "", "C"},
    {"density", &P::density, 0.5, 2.5, "", "of the solvent, g/mL"},
    {"vbar", &P::partialSpecificVolume, 0, 2, "", "partial specific volume, mL/g, of species without one"},
    {"meniscus", &P::meniscusCm, 1, 9.9, "", "cm"},
    {"base", &P::baseCm, 1, 9.9, "", "cm"},
    {"read-from", &P::readFromCm, 0.1, 9.9, "meniscus - 0.05", "first radius of the scans, cm"},
    {"read-to", &P::readToCm, 0.1, 9.9, "base + 0.02", "last radius of the scans, cm"},
    {"radial-step", &P::radialStepCm, 1e-5, 1, "0.003 / 0.0007", "from point to point, cm"},
    {"radius-scatter", &P::radiusScatterCm, 0, 0.5, "0.0005 / 0",
     "farthest that a radius is off its step, cm; absorbance only"},
    {"seed", &P::seed, 0, 2147483647, "", "of all that is random; the same seed, the same files"},
    {"noise", &P::noise, 0, 10, "", "standard deviation of a signal"},
    {"readings", &P::readings, 1, 1000, "5 / 40", "readings that a signal is the mean of"},
    {"ceiling", &P::ceiling, 0, 1e6, "3 / 0", "no signal is above it before noise; 0 for no ceiling"},
    {"meniscus-spike", &P::meniscusSpike, 0, 10, "", "height of the peak at the meniscus"},
    {"ti-noise", &P::timeInvariantNoise, 0, 10, "", "pattern common to all scans, root mean square; interference only"},
    {"jitter", &P::jitter, 0, 100, "", "offsets of whole scans, standard deviation; interference only"},
    {"jumps-between", &P::jumpsBetween, 0, 1, "", "probability that a scan jumps by a fringe; interference only"},
    {"jumps-within", &P::jumpsWithin, 0, 100, "", "number of jumps by a fringe in each scan; interference only"},
    {"title", &P::title, 0, 0, "", "first line of the scan files"},
    {"cell", &P::cell, 1, 8, "", "number of the cell, in the files and their names"},
    {"wavelength", &P::wavelengthNm, 1, 999, "280 / 675", "nm, only written"},
    {"list", &P::listFile, 0, 0, "", "name of the list file"},
    {"radius-decimals", &P::radiusDecimals, 2, 5, "", "decimals of a radius in the file"},
    {"signal-decimals", &P::signalDecimals, 1, 8, "", "decimals of a signal's mantissa"},
    {"omega2t-digits", &P::omega2tDigits, 2, 6, "", "significant digits of omega squared t; instruments write 5"},
    {"cells", &P::cells, 50, 40000, "4000", "cells of the solver; by default more where a species needs it"},
    {"tolerance", &P::tolerance, 1e-12, 0.01, "", "error of one time step of the solver"},
};

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string Shortest(double value) {
    std::array<char, 32> text{};
    const bool isPlain = value == 0.0 || (value >= 1e-4 && value < 1e8);
    const auto format = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format).ptr;
    return {text.data(), end};
}

[[noreturn]] void Complain(const std::string& where, const std::string& reason) {
    throw ParameterError(where + ": " + reason);
}

/// What a complaint says about a value, and where.
struct Subject {
    std::string_view name;
    const std::string& where;
};

double Number(std::string_view text, double low, double high, Subject subject) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size())
        Complain(subject.where, std::string(subject.name) + " is not a number: " + std::string(text));
    if (!(value >= low && value <= high))
        Complain(subject.where, std::string(subject.name) + " is " + std::string(text) + ", and has to be " +
                                    Shortest(low) + " to " + Shortest(high));
    return value;
}

int WholeNumber(std::string_view text, double low, double high, Subject subject) {
    const double value = Number(text, low, high, subject);
    const int whole = static_cast<int>(value);
    if (static_cast<double>(whole) != value)
        Complain(subject.where, std::string(subject.name) + " is not a whole number: " + std::string(text));
    return whole;
}

/// The parts name:value of a species or a speed.
class Parts {
  public:
    Parts(std::string_view text, const std::string& where, std::initializer_list<std::string_view> names)
        : where_(where) {
        for (text = Trimmed(text); !text.empty();) {
            const auto word = text.substr(0, text.find_first_of(kBlanks));
            text = Trimmed(text.substr(word.size()));
            const auto colon = word.find(':');
            if (colon == std::string_view::npos)
                Complain(where_, "there is no colon in " + std::string(word));
            const auto name = word.substr(0, colon);
            if (std::find(names.begin(), names.end(), name) == names.end())
                Complain(where_, "there is no such part: " + std::string(name));
            if (!parts_.emplace(name, word.substr(colon + 1)).second)
                Complain(where_, std::string(name) + " is given twice");
        }
    }

    bool Has(std::string_view name) const { return parts_.contains(name); }
    std::string_view Text(std::string_view name) const {
        if (!Has(name))
            Complain(where_, std::string(name) + " is missing");
        return parts_.find(name)->second;
    }
    double Value(std::string_view name, double low, double high) const {
        return Number(Text(name), low, high, {name, where_});
    }
    std::optional<double> Optional(std::string_view name, double low, double high) const {
        return Has(name) ? std::optional(Value(name, low, high)) : std::nullopt;
    }
    int Whole(std::string_view name, double low, double high) const {
        return WholeNumber(Text(name), low, high, {name, where_});
    }

  private:
    const std::string& where_;
    std::map<std::string_view, std::string_view> parts_;
};

Species SpeciesOf(std::string_view text, const std::string& where) {
    const Parts parts(text, where, {"concentration", "s", "mass", "diffusion", "vbar"});
    Species species;
    species.where = where;
    species.concentration = parts.Value("concentration", 0, 1000);
    species.sSvedberg = parts.Value("s", 0.001, 100000);
    species.massKDa = parts.Optional("mass", 0.01, 1e7);
    species.diffusionFick = parts.Optional("diffusion", 0.001, 1000);
    species.partialSpecificVolume = parts.Optional("vbar", 0, 2);
    if (species.massKDa.has_value() == species.diffusionFick.has_value())
        Complain(where, "a species has either a mass or a diffusion");
    if (species.diffusionFick && species.partialSpecificVolume)
        Complain(where, "vbar says nothing about a species whose diffusion is given");
    return species;
}

std::vector<double> EvenTimes(const Parts& parts, const std::string& where) {
    const int scans = parts.Whole("scans", 1, 1e6);
    const double from = parts.Value("from", 0, kMostSeconds);
    if (scans == 1 && !parts.Has("to"))
        return {from};
    const double to = parts.Value("to", 0, kMostSeconds);
    if (scans == 1 ? to != from : to <= from)
        Complain(where, scans == 1 ? "a single scan has one time" : "to has to be later than from");
    if (static_cast<std::size_t>(scans) > kMostScans)
        Complain(where, "there are " + std::to_string(scans) + " scans, and a data set holds no more than " +
                            std::to_string(kMostScans));
    std::vector<double> times(static_cast<std::size_t>(scans), to);
    for (std::size_t i = 0; i + 1 < times.size(); ++i)
        times[i] = from + (to - from) * static_cast<double>(i) / static_cast<double>(times.size() - 1);
    return times;
}

std::vector<double> ListedTimes(std::string_view text, const std::string& where) {
    std::vector<double> times;
    for (std::size_t at = 0; at <= text.size();) {
        const auto end = std::min(text.find(',', at), text.size());
        times.push_back(Number(text.substr(at, end - at), 0, kMostSeconds, {"at", where}));
        at = end + 1;
    }
    return times;
}

SpeedRun SpeedOf(std::string_view text, const std::string& where) {
    const Parts parts(text, where, {"rpm", "from", "to", "scans", "at", "until"});
    SpeedRun run;
    run.where = where;
    run.rpm = parts.Whole("rpm", 1, 100000);
    const bool even = parts.Has("from") || parts.Has("to") || parts.Has("scans");
    if (even && parts.Has("at"))
        Complain(where, "the times of the scans are either listed or even");
    if (even)
        run.scanSeconds = EvenTimes(parts, where);
    else if (parts.Has("at"))
        run.scanSeconds = ListedTimes(parts.Text("at"), where);
    else if (!parts.Has("until"))
        Complain(where, "a speed has scans or an end");
    const double last = run.scanSeconds.empty() ? 0.0 : run.scanSeconds.back();
    run.endSeconds = parts.Optional("until", 0, kMostSeconds).value_or(last);
    if (run.endSeconds < last)
        Complain(where, "the speed ends before its last scan");
    return run;
}

Optics OpticsOf(std::string_view text, const std::string& where) {
    if (text == "absorbance")
        return Optics::kAbsorbance;
    if (text == "interference")
        return Optics::kInterference;
    Complain(where, "optics are absorbance or interference, not " + std::string(text));
}

/// A text that becomes a line of a file, or for the list file its name within the folder.
std::string TextOf(std::string_view text, const Key& key, const std::string& where) {
    const bool isPath = text.find('/') != std::string_view::npos || text == "." || text == "..";
    if (text.empty() || (key.name == "list" && isPath))
        Complain(where,
                 std::string(key.name) + (text.empty() ? " is empty" : " is the name of a file without a folder"));
    if (text.find_first_of("\r\n") != std::string_view::npos)
        Complain(where, std::string(key.name) + " is more than one line");
    return std::string(text);
}

struct Setter {
    Parameters& parameters;
    const Key& key;
    std::string_view text;
    const std::string& where;

    void operator()(Optics P::*member) const { parameters.*member = OpticsOf(text, where); }
    void operator()(std::string P::*member) const { parameters.*member = TextOf(text, key, where); }
    void operator()(int P::*member) const {
        parameters.*member = WholeNumber(text, key.low, key.high, {key.name, where});
    }
    void operator()(std::optional<int> P::*member) const {
        parameters.*member = WholeNumber(text, key.low, key.high, {key.name, where});
    }
    void operator()(double P::*member) const {
        parameters.*member = Number(text, key.low, key.high, {key.name, where});
    }
    void operator()(std::optional<double> P::*member) const {
        parameters.*member = Number(text, key.low, key.high, {key.name, where});
    }
    void operator()(std::vector<Species> P::*member) const { (parameters.*member).push_back(SpeciesOf(text, where)); }
    void operator()(std::vector<SpeedRun> P::*member) const { (parameters.*member).push_back(SpeedOf(text, where)); }
};

bool IsRepeated(const Key& key) {
    return std::holds_alternative<std::vector<Species> P::*>(key.member) ||
           std::holds_alternative<std::vector<SpeedRun> P::*>(key.member);
}

const Key* FindKey(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(kKeys), std::end(kKeys), [&](const Key& k) { return k.name == name; });
    return found == std::end(kKeys) ? nullptr : found;
}

struct DefaultText {
    std::string operator()(Optics P::* /*member*/) const { return IsAbsorbance(P{}) ? "absorbance" : "interference"; }
    std::string operator()(std::string P::*member) const { return Parameters{}.*member; }
    std::string operator()(int P::*member) const { return std::to_string(Parameters{}.*member); }
    std::string operator()(double P::*member) const { return Shortest(Parameters{}.*member); }
    template <typename Other>
    std::string operator()(Other P::* /*member*/) const {
        return "";
    }
};

std::string_view WithoutComment(std::string_view line) {
    for (std::size_t at = line.find('#'); at != std::string_view::npos; at = line.find('#', at + 1))
        if (at == 0 || kBlanks.find(line[at - 1]) != std::string_view::npos)
            return line.substr(0, at);
    return line;
}

}  // namespace

bool IsKey(std::string_view key) { return FindKey(key) != nullptr; }

void Set(Parameters& parameters, std::string_view key, std::string_view value, const std::string& where) {
    const Key* const found = FindKey(key);
    if (found == nullptr)
        Complain(where, "there is no such key: " + std::string(key));
    std::visit(Setter{parameters, *found, Trimmed(value), where}, found->member);
    parameters.where.insert_or_assign(std::string(key), where);
}

void ReadParameters(Parameters& parameters, std::string_view text, const std::string& name) {
    std::set<std::string_view> seen;
    std::size_t number = 0;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = Trimmed(WithoutComment(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::string where = name + ":" + std::to_string(++number);
        if (line.empty())
            continue;
        const auto equals = line.find('=');
        if (equals == std::string_view::npos)
            Complain(where, "a line is key = value");
        const auto key = Trimmed(line.substr(0, equals));
        const Key* const found = FindKey(key);
        if (found != nullptr && !IsRepeated(*found) && !seen.insert(found->name).second)
            Complain(where, std::string(key) + " is given twice");
        Set(parameters, key, line.substr(equals + 1), where);
    }
}

namespace {

/// A file may have no end, a device for example; parameters take a few lines.
constexpr std::size_t kLongestParameterFile = 1 << 20;

std::string TextOf(std::istream& file, const std::string& path) {
    std::string text(kLongestParameterFile + 1, '\0');
    errno = 0;
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (file.bad())
        Complain(path, errno != 0 ? std::strerror(errno) : "it can't be read");
    text.resize(static_cast<std::size_t>(file.gcount()));
    if (text.size() > kLongestParameterFile)
        Complain(path, "it is too long for a parameter file");
    return text;
}

}  // namespace

void ReadParameterFile(Parameters& parameters, const std::string& path) {
    if (std::error_code error; std::filesystem::is_directory(path, error))
        Complain(path, "it is a folder");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        Complain(path, std::strerror(errno));
    ReadParameters(parameters, TextOf(file, path), path);
}

void PrintKeys(std::ostream& out) {
    constexpr int kNameWidth = 17, kDefaultWidth = 17;
    for (const auto& key : kKeys) {
        const auto text = key.byDefault.empty() ? std::visit(DefaultText{}, key.member) : std::string(key.byDefault);
        out << "  " << std::left << std::setw(kNameWidth) << key.name << std::setw(kDefaultWidth) << text << key.meaning
            << '\n';
    }
}

}  // namespace halvern::simulate
