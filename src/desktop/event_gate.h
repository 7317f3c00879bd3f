#pragma once

#include <functional>
#include <string>
#include <vector>

class QObject;

namespace halvern {

/// The gate through which every event of the user and of the platform enters the program.
///
/// The toolkit can't carry exceptions, so that each of its events runs in here and comes back in any case. What a
/// handler throws ends the program: the gate lets nothing in any more, all nested event loops return, and each handler
/// that waited for one of them is left by a `ProgramEnd` of its own (see ThrowIfEnded).
class EventGate {
  public:
    /// Shows the user, in a box, what the program failed of. Without it a failure is told on standard error alone.
    std::function<void(const std::string& text)> TellFailure;
    /// Runs when the outermost event is over.
    std::function<void()> AfterEvent;

    /// Runs an event, unless the program has ended.
    ///
    /// `ProgramEnd` ends the program with status 0. A failure that no handler has caught is told on standard error, with
    /// the events that were running, and in a box, and ends it with status 70.
    ///
    /// Given     what   the event as a session script has it, without its values: "click KeldIt"
    void Run(const std::function<void()>& event, std::string what = "start");

    /// Ends the program; the first end is the one that counts.
    void End(int status);

    /// Whether the program has ended or is about to, the box of a failure being open.
    bool HasEnded() const { return ended_; }
    int Status() const { return status_; }

    /// Deletes an object of the toolkit when the outermost event is over, or soon if none is running. A window can be closed
    /// while a handler that began in one of its own menus passes through the events: the toolkit comes back to that menu.
    void DeleteWhenOver(QObject& object);

    /// What follows every nested event loop: leaves the waiting handler when the program has ended meanwhile.
    void ThrowIfEnded() const;

  private:
    void Fail(const std::string& onStandardError, const std::string& inBox);
    void RunToItsEnd(const std::function<void()>& event);

    bool ended_ = false;
    int status_ = 0;
    /// The events that have begun, the outermost first.
    std::vector<std::string> running_;
    std::vector<QObject*> leaving_;  ///< to be deleted when the outermost event is over
};

/// Exit status after a run-time failure.
inline constexpr int kFailureStatus = 70;

}  // namespace halvern
