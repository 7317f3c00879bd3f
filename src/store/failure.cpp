#include "store/failure.h"

#include <utility>

namespace halvern {

namespace {

struct FailureRow {
    FailureCode code;
    const char* text;
};

constexpr FailureRow kFailures[] = {
    {FailureCode::kInvalidProcedureCall, "Invalid procedure call or argument"},
    {FailureCode::kOverflow, "Overflow"},
    {FailureCode::kSubscriptOutOfRange, "Subscript out of range"},
    {FailureCode::kDivisionByZero, "Division by zero"},
    {FailureCode::kTypeMismatch, "Type mismatch"},
    {FailureCode::kBadFileNumber, "Bad file name or number"},
    {FailureCode::kFileNotFound, "File not found"},
    {FailureCode::kFileAlreadyOpen, "File already open"},
    {FailureCode::kDeviceError, "Device I/O error"},
    {FailureCode::kDiskFull, "Disk full"},
    {FailureCode::kInputPastEnd, "Input past end of file"},
    {FailureCode::kTooManyFiles, "Too many files"},
    {FailureCode::kPermissionDenied, "Permission denied"},
    {FailureCode::kPathOrFileAccess, "Path/File access error"},
    {FailureCode::kPathNotFound, "Path not found"},
    {FailureCode::kPrinterError, "Printer error"},
    {FailureCode::kClipboardError, "Can't open Clipboard"},
    {FailureCode::kCancelled, "Cancel was selected"},
};

}  // namespace

RuntimeFailure::RuntimeFailure(FailureCode code, std::string detail)
    : std::runtime_error(FailureText(code)), code_(code), detail_(std::move(detail)) {}

void Fail(FailureCode code, std::string detail) { throw RuntimeFailure(code, std::move(detail)); }

const char* FailureText(FailureCode code) {
    for (const auto& row : kFailures)
        if (row.code == code)
            return row.text;
    return "Unknown failure";
}

}  // namespace halvern
