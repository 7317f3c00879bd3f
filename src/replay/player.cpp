#include "replay/player.h"

#include <exception>
#include <ostream>
#include <utility>

#include "replay/events.h"
#include "shell/start.h"
#include "store/failure.h"

namespace halvern::replay {

Player::Player(Script script, std::string name, std::ostream& out, std::ostream& err)
    : script_(std::move(script)), name_(std::move(name)), out_(out), err_(err), desktop_(*this, out) {}

int Player::Play() {
    try {
        PlayToTheEnd();
    } catch (const ScriptError& error) {
        Complain(error.what());
        return kLineFailed;
    } catch (const RuntimeFailure& failure) {
        Complain("Run-time error '" + std::to_string(failure.Number()) + "': " + failure.what());
        return kProgramFailed;
    } catch (const std::exception& defect) {
        Complain(std::string("internal error: ") + defect.what());
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
    CarryOut(desktop_, line.words);
    CheckOutput();
}

void Player::CheckOutput() {
    if (!out_.flush())
        throw ScriptError("the output can't be written");
}

void Player::Complain(const std::string& reason) {
    out_.flush();
    err_ << name_ << ':' << std::to_string(script_.LineNumber()) << ": " << reason << '\n' << std::flush;
}

}  // namespace halvern::replay
