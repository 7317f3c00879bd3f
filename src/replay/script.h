#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace halvern::replay {

/// A line of the script can't be carried out. The text is the reason, as the user reads it.
struct ScriptError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The file of the script can't be read, or holds no UTF-8 text.
struct ScriptUnreadable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Thrown by whoever needs another line when there is none; it leaves all handlers, as a ProgramEnd does.
struct ScriptEnd {};

/// An event of the script, taken apart.
struct ScriptLine {
    std::size_t number = 0;          ///< counted from 1, blank lines and comments included
    std::string text;                ///< as it stands in the script, without the blanks before it
    std::vector<std::string> words;  ///< at least one, unless there is an error
    std::string error;  ///< why the line can't be taken apart; empty if it can. The words go as far as that
};

/// The events of a session in the order in which they come: the replay's event queue.
class Script {
  public:
    /// Given     text   UTF-8, an event a line. Lines that are blank or start with `#` are no events. A word that starts
    ///                  with a double quote goes to the next one and may hold blanks, `\"` and `\\`
    explicit Script(std::string_view text);

    bool AtEnd() const { return next_ == lines_.size(); }

    /// Whether the next event is of this kind; false at the end.
    bool NextIs(std::string_view word) const;

    /// Takes the next event from the queue.
    ///
    /// Throws ScriptEnd at the end
    const ScriptLine& Next();

    /// Number of the line that was taken last, 0 before the first.
    std::size_t LineNumber() const { return lineNumber_; }

  private:
    std::vector<ScriptLine> lines_;
    std::size_t next_ = 0;
    std::size_t lineNumber_ = 0;
};

/// The text of a script file, checked to be UTF-8.
///
/// Given     path   the file; "-" is standard input, which is read to its end
/// Throws    ScriptUnreadable with the reason
std::string ReadScript(const std::string& path);

/// Whether every byte is part of a well-formed UTF-8 sequence.
bool IsUtf8(std::string_view text);

}  // namespace halvern::replay
