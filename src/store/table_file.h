#pragma once

#include <string>
#include <string_view>

namespace halvern {

/// Asks where to save a table. Returns the path.
///
/// Given     title   of the file dialog
/// Fails     32755 when the user cancels
std::string AskForTableFile(std::string_view title);

/// Opens the file chosen, `OutFileName`, under a free number, `FileNum`. Fails as OpenForOutput.
void OpenTableFile(const std::string& chosen);

/// A line of the open table.
void WriteTableLine(std::string_view line);

/// The lines that every table begins with: the program, its revision, the list file.
void WriteTableOrigin();

/// Ends the open table.
void CloseTableFile();

}  // namespace halvern
