#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace halvern {

/// A text file that is being written; every line ends with carriage return and line feed.
///
/// Lines gather in a buffer. What was written stands in the file after Flush, after Finish, and at the object's end.
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

    /// Hands everything over to the file system.
    void Flush();

    /// Flushes and closes; a fault that shows only then is a failure too.
    void Finish();

  private:
    int descriptor_;
    std::string name_;
    std::string buffer_;
};

}  // namespace halvern
