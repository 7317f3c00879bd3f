#pragma once

#include <stdexcept>
#include <string>

namespace halvern {

/// Numbers of the run-time failures.
enum class FailureCode : int {
    kInvalidProcedureCall = 5,
    kOverflow = 6,
    kSubscriptOutOfRange = 9,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kBadFileNumber = 52,
    kFileNotFound = 53,
    kFileAlreadyOpen = 55,
    kDeviceError = 57,
    kDiskFull = 61,
    kInputPastEnd = 62,
    kTooManyFiles = 67,
    kPermissionDenied = 70,
    kPathOrFileAccess = 75,
    kPathNotFound = 76,
    kPrinterError = 482,
    kClipboardError = 521,
    kCancelled = 32755,
};

/// A run-time failure. File commands have one exit that catches it; everything else lets it end the program.
class RuntimeFailure : public std::runtime_error {
  public:
    /// Given     detail   what it happened to, a file's name say; for whoever looks for the cause, not part of the text
    explicit RuntimeFailure(FailureCode code, std::string detail = {});

    FailureCode Code() const { return code_; }
    int Number() const { return static_cast<int>(code_); }
    const std::string& Detail() const { return detail_; }

  private:
    FailureCode code_;
    std::string detail_;
};

/// Short for throwing, and kept out of line so that the checks stay small.
[[noreturn]] void Fail(FailureCode code, std::string detail = {});

/// The words of a failure: "Division by zero".
const char* FailureText(FailureCode code);

}  // namespace halvern
