#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ui/desktop.h"

namespace halvern {

/// Text files are known by numbers, 1 .. kMostOpenFiles. A number stays taken until Close, also after a failure: a file
/// that a failure interrupted stays open as it is until the program ends.
inline constexpr std::int16_t kMostOpenFiles = 511;

/// The smallest number that no open file has.
///
/// Fails     67 when all are taken
std::int16_t FreeFile();

/// Opens a file for reading lines.
///
/// Given     name   path in the file system's bytes, relative to the current directory
/// Fails     52 with a number out of range or a name that no file can have, 55 with a number in use, 53 when there
///           is no such file, 76 when a part of the path is no folder, 70 without the permission, 75 for what is no
///           file, 67 when the system has no more open files to give
void OpenForInput(std::int16_t number, std::string_view name);

/// Opens a file for writing lines; an old file of that name is emptied, and what is no file is written to if it takes
/// lines.
///
/// Fails     as OpenForInput, 61 with a full disk
void OpenForOutput(std::int16_t number, std::string_view name);

/// Whether every line has been read. Fails 52 for a number that is not open, 57 when the file cannot be read.
bool AtEnd(std::int16_t number);

class InputFile;

/// The file itself, for whoever reads many lines; valid until Close. Fails 52 for a number that is not open for input.
InputFile& OpenedForInput(std::int16_t number);

/// The next line without its end, which is LF or CR LF; the last line may lack one.
///
/// The text is valid until the next call for this file. Of a line longer than InputFile::kLongestLine bytes the rest is
/// lost.
/// Fails     62 at the end of the file, else as AtEnd
std::string_view ReadLine(std::int16_t number);

/// Writes a line and its end, CR LF.
///
/// Fails     52 for a number that is not open for output, 61 with a full disk, 57 with any other fault
void WriteLine(std::int16_t number, std::string_view line);

/// Fails     52 for a number that is not open; as WriteLine, with what had not been handed to the file system yet
void Close(std::int16_t number);

/// Hands what was written to all open files over to the file system, as far as it takes it. Never fails.
void FlushOpenFiles();

/// Whether a name is that of a regular file, or of a link to one. The name counts as it stands, blanks included.
bool FileExists(std::string_view name);

/// Asks for an existing file and moves the current directory to its folder. Returns the absolute path.
///
/// Fails     32755 when the user cancels
std::string ChooseExistingFile(const FileDialog& dialog);

/// The same for a file to be written, in a folder that need not exist.
std::string ChooseNewFile(const FileDialog& dialog);

/// The current directory, with a slash at its end; "/" if it has been removed.
std::string CurrentFolder();

/// Moves the current directory.
///
/// Fails     76 when there is no such folder, 70 without the permission
void ChangeFolder(const std::string& folder);

/// Takes a file away. Fails 53 when there is none, 70 without the permission.
void RemoveFile(const std::string& name);

}  // namespace halvern
