#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "faults/failing_calls.h"
#include "replay/replay_desktop.h"
#include "replay/script.h"
#include "support/data_files.h"

namespace halvern::test {

/// The program in this process, driven by lines of scripts, while calls of the system fail.
///
/// The data lie in the folder "data" of the test's own; what is written goes to its folder "out".
class Rig : private replay::AnswerSource {
  public:
    Rig();

    const DataFolder folder;
    const std::filesystem::path data = folder.Path() / "data", out = folder.Path() / "out";

    /// Carries out lines of a script. Result: what the program told meanwhile; a line that can't be carried out adds
    /// its reason, and ends it.
    std::string Do(const std::string& lines);

    /// The same while the calls for files below a folder fail by a plan.
    std::string DoWith(const FaultPlan& plan, const std::filesystem::path& below, const std::string& lines);

    /// Calls counted by DoWith.
    int Calls() const { return calls_; }

    /// Called at each pass through the event queue inside a command: what happens to the files meanwhile.
    std::function<void()>& AtPass() { return desktop_.atPass; }

    /// The mouse pointer that the program has set last.
    int Pointer() const { return desktop_.pointer; }

    /// Loads a moving boundary of 8 interference scans, and works out everything that there are files of.
    void Analyse();

  private:
    struct PointedDesktop : replay::ReplayDesktop {
        using ReplayDesktop::ReplayDesktop;
        void SetMousePointer(int shape) override { pointer = shape; }
        void DoEvents() override {
            if (atPass)
                atPass();
        }
        std::function<void()> atPass;
        int pointer = 0;
    };

    bool AnswerComesNext() const override;
    void CarryOutNextLine() override;

    std::ostringstream told_;
    PointedDesktop desktop_;
    std::optional<replay::Script> script_;
    int calls_ = 0;
};

/// A word of a script, whatever it holds.
std::string Word(const std::string& text);

/// Descriptors that this process has open.
int OpenDescriptors();

}  // namespace halvern::test
