#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

namespace halvern {

/// A text file that is being written; every line ends with carriage return and line feed.
///
/// Lines gather in a buffer. What was written stands in the file after Flush, after Finish, and at the object's end.
/// The old file is emptied at once, since a table that a failure interrupts is to hold its lines until then under its
/// name. After a fault of the file system nothing more is written: the file holds the lines handed over, up to where it
/// broke off.
class OutputFile {
  public:
    /// Makes the file, or empties the one of that name.
    ///
    /// Fails     70, 75, 76 and the like, with what kept it from being opened
    explicit OutputFile(std::string name);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Fails     61 with a full disk, 57 with any other fault; the lines before are in the file as far as it took them
    void WriteLine(std::string_view line);

    /// Hands everything over to the file system. Fails as WriteLine, and again after each failure.
    void Flush();

    /// Flushes and closes; a fault that shows only then is a failure too.
    void Finish();

  private:
    int descriptor_ = -1;
    std::string name_;
    std::string buffer_;
    std::error_code error_;  ///< what ended the writing
};

}  // namespace halvern
