#include "replay/player.h"

#include <exception>
#include <ostream>
#include <utility>

#include "replay/events.h"
#include "shell/failure_report.h"
#include "shell/start.h"
#include "store/failure.h"
#include "store/terminal_text.h"

namespace halvern::replay {

Player::Player(Script script, std::string name, std::ostream& out, std::ostream& err)
    : script_(std::move(script)), name_(std::move(name)), out_(out), err_(err), desktop_(*this, out) {}

int Player::Play() {
    try {
        PlayToTheEnd();
    } catch (const ScriptError& error) {
        Complain(error.what());
        return kLineFailed;
    } catch (const std::exception& failure) {
        Report(failure);
        return kProgramFailed;
    }
    return kRanToItsEnd;
}

void Player::PlayToTheEnd() {
    try {
        PlayLines();
    } catch (const ScriptEnd&) {
    }
    CheckOutput();
}

void Player::PlayLines() {
    // The program asks for the size of the screen when it places its windows.
    if (script_.NextIs("screen"))
        CarryOutNextLine();
    try {
        Main();
        while (!desktop_.LoadedForms().empty())
            CarryOutNextLine();
    } catch (const ProgramEnd&) {
    }
    script_.Next();
    throw ScriptError("the program has ended");
}

void Player::CarryOutNextLine() {
    const ScriptLine& line = script_.Next();
    if (!line.error.empty())
        throw ScriptError(line.error);
    running_.push_back(line.text);
    CarryOut(desktop_, line.words);
    running_.pop_back();
    CheckOutput();
}

void Player::CheckOutput() {
    if (!out_.flush())
        throw ScriptError("the output can't be written");
}

void Player::Report(const std::exception& failure) {
    out_.flush();
    err_ << OnTerminal(Place()) << FailureReport(failure, running_, "halvern-replay") << std::flush;
}

std::string Player::Place() const { return name_ + ':' + std::to_string(script_.LineNumber()) + ": "; }

void Player::Complain(const std::string& reason) {
    out_.flush();
    err_ << OnTerminal(Place() + reason) << '\n' << std::flush;
}

}  // namespace halvern::replay
