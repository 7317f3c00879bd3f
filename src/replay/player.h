#pragma once

#include <exception>
#include <iosfwd>
#include <string>
#include <vector>

#include "replay/replay_desktop.h"
#include "replay/script.h"

namespace halvern::replay {

/// How a replay ends, as the process tells it.
inline constexpr int kRanToItsEnd = 0, kLineFailed = 1, kNoScript = 2, kProgramFailed = 70;

/// Runs the program from a script. One to a process, since the program's state is the process's.
class Player final : private AnswerSource {
  public:
    /// Given     name   of the script, as complaints show it
    ///           out    takes message boxes and what `print` asks for
    ///           err    takes complaints: `NAME:LINE: reason`, LINE being the line that was taken last. Behind a failure of
    ///                  the program stand the events that were running, and the version
    Player(Script script, std::string name, std::ostream& out, std::ostream& err);

    /// Starts the program and gives it the events one by one. A script that ends leaves the program without a word,
    /// even in the middle of a command that waits for an answer.
    ///
    /// Returns   kRanToItsEnd, kLineFailed, or kProgramFailed after a run-time failure that no command caught, or a defect
    int Play();

  private:
    bool AnswerComesNext() const override { return script_.NextIs("answer"); }
    void CarryOutNextLine() override;
    void PlayToTheEnd();
    void PlayLines();
    void CheckOutput();
    void Complain(const std::string& reason);
    void Report(const std::exception& failure);
    std::string Place() const;

    Script script_;
    std::string name_;
    std::ostream& out_;
    std::ostream& err_;
    /// The events that have begun, the outermost first: an answer comes while the event that asked is running.
    std::vector<std::string> running_;
    ReplayDesktop desktop_;
};

}  // namespace halvern::replay
