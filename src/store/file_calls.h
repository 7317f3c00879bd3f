#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace halvern {

/// The calls of the system behind the program's files: every byte that is written or read as a file passes through
/// here.
///
/// What went wrong comes back as a value; who asked makes a failure of it, or a word. A call that a signal interrupted
/// is made again.

/// A descriptor, or why there is none.
struct OpenedFile {
    int descriptor = -1;
    std::error_code error;
};

/// Opens a file for reading. What is no file is not waited for: the opening of a pipe returns without its writer.
OpenedFile OpenForReading(const std::string& path);

/// Makes a file for writing, or empties the one of that name. A pipe that nobody reads is an error.
OpenedFile OpenForWriting(const std::string& path);

/// How far a transfer came, and what ended it before its time.
struct Transfer {
    std::size_t bytes = 0;
    std::error_code error;
};

/// Reads what is there, at most the room given; 0 bytes without an error are the end of the file.
Transfer ReadFrom(int descriptor, std::span<char> room);

/// Writes all of it, in as many pieces as the system takes.
Transfer WriteTo(int descriptor, std::string_view bytes);

/// Closes for good, whatever it returns: what the system could not store before may show only here.
std::error_code CloseFile(int descriptor);

/// Writes a file as a whole: one of that name stays as it was until the new one is complete and on the disk.
///
/// The new file grows beside the old one under a name of its own, which is gone when this returns. A link stays a link:
/// the file behind it is replaced, and the new one has its permissions. What is no file, and a file in a folder that
/// takes no second one, is written to directly; that alone can lose the old content.
///
/// Result    what kept it from being written, a write-protected old file too
std::error_code ReplaceFile(const std::string& path, std::string_view content);

/// From here on a limit on the size of files and a pipe without a reader are errors of the call that meets them. The
/// system's default would end the program without a word.
void TakeSignalsOfWritingAsErrors();

}  // namespace halvern
