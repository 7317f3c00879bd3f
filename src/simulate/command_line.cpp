#include "simulate/command_line.h"

#include <iomanip>
#include <optional>
#include <ostream>
#include <set>
#include <string_view>

#include "simulate/experiment.h"
#include "simulate/parameter_text.h"
#include "simulate/scan_writer.h"

namespace halvern::simulate {

namespace {

constexpr std::string_view kProgram = "halvern-simulate";

constexpr std::string_view kUsage =
    "usage: halvern-simulate --output FOLDER [PARAMETERS] [--KEY VALUE ...]\n"
    "       halvern-simulate --help | --version\n";

constexpr std::string_view kAbout = R"(
Simulates a sedimentation-velocity experiment and writes its scan files, 00001.RA1 on
(interference: 00001.IP1 on), and a list file of their names into a folder. It solves the
Lamm equation for a mixture of ideal species in a sector-shaped cell. The rotor takes on
each speed at once, and a scan takes no time.

PARAMETERS is a text file of lines "key = value"; a # begins a comment. --KEY VALUE or
--KEY=VALUE on the command line replaces what the file says; species or speeds on the
command line replace all those of the file.

A small parameter file:

    optics  = absorbance
    species = concentration:0.6 s:4.3 mass:66      # absorbance units, svedbergs, kDa
    species = concentration:0.4 s:6.6 mass:132
    speed   = rpm:50000 from:1800 to:7200 scans:60
    noise   = 0.005

Keys, what they are by default, and what they mean. Signals are in absorbance units or, with
interference optics, in fringes. Where two defaults stand, the second is for interference.

)";

constexpr std::string_view kParts = R"(
A species consists of
  concentration:C   loading concentration, as a signal
  s:S               sedimentation coefficient in the solvent of the run, svedbergs
  mass:M            kDa; D is then s R T / (M (1 - vbar density)), or else
  diffusion:D       1E-7 cm^2/s
  vbar:V            partial specific volume with mass, mL/g; by default that of the key vbar
A speed consists of
  rpm:N                      revolutions per minute
  from:T1 to:T2 scans:N      scans in even steps, the first at T1 and the last at T2, or else
  at:T1,T2,T3                a scan at each of these times
  until:T                    end of the speed, by default its last scan; may stand without scans
Times are seconds from the start of the first speed; a speed starts where the one before ended.

With jumps-between a scan, and all after it, stand a whole fringe above or below the scan
before; with jumps-within each scan jumps by a fringe at so many radii, and from there outwards
stays there.

Resolution: as it comes, the solver is off by less than 0.0005 of the loading concentration in
the first minutes, and by less than 0.0001 once the boundary has come halfway; only the layer at
the base is worse. That, and the digits of the files as they come, are good for 0.01 % of s.
From 1000 cells, a tolerance of 1e-6, a radial step of 0.005 cm, 3 decimals of a signal and 4
digits of omega squared t on, s is good to 0.1 %.

Exit status:
  0   the files are written
  1   they can't be written
  2   bad usage, or a parameter is impossible or missing
)";

struct Options {
    std::optional<std::string> parameterFile;
    std::optional<std::string> output;
    std::vector<std::pair<std::string, std::string>> settings;  // key, value
};

/// Splits --KEY=VALUE, or takes the next argument for the value.
class ArgumentReader {
  public:
    explicit ArgumentReader(const std::vector<std::string>& arguments) : arguments_(arguments) {}

    Options Read() {
        Options options;
        for (; at_ < arguments_.size(); ++at_)
            ReadOne(options);
        return options;
    }

  private:
    void ReadOne(Options& options) {
        const std::string& argument = arguments_[at_];
        if (!argument.starts_with("-")) {
            if (options.parameterFile)
                throw ParameterError(argument + ": there is a parameter file already: " + *options.parameterFile);
            options.parameterFile = argument;
            return;
        }
        const auto equals = argument.find('=');
        const std::string option = argument.substr(0, equals);
        const bool isOutput = option == "--output";
        if (!option.starts_with("--") || (!isOutput && !IsKey(option.substr(2))))
            throw ParameterError(option + ": there is no such option");
        std::string value = equals == std::string::npos ? NextArgument(option) : argument.substr(equals + 1);
        if (isOutput)
            options.output = std::move(value);
        else
            options.settings.emplace_back(option.substr(2), std::move(value));
    }

    std::string NextArgument(const std::string& option) {
        if (++at_ == arguments_.size())
            throw ParameterError(option + ": its value is missing");
        return arguments_[at_];
    }

    const std::vector<std::string>& arguments_;
    std::size_t at_ = 0;
};

Parameters ParametersOf(const Options& options) {
    Parameters parameters;
    if (options.parameterFile)
        ReadParameterFile(parameters, *options.parameterFile);
    for (const auto& [key, value] : options.settings) {
        if (key == "species")
            parameters.species.clear();
        if (key == "speed")
            parameters.speeds.clear();
    }
    for (const auto& [key, value] : options.settings)
        Set(parameters, key, value, "--" + key);
    Check(parameters);
    return parameters;
}

int Simulate(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    const Options options = ArgumentReader(arguments).Read();
    const Parameters parameters = ParametersOf(options);
    if (!options.output || options.output->empty())
        throw ParameterError("--output: the folder for the files is missing");
    for (const auto& warning : Warnings(parameters))
        err << kProgram << ": " << warning << '\n';
    const auto scans = RunExperiment(parameters);
    WriteScans(parameters, scans, *options.output);
    out << scans.size() << " scans and " << parameters.listFile << " written to " << *options.output << '\n';
    return kWritten;
}

/// Passes a status on if what was told could be written.
int Told(int status, std::ostream& out, std::ostream& err) {
    if (out.flush())
        return status;
    err << kProgram << ": the output can't be written\n";
    return kNotWritten;
}

int Help(std::ostream& out) {
    out << kUsage << kAbout;
    PrintKeys(out);
    out << kParts;
    return kWritten;
}

int Version(std::ostream& out) {
    out << kProgram << ' ' << HALVERN_VERSION_MAJOR << '.' << HALVERN_VERSION_MINOR << '.' << std::setfill('0')
        << std::setw(4) << HALVERN_VERSION_REVISION << '\n';
    return kWritten;
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    if (arguments.size() == 1 && arguments[0] == "--help")
        return Told(Help(out), out, err);
    if (arguments.size() == 1 && arguments[0] == "--version")
        return Told(Version(out), out, err);
    if (arguments.empty()) {
        err << kUsage;
        return kBadParameters;
    }
    try {
        return Told(Simulate(arguments, out, err), out, err);
    } catch (const ParameterError& error) {
        err << kProgram << ": " << error.what() << '\n';
        return kBadParameters;
    } catch (const WriteError& error) {
        err << kProgram << ": " << error.what() << '\n';
        return kNotWritten;
    }
}

}  // namespace halvern::simulate
