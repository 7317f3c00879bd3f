#pragma once

#include <QPoint>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <type_traits>

namespace halvern::test {

/// What a command of the system wrote, and its exit status.
struct CommandResult {
    std::string output;
    int status;
};
CommandResult RunCommand(const std::string& command);

/// Waits until a window of this title, of whatever program, is seen. Returns its number on the X server.
std::string FindWindow(const std::string& title);
/// Gives a window the keyboard.
void ActivateWindow(const std::string& window);

/// A person at the program: keys and mouse reach it as events of the X server, and what it shows is looked at between
/// two of its own events. Lives on a thread of its own; whatever does not come in time is an exception.
class User {
  public:
    /// Keys pressed together or one after the other: "alt+f", "Down Return".
    void Press(const std::string& keys);
    void Type(const std::string& text);
    void Click(QPoint place);
    /// The move of the mouse to a place of the program's screen, in xdotool's words and in pixels of the X server.
    std::string MoveTo(QPoint place);

    /// Waits until a window of the program with this title is seen, and has the keyboard. Returns its number.
    std::string AwaitWindow(const std::string& title);
    /// Waits until no window has this title.
    void AwaitNoWindow(const std::string& title);

    /// Runs xdotool.
    std::string Do(const std::string& arguments);

    /// Waits until the condition holds, looking whenever the program has nothing left to do.
    void Await(const std::string& what, std::function<bool()> condition);

    /// The same, with a limit: false if the condition has not come to hold by then.
    bool Comes(const std::string& what, std::function<bool()> condition, std::chrono::seconds patience);

    /// Calls a function between two events of the program.
    template <class Function>
    auto Look(Function function) -> std::invoke_result_t<Function> {
        std::invoke_result_t<Function> seen{};
        Await("a look", [&] {
            seen = function();
            return true;
        });
        return seen;
    }

    /// Opens a menu of the active window's bar by its access key and chooses items by theirs: 'f', "g".
    void Choose(char menu, const std::string& items);

    /// Writes what the screen shows.
    void Photograph(const std::string& name);

  private:
    friend int WithUser(const std::function<void(User&)>& acts);
    void ProgramIsOver();

    std::mutex mutex_;
    std::condition_variable news_;
    bool over_ = false;
    double ratio_ = 0.0;  // pixels of the X server for one of the program's; asked once, when the program has time
};

/// Runs the whole program on this thread while the user acts on another one. Returns its exit status.
int WithUser(const std::function<void(User&)>& acts);

}  // namespace halvern::test
