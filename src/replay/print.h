#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include "ui/desktop.h"
#include "ui/form.h"

namespace halvern::replay {

/// A message box that has been answered.
struct AnsweredMessage {
    int style;
    std::string_view title;
    std::string_view text;
    Answer answer;
};

/// `message style=S title="..." text="..." answer=ok`, written out at once.
void PrintMessage(std::ostream& out, const AnsweredMessage& message);

/// What of a desktop can be printed.
struct PrintedDesktop {
    const Form* dialog = nullptr;                 ///< the modal dialog that is open; null for none
    std::string clipboard = "empty";              ///< or "text ..." or "picture WIDTHxHEIGHT"
    std::span<const std::string> onPrinter = {};  ///< lines, see ReplayPrinter
};

/// Writes what a script asks for with `print SUBJECT`.
///
/// Given     subject   report, menus, plot, dialog, clipboard or printer
/// Throws    ScriptError for another subject, and for a dialog when none is open
void Print(std::ostream& out, std::string_view subject, const PrintedDesktop& desktop);

/// The text in double quotes, with `\\`, `\"`, `\r`, `\n` and `\t` for what would break the line or the quotes.
std::string Quoted(std::string_view text);

/// A number of at most nine significant digits, the least that tell any two singles apart: "0.1", "2.5e-05", "-0".
std::string NineDigits(double value);

}  // namespace halvern::replay
