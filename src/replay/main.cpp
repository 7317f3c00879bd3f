#include <iostream>
#include <string>

#include "replay/events.h"
#include "replay/player.h"
#include "replay/script.h"
#include "shell/version.h"
#include "store/file_calls.h"
#include "store/standard_streams.h"
#include "store/terminal_text.h"

namespace {

using namespace halvern;

constexpr const char* kUsage =
    "usage: halvern-replay SCRIPT        run the script (\"-\" reads it from standard input)\n"
    "       halvern-replay --help | --version\n";

constexpr const char* kAbout =
    "\n"
    "Runs the program without a window, on the events of a script: UTF-8 text, one event a\n"
    "line. Blank lines and lines that start with # are passed over; a word in double quotes\n"
    "may hold blanks, \\\" and \\\\. The program's message boxes and what the script prints go\n"
    "to standard output, complaints to standard error.\n"
    "\n"
    "Events:\n";

constexpr const char* kStatuses =
    "\n"
    "Controls and windows go by their design names: KeldIt, Prn2Array(1), Plotit.Command1.\n"
    "\n"
    "Exit status:\n"
    "  0   the script ran to its end, or the user ended the program at its last line\n"
    "  1   a line could not be carried out\n"
    "  2   bad usage, or the script can't be read or is not UTF-8\n"
    "  70  a fatal run-time failure of the program\n";

/// The status after a text for the user: whether it could be written.
int Told() {
    if (std::cout.flush())
        return replay::kRanToItsEnd;
    std::cerr << "halvern-replay: the output can't be written\n";
    return replay::kLineFailed;
}

int Help() {
    std::cout << kUsage << kAbout;
    replay::PrintEvents(std::cout);
    std::cout << kStatuses;
    return Told();
}

int BadUsage() {
    std::cerr << kUsage;
    return replay::kNoScript;
}

int RunScript(const std::string& path) {
    std::string text;
    try {
        text = replay::ReadScript(path);
    } catch (const replay::ScriptUnreadable& error) {
        std::cerr << OnTerminal(path + ": " + error.what()) << '\n';
        return replay::kNoScript;
    }
    return replay::Player(replay::Script(text), path, std::cout, std::cerr).Play();
}

}  // namespace

int main(int argc, char** argv) {
    HoldStandardStreams();
    TakeSignalsOfWritingAsErrors();
    if (argc != 2)
        return BadUsage();
    const std::string argument = argv[1];
    if (argument == "--help")
        return Help();
    if (argument == "--version") {
        std::cout << "halvern-replay " << RevisionNumbers() << '\n';
        return Told();
    }
    if (argument.starts_with('-') && argument != "-")
        return BadUsage();
    return RunScript(argument);
}
